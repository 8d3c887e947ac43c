#include "records/filter_strip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int StripHeight = 40;
constexpr int StripMargin = 16;
constexpr int Gap = 14;

}  // namespace

QLabel* StripLabel(const QString& text, const QString& role) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("role", role);
    return label;
}

FilterStrip::FilterStrip() : row_(new QHBoxLayout(this)) {
    setProperty("role", u"strip"_s);
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(StripHeight);
    row_->setContentsMargins(StripMargin, 0, StripMargin, 0);
    row_->setSpacing(0);
    row_->addStretch(1);
}

FilterStrip::FilterStrip(const QWidget& form) : FilterStrip() {
    QLabel* title = StripLabel(form.windowTitle(), u"form"_s);
    connect(&form, &QWidget::windowTitleChanged, title, &QLabel::setText);
    row_->addWidget(title);
    ++behind_;
}

/// In front of the stretch.
void FilterStrip::Append(QWidget* widget) {
    row_->insertWidget(row_->count() - behind_, widget);
}

QLabel* FilterStrip::Place(const QString& caption, const QString& name, QWidget* box, int width) {
    QLabel* label = controls::MakeCaption(caption, box, this);
    box->setObjectName(name);
    box->setFixedWidth(width);
    Append(label);
    Append(box);
    row_->insertSpacing(row_->count() - behind_, Gap);
    return label;
}

void FilterStrip::AddPeriod(std::array<controls::DTPicker*, 2>& pickers) {
    for (controls::DTPicker*& picker : pickers) picker = new controls::DTPicker;
    Add(u"由"_s, u"DTP(0)"_s, pickers[0], kDateWidth);
    Add(u"至"_s, u"DTP(1)"_s, pickers[1], kDateWidth);
}

void FilterStrip::AddCheck(const QString& name, controls::CheckBox* box) {
    box->KeyPressed = controls::EnterMovesOn;
    box->setObjectName(name);
    Append(box);
    row_->insertSpacing(row_->count() - behind_, Gap);
}

controls::Button* FilterStrip::AddButton(const QString& caption, const QString& name) {
    auto* button = new controls::Button(caption);
    button->setObjectName(name);
    button->setDefault(true);
    Append(button);
    row_->insertSpacing(row_->count() - behind_, Gap);
    return button;
}
