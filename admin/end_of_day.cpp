#include "admin/end_of_day.h"

#include "app/data_file.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/seams.h"

using namespace Qt::StringLiterals;

namespace admin {
namespace {

QStringList MakeCopies(const DailyCopies& copies) {
    const controls::WaitPointer waiting;
    return copies.Make();
}

void ShowFaults(const QStringList& faults) {
    if (!faults.isEmpty()) sys::Warn(u"自动备份没有完成！\r\r"_s + faults.join(u'\r'), MsgTitle);
}

/// A file that cannot be asked is not copied; whatever is wrong with it shows where it is used.
bool IsAlone() {
    try {
        return Db && Db->IsAlone();
    } catch (const PlatformError&) {
        return false;
    }
}

}  // namespace

DailyCopies SessionCopies() {
    return {DbFile, DataConnect()};
}

void CatchUpCopies() {
    const DailyCopies copies = SessionCopies();
    if (!copies.WasLeftAtWork() || !IsAlone()) return;
    QStringList faults;
    Db->WhileClosed([&] { faults = MakeCopies(copies); });
    copies.Rest();
    ShowFaults(faults);
}

void EndOfDay::Before() {
    alone_ = IsAlone();
}

void EndOfDay::After() const {
    if (!alone_) return;
    const DailyCopies copies = SessionCopies();
    const QStringList faults = MakeCopies(copies);
    copies.Rest();
    ShowFaults(faults);
}

}  // namespace admin
