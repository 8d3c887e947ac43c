#include "platform/controls/input_order.h"

#include "platform/controls/box.h"
#include "platform/system/guard.h"

#include <QApplication>
#include <QCloseEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QWindow>

#include <chrono>
#include <memory>
#include <utility>

using namespace std::chrono_literals;

namespace controls {
namespace {

/// 0.3 s, counted in turns of the event loop: a machine that stalls lets no time pass unseen.
constexpr auto kTick = 50ms;
constexpr int kQuietTicks = 6;

/// Keys that the test library or the program sends have no scan code.
bool IsReal(const QKeyEvent& key) {
    return key.nativeScanCode() != 0;
}

bool IsPopup(const QObject* watched) {
    return watched->isWindowType() && static_cast<const QWindow*>(watched)->type() == Qt::Popup;
}

/// An open menu or list holds the keyboard, so keys that are typed before it closes come to its window,
/// however late.
bool IsClosedPopup(const QObject* watched) {
    return IsPopup(watched) && !static_cast<const QWindow*>(watched)->isVisible();
}

QWidget* WidgetOf(const QWindow& window) {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == &window) return widget;
    return nullptr;
}

/// The toolkit would destroy the window and with it the keys that are still on their way to it; this one is
/// hidden. False leaves the closing to the toolkit.
bool HidePopup(const QWindow& window, QEvent& event) {
    QWidget* popup = WidgetOf(window);
    if (!popup || popup->testAttribute(Qt::WA_DeleteOnClose)) return false;
    QCloseEvent close;
    QCoreApplication::sendEvent(popup, &close);
    if (close.isAccepted()) popup->hide();
    event.setAccepted(close.isAccepted());
    return true;
}

/// Behind all closed popups. The display may report that a popup got the keyboard when it is closed already;
/// the toolkit then makes it the active window, where no shortcut of the form counts.
QWidget* ActiveWindow() {
    QWidget* const reported = QApplication::activeWindow();
    QWidget* active = reported;
    while (active && active->windowHandle() && IsClosedPopup(active->windowHandle()))
        active = active->parentWidget() ? active->parentWidget()->window() : nullptr;
    if (active != reported) QApplication::setActiveWindow(active);
    return active;
}

/// A key that came to a closed popup is delivered where it would be, had the popup closed at once.
void DeliverPastPopup(QKeyEvent& key) {
    QWidget* active = ActiveWindow();
    QWidget* modal = QApplication::activeModalWidget();
    // Typed before a message box or a modal form had the focus.
    if (!active || !active->windowHandle() || (modal && modal != active)) return;
    QCoreApplication::sendEvent(active->windowHandle(), &key);
}

/// A press inside the box in which a text is composed places the cursor there.
bool IsInside(const QObject* box, const QObject& window, const QMouseEvent& press) {
    const auto* widget = qobject_cast<const QWidget*>(box);
    const QWidget* top = WidgetOf(static_cast<const QWindow&>(window));
    const QWidget* under = top ? top->childAt(press.position().toPoint()) : nullptr;
    return widget && under && (under == widget || widget->isAncestorOf(under));
}

/// The second press of a double click must not run the command of the first once more. A button that folds or
/// drops something down is a switch, and goes on with every press.
bool RunsCommands(const QObject* control) {
    if (const auto* button = qobject_cast<const Button*>(control))
        return button->property("role").toString() != u"fold";
    return qobject_cast<const QMenuBar*>(control) || qobject_cast<const QMenu*>(control) ||
           qobject_cast<const QToolButton*>(control);
}

bool IsTextBox(const QObject& control) {
    return qobject_cast<const QLineEdit*>(&control) ||
           (control.isWidgetType() &&
            static_cast<const QWidget&>(control).testAttribute(Qt::WA_InputMethodEnabled));
}

/// A chord that is the key of no command. The toolkit would type its character into a text box, over what is
/// selected in it; of those with Ctrl it refuses all but the keypad's.
bool TypesByChord(const QObject& control, const QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers();
    const bool chord = held & (Qt::AltModifier | Qt::MetaModifier) ||
                       (held & Qt::ControlModifier && held & Qt::KeypadModifier);
    return chord && !key.text().isEmpty() && key.text().front().isPrint() && IsTextBox(control);
}

}  // namespace

InputOrder& InputOrder::Get() {
    static QPointer<InputOrder> only;
    if (!only) only = new InputOrder(qApp);
    return *only;
}

InputOrder::InputOrder(QObject* parent) : QObject(parent) {
    quiet_.setInterval(kTick);
    connect(&quiet_, &QTimer::timeout, this, [this] {
        if (quietTicks_ > 0) --quietTicks_;
        if (quietTicks_ == 0) quiet_.stop();
    });
    qApp->installEventFilter(this);
}

// ------------------------------------------------------------------------------------------ calls that are
// due

void InputOrder::Post(std::function<void()> call) {
    posted_.push_back(std::move(call));
    QMetaObject::invokeMethod(this, &InputOrder::RunNext, Qt::QueuedConnection);
}

void InputOrder::RunNext() {
    if (posted_.empty()) return;
    const auto call = std::move(posted_.front());
    posted_.pop_front();
    call();
}

void InputOrder::Flush() {
    if (flushing_) return;
    const QScopedValueRollback flushing(flushing_, true);
    while (!posted_.empty() && !sys::HasEnded()) RunNext();
}

/// True when a message box or a modal form came up meanwhile: the input that follows was not meant for what
/// has the focus now.
bool InputOrder::FlushOpensWindow() {
    const int before = opened_;
    Flush();
    return opened_ != before;
}

