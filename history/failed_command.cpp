#include "history/failed_command.h"

#include "app/main_window.h"
#include "app/session.h"
#include "history/put_back.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"

using namespace Qt::StringLiterals;

namespace history {
namespace {

qint64 WholeOf(const QString& select) {
    auto rows = Db->ReadEngine(select);
    return rows.Eof() ? 0 : rows.Fields(0).Text().toLongLong();
}

/// What a group has deleted and what is not there now.
std::vector<Entry> MissingOf(qint64 group) {
    std::vector<Entry> missing = OfGroup(*Db, group);
    std::erase_if(missing, [](const Entry& entry) {
        const QString row =
            QString::fromLatin1(entry.object->table) + u" where F1 is "_s + Literal(entry.key);
        return entry.action != Action::Deleted ||
               WholeOf(u"select exists(select 1 from "_s + (entry.object->table == "MS1" ? u"MS1"_s : row) +
                       u')') != 0;
    });
    return missing;
}

QString NamesOf(const std::vector<Entry>& entries) {
    QStringList names;
    for (const Entry& entry : entries) {
        names += entry.caption + entry.key;
        if (names.size() == 3 && entries.size() > 3)
            return names.join(u'、') + u"等 %1 项"_s.arg(entries.size());
    }
    return names.join(u'、');
}

qint64& FailedGroup() {
    static qint64 group = 0;
    return group;
}

void Notice() {
    FailedGroup() = 0;
    if (!Db || !Db->InGroup()) return;
    const qint64 group = WholeOf(u"select N from HNow"_s);
    if (MissingOf(group).empty()) return;
    Db->ExecuteEngine(u"update HNow set Failed=N"_s);
    FailedGroup() = group;
}

/// What needs the administrator, a password or a key that is in use is left to 操作记录.
void Offer() {
    if (FailedGroup() == 0 || !Db) return;
    std::vector<Entry> missing = MissingOf(FailedGroup());
    std::erase_if(missing, [](const Entry& entry) {
        return entry.object->table == "TE1" || !Refusal(*Db, entry).isEmpty();
    });
    if (missing.empty()) return;
    if (!sys::Ask(u"失败的操作已删除："_s + NamesOf(missing) + u"。\r\r是否立即恢复?"_s, MsgTitle)) return;
    for (const Entry& entry : missing) PutBack(*Db, entry);
    Db->CloseGroup();
    sys::Inform(u"恢复完成!"_s, MsgTitle);
}

}  // namespace

void WatchFailures() {
    sys::onFailure() = {.noticed = Notice, .reported = Offer};
}

void SayWhatWasLost() {
    if (!Db) return;
    const qint64 failed = WholeOf(u"select Failed from HNow"_s);
    if (failed == 0) return;
    const std::vector<Entry> missing = MissingOf(failed);
    Db->ExecuteEngine(u"update HNow set Failed=null"_s);
    Db->CloseGroup();
    if (missing.empty()) return;
    TheFrame().SetPanel(MForm::PositionPanel,
                        u"上次操作失败，已删除："_s + NamesOf(missing) + u"，可在“操作记录”中恢复"_s);
}

}  // namespace history
