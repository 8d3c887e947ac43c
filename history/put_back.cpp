#include "history/put_back.h"

#include "accounts/journal.h"
#include "app/data_access.h"
#include "app/main_menu.h"
#include "app/main_window.h"
#include "app/operator_statement.h"
#include "app/session.h"
#include "history/changes.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"
#include "schema/history.h"
#include "waybills/waybill_fields.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace history {
namespace {

QString TableOf(const Entry& entry) {
    return QString::fromLatin1(entry.object->table);
}

/// The top menu of the form that gave the command; that of the object for any other form.
QString MenuOf(const Entry& entry) {
    QString top;
    for (const MenuRow& row : MenuRows()) {
        if (row.top) top = row.name.toString();
        if (!entry.command.isEmpty() && row.target == entry.command) return top;
    }
    return entry.object->menu;
}

QString Value(dao::Database& db, const Entry& entry, const Image& image, const QString& column) {
    return image ? image->value(ColumnsOf(db, entry.object->table).indexOf(column)) : QString();
}

bool IsReleasedWaybill(dao::Database& db, const Entry& entry, const Images& images) {
    if (entry.object->table != "B01") return false;
    const auto released = [&](const Image& image) {
        return image && waybills::IsReleased(Value(db, entry, image, u"F604"_s));
    };
    return released(images.before) || released(images.after);
}

QString RightRefusal(dao::Database& db, const Entry& entry, const Images& images) {
    if (!TheFrame().MenuVisible(MenuOf(entry)) || !TheFrame().MenuVisible(entry.object->menu))
        return u"你没有权限恢复该记录!"_s;
    if (entry.object->table == "TB1" && !CanEditLedger) return u"你没有权限恢复帐款记录!"_s;
    if (IsAdministrator()) return {};
    if (entry.object->table == "TE1") return u"只有管理员才能恢复操作员!"_s;
    if (!HasKey(*entry.object)) return u"只有管理员才能恢复计价标准!"_s;
    if (IsReleasedWaybill(db, entry, images)) return u"已出货的速递单只有管理员才能恢复!"_s;
    return {};
}

/// The record that the command has left: by its key too, since a row number can be another record's by now.
QString LeftRecord(const Entry& entry) {
    const QString row = u"rowid="_s + QString::number(entry.row);
    return HasKey(*entry.object) ? row + u" and F1 is "_s + Literal(entry.afterKey) : row;
}

/// Why the record of today is not the one that was changed.
QString SameRecordRefusal(dao::Database& db, const Changes& changes) {
    const Entry& last = changes.Last();
    if (changes.Chosen().action == Action::Deleted) return {};
    if (last.action == Action::Deleted) return u"[%1]此后已被删除，请先恢复该删除!"_s.arg(last.key);
    if (!IsThere(db, TableOf(last) + u" where "_s + LeftRecord(last)))
        return u"[%1]已不是同一条记录，不能恢复!"_s.arg(last.afterKey);
    return {};
}

/// Another record that has the key.
bool IsKeyInUse(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    if (!HasKey(*entry.object)) return entry.action == Action::Deleted && IsThere(db, TableOf(entry));
    QString others = TableOf(entry) + u" where F1 is "_s + Literal(entry.key);
    if (entry.action != Action::Deleted) others += u" and rowid<>"_s + QString::number(changes.Last().row);
    return IsThere(db, others);
}

/// The rows of the journal's mirror that a command has written for a waybill, as h.
QString WrittenPostings(dao::Database& db, const Entry& entry, const QString& keys) {
    return u"H_TB1 h where %1 and F1 in (%2)"_s.arg(RowsOfGroup(db, "TB1", entry.group).Condition(), keys);
}

/// The first of the changes that has written the waybill's journal rows; a deletion with its uses leaves
/// them. Null where they are still the same ones.
const Entry* PostingWriter(dao::Database& db, const Changes& changes) {
    if (changes.Chosen().object->table != "B01") return nullptr;
    for (const Entry& each : changes.All()) {
        QString keys = PostingKeys(each.key);
        if (!each.afterKey.isNull()) keys += u',' + PostingKeys(each.afterKey);
        if (IsThere(db, WrittenPostings(db, each, keys))) return &each;
    }
    return nullptr;
}

/// The rows of the journal's mirror with what the command deleted or overwrote of the waybill, receivable
/// first. What it had inserted itself is not among them.
QStringList TakenPostings(dao::Database& db, const Entry& entry) {
    auto rows = db.ReadEngine(
        u"select rowid from "_s + WrittenPostings(db, entry, PostingKeys(entry.key)) +
        u" and Op in ('D','U') and not exists(select 1 from H_TB1 e where e.rowid>=%1 and e.rowid<h.rowid"
        u" and e.R=h.R) order by LB"_s.arg(RowsOfGroup(db, "TB1", entry.group).first));
    QStringList taken;
    for (; !rows.Eof(); rows.MoveNext()) taken += rows.Fields(0).Text();
    return taken;
}

/// A chain is rolled by statements of the system's own wording, which an apostrophe breaks, and by adding
/// amounts, which a null breaks.
QString ChainRefusal(dao::Database& db, const QStringList& taken) {
    if (taken.isEmpty()) return {};
    const QString rows = u"H_TB1 where rowid in (%1)"_s.arg(taken.join(u','));
    if (IsThere(db, rows + u" and (instr(F3,'''')>0 or instr(F1,'''')>0)"_s))
        return u"帐款的单据号或关系单位含有单引号，不能恢复!"_s;
    const QString noAmount = u" and (YF is null or FK is null)"_s;
    if (IsThere(db, rows + noAmount) ||
        IsThere(db, u"TB1 where F3 in (select F3 from "_s + rows + u") and SN<>0"_s + noAmount))
        return u"关系单位的帐款中有空的金额，不能恢复!"_s;
    return {};
}

/// A new password overwrites the row as well, and neither password is kept.
bool IsOfPasswordAlone(dao::Database& db, const Entry& entry, const Images& images) {
    if (entry.object->table != "TE1" || !images.before || !images.after) return false;
    const QStringList columns = ColumnsOf(db, entry.object->table);
    for (qsizetype i = 0; i < columns.size(); ++i)
        if (!schema::FindKept(entry.object->table)->computed.contains(columns[i].toLatin1()) &&
            (*images.before)[i] != (*images.after)[i])
            return false;
    return true;
}

/// A code that records of today hold stays, as on the form, where its text box is locked then.
bool IsRenamedAndUsed(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    const QString& now = changes.Last().afterKey;
    if (entry.action == Action::Deleted || text::SameAsStored(now, entry.key)) return false;
    return std::ranges::any_of(entry.object->usedIn,
                               [&](const QString& used) { return IsThere(db, used + u'=' + Literal(now)); });
}

/// Whether the command has written the waybill as well that the journal row is of.
bool IsOfWaybill(dao::Database& db, const Entry& entry) {
    const auto isKey = [&](const QString& key) { return text::SameAsStored(key, entry.key); };
    if (std::ranges::none_of(accounts::WaybillKeys(entry.key.mid(2)), isKey)) return false;
    return IsThere(db, u"H_B01 where "_s + RowsOfGroup(db, "B01", entry.group).Condition() + u" and F1="_s +
                           Literal(entry.key.mid(2)));
}

/// The rows of the journal's mirror that come back.
QStringList PostingsOf(dao::Database& db, const Changes& changes) {
    if (changes.Chosen().object->table == "TB1") return {QString::number(changes.Chosen().before)};
    const Entry* const writer = changes.Replacing() ? PostingWriter(db, changes) : nullptr;
    return writer ? TakenPostings(db, *writer) : QStringList();
}

QString PostingRefusal(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    const bool own = entry.object->table == "TB1";
    if (own)
        for (const Entry& each : changes.All())
            if (IsOfWaybill(db, each))
                return u"[%1]随速递单[%2]一起恢复，请恢复该速递单!"_s.arg(each.key, each.key.mid(2));
    const QStringList taken = PostingsOf(db, changes);
    if (const QString why = ChainRefusal(db, taken); !why.isEmpty()) return why;
    // Those of the waybill that is there now go with it; those that a cascade left are the waybill's own.
    if (own || entry.action != Action::Deleted || taken.isEmpty()) return {};
    const bool there =
        IsThere(db, u"TB1 where F1 in (select F1 from H_TB1 where rowid in (%1))"_s.arg(taken.join(u',')));
    return there ? u"[%1]的帐款已经存在，不能恢复!"_s.arg(entry.key) : QString();
}

QString FamilyRefusal(dao::Database& db, const Entry& entry) {
    if (entry.action != Action::Deleted) return {};
    for (const Family& family : entry.object->family)
        if (!family.condition.startsWith(u"%1<>") &&
            IsThere(db, QString::fromLatin1(family.table) + u" where "_s +
                            QString(family.condition).arg(Literal(entry.key))))
            return u"[%1]的附属资料已经存在，不能恢复!"_s.arg(entry.key);
    return {};
}

QString NothingBeforeRefusal(dao::Database& db, const Entry& entry) {
    if (entry.action == Action::Added) return u"新增的记录没有改动前的内容，不能恢复!"_s;
    if (!ImagesOf(db, entry).before) return u"该记录的内容已不在操作记录中，不能恢复!"_s;
    return {};
}

QString RefusalOf(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    for (const Entry& each : changes.All())
        if (const QString why = RightRefusal(db, each, ImagesOf(db, each)); !why.isEmpty()) return why;
    if (const QString why = SameRecordRefusal(db, changes); !why.isEmpty()) return why;
    if (IsOfPasswordAlone(db, entry, ImagesOf(db, entry)))
        return u"操作记录不保存密码，密码的改动不能恢复!"_s;
    if (IsKeyInUse(db, changes)) return u"[%1]已经重新使用，不能恢复!"_s.arg(entry.key);
    if (IsRenamedAndUsed(db, changes))
        return u"[%1]已经使用，不能恢复为[%2]!"_s.arg(changes.Last().afterKey, entry.key);
    if (entry.object->table == "TE1" && entry.key.contains(u'\''))
        return u"操作员帐号含有单引号，不能恢复!"_s;
    if (const QString why = FamilyRefusal(db, entry); !why.isEmpty()) return why;
    return PostingRefusal(db, changes);
}

void CopyFrom(dao::Database& db, const QByteArray& table, const QString& condition) {
    const QString columns = ColumnsOf(db, table).join(u',');
    const QString name = QString::fromLatin1(table);
    db.ExecuteEngine(
        u"insert into %1 (%2) select %2 from H_%1 where %3 order by rowid"_s.arg(name, columns, condition));
}

/// `sequence` is the row's place. The moment of the last write is now.
void CopyPosting(dao::Database& db, const QString& taken, double sequence) {
    QStringList columns = ColumnsOf(db, "TB1"), values = columns;
    const QList<std::pair<QString, QString>> own = {{u"SN"_s, text::GeneralText(sequence)},
                                                    {u"H8"_s, Literal(text::DateTimeText(sys::Now()))},
                                                    {u"QC"_s, u"null"_s},
                                                    {u"QM"_s, u"null"_s}};
    for (const auto& [column, value] : own) values[columns.indexOf(column)] = value;
    db.ExecuteEngine(u"insert into TB1 (%1) select %2 from H_TB1 where rowid=%3"_s.arg(
        columns.join(u','), values.join(u','), taken));
}

/// A place in the chain of a counterparty.
struct Place {
    double sequence;
    QString party;
};

std::vector<Place> PlacesOf(dao::Database& db, const QString& from) {
    auto rows = db.ReadEngine(u"select SN,F3 from "_s + from + u" and SN<>0"_s);
    std::vector<Place> places;
    for (; !rows.Eof(); rows.MoveNext()) places.push_back({rows.Fields(0).Number(), rows.Fields(1).Text()});
    return places;
}

/// The balances behind places that have lost their row: neither a deletion nor the edit of a waybill has
/// rolled them. Where a chain cannot be rolled, they stay as they are.
void RollFrom(dao::Database& db, const std::vector<Place>& places) {
    for (const auto& [sequence, party] : places)
        if (!party.contains(u'\'') &&
            !IsThere(db, u"TB1 where F3=%1 and SN<>0 and (YF is null or FK is null)"_s.arg(Literal(party))))
            accounts::RollBalanceChain(db, sequence, party);
}

/// By the protocol of adding; a waybill's payable takes the place behind its receivable.
void AddPostings(dao::Database& db, const QStringList& taken) {
    if (taken.isEmpty()) return;
    RollFrom(db, PlacesOf(db, u"H_TB1 where rowid in (%1)"_s.arg(taken.join(u','))));
    double sequence = 0;
    for (const QString& row : taken) {
        auto fields = db.ReadEngine(u"select F1,F2,F3 from H_TB1 where rowid="_s + row);
        const QString key = fields.Fields(0).Text(), unit = fields.Fields(2).Text();
        const QDate date = text::ReadDate(fields.Fields(1).Text()).value_or(QDate());
        sequence = row == taken.front() ? accounts::AllocateSequence(db, date, key)
                                        : sequence + accounts::PayableAfterReceivable;
        CopyPosting(db, row, sequence);
        accounts::RollBalanceChain(db, sequence, unit);
    }
}

/// What the command has put in place of the record, of a waybill with its journal rows where `postings` says
/// so.
void RemoveSuccessor(dao::Database& db, const Entry& entry, bool postings) {
    for (const Family& family : entry.object->family)
        if (!family.cascade)
            db.ExecuteEngine(u"delete from %1 where "_s.arg(QString::fromLatin1(family.table)) +
                             QString(family.condition).arg(Literal(entry.afterKey)));
    const QString record = TableOf(entry) + u" where "_s + LeftRecord(entry);
    std::vector<Place> places;
    if (entry.object->table == "TB1") places = PlacesOf(db, record);
    if (postings) {
        const QString rows = u"TB1 where F1 in (%1)"_s.arg(PostingKeys(entry.afterKey));
        places = PlacesOf(db, rows);
        db.ExecuteEngine(u"delete from "_s + rows);
    }
    db.ExecuteEngine(u"delete from "_s + record);
    RollFrom(db, places);
}

/// The condition for what a command has deleted of a table that belongs to its record.
QString DeletedWith(dao::Database& db, const Entry& entry, const QByteArray& table, const QString& of) {
    return RowsOfGroup(db, table, entry.group).Condition() + u" and Op='D' and "_s +
           QString(of).arg(Literal(entry.key));
}

bool HasWrittenSteps(dao::Database& db, const Entry& entry) {
    return IsThere(db, u"H_B011 where "_s + RowsOfGroup(db, "B011", entry.group).Condition() + u" and F1="_s +
                           Literal(entry.key));
}

/// The steps of the amounts, as they were before the first of the changes that has stored some anew; a failed
/// one may have left them.
void CopySteps(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    if (entry.object->table != "B01") return;
    if (const QString& now = changes.Last().afterKey; !now.isNull() && !text::SameAsStored(now, entry.key))
        db.ExecuteEngine(u"delete from B011 where F1="_s + Literal(now));
    const auto writer =
        std::ranges::find_if(changes.All(), [&](const Entry& each) { return HasWrittenSteps(db, each); });
    if (writer == changes.All().end()) return;
    db.ExecuteEngine(u"delete from B011 where F1="_s + Literal(entry.key));
    if (text::SameAsStored(writer->key, entry.key))
        CopyFrom(db, "B011", DeletedWith(db, *writer, "B011", u"F1=%1"_s));
}

void CopyFamily(dao::Database& db, const Entry& entry) {
    for (const Family& family : entry.object->family)
        CopyFrom(db, family.table, DeletedWith(db, entry, family.table, family.condition));
}

/// A release mark or a journal row is overwritten in place and took nothing else along.
void Overwrite(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    QStringList set;
    for (const QString& column : ColumnsOf(db, entry.object->table))
        set += u"%1=(select %1 from H_%2 where %3)"_s.arg(column, TableOf(entry), RowBefore(entry));
    db.ExecuteEngine(u"update %1 set "_s.arg(TableOf(entry)) + set.join(u',') + u" where "_s +
                     LeftRecord(changes.Last()));
}

void Write(dao::Database& db, const Changes& changes) {
    const Entry& entry = changes.Chosen();
    const Entry* const replacing = changes.Replacing();
    const bool journal = entry.object->table == "TB1";
    if (!journal && !replacing) return Overwrite(db, changes);
    const QStringList taken = PostingsOf(db, changes);
    if (entry.action != Action::Deleted)
        RemoveSuccessor(db, changes.Last(), PostingWriter(db, changes) != nullptr);
    if (journal) return AddPostings(db, taken);
    CopyFrom(db, entry.object->table, RowBefore(entry));
    CopyFamily(db, *replacing);
    CopySteps(db, changes);
    AddPostings(db, taken);
}

}  // namespace