InputOrder::OwnLoop::OwnLoop(bool waitsForQuiet)
    : flushing_(std::exchange(Get().flushing_, false)),
      quietTicks_(std::exchange(Get().quietTicks_, waitsForQuiet ? kQuietTicks : 0)) {
    InputOrder& order = Get();
    ++order.opened_;
    if (waitsForQuiet) order.quiet_.start();
}

InputOrder::OwnLoop::~OwnLoop() {
    InputOrder& order = Get();
    order.flushing_ = flushing_;
    order.quietTicks_ = quietTicks_;
    if (quietTicks_ > 0) order.quiet_.start();
}

// ---------------------------------------------------------------------------------------------------- real
// input

bool InputOrder::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            if (TypesByChord(*watched, *static_cast<QKeyEvent*>(event))) return true;
            [[fallthrough]];
        case QEvent::ShortcutOverride:
        case QEvent::KeyRelease:
            return watched->isWindowType() && OnKey(*watched, *static_cast<QKeyEvent*>(event));
        case QEvent::MouseButtonDblClick:
            if (RunsCommands(watched)) return true;
            [[fallthrough]];
        case QEvent::MouseButtonPress:
            if (!watched->isWindowType()) return false;
            keyRepeats_ = false;
            if (!IsInside(composing_, *watched, *static_cast<QMouseEvent*>(event))) CommitComposition();
            return FlushOpensWindow();
        case QEvent::Close:
            if (IsPopup(watched)) return HidePopup(*static_cast<QWindow*>(watched), *event);
            return watched->isWindowType() && FlushOpensWindow();
        case QEvent::InputMethod:
            return OnComposedText(watched, *static_cast<QInputMethodEvent*>(event));
        default:
            return false;
    }
}

bool InputOrder::OnKey(const QObject& window, QKeyEvent& key) {
    if (IsClosedPopup(&window)) {
        DeliverPastPopup(key);
        return true;
    }
    switch (key.type()) {
        case QEvent::ShortcutOverride:
            return OnShortcutOverride(key);
        case QEvent::KeyPress:
            return OnKeyPress(key);
        default:
            OnKeyRelease(key);
            return false;
    }
}

/// Comes before the shortcuts and before the press itself, so both can still be dropped: a ShortcutOverride
/// that is accepted is no shortcut.
bool InputOrder::OnShortcutOverride(QKeyEvent& key) {
    swallowPress_ = false;
    keyRepeats_ = Repeats(key);
    if (!(IsReal(key) && DropsKey()) && !FlushOpensWindow()) return false;
    swallowPress_ = true;
    key.accept();
    return true;
}

bool InputOrder::OnKeyPress(const QKeyEvent& key) {
    if (std::exchange(swallowPress_, false)) return true;
    keyRepeats_ = Repeats(key);
    return (IsReal(key) && DropsKey()) || FlushOpensWindow();
}

void InputOrder::OnKeyRelease(const QKeyEvent& key) {
    if (!key.isAutoRepeat()) keyRepeats_ = false;
    releasedKey_ = key.nativeScanCode();
    releasedAt_ = key.timestamp();
}

/// For a key that is held down the server sends a release and a press of one moment, with no other key
/// between them. The toolkit takes them for a repeat only when both have arrived by the time that it looks at
/// the first.
bool InputOrder::Repeats(const QKeyEvent& key) {
    if (key.nativeScanCode() != releasedKey_) releasedKey_ = 0;
    const bool sameMoment = key.timestamp() != 0 && key.timestamp() == releasedAt_;
    return key.isAutoRepeat() || (sameMoment && IsReal(key) && key.nativeScanCode() == releasedKey_);
}

bool InputOrder::DropsKey() {
    if (quietTicks_ == 0) return false;
    quietTicks_ = kQuietTicks;
    quiet_.start();
    return true;
}

// ------------------------------------------------------------------------------------------------- composed
// text

/// An input method chooses the control before it sends, so text that follows a due Tab would go to the box
/// that was just left.
bool InputOrder::OnComposedText(QObject* watched, const QInputMethodEvent& text) {
    if (!redirecting_ && watched == QGuiApplication::focusObject()) {
        const int switches = switches_;
        if (FlushOpensWindow()) return true;
        if (switches_ != switches) keepsDropped_ = true;
        QObject* now = QGuiApplication::focusObject();
        if (now && now != watched) {
            const QScopedValueRollback redirecting(redirecting_, true);
            const std::unique_ptr<QInputMethodEvent> copy(text.clone());
            QCoreApplication::sendEvent(now, copy.get());
            return true;
        }
    }
    const bool drops = text.preeditString().isEmpty() && text.commitString().isEmpty();
    if (drops && composing_ && std::exchange(keepsDropped_, false)) {
        CommitPreedit();
        return true;
    }
    preedit_ = text.preeditString();
    composing_ = preedit_.isEmpty() ? nullptr : watched;
    if (preedit_.isEmpty()) keepsDropped_ = false;
    return false;
}

void InputOrder::CommitPreedit() {
    QInputMethodEvent committed;
    committed.setCommitString(preedit_);
    QCoreApplication::sendEvent(composing_, &committed);
}

void InputOrder::CommitComposition() {
    if (!composing_) return;
    QInputMethod& method = *QGuiApplication::inputMethod();
    method.commit();
    if (!composing_) return;
    // This input method commits nothing by itself; it forgets the composition instead, and perhaps commits
    // then.
    const QString text = preedit_;
    method.reset();
    if (composing_ && preedit_ == text) CommitPreedit();
}

}  // namespace controls
