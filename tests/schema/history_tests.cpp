// What the triggers keep of each table, and how a file gets back what it lacks of them.
#include "platform/dao/engine.h"
#include "schema/history.h"
#include "tests/support/company.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

class History : public testing::Test {
  protected:
    History() { file_.Run(u"update HNow set N=7,At='2024-11-24 16:42:08',Operator='张敏',Command='B01'"_s); }

    /// Names and types of a table's columns.
    QStringList Columns(const QString& table) {
        QStringList columns;
        for (const QString& column : file_.Rows(u"pragma table_info(%1)"_s.arg(table)))
            columns += column.section(u'|', 1, 2);
        return columns;
    }
    /// What the mirror has kept since the last look.
    QStringList Kept(const QString& table, const QString& columns) {
        const QStringList rows = file_.Rows(u"select Op,R,%2 from H_%1 order by rowid"_s.arg(table, columns));
        file_.Run(u"delete from H_"_s + table);
        return rows;
    }

    Company company_;
    Connection file_{company_.File()};
};

/// A value of its own for each column.
QString ValueOf(const QString& column, int index, int by) {
    if (column.endsWith(u"|TEXT")) return u"it''s %1"_s.arg(index + by);
    return column.endsWith(u"|DATE") ? u"2024-01-%1"_s.arg(1 + index % 28, 2, 10, QChar(u'0'))
                                     : QString::number(index + by);
}

TEST_F(History, KeepsEveryColumnOfEveryTableButPasswords) {
    for (const schema::KeptTable& table : schema::KeptTables()) {
        const QString name = QString::fromLatin1(table.name);
        SCOPED_TRACE(table.name.toStdString());
        QStringList names, values, shown, keys;
        for (const QString& column : Columns(name)) {
            names += column.section(u'|', 0, 0);
            const QString value = ValueOf(column, static_cast<int>(names.size()), 0);
            values += column.contains(u"TEXT") || column.contains(u"DATE") ? u"'%1'"_s.arg(value) : value;
            shown += column.contains(u"DOUBLE") ? value + u".0"_s : QString(value).replace(u"''"_s, u"'"_s);
        }
        const qsizetype password = name == u"TE1" ? names.indexOf(u"F3"_s) : -1;
        file_.Run(u"delete from "_s + name);
        Kept(name, u"N"_s);
        if (name == u"B011") file_.Run(u"insert into H_B01 (N,Op,F1) values (7,'D','it''s 1')"_s);  // an edit
        file_.Run(u"insert into %1 (%2) values (%3)"_s.arg(name, names.join(u','), values.join(u',')));
        file_.Run(u"update %1 set %2=%2 where rowid=1"_s.arg(name, names.front()));
        file_.Run(u"delete from "_s + name);
        if (password >= 0) names.removeAt(password), shown.removeAt(password);
        QStringList mirrored = Columns(u"H_"_s + name);
        EXPECT_EQ(mirrored.size(), names.size() + 6);
        for (const QByteArray& key : table.key) keys += QString::fromLatin1(key);
        const QString row = u"1|"_s + shown.join(u'|') + u"|7|2024-11-24 16:42:08|张敏|B01"_s;
        const QStringList kept = Kept(name, names.join(u',') + u",N,At,Operator,Command"_s);
        ASSERT_EQ(kept.size(), 3);
        QStringList inserted = kept[0].split(u'|');
        for (qsizetype i = 0; i < names.size(); ++i)
            EXPECT_EQ(inserted[i + 2], keys.contains(names[i]) ? shown[i] : u"<null>"_s);
        EXPECT_EQ(inserted[0], u"I"_s);
        EXPECT_EQ(kept[1], u"U|"_s + row);
        EXPECT_EQ(kept[2], u"D|"_s + row);
    }
}

TEST_F(History, PassesOverComputedBalancesAndTheLastOrigin) {
    file_.Run(u"insert into TB1 (F1,SN,YF) values ('YS1',131,5)"_s);
    Kept(u"TB1"_s, u"F1"_s);
    file_.Run(u"update TB1 set QC=1,QM=2"_s);
    file_.Run(u"update TB1 set SN=0"_s);
    file_.Run(u"update TE1 set F67=3"_s);
    EXPECT_EQ(Kept(u"TB1"_s, u"F1"_s) + Kept(u"TE1"_s, u"F1"_s), QStringList{u"I|1|001"_s});
    file_.Run(u"update TB1 set F1='YS2',SN=140"_s);
    EXPECT_EQ(Kept(u"TB1"_s, u"F1,SN,YF"_s), QStringList({u"U|1|YS1|0.0|5.0"_s, u"K|1|YS2|<null>|<null>"_s}));
    file_.Run(u"update TE1 set F3='geheim'"_s);
    EXPECT_EQ(Kept(u"TE1"_s, u"F1"_s), QStringList{u"U|1|001"_s}) << "a password has changed";
}

TEST_F(History, IsCompletedWhereATriggerAColumnOrTheGroupIsMissing) {
    const QString everything = u"select type,name,sql from sqlite_master order by name"_s;
    const QStringList whole = file_.Rows(everything);
    file_.Run(u"drop trigger H_B01_delete"_s);
    file_.Run(u"drop table H_M06"_s);
    file_.Run(u"delete from HNow"_s);
    file_.Close();
    const auto engine = dao::OpenEngine(company_.File(), u"QXR7305");
    schema::CompleteHistory(engine.get());
    EXPECT_EQ(Connection(company_.File()).Rows(everything), whole);
    EXPECT_EQ(dao::Number(engine.get(), "select count(*) from HNow"), 1);

    // The table itself too; the numbers go on.
    dao::Run(engine.get(), "update HNow set N=7; insert into M06 (F1) values ('a'); drop table HNow");
    schema::CompleteHistory(engine.get());
    EXPECT_EQ(dao::Number(engine.get(), "select N from HNow"), 7);
    dao::Run(engine.get(), "delete from M06 where F1='a'");

    // A release that adds a column to a table has nothing to do for the history.
    dao::Run(engine.get(), "alter table M04 add column F9 TEXT COLLATE NOCASE");
    schema::CompleteHistory(engine.get());
    dao::Run(engine.get(), "insert into M04 (F1,F9) values ('Han','new'); update M04 set F9='newer'");
    EXPECT_EQ(dao::Number(engine.get(), "select count(*) from H_M04 where Op='U' and F9='new'"), 1);
}

}  // namespace
}  // namespace tests