QString Refusal(dao::Database& db, const Entry& entry) {
    if (const QString why = NothingBeforeRefusal(db, entry); !why.isEmpty()) return why;
    return RefusalOf(db, Changes(db, entry));
}

QString Question(dao::Database& db, const Entry& entry) {
    const Changes changes(db, entry);
    QString question = u"%1[%2]将恢复到 %3 由%4%5之前的内容"_s.arg(entry.caption, entry.key, entry.at,
                                                                   entry.operatorName, WordOf(entry.action));
    if (entry.action != Action::Deleted) question += u"，现有内容将被替换"_s;
    if (changes.Later() > 0)
        question += u"。\r此后的 %1 次改动也一并撤销，但仍保留在操作记录中"_s.arg(changes.Later());
    const qsizetype postings = entry.object->table == "TB1" ? 0 : PostingsOf(db, changes).size();
    if (postings > 0) question += u"。\r同时恢复 %1 笔帐款"_s.arg(postings);
    return question + u"。\r\r真的要恢复吗?"_s;
}

bool NeedsPassword(dao::Database& db, const Entry& entry) {
    return entry.object->table == "TE1" && Changes(db, entry).Replacing();
}

QString PasswordRefusal(const QString& password) {
    if (password.isEmpty()) return u"新密码不能为空!"_s;
    if (password.contains(u'\'')) return u"新密码不能含有单引号!"_s;
    return {};
}

QString PutBack(dao::Database& db, const Entry& entry, const QString& password) {
    const bool account = NeedsPassword(db, entry);
    if (account)
        if (const QString why = PasswordRefusal(password); !why.isEmpty()) throw RuntimeError(why);
    // The first write of a group removes what is beyond the history's limits, and another program may have
    // written. The form in front can be the one whose command has failed.
    db.ExecuteEngine(u"update HNow set Command='History'"_s);
    if (const QString why = NothingBeforeRefusal(db, entry); !why.isEmpty()) return why;
    const Changes changes(db, entry);
    if (const QString why = RefusalOf(db, changes); !why.isEmpty()) return why;
    Write(db, changes);
    if (account)
        OperatorStatement(u"update TE1 set F3="_s)
            .Secret(password)
            .Words(u" where F1="_s)
            .Text(entry.key)
            .Execute(db);
    return {};
}

}  // namespace history
