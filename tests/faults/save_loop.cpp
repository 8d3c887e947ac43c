// A mixed day that never ends by itself: the program as it is wired, on a given folder, takes in waybill
// after waybill, edits, releases and deletes them, quotes a customer and keeps the couriers' list, and
// reports each command, until somebody kills it. What it does depends on the seed, on the command's number
// and on what is there alone, so that a run that was killed can be taken up and compared with one that was
// not.
//
//   save-loop FOLDER SEED FIRST END [STATES]
//
// Commands number FIRST up to, not including, END; with STATES it writes what the file holds after each
// into a file of that folder. Ends with status 3 when a message box comes that should not.
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/look.h"
#include "platform/system/seams.h"
#include "tests/faults/commands.h"
#include "tests/faults/company_state.h"
#include "tests/faults/waybill_entry.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <random>
#include <stdexcept>
#include <unistd.h>

using namespace Qt::StringLiterals;
using tests::AltKey;

namespace {

[[noreturn]] void GiveUp(const QString& why) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(why));
    ::_exit(3);
}

void Say(const QString& line) {
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

enum class Kind { Add, Edit, Release, Delete, PutBack, Quote, Courier };

/// The waybills of the first customer are left alone once they are saved, so that his chain is never
/// interrupted.
bool IsSteady(int number) {
    return number % 4 == 0;
}

Kind KindOf(int number) {
    constexpr Kind round[] = {Kind::Add, Kind::Add,  Kind::Edit,   Kind::Courier,
                              Kind::Add, Kind::Edit, Kind::Quote,  Kind::Release,
                              Kind::Add, Kind::Add,  Kind::Delete, Kind::PutBack};
    return round[static_cast<std::size_t>(number) % std::size(round)];
}

constexpr char16_t PressButton = u'\r';  // in place of a command's key

/// One command: its form, what comes before its key, and the key.
class Step {
  public:
    Step(unsigned seed, int number)
        : random_(seed + static_cast<unsigned>(number) * 7919U), number_(number) {}

    /// Up to right before the key that is given back.
    char16_t Prepare() {
        Kind kind = KindOf(number_);
        if (kind == Kind::PutBack) {
            if (ChooseDeleted()) return PressButton;
            kind = Kind::Add;
        }
        const QString waybill = Chosen(kind == Kind::Release);
        const bool needsOne = kind == Kind::Edit || kind == Kind::Release || kind == Kind::Delete;
        if (needsOne && waybill.isEmpty()) kind = Kind::Add;
        switch (kind) {
            case Kind::Courier:
                return KeepCouriers();
            case Kind::Quote:
                Open(u"A5"_s, u"A03"_s);
                tests::Select(desk_, u"C2"_s);
                AltKey(u'E');
                desk_.Push(u"CmdUpDown"_s);
                tests::AddQuote(desk_, u"Z1"_s, UpTo(2) == 0 ? u"1.2"_s : u"0.9"_s);
                return u'S';
            default:
                Open(u"B"_s, u"B01"_s);
        }
        if (kind != Kind::Add) tests::Select(desk_, waybill);
        if (kind == Kind::Release) return u'C';
        if (kind == Kind::Delete) return u'D';
        AltKey(kind == Kind::Add ? u'A' : u'E');
        tests::FillCard(*desk_.Frame().Front(), Entry(kind, waybill));
        return u'S';
    }

  private:
    int UpTo(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    /// Anew each time: what is released leaves the list until it is loaded again.
    void Open(const QString& keys, const QString& form) {
        if (desk_.Frame().Front()) AltKey(u'R');
        desk_.Open(keys, form);
    }

    QString Chosen(bool unreleased) {
        const QStringList there =
            desk_.Rows(u"select F1 from B01 where F603<>'C1'"_s +
                       (unreleased ? u" and F604='未审核'"_s : u""_s) + u" order by F1"_s);
        return there.isEmpty() ? QString() : there[UpTo(static_cast<int>(there.size()))];
    }

    /// A deleted waybill in 操作记录, with the focus on the button that puts it back; false if there is none.
    bool ChooseDeleted() {
        if (desk_.Frame().Front()) AltKey(u'R');
        desk_.Frame().ShowChild(u"History"_s);
        tests::Settle();
        for (int row = 1; row < desk_.Grid().Rows(); ++row) {
            if (desk_.Grid().TextMatrix(row, 2) != u"删除" || desk_.Grid().TextMatrix(row, 3) != u"速递单")
                continue;
            const QString number = desk_.Grid().TextMatrix(row, 4);
            if (!desk_.Rows(u"select F1 from B01 where F1='"_s + number + u'\'').isEmpty()) continue;
            desk_.Grid().SetRow(row);
            desk_.Enter(u"Cmd(1)"_s);
            return true;
        }
        return false;
    }

    /// A newcomer comes, gets another note, and goes.
    char16_t KeepCouriers() {
        Open(u"A6"_s, u"A04"_s);
        const QString note = desk_.Rows(u"select F2 from M04 where F1='临时'"_s).join(u' ');
        if (!note.isEmpty()) tests::Select(desk_, u"临时"_s);
        if (note == u"夜班") return u'D';
        AltKey(note.isEmpty() ? u'A' : u'E');
        if (note.isEmpty()) desk_.SetBox(0, u"临时"_s);
        desk_.SetBox(1, note.isEmpty() ? u"早班"_s : u"夜班"_s);
        return u'S';
    }

    tests::WaybillEntry Entry(Kind kind, const QString& chosen) {
        const bool steady = kind == Kind::Add && IsSteady(number_);
        tests::WaybillEntry entry;
        entry.number = kind == Kind::Add ? u"K%1"_s.arg(number_) : chosen;
        entry.customer = steady ? u"C1"_s : UpTo(2) == 0 ? u"C2"_s : u"C3"_s;
        entry.channel = steady ? u"H1"_s : u"H2"_s;
        entry.courier = UpTo(2) == 0 ? u"张三"_s : u"李四"_s;
        entry.date = QDate(2024, 3, 1).addDays(number_ / 6 - (UpTo(4) == 0 ? UpTo(10) : 0));
        entry.total = 10 + UpTo(100000) / 100.0;
        entry.cost = UpTo(50000) / 100.0;
        entry.released = UpTo(3) > 0;
        // A row of many pages makes more of a save that can be torn apart.
        entry.address = QString(49, QChar(u'一' + static_cast<char16_t>(UpTo(2000))));
        return entry;
    }

    tests::Desk desk_;
    std::mt19937 random_;
    int number_;
};

void Do(unsigned seed, int number) {
    const QDateTime now(QDate(2024, 3, 1), QTime(8, 0));
    sys::seams().now = [=] { return now.addSecs(60 * number); };
    const char16_t key = Step(seed, number).Prepare();
    Say(u"saving %1"_s.arg(number));
    QElapsedTimer timer;
    timer.start();
    if (key == PressButton)
        tests::Press(Qt::Key_Return);
    else
        AltKey(key);
    if (EditInProgress) GiveUp(u"refused: %1"_s.arg(number));
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
    if (arguments.size() < 5) GiveUp(u"save-loop FOLDER SEED FIRST END [STATES]"_s);
    sys::seams().showBox = [](const sys::BoxRequest& request) -> sys::BoxAnswer {
        if (request.icon == sys::BoxIcon::Question) return sys::BoxAnswer::Yes;
        if (request.text == u"恢复完成!") return sys::BoxAnswer::Ok;
        GiveUp(u"unexpected box: "_s + request.text + u'\n' + request.detail);
    };
    try {
        const auto frame = tests::StartAndLogIn(arguments[1]);
        if (!frame) GiveUp(u"did not start"_s);
        frame->setUpdatesEnabled(false);  // nobody looks
        Say(u"ready"_s);
        for (int number = arguments[3].toInt(); number < arguments[4].toInt(); ++number) {
            Do(arguments[2].toUInt(), number);
            if (arguments.size() > 5) WriteState(arguments[5], number);
        }
        sys::EndProgram(0);
    } catch (const std::exception& error) {
        GiveUp(QString::fromUtf8(error.what()));
    }
}
