// The places where the program meets what lies outside it: the operator's answers, the clock, the locale, the
// user's settings, outside programs, the program's end. Each is one function that a test can put its own in
// place of. In the running program the windows are the toolkit's real ones (platform/controls installs them).
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

namespace sys {

enum class BoxIcon { Critical = 16, Question = 32, Warning = 48, Information = 64 };
enum class BoxButtons { Ok, YesNo, OkCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

struct BoxRequest {
    QString text;  ///< exact; character 13 is a line break
    QString title;
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    BoxAnswer defaultButton = BoxAnswer::Ok;
    QString detail;           ///< a failing statement, shown selectable beneath the text; mostly empty
    bool destroys = false;    ///< Yes or OK takes away what can't be had back, and looks like it
    bool keepsGroup = false;  ///< shown inside a command: what was written so far is not yet committed
};

struct FileRequest {
    enum class Kind { Open, Save, Folder };
    Kind kind = Kind::Open;
    QString title;
    QString proposed;  ///< file name or path to start with
    QString pattern;   ///< "*.dat"
};

struct Seams {
    std::function<BoxAnswer(const BoxRequest&)> showBox;
    std::function<QString(const FileRequest&)> askFile;  ///< "" is cancel
    std::function<QDateTime()> now;
    std::function<QString()> localeName;                    ///< "zh_CN"
    std::function<bool(const QString& path)> startProgram;  ///< false: it did not start
    std::function<void(const QString& address)> openAddress;
    std::function<void()> switchInputMethod;  ///< Ctrl+Space of the address lines
    std::function<QString(const QString& entry)> readSetting;
    std::function<void(const QString& entry, const QString& value)> writeSetting;
    std::function<QString(const QString& from, const QString& to)> copyFile;  ///< CopyWhole
    std::function<qint64(const QString& folder)> freeBytes;                   ///< there; -1: not known
    std::function<void(int status)> leave;  ///< leaves the process without unwinding; never returns normally
};

/// The one set in use. Tests replace members and put them back.
Seams& seams();

/// Shows a message box and waits for the answer. What the command has written so far is committed first.
BoxAnswer MsgBox(const BoxRequest& request);
/// One button, information icon.
void Inform(const QString& text, const QString& title);
/// One button, exclamation icon.
void Warn(const QString& text, const QString& title);
/// Yes and No with a question mark.
bool Ask(const QString& text, const QString& title, BoxAnswer defaultButton = BoxAnswer::Yes);
/// The same where Yes destroys something.
bool AskToDestroy(const QString& text, const QString& title, BoxAnswer defaultButton = BoxAnswer::Yes);

/// OK and Cancel with the information icon and no title, where OK destroys something.
bool ConfirmLoss(const QString& text);

/// Asks for a file; "" if the operator gave up.
QString AskFile(const FileRequest& request);

QDateTime Now();
QDate Today();

/// Commits what is open, closes nothing else and leaves the process at once. Nothing after it runs.
[[noreturn]] void EndProgram(int status);
/// The same for a program that is asked to end from outside: what is not committed is rolled back, the files
/// are closed.
[[noreturn]] void AbandonProgram(int status);

}  // namespace sys
