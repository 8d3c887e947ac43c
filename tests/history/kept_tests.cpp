// What the commands of the real forms leave in the history: undone from it backwards, the file is what it was
// before. How much of it is kept, and what a reset leaves.
#include "app/history_groups.h"
#include "app/history_pause.h"
#include "history/entries.h"
#include "platform/errors.h"
#include "schema/history.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"
#include "tests/history/state.h"

#include <QRegularExpression>
#include <QScopeGuard>

#include <gtest/gtest.h>

namespace tests {
namespace {

using schema::KeptTable;

QString Number(const QString& select) {
    return Db->ReadEngine(select).Fields(0).Text();
}

/// Undoes what a table's history holds of the groups behind that number, the last first.
void Undo(const KeptTable& table, const QString& since) {
    const QString name = QString::fromLatin1(table.name);
    QStringList set;
    const QStringList columns = ComparedColumns(table);
    for (const QString& column : columns)
        set += column + u"=(select %1 from H_%2 where rowid=%3)"_s.arg(column, name);
    auto events =
        Db->ReadEngine(u"select rowid,Op,R from H_%1 where N>%2 order by rowid desc"_s.arg(name, since));
    QStringList statements;
    for (; !events.Eof(); events.MoveNext()) {
        const QString row = events.Fields(0).Text(), op = events.Fields(1).Text(),
                      number = events.Fields(2).Text();
        if (op == u"I") statements += u"delete from %1 where rowid=%2"_s.arg(name, number);
        if (op == u"D") statements += u"insert into %1 (rowid) values (%2)"_s.arg(name, number);
        if (op == u"D" || op == u"U")
            statements += u"update %1 set "_s.arg(name) + set.join(u',').replace(u"%3"_s, row) +
                          u" where rowid="_s + number;
    }
    for (const QString& statement : statements) Db->ExecuteEngine(statement);
}

/// Without the steps of prices, of which inserts are not kept.
QStringList UndoneState() {
    return KeptState().filter(QRegularExpression(u"^(?!B011 )"_s));
}

class EveryCommand : public testing::TestWithParam<std::string> {};

TEST_P(EveryCommand, CanBeUndoneFromTheHistoryAlone) {
    const Command& command = CommandOf(GetParam());
    RecordedProgram program(CommandMasters());
    Prepare(program, command);
    const QString since = Number(u"select N from HNow"_s);
    const QStringList before = UndoneState();
    command.give(program);
    ASSERT_FALSE(program.status) << "the command has failed";
    const QString noted = u"Operator is '%1' and At='2024-03-15 10:00:00' and Command glob '%2*'"_s.arg(
        OperatorName, QString::fromLatin1(GetParam()).section(u'_', 0, 0));
    for (const KeptTable& table : schema::KeptTables())
        EXPECT_EQ(Number(u"select count(*) from %1 where N>%2 and not (%3)"_s.arg(
                      QString::fromLatin1(table.Mirror()), since, noted)),
                  u"0"_s)
            << table.name.toStdString();
    EXPECT_EQ(Number(u"select count(*) from HNow where Operator is null and Command is null"_s), u"1"_s);
    if (!GetParam().starts_with("ReKuan") && !GetParam().starts_with("S2_")) {
        EXPECT_NE(UndoneState(), before);
    }
    for (const KeptTable& table : schema::KeptTables())
        if (table.insertsIf.isEmpty()) Undo(table, since);
    EXPECT_EQ(UndoneState(), before);
}

/// All but the two that replace the file or empty its history as well, and those that write to tables without
/// a history alone.
std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (const Command& command : WritingCommands())
        if (const std::string name = command.name;
            !name.starts_with("S3") && name != "S03_Clear" && !name.starts_with("D201") &&
            name != "ChannelBill_Compare" && name.find("_Print") == name.npos)
            names.push_back(name);
    return names;
}

INSTANTIATE_TEST_SUITE_P(History, EveryCommand, testing::ValuesIn(Names()),
                         [](const auto& each) { return each.param; });

/// Rows in all mirrors.
int Kept() {
    int rows = 0;
    for (const KeptTable& table : schema::KeptTables())
        rows += Number(u"select count(*) from "_s + QString::fromLatin1(table.Mirror())).toInt();
    return rows;
}

TEST(HistoryLimit, EachCommandRemovesWhatTheOneBeforeItAddedBeyond) {
    const auto limits = qScopeGuard([] { historyLimits() = {}; });
    Program program;
    const auto add = [&](int couriers) {
        for (int i = 0; i < couriers; ++i) Db->Execute(u"insert into M04 (F1) values ('张三')"_s);
        Db->CloseGroup();
    };
    add(1);  // what a new company starts with has no time and counts as old
    const int before = Kept();
    historyLimits().rows = before + 10;
    add(9);
    add(1);
    EXPECT_EQ(Kept(), before + 10);
    add(4);
    EXPECT_EQ(Kept(), before + 14);
    add(1);
    EXPECT_LE(Kept(), before + 11);
    EXPECT_EQ(Number(u"select count(*) from H_M04 where N=(select N-1 from HNow)"_s), u"1"_s);
    // A whole group goes at once, and the oldest first.
    historyLimits().rows = 2;
    add(1);
    EXPECT_EQ(Number(u"select group_concat(N) from (select distinct N from H_M04 order by N)"_s),
              Number(u"select (N-3)||','||(N-1) from HNow"_s));
}

/// The clock of the machine, and what the history holds.
class HistoryAndClock : public testing::Test {
  protected:
    HistoryAndClock() { program_.Execute(u"delete from H_TE1"_s); }
    ~HistoryAndClock() override { historyLimits() = {}; }
    /// One command then; gives the days of the kept rows.
    QString AddAt(QDate day, int hour = 10) {
        day_ = day;
        program_.script.SetNow(QDateTime(day, QTime(hour, 0)));
        Db->Execute(u"insert into M04 (F1) values ('张三')"_s);
        Db->CloseGroup();
        return Number(u"select group_concat(substr(At,1,7)) from H_M04"_s);
    }
    /// Commands that keep nothing, every month until then.
    void WorkUntil(QDate day) {
        for (QDate at = day_; at < day; at = at.addDays(30)) {
            program_.script.SetNow(QDateTime(at, QTime(10, 0)));
            Db->ExecuteEngine(u"update HNow set Failed=null"_s);
            Db->CloseGroup();
        }
        day_ = day;
    }
    static QString Steps() { return Number(u"select group_concat(Ahead) from HClock"_s); }
    static QStringList Found(QDate from, QDate to) {
        QStringList found;
        for (const auto& entry : history::Find(*Db, {.menus = {u"Menu_A"_s}, .from = from, .to = to}))
            found.prepend(entry.at.left(7));
        return found;
    }

