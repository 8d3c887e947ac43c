#include "platform/dao/database.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList kTables = {
    u"create table M04 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE)"_s,
    u"create table TB1 (S2 TEXT COLLATE NOCASE, SN REAL check(typeof(SN) in ('integer','real','null')),"
    " F1 TEXT COLLATE NOCASE, F2 DATE, F3 TEXT COLLATE NOCASE,"
    " YF REAL DEFAULT 0 check(typeof(YF) in ('integer','real','null')), QM REAL)"_s,
};

TEST(Database, RowsThatWereWrittenAreThereAfterAReopen) {
    const tests::DataFile file(kTables);
    {
        auto db = dao::Database::Open(file.Path(), file.Connect());
        db->Execute(u"insert into M04 (F1,F2) VALUES ('001','张三')"_s);
        db->Close();
    }
    EXPECT_EQ(file.Files(), QStringList{u"test.dat"_s});
    auto db = dao::Database::Open(file.Path(), file.Connect());
    auto rows = db->OpenRecordset(u"Select M04.* from M04  Where F2 like '*三*'  "_s);
    ASSERT_FALSE(rows.Eof());
    EXPECT_EQ(rows.Fields(0).Text(), u"001"_s);
    EXPECT_EQ(rows.Fields(u"f2").Text(), u"张三"_s);
}

}  // namespace
