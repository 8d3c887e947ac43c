#include "waybills/stored_steps.h"

#include "platform/text/quoted.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace waybills {
namespace {

constexpr int FieldsOfSide = 4;  // party, zone, day, steps

std::optional<Priced> SideOf(const dao::Recordset& row, int first) {
    Priced priced{.party = row.Fields(first).Text(),
                  .zone = row.Fields(first + 1).Text(),
                  .day = row.Fields(first + 2).Text(),
                  .steps = FromText(row.Fields(first + 3).Text())};
    if (!priced.Amount()) return std::nullopt;
    return priced;
}

}  // namespace

BothSides ReadSteps(dao::Database& db, const QString& number) {
    BothSides sides;
    auto row = db.OpenRecordset(u"select F2,F3,F4,F5,F6,F7,F8,F9 from B011 where F1="_s + Quoted(number));
    if (!row.Eof())
        for (std::size_t side = 0; side < Sides; ++side)
            sides[side] = SideOf(row, static_cast<int>(side) * FieldsOfSide);
    row.Close();
    return sides;
}

void StoreSteps(dao::Database& db, const QString& number, const BothSides& sides) {
    DeleteSteps(db, number);
    if (std::ranges::none_of(sides, [](const auto& side) { return side.has_value(); })) return;
    QStringList values = {Quoted(number)};
    for (const std::optional<Priced>& side : sides) {
        const Priced priced = side.value_or(Priced{});
        for (const QString& value : {priced.party, priced.zone, priced.day, ToText(priced.steps)})
            values += Quoted(value);
    }
    db.Execute(u"insert into B011 (F1,F2,F3,F4,F5,F6,F7,F8,F9) VALUES ("_s + values.join(u',') + u')');
}

void DeleteSteps(dao::Database& db, const QString& number) {
    db.Execute(u"delete from B011 where F1="_s + Quoted(number));
}

}  // namespace waybills
