#include "platform/controls/box.h"

#include "platform/controls/focus_tracker.h"
#include "platform/controls/input_order.h"
#include "platform/controls/key_offer.h"
#include "platform/controls/look.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextBlock>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kRowHeight = 24;
constexpr char16_t kPasswordCharacter = u'*';

/// Never half of a rare character at the end.
QString CutTo(const QString& text, int length) {
    const bool half = text.size() > length && length > 0 && text[length].isLowSurrogate();
    return text.left(half ? length - 1 : length);
}

/// A press and a release that come in one go would bring the click before the loss of the box that was left.
void ClickAfterFocus(QWidget* control, const sys::Event<>& click) {
    const QPointer<QWidget> alive(control);
    InputOrder::Get().CommitComposition();
    FocusTracker::Get().Settle();
    if (alive) click();
}

}  // namespace

LineBox::LineBox(QWidget* parent) : QLineEdit(parent) {
    FocusTracker::Get();
    connect(this, &QLineEdit::textEdited, this, [this] { TidyLine(this, last_); });
    connect(this, &QLineEdit::textChanged, this, [this] { EmitChange(); });
}

void LineBox::EmitChange() {
    if (text() == last_) return;
    last_ = text();
    Change();
}

void LineBox::SetText(const QString& newText) {
    const bool all = hasFocus() && selectedText() == text();  // an empty box too
    const int cursor = hasFocus() ? cursorPosition() : 0;     // elsewhere a long text shows its beginning
    const QPointer<LineBox> alive(this);
    setText(CutTo(newText, maxLength()));
    if (!alive) return;
    setCursorPosition(cursor);
    if (all) selectAll();  // a proposed value is ready to be typed over
}

void LineBox::SetLocked(bool locked) {
    setReadOnly(locked);
}

void LineBox::SetMasked(bool masked) {
    setEchoMode(masked ? QLineEdit::Password : QLineEdit::Normal);
}

void LineBox::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    QLineEdit::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

void LineBox::inputMethodEvent(QInputMethodEvent* event) {
    if (event->commitString().isEmpty()) return QLineEdit::inputMethodEvent(event);
    const auto text = OfferText(this, KeyPressed, event->commitString());
    if (!text) return event->accept();
    // Even without a text, since the composition that is shown has ended.
    QInputMethodEvent left(event->preeditString(), event->attributes());
    left.setCommitString(*text, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&left);
    event->setAccepted(left.isAccepted());
}

void LineBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (SelectsAll(event->reason())) selectAll();
}

void LineBox::mouseReleaseEvent(QMouseEvent* event) {
    // The middle button pastes; the form may have sent the operator away since it was pressed.
    if (event->button() == Qt::MiddleButton && (isReadOnly() || !KeepsFocus(this))) return event->accept();
    QLineEdit::mouseReleaseEvent(event);
}

void LineBox::contextMenuEvent(QContextMenuEvent* event) {
    if (isReadOnly() || !KeepsFocus(this)) return event->accept();
    if (!ExtendMenu) return QLineEdit::contextMenuEvent(event);
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    ExtendMenu(*menu);
    menu->popup(event->globalPos());
}

void LineBox::dropEvent(QDropEvent* event) {
    if (isReadOnly() || !KeepsFocus(this)) return event->ignore();
    QLineEdit::dropEvent(event);
}

RowsBox::RowsBox(int rows, QWidget* parent) : QPlainTextEdit(parent) {
    FocusTracker::Get();
    setTabChangesFocus(true);
    document()->setDocumentMargin(2);
    setFixedHeight(rows * kRowHeight);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { EmitChange(); });
}

QString RowsBox::Text() const {
    // The plain text of the document would turn a no-break space into a blank.
    QString raw = document()->toRawText();
    raw.replace(QChar::ParagraphSeparator, u'\n');
    raw.replace(QChar::LineSeparator, u'\n');
    return raw;
}

void RowsBox::CutToLength() {
    const QString now = Text();
    const int excess = static_cast<int>(now.size()) - maxLength_;
    if (excess <= 0) return;
    QTextCursor cursor = textCursor();  // behind what has just come in
    const int end = cursor.position();
    int from = qMax(0, end - excess);
    if (from > 0 && from < now.size() && now[from].isLowSurrogate()) --from;
    cursor.setPosition(from);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    const QSignalBlocker quiet(this);
    cursor.removeSelectedText();
}

