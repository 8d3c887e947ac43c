#include "app/dressing.h"

#include "app/product.h"
#include "platform/controls/box.h"
#include "platform/controls/card.h"
#include "platform/controls/keys.h"
#include "platform/controls/look.h"
#include "platform/controls/paint.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace dressing {
namespace {

namespace paint = controls::paint;

constexpr QSize kMark(40, 40);

constexpr int kCaption = 54;  // the least width; the style sheet's padding is the gap
constexpr int kBesideGap = 8;
constexpr int kPasswordWidth = 372;
enum Column { Caption, Box, Gap, Beside };

class Line : public QWidget {
  public:
    Line() { setFixedHeight(1); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paint::Hairline(painter, paint::kLine, QLineF(0, 0, width(), 0));
    }
};

}  // namespace

QWidget* ProductHead(QLabel* subtitle) {
    auto* head = new QWidget;
    head->setProperty("role", u"surface"_s);
    head->setAttribute(Qt::WA_StyledBackground);
    auto* grid = new QGridLayout(head);
    grid->setContentsMargins(24, 18, 24, 16);
    grid->setHorizontalSpacing(14);
    grid->setVerticalSpacing(0);
    auto* mark = new QLabel;
    mark->setPixmap(controls::LookIcon(u"app"_s).pixmap(kMark, head->devicePixelRatioF()));
    auto* title = new QLabel(product::kName);
    title->setProperty("role", u"title"_s);
    subtitle->setProperty("role", u"subtitle"_s);
    subtitle->setTextFormat(Qt::PlainText);
    grid->addWidget(mark, 0, 0, 2, 1);
    grid->addWidget(title, 0, 1);
    grid->addWidget(subtitle, 1, 1);
    grid->setColumnStretch(1, 1);
    return head;
}

CaptionRows::CaptionRows() {
    setHorizontalSpacing(0);
    setVerticalSpacing(controls::kRowGap);
    setColumnMinimumWidth(Caption, kCaption);
    setColumnStretch(Box, 1);
}

void CaptionRows::Add(const QString& caption, const QString& name, QWidget* box, QWidget* beside) {
    const int row = count() == 0 ? 0 : rowCount();
    auto* label = controls::MakeCaption(caption, box, box->parentWidget());
    label->setObjectName(name);
    setRowMinimumHeight(row, controls::kBoxHeight);
    addWidget(label, row, Caption);
    addWidget(box, row, Box);
    if (!beside) return;
    setColumnMinimumWidth(Gap, kBesideGap);
    addWidget(beside, row, Beside);
}

QLayout* ButtonRow(const QList<QPushButton*>& buttons) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(0, 8, 0, 0);
    row->setSpacing(8);
    row->addStretch(1);
    for (QPushButton* button : buttons) row->addWidget(button);
    return row;
}

void FillPasswords(controls::ModalForm& window, const QStringList& captions,
                   std::span<controls::LineBox*> boxes, std::function<void()> ok) {
    auto* rows = new CaptionRows;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        auto* box = boxes[i] = new controls::LineBox(&window);
        box->setObjectName(u"Txt(%1)"_s.arg(i));
        box->SetMasked(true);
        box->KeyPressed = controls::EnterMovesOn;
        rows->Add(captions.at(static_cast<qsizetype>(i)), u"Lab(%1)"_s.arg(i), box);
    }
    const auto button = [&](const QString& name, const QString& caption, std::function<void()> click) {
        auto* made = new controls::Button(caption, &window);
        made->setObjectName(name);
        made->Click = std::move(click);
        return made;
    };
    auto* enter = button(u"Cmd(0)"_s, u"确 定"_s, std::move(ok));
    enter->setDefault(true);
    auto* cancel = button(u"Cmd(1)"_s, u"取 消"_s, [&window] { window.Unload(); });
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(8);
    column->addLayout(rows);
    column->addLayout(ButtonRow({enter, cancel}));
    window.setFixedWidth(kPasswordWidth);
    boxes.front()->setFocus(Qt::OtherFocusReason);
}

void Stack(QWidget& window, QWidget& head, QLayout* body) {
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&head);
    column->addWidget(new Line);
    column->addLayout(body);
}

}  // namespace dressing
