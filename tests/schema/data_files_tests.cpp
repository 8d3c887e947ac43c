// The files of a new company: locked, whole, and never made over an old one.
#include "platform/errors.h"
#include "schema/data_files.h"
#include "schema/definition.h"
#include "schema/names.h"
#include "tests/support/data_file.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/rights.h"

#include <QDir>
#include <QLockFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

const QStringList kNames =
    QStringList{u"tessik.dat"_s, u"excel.dat"_s, u"syspic.dat"_s} + schema::LayoutFiles();

class DataFiles : public testing::Test {
  protected:
    QString Path(const QString& name = u"tessik.dat"_s) const { return folder_.filePath(name); }
    QStringList Listing() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QString folder() const { return folder_.path(); }

  private:
    QTemporaryDir folder_;
};

/// Whether the engine reads a file with that key; "" is no key at all.
bool Opens(const QString& path, const QString& key) {
    return Connection(path, key).Takes(u"select * from sqlite_master"_s);
}

TEST_F(DataFiles, TheDatabaseOpensWithItsPasswordAlone) {
    schema::MakeDatabase(Path());
    EXPECT_TRUE(Opens(Path(), u"QXR7305"_s));
    for (const QString& key : {u""_s, u"qxr7305"_s, u"QXR7305 "_s, u"QXR730"_s, u"x"_s})
        EXPECT_FALSE(Opens(Path(), key)) << key.toStdString();
    const QByteArray bytes = Bytes(Path());
    EXPECT_EQ(bytes.size() % 4096, 0);
    for (const QByteArray readable : {"SQLite format", "create table", "管理员"}) {
        EXPECT_FALSE(bytes.contains(readable)) << readable.toStdString();
    }
}

TEST_F(DataFiles, ANewCompanyIsOneFileWithItsFirstRows) {
    const struct {
        const char* query;
        const char* answer;
    } rows[] = {
        {"pragma journal_mode", "delete"},
        {"pragma integrity_check", "ok"},
        {"select F1 from CompanyInfo", "飞达'快递"},
        {"select ID,Setval from SysInfo where ID=100", "100|100.0"},
        {"select count(*),max(setStr) from SysInfo", "2|"},
        {"select F1,F2,F3,F60,F61,F62,F63,F64,F65,F66,F67 from TE1", "001|管理员||1|1|1|1|1|1|1|0"},
        {"select (select count(*) from B01) + (select count(*) from MS1)", "0"},
    };
    schema::MakeDatabase(Path(), u"飞达'快递"_s);
    EXPECT_EQ(Listing(), QStringList(u"tessik.dat"_s));
    Connection file(Path());
    for (const auto& row : rows)
        EXPECT_EQ(file.Rows(QString::fromUtf8(row.query)).join(u' ').toStdString(), row.answer) << row.query;
    EXPECT_EQ(file.Rows(u"pragma user_version"_s), QStringList(QString::number(schema::kVersion)));
}

TEST_F(DataFiles, TheExportFileHoldsAnEmptySheetForEveryone) {
    schema::MakeExportFile(Path(u"excel.dat"_s));
    EXPECT_TRUE(Opens(Path(u"excel.dat"_s), {}));
    Connection file(Path(u"excel.dat"_s), {});
    const QStringList columns = file.Rows(u"pragma table_info(mysheet)"_s);
    ASSERT_EQ(columns.size(), 30);
    EXPECT_TRUE(columns.first().startsWith(u"0|F1|TEXT|"_s));
    EXPECT_TRUE(columns.last().startsWith(u"29|F30|TEXT|"_s));
    EXPECT_EQ(file.Rows(u"select * from mysheet"_s), QStringList());
}

TEST_F(DataFiles, ASecondRunMakesWhatIsMissingAndNothingElse) {
    EXPECT_EQ(schema::MakeDataFiles(folder(), u"甲"_s), kNames);
    QStringList sorted = kNames;
    sorted.sort();
    EXPECT_EQ(Listing(), sorted);
    for (const QString& name : kNames) EXPECT_EQ(RightsOf(Path(name)), 0600) << name.toStdString();
    const QByteArray database = Bytes(Path());
    Write(Path(u"syspic.dat"_s), "a picture of the user's");
    ASSERT_TRUE(QFile::remove(Path(u"excel.dat"_s)));

    EXPECT_EQ(schema::MakeDataFiles(folder(), u"乙"_s), QStringList(u"excel.dat"_s));
    EXPECT_EQ(schema::MakeDataFiles(folder()), QStringList());
    EXPECT_EQ(Bytes(Path()), database);
    EXPECT_EQ(Bytes(Path(u"syspic.dat"_s)), "a picture of the user's");
    EXPECT_THROW(schema::MakeDatabase(Path()), RuntimeError);
    EXPECT_EQ(Bytes(Path()), database);
}

TEST_F(DataFiles, WhatFailsHalfWayLeavesNothing) {
    const struct {
        const char* what;
        std::function<void()> make;
    } rows[] = {
        {"database", [&] { schema::MakeDatabase(Path()); }},
        {"export file", [&] { schema::MakeExportFile(Path()); }},
        {"picture", [&] { schema::MakePicture(Path()); }},
        {"layout", [&] { schema::MakeLayout(Path(u"report.xsd"_s)); }},
    };
    for (const auto& row : rows) {
        {
            const FullDisk full(6000);
            EXPECT_THROW(row.make(), RuntimeError) << row.what;
        }
        EXPECT_EQ(Listing(), QStringList()) << row.what;
    }
    const auto fail = [&](const QString& temporary) {
        Write(temporary, "half");
        throw std::runtime_error("in the middle");
    };
    EXPECT_THROW(schema::MakeWhole(Path(), fail), std::runtime_error);
    EXPECT_EQ(Listing(), QStringList());
}

TEST_F(DataFiles, WhatAKilledRunLeftIsNoObstacle) {
    for (const QString& name : {u"tessik.dat.making"_s, u"tessik.dat.making-journal"_s})
        Write(Path(name), "half a page");
    schema::MakeDatabase(Path());
    EXPECT_TRUE(Opens(Path(), u"QXR7305"_s));
    EXPECT_EQ(Listing(), QStringList(u"tessik.dat"_s));
}

TEST_F(DataFiles, TwoRunsAtOnceDoNotMeet) {
    QLockFile other(Path() + u".lock"_s);
    ASSERT_TRUE(other.tryLock());
    EXPECT_THROW(schema::MakeDatabase(Path()), RuntimeError);
    EXPECT_EQ(Listing(), QStringList(u"tessik.dat.lock"_s));
    other.unlock();
    EXPECT_EQ(schema::MakeDataFiles(folder()), kNames);
}

}  // namespace
}  // namespace tests
