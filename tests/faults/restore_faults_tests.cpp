// Restoring on a full disk, and restoring a file of earlier days: what the next start finds.
#include "app/session.h"
#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/faults/commands.h"
#include "tests/faults/recorded_program.h"
#include "tests/support/full_disk.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tests::AltKey;

namespace {

/// A whole file of a company with one courier of its own.
QString Backup(const QTemporaryDir& folder) {
    const QString path = folder.filePath(u"lastweek.dat"_s);
    tests::Company company;
    for (const QString& row : tests::CommandMasters()) company.Run(row);
    company.Db().Close();
    QFile::copy(company.File(), path);
    const auto engine = dao::OpenEngine(path, schema::kPassword);
    dao::Run(engine.get(), "insert into M04 (F1,F2) VALUES ('上周','')");
    return path;
}

class Restoring : public tests::RecordedProgram {
  public:
    explicit Restoring(const QString& backup) : RecordedProgram(tests::CommandMasters()) {
        sys::seams().askFile = [=](const sys::FileRequest&) { return backup; };
    }
};

TEST(RestoreOnAFullDisk, LeavesTheOldFileWholeOrPutsTheNewOneThere) {
    const QTemporaryDir elsewhere;
    const QString backup = Backup(elsewhere);
    const QStringList fresh = tests::StateOf(backup);
    const qint64 size = QFileInfo(backup).size();
    for (const qint64 space : {qint64{0}, qint64{4096}, size / 2, size - 1, size}) {
        SCOPED_TRACE(space);
        Restoring program(backup);
        const QStringList before = program.StateLeft();
        {
            const tests::FullDisk full(space);
            tests::CommandOf("S32_Restore").give(program);
        }
        EXPECT_EQ(program.status, 0);
        EXPECT_EQ(program.StateLeft(), space < size ? before : fresh);
    }
}

TEST(AFileOfLastWeek, IsRestoredAndWorkedWith) {
    const QTemporaryDir elsewhere;
    const QString backup = Backup(elsewhere);
    Restoring program(backup);
    tests::CommandOf("S32_Restore").give(program);
    ASSERT_EQ(program.status, 0);

    sys::ClearEnd();
    program.status.reset();
    program.boxes.clear();
    const auto frame = tests::StartAndLogIn(QFileInfo(program.File()).path());
    ASSERT_TRUE(frame);
    EXPECT_EQ(program.Rows(u"select F1 from M04 where F1='上周'"_s).size(), 1);
    const tests::Command& save = tests::CommandOf("B01_Add");
    tests::Prepare(program, save);
    save.give(program);
    EXPECT_TRUE(program.boxes.empty());
    EXPECT_EQ(program.Rows(u"select F1 from B01 where F1='W3'"_s).size(), 1);
    EXPECT_EQ(program.Rows(u"select F1 from TB1 where F1 in ('YSW3','YFW3')"_s).size(), 2);
}

}  // namespace
