#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/key_offer.h"
#include "platform/errors.h"

#include <QFontMetrics>
#include <QListView>
#include <QMouseEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

constexpr int kListPadding = 22;  // of the list and of its items, with the frame

}  // namespace

ComboBox::ComboBox(QWidget* parent) : QComboBox(parent) {
    FocusTracker::Get();
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(QComboBox::NoInsert);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(3);
    setMaxVisibleItems(14);
    setFocusPolicy(Qt::StrongFocus);
    // Without a delegate of this kind the sheet's padding reaches the selected row only.
    setItemDelegate(new QStyledItemDelegate(this));
    if (auto* list = qobject_cast<QListView*>(view())) list->setUniformItemSizes(true);
    // The toolkit would replace a typed text by an item that differs in case only.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    disconnect(lineEdit(), &QLineEdit::returnPressed, this, nullptr);
    lineEdit()->installEventFilter(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        TidyLine(lineEdit());
        Change();
    });
    connect(this, &QComboBox::activated, this, [this] {
        lineEdit()->setCursorPosition(0);
        Click();
    });
}

void ComboBox::SetText(const QString& text) {
    // A text that is proposed while the combo has the focus is ready to be typed over.
    const bool all = hasFocus() && lineEdit()->selectedText() == currentText();  // an empty text too
    setEditText(text);
    if (all)
        lineEdit()->selectAll();
    else
        lineEdit()->setCursorPosition(0);
}

void ComboBox::Clear() {
    clear();
    clearEditText();
}

void ComboBox::AddItem(const QString& item) {
    const QString text = currentText();
    addItem(item);
    if (currentText() != text) SetText(text);  // the toolkit chooses the first item by itself
}

int ComboBox::ListIndex() const {
    return findText(currentText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
}

/// Where the arrow keys start: the item chosen last, so that they get past two equal ones.
int ComboBox::CurrentItem() const {
    return currentIndex() >= 0 && itemText(currentIndex()) == currentText() ? currentIndex() : ListIndex();
}

/// Where an arrow key goes from a text that is no item.
int ComboBox::FirstMatch() const {
    const QString typed = currentText();
    return typed.isEmpty() ? 0 : std::max(0, findText(typed, Qt::MatchStartsWith));
}

void ComboBox::Choose(int index) {
    setCurrentIndex(index);
    if (index < 0)
        clearEditText();
    else
        SetText(itemText(index));
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= count()) throw RuntimeError(u"无效属性值"_s);
    Choose(index);
    Click();
}

void ComboBox::SetItemsOnly() {
    lineEdit()->setReadOnly(true);
}

/// What the mouse brings into the line needs the focus, or the form would not notice that the text changed.
bool ComboBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched != lineEdit()) return QComboBox::eventFilter(watched, event);
    const auto isButton = [event](QEvent::Type type, Qt::MouseButton button) {
        return event->type() == type && static_cast<QMouseEvent*>(event)->button() == button;
    };
    if (lineEdit()->isReadOnly() && isButton(QEvent::MouseButtonPress, Qt::LeftButton)) {
        setFocus(Qt::MouseFocusReason);
        showPopup();
        return true;
    }
    const bool brings = event->type() == QEvent::Drop || event->type() == QEvent::ContextMenu ||
                        isButton(QEvent::MouseButtonRelease, Qt::MiddleButton);
    if (!brings || KeepsFocus(this)) return QComboBox::eventFilter(watched, event);
    if (event->type() == QEvent::Drop) event->ignore();
    return true;
}

void ComboBox::showPopup() {
    const int standing = CurrentItem();
    if (standing != currentIndex()) {  // the list opens at what the text says
        const QString text = currentText();
        const QSignalBlocker quiet(this);
        setCurrentIndex(standing);
        SetText(text);
    }
    WidenList();
    QComboBox::showPopup();
    // The toolkit places the list by the combo's own width.
    QWidget* list = view()->window();
    const int right = screen()->availableGeometry().right();
    if (list->frameGeometry().right() > right)
        list->move(std::max(screen()->availableGeometry().left(), right - list->width() + 1), list->y());
}

void ComboBox::WidenList() {
    const QFontMetrics metrics(view()->font());
    int longest = 0;
    for (int i = 0; i < count(); ++i) longest = std::max(longest, metrics.horizontalAdvance(itemText(i)));
    const int bar = count() > maxVisibleItems() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    const int wanted = longest + bar + kListPadding;
    view()->setMinimumWidth(std::min(wanted, screen()->availableGeometry().width()));
}

void ComboBox::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    const bool down = left->key() == Qt::Key_Down || left->key() == Qt::Key_PageDown;
    const bool up = left->key() == Qt::Key_Up || left->key() == Qt::Key_PageUp;
    const bool opens = left->key() == Qt::Key_Down && left->modifiers() & Qt::AltModifier;
    if (opens || !(up || down)) {
        QComboBox::keyPressEvent(left.get());
        return event->setAccepted(left->isAccepted());
    }
    event->accept();
    if (left->modifiers() & (Qt::AltModifier | Qt::ControlModifier)) return;
    // The toolkit would step from the item that was chosen last, whatever the text says.
    const int from = CurrentItem();
    const int to = from < 0 ? FirstMatch() : from + (down ? 1 : -1);
    if (to < 0 || to >= count()) return;
    Choose(to);
    lineEdit()->selectAll();
    Click();
}

void ComboBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    if (SelectsAll(event->reason())) lineEdit()->selectAll();
}

void ComboBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace controls
