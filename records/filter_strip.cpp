#include "records/filter_strip.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int StripHeight = 40;
constexpr int StripMargin = 16;
constexpr int Gap = 14;

}  // namespace

FilterStrip::FilterStrip(const QWidget& form) : row_(new QHBoxLayout(this)) {
    setProperty("role", u"strip"_s);
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(StripHeight);
    row_->setContentsMargins(StripMargin, 0, StripMargin, 0);
    row_->setSpacing(0);
    auto* title = new QLabel(form.windowTitle());
    title->setTextFormat(Qt::PlainText);
    title->setProperty("role", u"form"_s);
    connect(&form, &QWidget::windowTitleChanged, title, &QLabel::setText);
    row_->addStretch(1);
    row_->addWidget(title);
}

/// In front of the stretch and the title.
void FilterStrip::Append(QWidget* widget) {
    row_->insertWidget(row_->count() - 2, widget);
}

QLabel* FilterStrip::Place(const QString& caption, const QString& name, QWidget* box, int width) {
    QLabel* label = controls::MakeCaption(caption, box, this);
    box->setObjectName(name);
    box->setFixedWidth(width);
    Append(label);
    Append(box);
    row_->insertSpacing(row_->count() - 2, Gap);
    return label;
}

void FilterStrip::AddCheck(const QString& name, controls::CheckBox* box) {
    box->KeyPressed = controls::EnterMovesOn;
    box->setObjectName(name);
    Append(box);
    row_->insertSpacing(row_->count() - 2, Gap);
}

controls::Button* FilterStrip::AddButton(const QString& caption) {
    auto* button = new controls::Button(caption);
    button->setObjectName(u"Cmd"_s);
    button->setDefault(true);
    Append(button);
    return button;
}
