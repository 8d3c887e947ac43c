// What the history costs: a save with it beside the same save on a file whose triggers and notes of the group
// are off, the growth of the file by overwriting, and the clearing of all waybills.
#include "schema/history.h"

#include "app/history_groups.h"
#include "app/history_pause.h"
#include "app/session.h"
#include "benchmarks/repeated_save.h"
#include "benchmarks/subjects.h"
#include "history/entries.h"
#include "platform/dao/group_start.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Rounds = 3;
constexpr int Overwritten = 2000;

void TurnOff(BareEngine& engine) {
    for (const schema::KeptTable& table : schema::KeptTables())
        for (const QByteArray& trigger : table.Triggers()) engine.Run("drop trigger " + trigger);
}

double SaveSeconds(MadeCompany& company, bool history) {
    Office office(company);
    if (!history) {
        dao::makeGroupStart() = {};
        TurnOff(office.Bare());
    }
    RepeatedSave save(office, LastDay());
    return BestOf(
        150, [&] { save.MakeReady(); }, [&] { save.Save(); });
}

void MeasureSave(Bench& bench, MadeCompany& company) {
    double with = 1, without = 1;
    for (int round = 0; round < Rounds; ++round) {
        without = std::min(without, SaveSeconds(company, false));
        with = std::min(with, SaveSeconds(company, true));
    }
    bench.State("history: save on the newest day", with * 1e3, "ms");
    bench.State("history: the same save without it", without * 1e3, "ms");
    bench.State("history: save with / without", with / without, "times", 1.25);
}

double Pages(BareEngine& engine) {
    return engine.Answer("pragma page_count").toDouble() - engine.Answer("pragma freelist_count").toDouble();
}

/// Bytes of the values, a number with eight, and one a value for its kind.
double BytesOf(BareEngine& engine, const QByteArray& where) {
    QByteArrayList values;
    for (const QByteArray& column : schema::KeptColumns(engine.Handle(), *schema::FindKept("B01")))
        values += "1+case typeof(" + column + ") when 'text' then length(cast(" + column +
                  " as blob)) when 'real' then 8 else 0 end";
    return engine.Answer("select sum(" + values.join('+') + ") from B01 " + where).toDouble();
}

void MeasureFile(Bench& bench, Office& office) {
    BareEngine& engine = office.Bare();
    const QByteArray some = "where rowid<=" + QByteArray::number(Overwritten);
    const double bytes = BytesOf(engine, some);
    const double before = Pages(engine);
    engine.Run("update B01 set F401=F401+1 " + some);
    const double grown = (Pages(engine) - before) * engine.Answer("pragma page_size").toDouble();
    bench.State("history: bytes that the file grows by, a row", grown / Overwritten, "B");
    bench.State("history: the same beside 1.3 times the row and 100 bytes",
                grown / (1.3 * bytes + 100.0 * Overwritten), "times", 1);
}

/// All kept rows, which is what the longest period lists, and one number among them.
void MeasureList(Bench& bench) {
    history::Search search;
    for (const history::Object& object : history::Objects()) search.menus += object.menu;
    search.from = QDate(2000, 1, 1);
    search.to = QDate(2100, 1, 1);
    const auto seconds = [&] { return BestOf(3, {}, [&] { Keep(history::Find(*Db, search).size()); }); };
    bench.State("history: the list among 300,000 kept rows", seconds(), "s", 0.5);
    search.text = u"80050000"_s;
    bench.State("history: a number among them", seconds(), "s", 1);
    search.text = QString::fromUtf8(CustomerName(7));
    bench.State("history: a customer among them", seconds(), "s", 1);
}

double Seconds(const std::function<void()>& work) {
    return BestOf(1, {}, work);
}

void MeasureReset(Bench& bench, MadeCompany& company) {
    double with = 1e9, without = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        {
            Office office(company);
            with = std::min(with, Seconds([] {
                                HistoryPause history(*Db, {u"B01"_s});
                                Db->Execute(u"delete from B01"_s);
                                history.Forget();
                                Db->CloseGroup();
                            }));
        }
        Office office(company);
        dao::makeGroupStart() = {};
        TurnOff(office.Bare());
        without = std::min(without, Seconds([] {
                               Db->Execute(u"delete from B01"_s);
                               Db->CloseGroup();
                           }));
    }
    bench.State("history: clearing 100,000 waybills", with * 1e3, "ms");
    bench.State("history: the same without it", without * 1e3, "ms");
    bench.State("history: clearing with / without", with / without, "times", 1.25);
}

}  // namespace

void MeasureHistory(Bench& bench, MadeCompany& company) {
    if (!bench.Wanted("history")) return;
    MeasureSave(bench, company);
    {
        Office office(company);
        MeasureList(bench);
        MeasureFile(bench, office);
    }
    MeasureReset(bench, company);
}

}  // namespace benchmarks
