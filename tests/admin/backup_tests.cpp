// The backup: what is refused and given up, the file that it leaves, and how it ends.
#include "admin/backup.h"
#include "platform/errors.h"
#include "schema/names.h"
#include "tests/faults/company_state.h"
#include "tests/support/files.h"
#include "tests/support/full_disk.h"
#include "tests/support/program.h"
#include "tests/support/rights.h"

#include <QDir>

#include <gtest/gtest.h>

namespace tests {
namespace {

const QString Dialog = u"系统数据备份至......"_s;

class Backup : public Program {
  public:
    Backup() {
        Execute(u"insert into M04 (F1,F2) VALUES ('甲','')"_s);
        Open(u"A6"_s, u"A04"_s);
        AltKey(u'R');
    }
    /// From the menu, the dialog answering with a file of that name: what is said, and how the program ends.
    void Choose(const QString& name, const QString& said, std::optional<int> status = {}) {
        script.File(Dialog, Path(name));
        script.Box(said, Title);
        if (status) script.End(*status);
        AltKey(u's');
        AltKey(u'4');
        EXPECT_TRUE(script.Done());
    }
    /// What the file holds, read from a copy: looking into a file keeps it open.
    QStringList State() {
        const QTemporaryDir folder;
        return StateOf(CopyAsLeft(File(), folder.path()));
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }
    QStringList Files() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

  private:
    QTemporaryDir folder_;
};

TEST(BackupTarget, OfADriveIsItsLastPartInTheDialogsFolder) {
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"d:"_s);
    const std::pair<QString, QString> rows[] = {
        {u"/c:\\DataBak.dat"_s, u"/DataBak.dat"_s},
        {u"/D:\\a\\b\\x.dat"_s, u"/x.dat"_s},
        {u"/e:/a/x.dat"_s, u"/x.dat"_s},
        {u"/c:\\"_s, QString()},
        {u"/x.dat"_s, u"/x.dat"_s},
        {u"/a/b\\c.dat"_s, u"/a/b\\c.dat"_s},
        {u"/cd:\\x.dat"_s, u"/cd:\\x.dat"_s},
        {u"/d:/x.dat"_s, u"/d:/x.dat"_s},  // a folder of that name
    };
    for (const auto& [chosen, target] : rows)
        EXPECT_EQ(BackupTarget(folder.path() + chosen),
                  target.isEmpty() ? QString() : folder.path() + target);
    EXPECT_EQ(BackupTarget(QString()), QString());
}

TEST(BackupCommand, ProposesTheDriveAndGivingUpChangesNothing) {
    Backup program;
    sys::FileRequest asked;
    const auto script = std::exchange(sys::seams().askFile, [&](const sys::FileRequest& request) {
        asked = request;
        return QString();
    });
    AltKey(u's');
    AltKey(u'4');
    sys::seams().askFile = script;
    EXPECT_EQ(asked.proposed, u"c:\\DataBak.dat"_s);
    EXPECT_EQ(asked.kind, sys::FileRequest::Kind::Save);
    EXPECT_EQ(program.Rows(u"select F1 from M04"_s), QStringList{u"甲"_s});
}

TEST(BackupCommand, NeverOverwritesAndTheSessionGoesOn) {
    Backup program;
    Write(program.Path(u"DataBak.dat"_s), "an older one");
    QFile::link(program.Path(u"nowhere"_s), program.Path(u"link.dat"_s));
    for (const QString& chosen : {u"DataBak.dat"_s, u"c:\\DataBak.dat"_s, u"link.dat"_s})
        program.Choose(chosen, u"目标位置已备份的同名文件，请删除目标文件或更换备份位置！"_s);
    EXPECT_EQ(Bytes(program.Path(u"DataBak.dat"_s)), "an older one");
    program.Execute(u"insert into M04 (F1,F2) VALUES ('乙','')"_s);
}

TEST(BackupCommand, LeavesAWholeFileOfItsOwnerAndEndsEvenInTheMiddleOfAnEdit) {
    Backup program;
    const QStringList state = program.State();
    EditInProgress = true;
    program.Choose(u"c:\\DataBak.dat"_s, u"备份完成！请重新启动系统！"_s, 0);
    EXPECT_TRUE(sys::HasEnded());
    EXPECT_FALSE(Db);
    EXPECT_EQ(program.Files(), QStringList{u"DataBak.dat"_s});
    EXPECT_EQ(StateOf(program.Path(u"DataBak.dat"_s)), state);
    EXPECT_EQ(Bytes(program.Path(u"DataBak.dat"_s)), Bytes(program.File()))
        << "nothing is left beside the file";
    EXPECT_EQ(RightsOf(program.Path(u"DataBak.dat"_s)), 0600);
}

TEST(BackupCommand, ThatFailsSaysWhyLeavesNothingAndEnds) {
    for (const bool full : {true, false}) {
        Backup program;
        const QStringList state = program.State();
        {
            const FullDisk disk(full ? QFileInfo(program.File()).size() - 1 : RLIM_INFINITY);
            program.Choose(full ? u"DataBak.dat"_s : u"gone/DataBak.dat"_s,
                           full ? u"File too large"_s : u"No such file or directory"_s, 1);
        }
        EXPECT_EQ(program.Files(), QStringList());
        EXPECT_EQ(program.State(), state);
        EXPECT_THROW(Db->Execute(u"delete from M04"_s), RuntimeError) << "no data can be read any more";
    }
}

TEST(BackupCommand, WaitsForAnotherProgramToBeGone) {
    Backup program;
    const auto other = dao::Database::Open(program.File(), schema::kConnect.toString());
    program.Choose(u"DataBak.dat"_s, u"另一个程序正在使用数据文件，现在不能备份数据！请先退出该程序再试。"_s);
    EXPECT_EQ(program.Files(), QStringList());
    EXPECT_EQ(program.Rows(u"select F1 from M04"_s), QStringList{u"甲"_s});
}

}  // namespace
}  // namespace tests
