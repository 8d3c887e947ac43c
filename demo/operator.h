// The operator of the demonstration: a list of steps that are played one by one from the event loop, each key
// going to whatever has the focus, so that login, message boxes and modal forms are worked like any other
// window.
//
// Always holds: a step is done when everything that it posted has happened. A step that finds the program in
// another state than the expected one, a message box that is not expected and an early end of the program are
// reported, with a picture of the screen, and end the demonstration with status 1.
#pragma once

#include "demo/screen.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <deque>
#include <functional>
#include <optional>

namespace demo {

class Operator {
  public:
    /// pause: milliseconds between the steps, for who watches; 0 plays as fast as it goes.
    Operator(Screen& screen, int pause);

    // Keys, queued now and pressed when their turn comes.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Type(const QString& text);
    /// In place of what is in the box.
    void TypeOver(const QString& text);
    /// Alt and the first letter, then the others: "A6" opens a menu and takes the sixth command.
    void Command(const QString& letters);
    /// Presses Enter, or Tab, until that control has the focus.
    void EnterTo(const QString& control) { MoveTo(control, Qt::Key_Return); }
    void TabTo(const QString& control) { MoveTo(control, Qt::Key_Tab); }
    /// What no key does: the clock, the window's close box.
    void Do(const QString& what, std::function<void()> act);

    // What has to be so.
    void ExpectWindow(const QString& name);  ///< the active one
    void ExpectFocus(const QString& control);
    void ExpectText(const QString& control, const QString& text);  ///< of the active window
    void ExpectStatus(const QString& text);                        ///< panel 4
    /// The rows of a SELECT, fields joined by "|", as everything up to here has left them in the file.
    void ExpectRows(const QString& select, const QStringList& rows);
    void Expect(const QString& what, std::function<bool()> holds);
    /// Lets a command that works in the event loop go on until it shows a message box.
    void WaitForBox();
    /// A message box is there: its picture if it has a name, then the key that answers it.
    void ExpectBox(const QString& text, const QString& title, const QString& picture = {},
                   Qt::Key answer = Qt::Key_Return);

    /// The program ends by itself here; what follows belongs to the next start.
    void ExpectEnd();

    /// What the pictures from here on belong to.
    void Chapter(const QString& title, const QString& words);
    /// The whole screen as it is then.
    void Picture(const QString& name, const QString& caption);
    /// Others, which are made then.
    void Pictures(const QString& name, const QString& caption, std::function<std::vector<QImage>()> make);

    /// Plays the steps queued so far; call before the event loop. Whatever is left at its end is a failure.
    void Start();
    bool Done() const { return steps_.empty(); }
    /// The program ends by itself. An end that is not expected is a failure.
    void NoteEnd();
    /// Reports the current step, leaves a picture of it and ends the process with status 1.
    [[noreturn]] void Fail(const QString& why);

  private:
    struct Step {
        QString what;
        /// False asks for another turn.
        std::function<bool()> play;
        bool answersBox = false;
    };
    void Add(const QString& what, std::function<void()> play, bool answersBox = false);
    void MoveTo(const QString& control, Qt::Key key);
    void Compare(const QString& found, const QString& expected);
    QWidget& KeyTarget();
    void Next();
    void Play();

    QObject context_;  ///< of what is on its way to be played
    Screen& screen_;
    int pause_;
    std::deque<Step> steps_;
    QString current_;
    int played_ = 0;
    int moves_ = 0;
    int endsTold_ = 0;
    int ends_ = 0;  ///< that have come
};

}  // namespace demo
