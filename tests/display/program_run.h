// The program itself, started as an operator starts it: the executable and its data files in a folder of
// their own with a copy of the sample company, on the suite's screen.
#pragma once

#include "tests/display/screen.h"
#include "tests/display/script.h"
#include "tests/support/data_file.h"

#include <QTemporaryDir>

#include <memory>

namespace display {

/// How the program starts.
struct Start {
    QStringList statements;           ///< run on the company's file before
    QProcessEnvironment environment;  ///< on top of the screen's
};

class ProgramRun {
  public:
    /// Throws std::runtime_error when it does not come up to its login.
    explicit ProgramRun(const Start& start = {});

    /// A step that waits in vain throws std::runtime_error, as does every function below that waits. Its
    /// text names a picture of the screen.
    void Play(const Script& script, const Pace& pace = {});

    /// Until such a window has the focus; returns the window.
    unsigned long WaitForWindow(const QString& title);
    void WaitForNoWindow(const QString& title);
    void WaitForRows(const QString& select, const QStringList& rows);
    /// Everything that was typed up to here has had its effect.
    void WaitUntilIdle();
    /// The program has ended by itself.
    void WaitForEnd();
    void AnswerBox(const QString& title, Keysym key);
    bool HasWindow(const QString& title) const;
    /// The rows of a statement as the file holds them now, values joined by "|".
    QStringList Rows(const QString& select);
    /// Lets go of the data file until the next rows: the program asks before it copies or clears a file that
    /// others have open.
    void CloseFile() { file_.reset(); }

    ChildProcess& Process() { return *process_; }
    XClient& Client() { return screen_.Client(); }
    [[noreturn]] void Fail(const QString& why);

  private:
    void Send(const Stroke& stroke, const Pace& pace);
    QString OpenWindows() const;

    Screen& screen_;
    QTemporaryDir folder_;
    std::unique_ptr<tests::Connection> file_;
    std::unique_ptr<ChildProcess> process_;
};

/// The administrator logs in without a password.
const Script& LogIn();

}  // namespace display
