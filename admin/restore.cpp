#include "admin/restore.h"

#include "app/data_file.h"
#include "app/dressing.h"
#include "app/session.h"
#include "platform/controls/box.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

void LetGoOfData() {
    try {
        CloseData();
    } catch (const PlatformError&) {
        // The file is about to be replaced.
    }
}

/// The copy is made beside the database and then takes its place, so that a copy that fails leaves the old
/// file whole. What the engine kept beside the old one goes first: it would be played into the new one.
void ReplaceData(const QString& backup) {
    if (QFileInfo(backup).canonicalFilePath() == QFileInfo(DbFile).canonicalFilePath()) return;
    const QString fresh = DbFile + u".restoring"_s;
    if (!sys::seams().copyFile(backup, fresh).isEmpty()) return;
    KeepDataFile();  // where that fails, the backup is wanted all the same
    sys::RemoveEngineFiles(DbFile);
    if (!sys::ReplaceFile(fresh, DbFile).isEmpty()) QFile::remove(fresh);
}

}  // namespace

S32::S32(QWidget* over) : ModalForm(u"S32"_s, u"数据恢复"_s, over) {
    auto* warning =
        new QLabel(u"警告：数据恢复操作危险！建议在恢复前先备份数据，以防造成数据丢失后果！"_s, this);
    warning->setObjectName(u"Label1"_s);
    warning->setProperty("role", u"error"_s);
    auto* restore = new controls::Button(u"恢复数据"_s, this);
    auto* cancel = new controls::Button(u"取消操作"_s, this);
    restore->setObjectName(u"Command1"_s);
    cancel->setObjectName(u"Command2"_s);
    restore->setProperty("role", u"danger"_s);
    restore->Click = [this] { Restore(); };
    cancel->Click = [this] { Unload(); };

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 18);
    column->setSpacing(12);
    column->addWidget(warning);
    column->addLayout(dressing::ButtonRow({restore, cancel}));
    setTabOrder(restore, cancel);
    cancel->setFocus();  // not on what can't be undone
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void S32::Restore() {
    const QString backup = sys::AskFile({.kind = sys::FileRequest::Kind::Open,
                                         .title = u"恢复业务数据"_s,
                                         .proposed = {},
                                         .pattern = u"*.dat"_s});
    if (backup.isEmpty()) return;
    // Whoever has the file open would go on with the old one and lose what he writes. Without a database of
    // its own the program cannot find out, and restores unasked.
    if (OthersAreAtWork(u"恢复数据"_s)) return;
    {
        const controls::WaitPointer waiting;
        LetGoOfData();
        ReplaceData(backup);
    }
    sys::Inform(u"数据恢复完成，请重新运行本系统！"_s, QString());
    sys::EndProgram(0);
}
