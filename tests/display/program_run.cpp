#include "tests/display/program_run.h"

#include "app/product.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QFile>
#include <QThread>

#include <algorithm>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace display {
namespace {

/// What a key posts may post again.
constexpr int kTurnsToSettle = 3;
// Between two turns. The program answers while it still reads, before it works on the keys that it has read.
constexpr unsigned long kTurnMilliseconds = 10;

// For a row, once the keys are worked off: an input method works on them in a process of its own.
constexpr int kRowMilliseconds = 20'000;

constexpr int kLookMilliseconds = 400;  // before a message box is answered; it ignores keys for the first 300
constexpr int kAnswerMilliseconds = 10'000;  // until an answer counts as ignored
constexpr int kAnswers = 3;

void CopyInto(const QString& folder, const QString& file, const QString& name) {
    if (!QFile::copy(file, folder + u'/' + name))
        throw std::runtime_error("no copy of " + file.toStdString());
}

/// A message box without a title bears the program's name alone.
bool Bears(const TopWindow& window, const QString& title) {
    return title.isEmpty() ? window.title == product::kName : window.title.contains(title);
}

}  // namespace

ProgramRun::ProgramRun(const Start& start) : screen_(Screen::Get()) {
    const QString data = schema::kDatabaseFile.toString();
    const QString sample = qEnvironmentVariable("SAMPLE_COMPANY");
    CopyInto(folder_.path(), sample + u'/' + data, data);
    CopyInto(folder_.path(), QStringLiteral(KORVANE), u"korvane"_s);
    schema::MakeDataFiles(folder_.path());  // those that are missing
    file_ = std::make_unique<tests::Connection>(folder_.filePath(data));
    for (const QString& statement : start.statements) file_->Run(statement);
    QProcessEnvironment environment = screen_.Environment();
    environment.insert(start.environment);
    process_ = std::make_unique<ChildProcess>(folder_.filePath(u"korvane"_s), QStringList(), environment);
    WaitForWindow(u"用户登录"_s);
}

void ProgramRun::Play(const Script& script, const Pace& pace) {
    for (const Step& step : script) {
        for (const Stroke& stroke : step.keys) {
            Send(stroke, pace);
            if (pace.milliseconds == 0) continue;
            Client().Flush();
            QThread::msleep(static_cast<unsigned long>(pace.milliseconds));
        }
        if (!step.wait) continue;
        Client().Flush();
        step.wait(*this);
    }
    Client().Flush();
}

void ProgramRun::Send(const Stroke& stroke, const Pace& pace) {
    const Keysym key = stroke.key != 0 ? stroke.key : pace.byTab ? kTab : kReturn;
    std::vector<Keysym> held;
    if (stroke.control) held.push_back(kControl);
    if (stroke.alt) held.push_back(kAlt);
    if (stroke.shift || Client().NeedsShift(key)) held.push_back(kShift);
    for (const Keysym modifier : held) Client().Key(modifier, true);
    Client().Key(key, true);
    Client().Key(key, false);
    std::ranges::reverse(held);
    for (const Keysym modifier : held) Client().Key(modifier, false);
}

bool ProgramRun::HasWindow(const QString& title) const {
    return std::ranges::any_of(screen_.Client().Windows(),
                               [&](const TopWindow& window) { return Bears(window, title); });
}

unsigned long ProgramRun::WaitForWindow(const QString& title) {
    unsigned long focus = 0;
    const bool came = WaitUntil([&] {
        focus = Client().Focus();
        return std::ranges::any_of(Client().Windows(), [&](const TopWindow& window) {
            return window.id == focus && Bears(window, title);
        });
    });
    if (!came) Fail(u"the window "_s + title + u" has no focus; there are: "_s + OpenWindows());
    return focus;
}

void ProgramRun::WaitForNoWindow(const QString& title) {
    if (!WaitUntil([&] { return !HasWindow(title); })) Fail(u"the window "_s + title + u" remains"_s);
}

void ProgramRun::WaitForRows(const QString& select, const QStringList& rows) {
    QStringList found;
    WaitUntilIdle();
    const bool came = WaitUntil(
        [&] {
            found = Rows(select);
            return found == rows;
        },
        kRowMilliseconds);
    if (!came)
        Fail(select + u"\n  should be: "_s + rows.join(u'\n') + u"\n  is:        "_s + found.join(u'\n'));
}

void ProgramRun::WaitUntilIdle() {
    Client().Flush();
    const auto windows = Client().Windows();
    if (windows.empty()) Fail(u"the program has no window"_s);
    for (int turn = 0; turn < kTurnsToSettle; ++turn) {
        if (turn > 0) QThread::msleep(kTurnMilliseconds);
        if (!Client().Ping(windows.front().id)) Fail(u"the program does not answer"_s);
    }
}

void ProgramRun::WaitForEnd() {
    Client().Flush();
    if (!WaitUntil([&] { return !process_->Runs(); })) Fail(u"the program does not end"_s);
}

void ProgramRun::AnswerBox(const QString& title, Keysym key) {
    // The window and not its title: the next box may bear the same.
    const unsigned long box = WaitForWindow(title);
    const auto closed = [&] {
        return std::ranges::none_of(Client().Windows(),
                                    [&](const TopWindow& window) { return window.id == box; });
    };
    WaitUntilIdle();  // the first box of a run takes its time to be drawn
    QThread::msleep(kLookMilliseconds);
    for (int answer = 0; answer < kAnswers; ++answer) {
        Send({.key = key}, {});
        Client().Flush();
        if (WaitUntil(closed, kAnswerMilliseconds)) return;
    }
    Fail(u"the box "_s + title + u" takes no answer"_s);
}

QStringList ProgramRun::Rows(const QString& select) {
    if (!file_)
        file_ = std::make_unique<tests::Connection>(folder_.filePath(schema::kDatabaseFile.toString()));
    return file_->Rows(select);
}

QString ProgramRun::OpenWindows() const {
    QStringList titles;
    for (const TopWindow& window : screen_.Client().Windows()) titles << u'"' + window.title + u'"';
    return titles.join(u' ');
}

void ProgramRun::Fail(const QString& why) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    static int number = 0;
    const QString name = QString::fromUtf8(test ? test->name() : "soak") + u"-%1"_s.arg(++number);
    const QString picture = screen_.SavePicture(name);
    const QString state = process_->Runs() ? u"\n"_s : u"\nThe program has ended.\n"_s;
    throw std::runtime_error((why + state + u"Picture: "_s + picture).toStdString());
}

const Script& LogIn() {
    static const Script script = {ExpectWindow(u"用户登录"_s), Press(kTab, 3), Control('s'),
                                  ExpectNoWindow(u"用户登录"_s), ExpectWindow(u"Korvane"_s)};
    return script;
}

}  // namespace display
