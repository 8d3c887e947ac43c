#include "history/failed_command.h"

#include "app/main_window.h"
#include "app/session.h"
#include "history/put_back.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"

using namespace Qt::StringLiterals;

namespace history {
namespace {

/// The rows of a mirror that the group has deleted, as h.
QString DeletedOf(const QByteArray& table, qint64 group) {
    return u"H_%1 h where %2 and Op='D' and "_s.arg(QString::fromLatin1(table),
                                                    RowsOfGroup(*Db, table, group).Condition());
}

/// Whether the record is there again, but not all the places, quotes or journal rows that went with it.
bool LacksRows(const Entry& entry) {
    if (entry.action != Action::Changed) return false;
    const QString key = Literal(entry.key), now = Literal(entry.afterKey);
    for (const Family& family : entry.object->family)
        if (!family.cascade &&
            IsThere(*Db, DeletedOf(family.table, entry.group) + QString(family.condition).arg(key) +
                             u" and not exists(select 1 from %1 t where t.F0 is %2 and t.F1 is h.F1)"_s.arg(
                                 QString::fromLatin1(family.table), now)))
            return true;
    return entry.object->table == "B01" &&
           IsThere(
               *Db,
               DeletedOf("TB1", entry.group) +
                   u"F1 in (%1) and not exists(select 1 from TB1 t where t.F1=substr(h.F1,1,2)||%2)"_s.arg(
                       PostingKeys(entry.key), now));
}

/// What a group has deleted and what is not there now, or not whole.
std::vector<Entry> MissingOf(qint64 group) {
    std::vector<Entry> missing = OfGroup(*Db, group);
    std::erase_if(missing, [](const Entry& entry) {
        if (entry.action != Action::Deleted) return !LacksRows(entry);
        const QString table = QString::fromLatin1(entry.object->table);
        return IsThere(*Db, HasKey(*entry.object) ? table + u" where F1 is "_s + Literal(entry.key) : table);
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
    const qint64 group = WholeOf(*Db, u"select N from HNow"_s);
    if (MissingOf(group).empty()) return;
    Db->ExecuteEngine(u"update HNow set Failed=N"_s);
    FailedGroup() = group;
}

/// What needs the administrator, a password or a key that is in use is left to 操作记录.
void PutBackIfWanted() {
    std::vector<Entry> missing = MissingOf(FailedGroup());
    std::erase_if(missing, [](const Entry& entry) {
        return entry.object->table == "TE1" || !Refusal(*Db, entry).isEmpty();
    });
    if (missing.empty()) return;
    if (!sys::Ask(u"失败的操作已删除："_s + NamesOf(missing) + u"。\r\r是否立即恢复?"_s, MsgTitle)) return;
    for (const Entry& entry : missing)
        if (const QString why = PutBack(*Db, entry); !why.isEmpty()) throw RuntimeError(why);
    Db->CloseGroup();
    sys::Inform(u"恢复完成!"_s, MsgTitle);
}

/// A lost group fails whatever comes next, and a message box closes the group before it waits.
void EndGroup() {
    try {
        Db->CloseGroup();
    } catch (const PlatformError&) {
        // What was lost is reported.
    }
}

/// The guard passes over what is raised here, and the operator would take the records for put back.
void Offer() {
    if (FailedGroup() == 0 || !Db) return;
    try {
        PutBackIfWanted();
    } catch (const PlatformError& error) {
        EndGroup();
        sys::Inform(u"恢复失败！"_s + error.Text(), MsgTitle);
    } catch (const sys::CommandGivenUp&) {
        sys::Inform(u"恢复失败！数据文件正忙"_s, MsgTitle);
    }
}

}  // namespace

void WatchFailures() {
    sys::onFailure() = {.noticed = Notice, .reported = Offer};
}

void SayWhatWasLost() {
    if (!Db) return;
    const qint64 failed = WholeOf(*Db, u"select Failed from HNow"_s);
    if (failed == 0) return;
    const std::vector<Entry> missing = MissingOf(failed);
    try {
        Db->ExecuteEngine(u"update HNow set Failed=null"_s);
    } catch (const sys::CommandGivenUp&) {
        return;  // the program starts all the same, and the next login says it
    }
    Db->CloseGroup();
    if (missing.empty()) return;
    TheFrame().SetPanel(MForm::PositionPanel,
                        u"上次操作失败，已删除："_s + NamesOf(missing) + u"，可在“操作记录”中恢复"_s);
}

}  // namespace history
