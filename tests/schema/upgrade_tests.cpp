// A file of last year opens in this year's program; a file of next year does not.
#include "platform/dao/engine.h"
#include "platform/errors.h"
#include "schema/data_files.h"
#include "schema/names.h"
#include "schema/upgrade.h"
#include "tests/support/data_file.h"
#include "tests/support/files.h"

using namespace Qt::StringLiterals;

namespace tests {
namespace {

const std::vector<schema::UpgradeStep> kSteps = {
    {1, {"create table T (F1)", "insert into T (F1) values ('old')"}},
    {2, {"alter table T add column F2 default 5"}},
    {4, {"update T set F2 = F2 + 1", "alter table T add column F3"}},
};

class Upgrading : public testing::Test {
  protected:
    dao::Engine Open() const { return dao::OpenEngine(Path(), schema::kPassword); }
    QString Path() const { return folder_.filePath(u"tessik.dat"_s); }
    QString Found(const QString& query) const { return Connection(Path()).Rows(query).join(u' '); }
    /// A file as the steps up to that version left it.
    void MakeFile(int version) {
        std::vector<schema::UpgradeStep> steps;
        for (const auto& step : kSteps) {
            if (step.version <= version) steps.push_back(step);
        }
        schema::Upgrade(Open().get(), steps, version);
    }

  private:
    QTemporaryDir folder_;
};

TEST_F(Upgrading, RunsTheStepsAboveTheFilesVersion) {
    for (const int version : {0, 1, 2, 3}) {
        QFile::remove(Path());
        MakeFile(version);
        schema::Upgrade(Open().get(), kSteps, 4);
        EXPECT_EQ(Found(u"pragma user_version"_s), u"4"_s) << version;
        EXPECT_EQ(Found(u"select F1,F2,F3 from T"_s), u"old|6|<null>"_s) << version;
    }
}

TEST_F(Upgrading, LeavesAFileAloneThatIsUpToDateOrOfANewerRelease) {
    MakeFile(4);
    const QByteArray before = Bytes(Path());
    schema::Upgrade(Open().get(), kSteps, 4);
    EXPECT_EQ(Bytes(Path()), before);
    try {
        schema::Upgrade(Open().get(), kSteps, 3);
        FAIL() << "taken";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(), u"数据文件的版本（4）比本程序的版本（3）新，请使用新版程序打开！"_s);
    }
    EXPECT_EQ(Bytes(Path()), before);
}

TEST_F(Upgrading, AFailingStepTakesTheOthersBack) {
    MakeFile(1);
    auto steps = kSteps;
    steps[2].statements += "update Nowhere set F1 = 1";
    try {
        schema::Upgrade(Open().get(), steps, 4);
        FAIL() << "taken";
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(error.Text().startsWith(u"数据文件升级到第 4 版失败！"_s)) << error.Text().toStdString();
    }
    EXPECT_EQ(Found(u"pragma user_version"_s), u"1"_s);
    EXPECT_EQ(Found(u"select * from T"_s), u"old"_s);
}

TEST_F(Upgrading, WaitsForNobodyAndChangesNothingWhileAnotherProgramHasTheFileOpen) {
    MakeFile(1);
    Connection other(Path());
    other.Run(u"pragma journal_mode = wal"_s);
    other.Rows(u"select * from T"_s);
    const auto file = Open();
    for (const bool asked : {true, false}) {
        try {
            asked ? static_cast<void>(schema::UpgradeIsDue(file.get(), 4))
                  : schema::Upgrade(file.get(), kSteps, 4);
            ADD_FAILURE() << "taken";
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(error.Text().contains(u"另一个程序正在使用"_s)) << error.Text().toStdString();
        }
    }
    EXPECT_FALSE(schema::UpgradeIsDue(file.get(), 1)) << "what is up to date may be shared";
    EXPECT_EQ(other.Rows(u"pragma user_version"_s), QStringList{u"1"_s});
    other.Close();
    schema::Upgrade(file.get(), kSteps, 4);
    EXPECT_EQ(Found(u"pragma user_version"_s), u"4"_s);
}

TEST_F(Upgrading, TheProgramsOwnStepsEndWhereNewFilesBegin) {
    int last = 1;
    for (const auto& step : schema::UpgradeSteps()) {
        EXPECT_GT(step.version, last);
        last = step.version;
    }
    EXPECT_EQ(last, schema::kVersion);

    schema::MakeDatabase(Path());
    const QByteArray before = Bytes(Path());
    schema::Upgrade(Open().get());
    EXPECT_EQ(Bytes(Path()), before);
}

TEST_F(Upgrading, AFileOfTheFirstReleaseComesToTheShapeOfANewOne) {
    const auto shape = [this] {
        QStringList found;
        Connection file(Path());
        for (const QString& name : file.Rows(u"select name from sqlite_master order by name"_s))
            found += file.Rows(u"pragma table_info(%1)"_s.arg(name)) +
                     file.Rows(u"pragma index_info(%1)"_s.arg(name));
        return found + file.Rows(u"select sql from sqlite_master where type='trigger' order by name"_s) +
               file.Rows(u"select N from HNow"_s);
    };
    dao::Run(Open().get(), Bytes(QStringLiteral(FIRST_SHAPE)) + "pragma user_version = 1");
    schema::Upgrade(Open().get());
    const QStringList upgraded = shape();
    QFile::remove(Path());
    schema::MakeDatabase(Path());
    const QStringList made = shape();
    EXPECT_EQ(upgraded, made);
    // The third release had a history, without the steps of prices and the steps of the clock; no bills.
    for (const auto* drop :
         {"drop table M012", "drop table HClock", "drop table H_B011", "drop trigger H_B011_insert",
          "drop trigger H_B011_delete", "drop trigger H_B011_update", "insert into M04 (F1) values ('kept')",
          "pragma user_version = 3"})
        Connection(Path()).Run(QString::fromLatin1(drop));
    schema::Upgrade(Open().get());
    EXPECT_EQ(shape(), made);
    EXPECT_EQ(Found(u"select F1 from H_M04"_s), u"kept"_s);
}

}  // namespace
}  // namespace tests
