#include "app/data_file.h"

#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/dao/busy.h"
#include "platform/errors.h"
#include "platform/system/dated_copies.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "schema/names.h"

#include <QFileInfo>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace {

bool WaitsOn() {
    return sys::MsgBox({.text = u"另一个程序正在写入数据文件，至今未能开始保存。\r\r是否继续等待？"
                                u"选择“否”将放弃本次操作，窗口中的内容保持不变。"_s,
                        .title = MsgTitle,
                        .icon = sys::BoxIcon::Question,
                        .buttons = sys::BoxButtons::YesNo,
                        .defaultButton = sys::BoxAnswer::Yes}) == sys::BoxAnswer::Yes;
}

bool IsFree(const std::function<bool()>& wait) {
    const controls::WaitPointer waiting;
    return wait();
}

void WaitOrGiveUp(const std::function<bool()>& wait) {
    while (!IsFree(wait))
        if (!WaitsOn()) throw sys::CommandGivenUp{};
}

}  // namespace

void AskWhenBusy() {
    dao::whenBusy().handle = WaitOrGiveUp;
}

QString KeepDataFile() {
    const sys::DatedCopies copies{.file = DbFile,
                                  .folder = QFileInfo(DbFile).absolutePath(),
                                  .label = schema::kKeptLabel.toString(),
                                  .most = schema::kMostKept};
    return sys::KeepDatedCopy(copies).failure;
}

QString DataConnect() {
    return schema::kConnect.toString();
}

bool OthersAreAtWork(const QString& work) {
    bool others = false;
    try {
        const controls::WaitPointer waiting;
        others = Db && !Db->IsAlone();
    } catch (const PlatformError&) {
        return false;  // a broken file is replaced all the more, and says so itself where it is copied
    }
    if (others)
        sys::Inform(u"另一个程序正在使用数据文件，现在不能%1！请先退出该程序再试。"_s.arg(work), MsgTitle);
    return others;
}

void CloseData() {
    const auto gone = qScopeGuard([] { Db.reset(); });
    if (Db) Db->Close();
}
