// What stands in which column. The lists are written from what the forms read and write, field by field, and
// not from tables.sql, since a column out of place would price every waybill wrongly and say nothing.
#include "tests/support/company.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

struct Expected {
    const char* table;
    const char*
        columns;  ///< in order; a kind holds for the names behind it: t: text, n: number, b: boolean, d: date
};

const Expected kTables[] = {
    {"CompanyInfo", "t: F1"},
    {"SysInfo", "n: ID Setval t: setStr"},
    {"TE1", "t: F1 F2 F3 b: F60 F61 F62 F63 F64 F65 F66 n: F67"},
    {"MS1", "n: F1 F2 F3 F4 F5 F6 F7 F8 F9 F10 F11 F12 F13 F14 F15 F16 F17 F18 F19 P888"},
    {"M01", "t: F1 F2 F3 n: D0 D1 S0 S1 JFD J0 J1 J2 J3 J4 J5 J6 J7 J8 J9"},
    {"M011",
     "t: F1 F2 F3 F4 n: F6 t: F8 n: P101 P102 P201 P202 P300 P301 P302 P303 P304 P305 P306 P307 P308 P309 P3 "
     "b: A30 A31 A32 A33 A34 A35 A36 A37 A38 A39"},
    {"M0111", "t: F0 F1 F2 F8"},
    {"M02",
     "t: F1 F2 F3 F4 n: F6 t: F8 n: P101 P102 P201 P202 P301 P302 P303 P304 P305 P306 P307 P308 P309 P310 "
     "P311 P312 P313 P314 P315 t: F71"},
    {"M021", "t: F0 F1 F2 F8"},
    {"M03", "t: F1 F2 F301 F302 F401 F402 F5 F6 F7 F8 F9 n: P888 LJFK LJQK t: F91 F92 F93 F94"},
    {"M030", "t: F1 F2"},
    {"M031", "t: F0 F1 n: F2 F3 F4 F5 F6 F7 F8 F9 F10 F11 F12 F13 F14 F15 F16 F17 F18 F19 F20"},
    {"M04", "t: F1 F2"},
    {"M05", "t: F1 F2"},
    {"M06", "t: F1 F2"},
    {"B01",
     "t: F1 F101 F102 F103 F201 F202 F203 F2031 F2041 F2042 F2051 F2052 F2061 F2062 F2071 F2072 F208 F301 "
     "F302 "
     "F303 n: F401 F402 F403 F404 t: F405 F501 n: F502 F503 F504 t: F601 F602 F603 F604 n: F505 F507 F506 "
     "t: F701 F702 F703 F704 F2021 F605 F606 n: DF YJ XJ F508 F509 F510 F4051 F4052 F4053"},
    {"TB1", "t: S2 n: SN LB t: F1 d: F2 t: F3 n: YF FK QC QM t: S1 F5 F6 F10 d: H8 n: K t: F30"},
    {"TA2", "t: F1 F2 F3 F4 F5"},
    {"TD1", "t: F1 d: F2 t: F3 n: F9 F91"},
    {"TD2", "t: F1 F2 d: F3 n: F4 F5"},
    {"PRNTM03", "t: F1 F2 n: F31 F32 F33 F34 F35 F36 F37 F38 F39"},
    {"PRNTC01", "t: F1"},
    {"PRNTC023", "t: F1 F2 F3 F4 F5 F6"},
    {"PRNTC04", "t: F1 F2 F3 F4 F5 F6 F7 F8 F9 F10 F11 F12 F13 F14 F15"},
    {"PRNTC05", "t: F1 F2 F3 F4 F5 F6 F7"},
    {"Plist", "t: F0 F1 F2 F3 F4 F5 F6 F7 F8 F9 F10 n: V1"},
    {"PrTA1", "t: F1 F2 F3 F4 F5 F6"},
    {"PRTB2", "t: F0 F1 F2 F3 n: F6 F7 F8"},
};

struct Kind {
    QStringList declared, taken, refused;
};

