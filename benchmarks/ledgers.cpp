// The ledgers over a month and over all of 200,000 journal rows, built by the form into its grid, beside a
// bare loop that fetches, formats and sums the same; the refresh of all counterparties; a row of the entry
// grid.
#include "accounts/refresh.h"
#include "app/main_window.h"
#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

/// A period, as the form's two date boxes and the bare statement have it.
struct Period {
    QDate from;
    QDate to;
    QByteArray condition;
};

Period Month() {
    return {QDate(2021, 5, 1), QDate(2021, 5, 31), "F2>='2021-05-01' and F2<'2021-06-01'"};
}

Period Everything() {
    return {QDate(2000, 1, 1), LastDay(), "F2>='2000-01-01' and F2<'2100-01-01'"};
}

ChildForm& OpenByMenu(const QString& item) {
    TheFrame().MenuItem(item)->trigger();
    Office::Settle();
    return *TheFrame().Front();
}

void Choose(ChildForm& form, const Period& period) {
    form.findChild<controls::DTPicker*>(u"DTP(0)"_s)->SetValue(period.from);
    form.findChild<controls::DTPicker*>(u"DTP(1)"_s)->SetValue(period.to);
}

QString Money(double value) {
    return QString::number(value, 'f', 2);
}

QByteArray Select(const char* fields, const Period& period) {
    return "select " + QByteArray(fields) +
           " from TB1 where LB<0 and F6<>'' and (not F6 is null) and K=0 and " + period.condition +
           " order by F3,SN,rowid";
}

/// The same words as reach the engine from the form.
constexpr const char* detailFields =
    "TB1.F3,'' as mc,TB1.F1,TB1.LB,'','',TB1.QC,TB1.YF,TB1.FK,TB1.QM,TB1.S2 as yewu";
constexpr const char* summaryFields = "TB1.F3,'' as mc ,TB1.F1,TB1.LB,'','',TB1.QC,TB1.YF,TB1.FK,TB1.QM";
enum Field { Unit, Voucher = 2, QC = 6, YF, FK, QM, Business };

/// The cells that an operator sees, a total behind each counterparty.
void BareDetail(BareEngine& engine, const Period& period) {
    BareStatement rows(engine.Handle(), Select(detailFields, period));
    std::vector<QString> texts;
    QString unit, opening, closing;
    double raised = 0, lowered = 0;
    const auto total = [&] {
        for (const QString& text : {unit, u" 合  计 "_s, opening, Money(raised), Money(lowered), closing})
            texts.push_back(text);
    };
    while (rows.Step()) {
        const QString next = rows.Text(Unit);
        if (next != unit) {
            if (!texts.empty()) total();
            unit = next;
            opening = Money(rows.Number(QC));
            texts.push_back(opening);
            raised = lowered = 0;
        }
        texts.push_back(unit);
        texts.push_back(rows.Text(Voucher));
        texts.push_back(rows.Text(Business));
        for (const int movement : {YF, FK}) {
            const double value = rows.Number(movement);
            (movement == YF ? raised : lowered) += value;
            if (value != 0) texts.push_back(Money(value));
        }
        closing = Money(rows.Number(QM));
        texts.push_back(closing);
    }
    total();
    Keep(texts.data());
}

void BareSummary(BareEngine& engine, const Period& period) {
    BareStatement rows(engine.Handle(), Select(summaryFields, period));
    std::vector<QString> texts;
    QString unit;
    double opening = 0, raised = 0, lowered = 0, closing = 0;
    const auto line = [&] {
        texts.push_back(unit);
        for (const double value : {opening, raised, lowered, closing}) texts.push_back(Money(value));
    };
    while (rows.Step()) {
        const QString next = rows.Text(Unit);
        if (next != unit) {
            if (!unit.isEmpty()) line();
            unit = next;
            opening = rows.Number(QC);
            raised = lowered = 0;
        }
        raised += rows.Number(YF);
        lowered += rows.Number(FK);
        closing = rows.Number(QM);
    }
    line();
    Keep(texts.data());
}

