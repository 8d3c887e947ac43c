// A day at the waybills' form that never ends by itself: the program as it is wired, on a given folder, saves
// waybill after waybill and tells each, until somebody kills it. What it saves depends on the seed and on the
// number of the save alone, so that a run that was killed can be taken up and compared with one that was not.
//
//   save-loop FOLDER SEED FIRST END [STATES]
//
// Saves number FIRST up to, not including, END; with STATES it writes what the file holds after each save
// into a file of that folder. Ends with status 3 when a box comes that should not.
#include "app/main_window.h"
#include "app/session.h"
#include "app/start_up.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/look.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "program/wiring.h"
#include "tests/faults/company_state.h"
#include "tests/faults/waybill_entry.h"
#include "tests/support/gui.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <random>
#include <stdexcept>
#include <unistd.h>

using namespace Qt::StringLiterals;
using tests::AltKey;
using tests::Find;

namespace {

[[noreturn]] void GiveUp(const QString& why) {
    std::fprintf(stderr, "%s\n", qUtf8Printable(why));
    ::_exit(3);
}

void Say(const QString& line) {
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

/// Every third save edits an earlier waybill. Those of the first customer are left alone, so that his chain
/// is never interrupted.
bool IsEdit(int save) {
    return save % 3 == 2;
}
bool IsSteady(int save) {
    return save % 4 == 0;
}

struct Plan {
    bool edit = false;
    tests::WaybillEntry entry;
};

Plan PlanOf(unsigned seed, int save) {
    std::mt19937 random(seed + static_cast<unsigned>(save) * 7919U);
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    Plan plan;
    plan.edit = IsEdit(save);
    int waybill = save;
    if (plan.edit) {
        waybill = upTo(save);
        while (waybill > 0 && (IsEdit(waybill) || IsSteady(waybill))) --waybill;
        if (waybill == 0) waybill = 1;
    }
    tests::WaybillEntry& entry = plan.entry;
    entry.number = u"K%1"_s.arg(waybill);
    const bool steady = IsSteady(waybill);
    entry.customer = steady ? u"C1"_s : upTo(2) == 0 ? u"C2"_s : u"C3"_s;
    entry.channel = steady ? u"H1"_s : u"H2"_s;
    entry.courier = upTo(2) == 0 ? u"张三"_s : u"李四"_s;
    entry.date = QDate(2024, 3, 1).addDays(save / 6 - (upTo(4) == 0 ? upTo(10) : 0));
    entry.total = 10 + upTo(100000) / 100.0;
    entry.cost = upTo(50000) / 100.0;
    entry.released = upTo(3) > 0;
    // A row of many pages makes more of a save that can be torn apart.
    entry.address = QString(49, QChar(u'一' + static_cast<char16_t>(upTo(2000))));
    return plan;
}

void SelectWaybill(QWidget& form, const QString& number) {
    auto& grid = Find<controls::FlexGrid>(form, u"GD"_s);
    for (int row = 1; row < grid.Rows(); ++row) {
        if (grid.TextMatrix(row, 0) != number) continue;
        // Away first: after a save the current record is the last one, whatever line is marked.
        grid.SetRow(row == 1 ? grid.Rows() - 1 : 1);
        return grid.SetRow(row);
    }
    GiveUp(u"not in the list: "_s + number);
}

void Save(QWidget& form, unsigned seed, int number) {
    const Plan plan = PlanOf(seed, number);
    const QDateTime now(QDate(2024, 3, 1), QTime(8, 0));
    sys::seams().now = [=] { return now.addSecs(60 * number); };
    if (plan.edit) SelectWaybill(form, plan.entry.number);
    AltKey(plan.edit ? u'E' : u'A');
    tests::FillCard(form, plan.entry);
    Say(u"saving %1"_s.arg(number));
    QElapsedTimer timer;
    timer.start();
    AltKey(u'S');
    if (EditInProgress) GiveUp(u"refused: "_s + plan.entry.number);
    Say(u"saved %1 %2"_s.arg(number).arg(timer.nsecsElapsed() / 1000));
}

std::unique_ptr<MForm> Start(const QString& folder) {
    tests::ModalScript modals;
    modals.Next(u"Login"_s, [](QWidget& login) {
        Find<controls::LineBox>(login, u"Txt(1)"_s).SetFocus();
        tests::Press(Qt::Key_S, Qt::ControlModifier);
    });
    std::unique_ptr<MForm> frame;
    sys::Guarded([&] { frame = StartUp(Wire(folder)); });
    if (!frame) GiveUp(u"did not start"_s);
    frame->activateWindow();
    AltKey(u'B');
    return frame;
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
        GiveUp(u"unexpected box: "_s + request.text + u'\n' + request.detail);
    };
    try {
        const auto frame = Start(arguments[1]);
        ChildForm* form = frame->Front();
        if (!form || form->objectName() != u"B01") GiveUp(u"B01 did not open"_s);
        Say(u"ready"_s);
        for (int number = arguments[3].toInt(); number < arguments[4].toInt(); ++number) {
            Save(*form, arguments[2].toUInt(), number);
            if (arguments.size() > 5) WriteState(arguments[5], number);
        }
        sys::EndProgram(0);
    } catch (const std::exception& error) {
        GiveUp(QString::fromUtf8(error.what()));
    }
}
