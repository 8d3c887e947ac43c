// The program as it is wired, on a given folder, at one command after the other, each reported before and
// after its key, until somebody kills it. What it does depends on the command's number and name alone, so
// that a run that was killed can be taken up and compared with one that was not.
//
//   save-loop FOLDER FIRST STATES FILE COMMAND...
//
// Commands are those of commands.h, "before:" with one of them, "backup", "end", and "offer", which fails and
// says when what it deleted is about to be put back. Without commands it says what the login shows. Begins
// with that of number FIRST (0 is the first); with STATES, a folder or "", it writes what the data file holds
// after each into a file of that folder. FILE is what the file dialog answers. Ends with status 3 when a
// report comes.
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/look.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "tests/faults/commands.h"
#include "tests/faults/company_state.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void GiveUp(const QString& why) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(why));
    ::_exit(3);
}

void Say(const QString& line) {
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

/// An offer asks only where a command has failed; any other report ends the program.
sys::BoxAnswer Answer(const sys::BoxRequest& request, bool mayFail) {
    if (request.icon == sys::BoxIcon::Critical && !mayFail) GiveUp(request.text + u'\n' + request.detail);
    if (request.buttons != sys::BoxButtons::YesNo) return sys::BoxAnswer::Ok;
    if (mayFail) {
        Say(u"offered"_s);
        QThread::msleep(20);  // until whoever reads that is ready to kill
    }
    return sys::BoxAnswer::Yes;
}

void FailBehindADeletion(tests::Desk&) {
    sys::Guarded([] {
        Db->Execute(u"delete from TB1 where F1='YSW1' or F1='YFW1'"_s);
        Db->Execute(u"delete from B01 where F1='W1'"_s);
        Db->Execute(u"insert into B01 (F1) VALUES ('a'b')"_s);
    });
}

tests::Command Named(const QString& name) {
    if (name == u"end") return {"end", "", "", {}, [](tests::Desk& desk) { desk.Frame().close(); }};
    if (name == u"offer") return {"offer", "", "", {}, FailBehindADeletion};
    const QString before = u"before:"_s;
    if (name.startsWith(before)) {
        const std::string command = name.mid(before.size()).toStdString();
        return {"before", "", "", {}, [=](tests::Desk&) { tests::WriteBefore(command); }};
    }
    if (name != u"backup") return tests::CommandOf(name.toStdString());
    return {"backup", "", "", {}, [](tests::Desk&) {
                tests::AltKey(u's');
                tests::AltKey(u'4');
            }};
}

void Do(int number, const QString& name) {
    const QDateTime now(QDate(2024, 3, 15), QTime(8, 0));
    sys::seams().now = [=] { return now.addSecs(60 * number); };
    tests::Desk desk;
    if (desk.Frame().Front()) tests::AltKey(u'R');
    const tests::Command command = Named(name);
    tests::Prepare(desk, command);
    Say(u"saving %1"_s.arg(number));
    QElapsedTimer timer;
    timer.start();
    command.give(desk);
    if (EditInProgress) GiveUp(u"refused: "_s + name);
    Say(u"saved %1 %2"_s.arg(number).arg(timer.nsecsElapsed() / 1000));
}

void WriteState(const QString& folder, int number) {
    QFile file(folder + u"/%1.txt"_s.arg(number));
    if (!file.open(QIODevice::WriteOnly)) GiveUp(file.errorString());
    file.write(tests::StateOf(DbFile).join(u'\n').toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    controls::DressApplication(app);
    const QStringList arguments = QApplication::arguments();
    const QStringList commands = arguments.mid(5);
    sys::seams().showBox = [&](const sys::BoxRequest& request) {
        return Answer(request, commands.contains(u"offer"_s));
    };
    sys::seams().askFile = [&](const sys::FileRequest&) { return arguments.value(4); };
    try {
        const auto frame = tests::StartAndLogIn(arguments.value(1));
        if (!frame) GiveUp(u"did not start"_s);
        frame->setUpdatesEnabled(false);  // nobody looks
        if (commands.isEmpty()) Say(frame->Panel(MForm::PositionPanel));
        for (int number = arguments.value(2).toInt(); number < commands.size(); ++number) {
            Do(number, commands[number]);
            if (!arguments[3].isEmpty()) WriteState(arguments[3], number);
        }
        sys::EndProgram(0);
    } catch (const std::exception& error) {
        GiveUp(QString::fromUtf8(error.what()));
    }
}