const std::map<QChar, Kind> kKinds = {
    {u't', {{u"TEXT"_s}, {u"'中文'"_s, u"''"_s, u"null"_s, u"'12'"_s}, {}}},
    {u'n',
     {{u"DOUBLE"_s, u"INTEGER"_s},
      {u"0"_s, u"-1.25"_s, u"7"_s, u"null"_s},
      {u"''"_s, u"'x'"_s, u"'12kg'"_s, u"x'31'"_s}}},
    {u'b', {{u"BOOLEAN"_s}, {u"0"_s, u"1"_s, u"-1"_s, u"null"_s}, {u"''"_s, u"'True'"_s, u"'是'"_s}}},
    {u'd',
     {{u"DATE"_s},
      {u"null"_s, u"'2024-01-05'"_s, u"'2024-02-29'"_s, u"'2024-01-05 23:59:59'"_s},
      {u"''"_s, u"'2024-1-5'"_s, u"'2024/01/05'"_s, u"'2023-02-29'"_s, u"'2024-01-05 24:00:00'"_s,
       u"'2024-01-05 10:00'"_s, u"'2024-01-05 '"_s, u"'now'"_s, u"'明天'"_s, u"20240105"_s, u"2460315"_s}}},
};

struct Column {
    QString name;
    QChar kind;
};

std::vector<Column> ColumnsOf(const Expected& expected) {
    std::vector<Column> columns;
    QChar kind;
    for (const QString& word : QString::fromUtf8(expected.columns).split(u' ')) {
        if (word.endsWith(u':'))
            kind = word[0];
        else
            columns.push_back({word, kind});
    }
    return columns;
}

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

TEST_F(Columns, StandInTheOrderThatReadersCountBy) {
    QStringList names, defaults;
    for (const Expected& expected : kTables) {
        const QString table = QString::fromUtf8(expected.table);
        names += table;
        const auto wanted = ColumnsOf(expected);
        const QStringList found = file_.Rows(u"pragma table_info(%1)"_s.arg(table));
        ASSERT_EQ(static_cast<std::size_t>(found.size()), wanted.size()) << expected.table;
        for (std::size_t place = 0; place < wanted.size(); ++place) {
            const QStringList column = found[static_cast<int>(place)].split(u'|');
            EXPECT_EQ(column[1], wanted[place].name) << expected.table;
            EXPECT_TRUE(kKinds.at(wanted[place].kind).declared.contains(column[2]))
                << column[1].toStdString();
            EXPECT_EQ(column[3] + column[5], u"00"_s)
                << "no column is a key or refuses null: " << expected.table;
            if (column[4] != u"<null>") defaults += table + u'.' + column[1] + u'=' + column[4];
        }
    }
    // A post leaves the other amount at nought, and a note on which nothing was paid has nought paid.
    EXPECT_EQ(defaults.join(u' '), u"TB1.YF=0 TB1.FK=0 TB1.K=0 TD1.F91=0"_s);
    // The list above is all there is, and rows may be as equal as the forms let them be.
    names.sort();
    EXPECT_EQ(file_.Rows(u"select name from sqlite_master where type = 'table' order by name"_s), names);
    EXPECT_EQ(file_.Rows(u"select name from sqlite_master where sql like '%unique%'"_s), QStringList());
}

TEST_F(Columns, TakeWhatTheirKindTakesAndNothingElse) {
    for (const Expected& expected : kTables) {
        const QString table = QString::fromUtf8(expected.table);
        for (const Column& column : ColumnsOf(expected)) {
            SCOPED_TRACE((table + u'.' + column.name).toStdString());
            const Kind& kind = kKinds.at(column.kind);
            for (const QString& value : kind.taken + kind.taken)  // duplicates and empty keys are stored
                EXPECT_TRUE(Takes(table, column.name, value)) << value.toStdString();
            for (const QString& value : kind.refused)
                EXPECT_FALSE(Takes(table, column.name, value)) << value.toStdString();
            if (column.kind != u't') continue;
            // Texts compare case-blind, whatever table they stand in.
            Takes(table, column.name, u"'aBc'"_s);
            EXPECT_EQ(file_.Rows(u"select count(*) from %1 where %2 = 'AbC'"_s.arg(table, column.name)),
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
