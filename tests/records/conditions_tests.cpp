// The two texts of a search's conditions, word for word, and what a removal makes of them.
#include "records/search_conditions.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using search::Conditions;
using search::Kind;

namespace {

Conditions Of(const QStringList& connectives) {
    Conditions conditions;
    int nth = 0;
    for (const QString& connective : connectives)
        conditions.Add(
            {connective, u"姓名"_s, u"M04.F1"_s, Kind::Text, u"等于(=)"_s, QString::number(++nth)});
    return conditions;
}

TEST(Conditions, AreWrittenByKindAndRelation) {
    const struct {
        QString connective;
        Kind kind;
        QString relation, value, shown, piece;
    } rows[] = {
        {u""_s, Kind::Text, u"等于(=)"_s, u"it's"_s, u"        项目  等于     it's"_s,
         u" Where F6 = 'it's'  "_s},
        {u"并且"_s, Kind::Text, u"包含(like)"_s, u""_s, u"并且    项目  包含     "_s,
         u" And F6 like '**'  "_s},
        {u"或者"_s, Kind::Number, u"大于(>)"_s, u" 12.50kg"_s, u"或者    项目  大于      12.50kg"_s,
         u" Or F6 > 12.5"_s},
        {u"排除"_s, Kind::Number, u"等于(=)"_s, u"abc"_s, u"排除    项目  等于     abc"_s,
         u" AND Not F6 = 0"_s},
        {u"排除"_s, Kind::Date, u"小于(<)"_s, u"2024-03-15"_s, u"排除    项目  小于     2024-03-15"_s,
         u" AND Not datediff('d','2024-03-15',F6 ) < 0 "_s},
    };
    for (const auto& row : rows) {
        Conditions made;
        made.Add({row.connective, u"项目"_s, u"F6"_s, row.kind, row.relation, row.value});
        EXPECT_EQ(made.Shown(), QStringList{row.shown});
        EXPECT_EQ(made.Pieces(), QStringList{row.piece});
    }
}

TEST(Conditions, ARemovalGivesTheNextOneTheHead) {
    const QString first = u" Where M04.F1 = '1'  "_s;
    const struct {
        QString connective;
        int line;
        QString shown;
        QStringList pieces;
    } rows[] = {
        {u"并且"_s, 0, u"      姓名  等于     2"_s, {u" Where M04.F1 = '2'  "_s, u" And M04.F1 = '3'  "_s}},
        {u"排除"_s,
         0,
         u"      姓名  等于     2"_s,
         {u" Where Not M04.F1 = '2'  "_s, u" And M04.F1 = '3'  "_s}},
        {u"或者"_s, 0, u"      姓名  等于     2"_s, {u" Where 04.F1 = '2'  "_s, u" And M04.F1 = '3'  "_s}},
        {u"或者"_s, 1, u"        姓名  等于     1"_s, {first, u" And M04.F1 = '3'  "_s}},
        {u"或者"_s, 2, u"        姓名  等于     1"_s, {first, u" Or M04.F1 = '2'  "_s}},
        {u"并且"_s,
         -1,
         u"        姓名  等于     1"_s,
         {first, u" And M04.F1 = '2'  "_s, u" And M04.F1 = '3'  "_s}},
    };
    for (const auto& row : rows) {
        Conditions conditions = Of({u""_s, row.connective, u"并且"_s});
        conditions.Remove(row.line);
        EXPECT_EQ(conditions.Shown().front(), row.shown);
        EXPECT_EQ(conditions.Shown().size(), row.pieces.size());
        EXPECT_EQ(conditions.Pieces(), row.pieces);
        EXPECT_EQ(conditions.Statement(u"Select M04.* from M04 "_s),
                  u"Select M04.* from M04 "_s + row.pieces.join(QString()));
    }
}

}  // namespace
