#include "admin/backup.h"

#include "app/data_access.h"
#include "app/data_file.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/files.h"
#include "platform/system/seams.h"

#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// Gives the words of whatever failed.
QString CopyOut(const QString& target) {
    const controls::WaitPointer waiting;
    try {
        CloseData();
    } catch (const PlatformError& error) {
        return error.Text();
    }
    return sys::seams().copyFile(DbFile, target);
}

}  // namespace

QString BackupTarget(const QString& chosen) {
    static const QRegularExpression drive(u"^(.*/)([A-Za-z]:)[\\\\/](?:.*[\\\\/])?([^\\\\/]*)$"_s);
    const auto match = drive.match(chosen);
    if (!match.hasMatch() || QFileInfo(match.captured(1) + match.captured(2)).isDir()) return chosen;
    const QString name = match.captured(3);
    return name.isEmpty() ? QString() : match.captured(1) + name;
}

void BackUp() {
    const QString chosen = sys::AskFile({.kind = sys::FileRequest::Kind::Save,
                                         .title = LangText(u"系统数据备份至......"_s),
                                         .proposed = u"c:\\DataBak.dat"_s,
                                         .pattern = {}});
    const QString target = BackupTarget(chosen);
    if (target.isEmpty()) return;
    if (sys::IsThere(target))
        return sys::Inform(u"目标位置已备份的同名文件，请删除目标文件或更换备份位置！"_s, MsgTitle);
    // What another program has written may not be in the file yet.
    if (OthersAreAtWork(u"备份数据"_s)) return;
    const QString failure = CopyOut(target);
    sys::Inform(failure.isEmpty() ? u"备份完成！请重新启动系统！"_s : failure, MsgTitle);
    sys::EndProgram(failure.isEmpty() ? 0 : 1);
}