void RowsBox::EmitChange() {
    CutToLength();
    const QString now = Text();
    if (now == last_) return;
    last_ = now;
    Change();
}

void RowsBox::SetText(const QString& newText) {
    setPlainText(CutTo(newText, maxLength_));
}

void RowsBox::SetLocked(bool locked) {
    setReadOnly(locked);
    Repolish(this);
}

void RowsBox::SetMasked(bool masked) {
    masked_ = masked;
    viewport()->update();
}

void RowsBox::paintEvent(QPaintEvent* event) {
    if (!masked_) return QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    const QRect inner = viewport()->rect().marginsRemoved(QMargins(2, 2, 2, 2));
    painter.drawText(inner, Qt::TextWrapAnywhere, QString(Text().size(), kPasswordCharacter));
}

QMimeData* RowsBox::createMimeDataFromSelection() const {
    return masked_ ? new QMimeData : QPlainTextEdit::createMimeDataFromSelection();
}

void RowsBox::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left || IsEnter(*left)) return event->accept();
    QPlainTextEdit::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

void RowsBox::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    // Not ready to be typed over: one key would lose a whole note.
    if (SelectsAll(event->reason())) moveCursor(QTextCursor::End);
}

void RowsBox::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !KeepsFocus(this)) return;
    QString text = WholeCharacters(source->text());
    for (QChar& c : text)
        if (c < u' ' && c != u'\n' && c != u'\r') c = u' ';
    insertPlainText(text);
}

void RowsBox::contextMenuEvent(QContextMenuEvent* event) {
    if (isReadOnly() || !KeepsFocus(this)) return event->accept();
    QPlainTextEdit::contextMenuEvent(event);
}

CheckBox::CheckBox(const QString& caption, QWidget* parent) : QCheckBox(caption, parent) {
    FocusTracker::Get();
    connect(this, &QCheckBox::clicked, this, [this] { ClickAfterFocus(this, Click); });
}

void CheckBox::LookLocked(bool locked) {
    Mark(this, "state", locked ? u"locked"_s : QString());
}

void CheckBox::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    QCheckBox::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

Button::Button(const QString& caption, QWidget* parent) : QPushButton(parent) {
    FocusTracker::Get();
    setAutoDefault(false);
    SetCaption(caption);
    connect(this, &QPushButton::clicked, this, [this] {
        if (!InputOrder::Get().KeyRepeats()) ClickAfterFocus(this, Click);
    });
}

void Button::SetCaption(const QString& caption) {
    setText(caption);
    const bool drawn = caption == u"5" || caption == u"6";
    setAccessibleName(!drawn ? QString() : caption == u"5" ? u"向上"_s : u"向下"_s);
    if (drawn && property("role").toString() != u"fold") Mark(this, "role", u"fold"_s);
}

void Button::paintEvent(QPaintEvent* event) {
    const QString caption = text();
    if (caption != u"5" && caption != u"6") return QPushButton::paintEvent(event);
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = LookIcon(caption == u"5" ? u"chevron-up"_s : u"chevron-down"_s);
    option.iconSize = QSize(12, 12);
    painter.drawControl(QStyle::CE_PushButton, option);
}

void Button::keyPressEvent(QKeyEvent* event) {
    if (!IsEnter(*event)) return QPushButton::keyPressEvent(event);
    event->accept();
    if (!event->isAutoRepeat()) click();
}

void Repolish(QWidget* control) {
    control->style()->unpolish(control);
    control->style()->polish(control);
}

void Mark(QWidget* control, const char* property, const QString& value) {
    control->setProperty(property, value);
    Repolish(control);
}

QLabel* MakeCaption(const QString& caption, QWidget* box, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(caption);
    label->setProperty("role", u"caption"_s);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setIndent(0);
    label->setBuddy(box);
    QString name = caption;
    while (name.endsWith(u'：') || name.endsWith(u':')) name.chop(1);
    if (box) box->setAccessibleName(name);
    return label;
}

}  // namespace controls