    Program program_;
    QDate day_ = QDate(2024, 3, 15);
};

TEST_F(HistoryAndClock, WhatIsOlderThanThreeYearsGoesInPortions) {
    historyLimits().oldAtOnce = 2;
    for (const int month : {3, 4, 5, 6, 7}) AddAt({2024, month, 15});
    WorkUntil({2027, 3, 14});
    EXPECT_EQ(AddAt({2027, 3, 14}), u"2024-03,2024-04,2024-05,2024-06,2024-07,2027-03"_s) << "not older yet";
    EXPECT_EQ(AddAt({2027, 4, 14}), u"2024-04,2024-05,2024-06,2024-07,2027-03,2027-04"_s);
    WorkUntil({2027, 7, 14});
    EXPECT_EQ(AddAt({2027, 7, 14}), u"2024-07,2027-03,2027-04,2027-07"_s);
    EXPECT_EQ(Steps(), QString());
}

TEST_F(HistoryAndClock, AWrongDateRemovesNothingAndEachPeriodIsFound) {
    AddAt({2024, 3, 15}, 12);
    AddAt({2024, 3, 15}, 10);
    EXPECT_EQ(Steps(), u"0"_s) << "more than an hour back";
    AddAt({2024, 4, 1});
    AddAt({2099, 1, 1});
    AddAt({2099, 1, 2});
    EXPECT_EQ(AddAt({2024, 4, 2}), u"2024-03,2024-03,2024-04,2099-01,2099-01,2024-04"_s);
    EXPECT_EQ(AddAt({1999, 1, 1}), u"2024-03,2024-03,2024-04,2099-01,2099-01,2024-04,1999-01"_s);
    AddAt({2024, 4, 3});
    EXPECT_EQ(Found({2024, 4, 1}, {2024, 4, 30}), QStringList(3, u"2024-04"_s));
    EXPECT_EQ(Found({2099, 1, 2}, {2099, 1, 2}), QStringList(1, u"2099-01"_s));
    EXPECT_EQ(Found({1999, 1, 1}, {1999, 1, 1}), QStringList(1, u"1999-01"_s));
    // Age is counted on from where the clock was, and the excursions cost nothing of the three years.
    WorkUntil({2027, 3, 10});
    EXPECT_TRUE(AddAt({2027, 3, 10}).startsWith(u"2024-03"_s));
    WorkUntil({2027, 6, 1});
    EXPECT_EQ(AddAt({2027, 6, 1}), u"2027-03,2027-06"_s);
    EXPECT_FALSE(Steps().contains(u','));
}

QStringList Triggers() {
    QStringList triggers;
    auto rows = Db->ReadEngine(u"select sql from sqlite_master where type='trigger' order by name"_s);
    for (; !rows.Eof(); rows.MoveNext()) triggers += rows.Fields(0).Text();
    return triggers;
}

TEST(HistoryOfAReset, GoesWithItsTablesAndTheTriggersStay) {
    RecordedProgram program(CommandMasters());
    const QStringList triggers = Triggers();
    ASSERT_EQ(triggers.size(), 3 * static_cast<int>(schema::KeptTables().size()));
    CommandOf("S03_Clear").give(program);
    EXPECT_EQ(Triggers(), triggers);
    EXPECT_EQ(
        Number(
            u"select (select count(*) from H_B01)+(select count(*) from H_TB1)+(select count(*) from H_M031)"_s),
        u"0"_s);
    EXPECT_NE(Number(u"select count(*) from H_M05"_s), u"0"_s);
    program.Execute(u"insert into B01 (F1) values ('W9')"_s);
    EXPECT_EQ(Number(u"select F1 from H_B01"_s), u"W9"_s);
}

TEST(HistoryOfAReset, ComesOnAgainWhenItCannotBePaused) {
    Program program;
    const QStringList triggers = Triggers();
    // The second time there is nothing left to drop.
    EXPECT_THROW(HistoryPause(*Db, {u"M04"_s, u"M04"_s}), DatabaseError);
    EXPECT_EQ(Triggers(), triggers);
}

TEST(HistoryOfAReset, ComesOnAgainWhenAStatementFailsInTheMiddle) {
    RecordedProgram program(CommandMasters());
    const QStringList triggers = Triggers();
    Db->ExecuteEngine(u"create trigger refuses before delete on M03 begin select raise(fail,'nein'); end"_s);
    Db->CloseGroup();
    CommandOf("S03_Clear").give(program);
    EXPECT_EQ(program.status, 1);
    Db->ExecuteEngine(u"drop trigger refuses"_s);
    EXPECT_EQ(Triggers(), triggers);
    EXPECT_EQ(Number(u"select count(*) from M01"_s), u"0"_s) << "what was cleared stays cleared";
}

}  // namespace
}  // namespace tests