void MeasureLedger(Bench& bench, Office& office, const std::string& name, const QString& item,
                   void (*bare)(BareEngine&, const Period&)) {
    if (!bench.Wanted(name)) return;
    ChildForm& form = OpenByMenu(item);
    const std::pair<const char*, Period> periods[] = {{": a month of 200,000 rows", Month()},
                                                      {": all of 200,000 rows", Everything()}};
    auto& generate = *form.findChild<controls::Button*>(u"Cmd"_s);
    for (const auto& [what, period] : periods) {
        Choose(form, period);
        bench.Run({.name = name + what,
                   .limit = 1.3,
                   .runsInRound = 10,
                   .ours = [&] { generate.click(); },
                   .bare = [&, &p = period] { bare(office.Bare(), p); },
                   .makeOursReady = Office::Settle});  // else the lines of the run before are painted in it
    }
    form.Unload();
    Office::Settle();
}

// ---------------------------------------------------------------- the refresh

/// Together they have all rows of the journal.
QStringList CounterpartyNames() {
    QStringList names;
    for (int i = 0; i < Customers; ++i) names += QString::fromUtf8(CustomerName(i));
    for (int i = 0; i < Channels; ++i) names += QString::fromUtf8(ChannelName(i));
    return names;
}

void RefreshOurs(const QStringList& names) {
    accounts::RefreshChains(*Db, names, [](const QString&) {});
    Db->CloseGroup();
}

/// Statements are prepared once; keys and values of a chain first, then a write for each row.
void RefreshBare(BareEngine& engine, const QStringList& names) {
    struct Row {
        sqlite3_int64 id;
        double raises;
        double lowers;
    };
    engine.Run("begin immediate");
    {
        BareStatement opening(engine.Handle(),
                              "select QM from TB1 where (F3=? AND not (F6='' or F6 is null)) and sn<0 "
                              "order by sn desc limit 1");
        BareStatement select(
            engine.Handle(),
            "select rowid,QC,YF,FK,QM from TB1 where SN<>0 AND SN>=0 and F3=? order by SN,rowid");
        BareStatement update(engine.Handle(), "update TB1 set QC=?,QM=? where rowid=?");
        std::vector<Row> rows;
        for (const QString& name : names) {
            opening.Bind(1, name.toUtf8());
            double balance = opening.Step() ? opening.Number(0) : 0;
            opening.Reset();
            rows.clear();
            select.Bind(1, name.toUtf8());
            while (select.Step()) rows.push_back({select.Whole(0), select.Number(2), select.Number(3)});
            select.Reset();
            for (const Row& row : rows) {
                update.Bind(1, balance);
                balance += row.raises - row.lowers;
                update.Bind(2, balance);
                update.Bind(3, row.id);
                update.Step();
                update.Reset();
            }
        }
    }
    engine.Run("commit");
}

// ---------------------------------------------------------------- the entry grid

void Key(int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(TheFrame().focusWidget(), &press);
}

/// From Enter to the next editor, open and painted; the slowest of a hundred rows, in milliseconds.
void MeasureEntry(Bench& bench) {
    const char* const name = "entry grid: Enter to the next open editor, the slowest of 100 rows";
    if (!bench.Wanted(name)) return;
    ChildForm& form = OpenByMenu(u"Menu_ys"_s);
    auto& grid = *form.findChild<controls::FlexGrid*>(u"GD"_s);
    form.MenuBar()->findChild<QAction*>(u"Menu_Add"_s)->trigger();
    qint64 slowest = 0;
    QElapsedTimer timer;
    for (int row = 0; row < 100; ++row) {
        const QString cells[] = {u"YS-"_s + QString::number(row), u""_s, u"客户"_s, u"12"_s, u""_s, u""_s};
        for (const QString& cell : cells) {
            for (const QChar c : cell) Key(c.unicode(), c);
            Office::Settle();
            timer.start();
            Key(Qt::Key_Return);
            Office::Settle();
            slowest = std::max(slowest, timer.nsecsElapsed());
            if (!grid.Editing()) std::abort();
        }
    }
    bench.State(name, static_cast<double>(slowest) / 1e6, "ms", 16);
    EditInProgress = false;
}

}  // namespace

void MeasureLedgers(Bench& bench, Office& office) {
    MeasureLedger(bench, office, "detail ledger", u"Menu_ysmx"_s, BareDetail);
    MeasureLedger(bench, office, "summary ledger", u"Menu_ysz"_s, BareSummary);
    const QStringList names = CounterpartyNames();
    BareEngine engine(office.Engine());
    bench.Run({.name = "refresh: 2,020 counterparties, 200,000 rows",
               .limit = 1.3,
               .ours = [&] { RefreshOurs(names); },
               .bare = [&] { RefreshBare(engine, names); }});
    MeasureEntry(bench);
}

}  // namespace benchmarks
