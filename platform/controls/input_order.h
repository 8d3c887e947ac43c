// Keeps real input in the order in which it was typed, whatever its speed and however long the machine
// stalls.
//
// Always holds: before a real key, click or composed text reaches a control, every Tab that a handler asked
// for has been sent and every due focus event has been emitted, in their order. The toolkit alone would
// deliver all keys that have already arrived before it runs the first queued call. Keys that were typed while
// a menu or a list was open, but come when it has closed, reach the window under it.
//
// Real input is what comes to a QWindow; events that a program sends to a widget are left alone. Keys that
// were typed before another window had the focus never reach the application: that is the limit.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <deque>
#include <functional>

class QInputMethodEvent;
class QKeyEvent;

namespace controls {

class InputOrder : public QObject {
    Q_OBJECT
  public:
    /// The application's one; installs itself as event filter at first use.
    static InputOrder& Get();

    /// Runs the call after the current handler, in turn with other calls posted here, and at the latest
    /// before the operator's next key or click.
    void Post(std::function<void()> call);
    /// Runs at once what is posted, in its order. Nothing when such a call is at work.
    void Flush();

    /// The key that is being delivered repeats one that is held down. A command must not run for it.
    bool KeyRepeats() const { return keyRepeats_; }
    /// Puts the text that an input method is composing into its text box, as if the operator had confirmed
    /// it.
    void CommitComposition();
    /// The program has switched the input method by itself. Text that was typed ahead is being composed under
    /// the former setting and is kept.
    void InputMethodSwitched() { ++switches_; }

    /// RAII guard round the event loop of a message box, file dialog or modal form: input in it is ordered
    /// anew, and the key that caused it goes nowhere else.
    class OwnLoop {
      public:
        /// With `waitsForQuiet` real keys are dropped until 0.3 s have passed without one, so that the typing
        /// hand answers nothing that it has not seen.
        explicit OwnLoop(bool waitsForQuiet);
        ~OwnLoop();
        OwnLoop(const OwnLoop&) = delete;
        OwnLoop& operator=(const OwnLoop&) = delete;

      private:
        const bool flushing_;
        const int quietTicks_;
    };

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    explicit InputOrder(QObject* parent);
    void RunNext();
    bool FlushOpensWindow();
    bool OnKey(const QObject& window, QKeyEvent& key);
    bool OnShortcutOverride(QKeyEvent& key);
    bool OnKeyPress(const QKeyEvent& key);
    void OnKeyRelease(const QKeyEvent& key);
    bool Repeats(const QKeyEvent& key);
    bool OnComposedText(QObject* watched, const QInputMethodEvent& text);
    bool DropsKey();
    void CommitPreedit();

    std::deque<std::function<void()>> posted_;
    bool flushing_ = false;
    bool keyRepeats_ = false;
    quint32 releasedKey_ = 0;    ///< scan code of the last release; 0 once another key is pressed
    quint64 releasedAt_ = 0;     ///< and its moment in milliseconds, as the system counts them
    bool swallowPress_ = false;  ///< the press that belongs to a dropped ShortcutOverride
    bool redirecting_ = false;   ///< composed text is on its way to the control that has the focus now
    int opened_ = 0;             ///< message boxes, dialogs and modal forms so far
    int quietTicks_ = 0;         ///< ticks of quiet_ that a message box still waits; 0: it takes keys
    QTimer quiet_;
    int switches_ = 0;             ///< of the input method by the program so far
    bool keepsDropped_ = false;    ///< what the input method drops next was typed ahead of a switch
    QPointer<QObject> composing_;  ///< where a composition is open
    QString preedit_;              ///< its text
};

}  // namespace controls
