// What the columns of every table take, and which index serves which question.
#include "tests/support/company.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

struct Kind {
    QStringList taken, refused;
};

const Kind kNumber = {{u"0"_s, u"-1.25"_s, u"7"_s, u"null"_s}, {u"''"_s, u"'x'"_s, u"'12kg'"_s, u"x'31'"_s}};
const std::map<QString, Kind> kKinds = {
    {u"TEXT"_s, {{u"'中文'"_s, u"''"_s, u"null"_s, u"'12'"_s}, {}}},
    {u"DOUBLE"_s, kNumber},
    {u"INTEGER"_s, kNumber},
    {u"BOOLEAN"_s, {{u"0"_s, u"1"_s, u"-1"_s, u"null"_s}, {u"''"_s, u"'True'"_s, u"'是'"_s}}},
    {u"DATE"_s,
     {{u"null"_s, u"'2024-01-05'"_s, u"'2024-02-29'"_s, u"'2024-01-05 23:59:59'"_s},
      {u"''"_s, u"'2024-1-5'"_s, u"'2024/01/05'"_s, u"'2023-02-29'"_s, u"'2024-01-05 24:00:00'"_s,
       u"'2024-01-05 10:00'"_s, u"'2024-01-05 '"_s, u"'now'"_s, u"'明天'"_s, u"20240105"_s, u"2460315"_s}}},
};

class Columns : public testing::Test {
  protected:
    Columns() { file_.Run(u"begin"_s); }  // some thousand statements, and nothing to keep of them
    /// Whether the column takes a value, written as in a statement.
    bool Takes(const QString& table, const QString& column, const QString& value) {
        return file_.Takes(u"insert into %1 (%2) values (%3)"_s.arg(table, column, value));
    }

    Company company_;
    Connection file_{company_.File()};
};

TEST_F(Columns, TakeWhatTheirKindTakesAndNothingElse) {
    const QStringList tables = file_.Rows(
        u"select name from sqlite_master where type = 'table' and name not like 'H#_%' escape '#'"_s);
    ASSERT_FALSE(tables.isEmpty());
    for (const QString& table : tables) {
        for (const QString& column : file_.Rows(u"pragma table_info(%1)"_s.arg(table))) {
            const QStringList parts = column.split(u'|');
            const QString& name = parts[1];
            SCOPED_TRACE((table + u'.' + name).toStdString());
            EXPECT_EQ(parts[3] + parts[5], u"00"_s) << "no column is a key or refuses null";
            const Kind& kind = kKinds.at(parts[2]);
            for (const QString& value : kind.taken + kind.taken)  // duplicates and empty keys are stored
                EXPECT_TRUE(Takes(table, name, value)) << value.toStdString();
            for (const QString& value : kind.refused)
                EXPECT_FALSE(Takes(table, name, value)) << value.toStdString();
            if (parts[2] != u"TEXT") continue;
            // Texts compare case-blind, whatever table they are in.
            Takes(table, name, u"'aBc'"_s);
            EXPECT_EQ(file_.Rows(u"select count(*) from %1 where %2 = 'AbC'"_s.arg(table, name)),
                      QStringList{u"1"_s});
        }
    }
    // An update meets the same wall.
    EXPECT_FALSE(file_.Takes(u"update TE1 set F67 = '' where F1 = '001'"_s));
}

TEST_F(Columns, AnIndexServesWhatIsSearchedAndSortedBy) {
    const struct {
        const char* query;
        const char* index;
    } rows[] = {
        {"select * from B01 where F1 = 'a'", "B01_F1"},
        {"select F2 from B011 where F1 = 'a'", "B011_F1"},
        {"select F2 from M012 where F1 = 'a'", "M012_F1"},
        {"select F602 from B01 where F602 = 'a'", "B01_F602"},
        {"select F1 from B01 where F101 >= '2024-01-01' and F101 < '2024-02-01'", "B01_F101"},
        {"select F1 from B01 order by F101, rowid", "B01_F101"},
        {"select F2 from M03 where F1 = 'a'", "M03_F1"},
        {"select F2 from M01 where F1 = 'a'", "M01_F1"},
        {"select * from M031 where F0 = 'a' and F1 = 'b'", "M031_F0_F1"},
        {"select F1, F2 from M011 where F3 = 'a'", "M011_F3"},
        {"select F1 from M021 where F0 = 'a'", "M021_F0"},
        {"select F1 from M0111 where F0 = 'a'", "M0111_F0"},
        {"select F3 from TE1 where F1 = '001'", "TE1_F1"},
        {"delete from TB1 where F1 = 'YF1' or F1 = 'YS1'", "TB1_F1"},
        {"select F2 from TB1 order by F2 desc, rowid limit 1", "TB1_F2"},
        {"select F1 from TB1 where F2 >= '2024-01-01' and F2 < '2024-02-01'", "TB1_F2"},
        {"select F2, SN from TB1 where +F2 < '2024-01-01' and F1 <> 'a' order by SN desc, rowid desc limit 1",
         "COVERING INDEX TB1_SN_F2_F1"},
        {"update TB1 set SN = 0 where SN = 131", "TB1_SN"},
        {"select QM from TB1 where F3 = 'a' and SN < 131 order by SN desc limit 1", "TB1_F3_SN"},
        {"select F1 from TB1 where LB = 9 order by SN, rowid limit 1000", "TB1_LB_SN"},
    };
    for (const auto& row : rows) {
        const QString plan = file_.Rows(u"explain query plan "_s + QString::fromUtf8(row.query)).join(u'\n');
        EXPECT_TRUE(plan.contains(QString::fromUtf8(row.index))) << row.query << '\n' << plan.toStdString();
    }
}

}  // namespace
}  // namespace tests
