// Searches of the waybills: the statement as the dialog hands it back, loaded by the form into its grid,
// beside the bare fetch of the same rows by a statement written by hand.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"
#include "platform/controls/modal_form.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Columns = 11;
constexpr int DayField = 1;  // in the list of fields
constexpr int CustomerField = 5;

void Bare(BareEngine& engine, const QByteArray& where) {
    BareStatement rows(
        engine.Handle(),
        "select "
        "B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "
        "FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1) left join M01 on M01.F1=B01.F202 where " +
            where + " ORDER BY B01.rowid");
    std::vector<QString> texts;
    while (rows.Step())
        for (int i = 0; i < Columns; ++i) texts.push_back(rows.Text(i));
    Keep(texts.data());
}

/// One condition, built in the dialog: an item of CmbF, an item of CmbGX, a text or a date.
QString Asked(OpenForm& form, int field, int relation, const QVariant& value) {
    const auto before = std::exchange(controls::ModalForm::Driver(), [&](controls::ModalForm& dialog) {
        const auto combo = [&](const char16_t* name) {
            return dialog.findChild<controls::ComboBox*>(QString::fromUtf16(name));
        };
        combo(u"CmbF")->SetListIndex(field);
        combo(u"CmbGX")->SetListIndex(relation);
        if (value.typeId() == QMetaType::QDate)
            dialog.findChild<controls::DTPicker*>(u"DTP"_s)->SetValue(value.toDate());
        else
            dialog.findChild<controls::LineBox*>(u"Txt"_s)->SetText(value.toString());
        for (const auto& button : {u"CmdAdd"_s, u"CmdQuery"_s})
            dialog.findChild<controls::Button*>(button)->click();
    });
    form.Press(u"Menu_query"_s);
    controls::ModalForm::Driver() = before;
    return form.PubSql;
}

void MeasureOne(Bench& bench, Office& office, const char* name, const QString& statement,
                const QByteArray& where, int runs) {
    bench.Run({.name = name,
               .limit = 1.5,
               .runsInRound = runs,
               .ours = [&] { office.Form().LoadGrid(statement); },
               .bare = [&] { Bare(office.Bare(), where); }});
    const QString found =
        office.Bare().Answer("select count(*) from B01 left join M03 on F603=M03.F1 where " + where);
    office.Form().LoadGrid(statement);
    if (found.toInt() == office.Form().RecCount) return;
    std::fprintf(stderr, "%s: %d rows and not %s\n", name, office.Form().RecCount, qPrintable(found));
    std::exit(2);
}

}  // namespace

void MeasureSearches(Bench& bench, Office& office) {
    const QByteArray customer = CustomerName(LargeCustomer);
    MeasureOne(bench, office, "search: one customer's waybills in 100,000",
               Asked(office.Form(), CustomerField, 0, QString::fromUtf8(customer)),
               "M03.F2='" + customer + "'", 3);
    const QDate day = LastDay().addDays(-400);
    const auto text = [](QDate date) { return date.toString(Qt::ISODate).toUtf8(); };
    MeasureOne(bench, office, "search: waybills since a day, of 100,000",
               Asked(office.Form(), DayField, 0, day), "B01.F101>='" + text(day.addDays(1)) + "'", 3);
}

}  // namespace benchmarks
