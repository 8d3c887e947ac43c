#include "accounts/journal.h"

#include "app/data_access.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace accounts {
namespace {

/// The gap that is left below the newest row for rows that come late.
constexpr double GapWithinDay = 2;
constexpr double GapBetweenDays = 30;

QString Bare(double value) {
    return text::GeneralText(value);
}

QString MomentText() {
    return text::DateTimeText(sys::Now());
}

double ReadCounter(dao::Database& db) {
    return text::Val(GetStrQuiet(db, u"select SetVal from SysInfo Where ID=100"_s));
}

/// A row that a slot search found; `sequence` 0 if there was none.
struct Neighbour {
    bool found = false;
    double sequence = 0;
    bool sameDay = false;
};

Neighbour ReadNeighbour(dao::Database& db, const QString& statement, QDate date) {
    auto rows = db.OpenRecordset(statement);
    Neighbour neighbour;
    if (!rows.Eof()) {
        neighbour.found = true;
        neighbour.sequence = rows.Fields(1).Number();
        neighbour.sameDay = text::ReadDate(rows.Fields(0).Text()) == date;
    }
    rows.Close();
    return neighbour;
}

/// The row with the highest `SN` among those that lie before the date ("<") or not after it ("<=").
Neighbour HighestBefore(dao::Database& db, const QString& comparison, QDate date, const QString& key) {
    return ReadNeighbour(db,
                         u"select top 1 F2,SN from TB1 where  datediff('d',"_s +
                             Quoted(text::DateText(date)) + u",F2 ) "_s + comparison + u" 0 and F1<>"_s +
                             Quoted(key) + u" order by sn desc "_s,
                         date);
}

Neighbour LowestAfter(dao::Database& db, double below, QDate date, const QString& key) {
    return ReadNeighbour(db,
                         u"select top 1 F2,SN from TB1 where  datediff('d',"_s +
                             Quoted(text::DateText(date)) + u",F2 ) > 0 and SN>"_s + Bare(below) +
                             u"  and F1<>"_s + Quoted(key) + u"  order by sn  "_s,
                         date);
}

/// The place at the journal's end: whole numbers again, and the counter follows.
double PlaceAtEnd(dao::Database& db, const Neighbour& last) {
    QString number = Bare(last.sequence + (last.sameDay ? GapWithinDay : GapBetweenDays));
    if (const qsizetype point = number.indexOf(u'.'); point > 0) number.truncate(point);
    const double sequence = text::Val(number);
    db.Execute(u"update sysinfo set Setval="_s + Bare(sequence) + u" Where ID=100"_s);
    return sequence;
}

void WarnThatGapRanOut() {
    sys::MsgBox({.text =
                     u"您历史日期中插入了过多的单据,可能会造成单据排序混乱!\r\r"
                     u"请您以001用户身份进入[综合报表]--[货品进出存明细表]中,点击[维护]菜单,刷新单据排序!"_s,
                 .icon = sys::BoxIcon::Information,
                 .keepsGroup = true});  // the post goes on behind it
}

/// The balance before a place. Rows without the second operator mark do not count here, though the pass that
/// follows rewrites them as well.
double OpeningBalance(dao::Database& db, double start, const QString& counterparty) {
    auto rows = db.OpenRecordset(u"select top 1 QM from TB1 where (F3="_s + Quoted(counterparty) +
                                 u" AND  not (F6='' or F6 is null)) and sn<"_s + Bare(start) +
                                 u" order by sn desc"_s);
    const double opening = rows.Eof() ? 0 : rows.Fields(0).Number();
    rows.Close();
    return opening;
}

double Amount(const dao::Recordset& rows, QStringView name) {
    const auto field = rows.Fields(name);
    // The table gives both amounts a default; a null comes from outside and must not pass for nothing.
    if (field.IsNull()) throw RuntimeError(u"无效使用 Null"_s);
    return field.Number();
}

}  // namespace

const LedgerKindInfo& InfoFor(LedgerKind kind) {
    static const LedgerKindInfo kinds[] = {
        {LedgerKind::Receivable, u"增加应收"_s, u"YS"_s, u"YF"_s, u"update TB1 set sn=0 where sn="_s},
        {LedgerKind::Payable, u"增加应付"_s, u"YF"_s, u"YF"_s, u"update TB1 set sn=0 where sn="_s},
        {LedgerKind::Payment, u"付款"_s, u"FK"_s, u"FK"_s, u"update TB1 set Sn=0 where Sn="_s},
        {LedgerKind::Receipt, u"收款"_s, u"SK"_s, u"FK"_s, u"update TB1 set Sn=0 where Sn="_s},
    };
    for (const LedgerKindInfo& info : kinds)
        if (info.kind == kind) return info;
    throw std::invalid_argument("no such kind of ledger row");
}

std::array<QString, 2> WaybillKeys(const QString& waybill) {
    return {InfoFor(LedgerKind::Payable).keyPrefix + waybill,
            InfoFor(LedgerKind::Receivable).keyPrefix + waybill};
}

EntryDate ClassifyEntryDate(dao::Database& db, QDate date) {
    const auto newest = text::ReadDate(GetStr(db, u"select top 1 F2 from TB1 order by F2 desc "_s));
    if (!newest) return EntryDate::Newer;
    const qint64 days = date.daysTo(*newest);
    if (days < 0) {
        db.Execute(u"update  sysinfo set setStr="_s + Quoted(text::DateText(date)) + u" where ID=9999"_s);
        return EntryDate::Newer;
    }
    return days == 0 ? EntryDate::SameDay : EntryDate::Older;
}

double SlotSequenceForDate(dao::Database& db, QDate date, const QString& key, double present) {
    const double before = HighestBefore(db, u"<"_s, date, key).sequence;
    const Neighbour last = HighestBefore(db, u"<="_s, date, key);
    const Neighbour next = LowestAfter(db, last.sequence, date, key);

    if (!next.found) return present > before ? present : PlaceAtEnd(db, last);
    if (present > before && present < next.sequence) return present;

    // A quarter of the way, not half: the larger gap remains above for the rows that come next.
    const double slot = (next.sequence - last.sequence) / 4 + last.sequence;
    if (slot == last.sequence) WarnThatGapRanOut();
    return slot;
}

void RollBalanceChain(dao::Database& db, double start, const QString& counterparty) {
    double balance = OpeningBalance(db, start, counterparty);
    auto rows = db.OpenRecordset(u"select QC,YF,FK,QM from TB1 where SN<>0 AND  SN>="_s + Bare(start) +
                                     u" and F3="_s + Quoted(counterparty) + u" ORDER BY SN"_s,
                                 dao::RecordsetType::Dynaset);
    for (; !rows.Eof(); rows.MoveNext()) {
        rows.Edit();
        rows.SetValue(u"QC", balance);
        balance = balance + Amount(rows, u"YF") - Amount(rows, u"FK");
        rows.SetValue(u"QM", balance);
        rows.Update();
    }
    rows.Close();
}

double AllocateSequence(dao::Database& db, QDate date, const QString& key, CounterReading reads) {
    const QString step = u"update sysinfo set Setval=setval+1 Where ID=100"_s;
    db.Execute(step);  // whatever follows
    if (reads == CounterReading::AlsoAfterFirstStep) ReadCounter(db);
    switch (ClassifyEntryDate(db, date)) {
        case EntryDate::Newer:
            db.Execute(u"update sysinfo set Setval=setval+30 Where ID=100"_s);
            return ReadCounter(db);
        case EntryDate::SameDay:
            db.Execute(step);
            return ReadCounter(db);
        case EntryDate::Older:
            break;
    }
    return SlotSequenceForDate(db, date, key, 0);
}

void PostEntry(dao::Database& db, const LedgerEntry& entry) {
    const LedgerKindInfo& info = InfoFor(entry.kind);
    const auto quoted = [](const QString& value) { return Quoted(value) + u','; };
    db.Execute(u"insert into TB1 (S2,SN,LB,F1,F2,F3,"_s + info.amountField + u",S1,F5,F6,F10,H8) VALUES("_s +
               quoted(info.businessType) + Bare(entry.sequence) + u',' +
               text::GeneralText(static_cast<int>(entry.kind)) + u',' + quoted(entry.key) +
               quoted(entry.date) + quoted(entry.counterparty) + Bare(entry.amount) + u',' +
               quoted(entry.handler) + quoted(entry.maker) + quoted(entry.maker) + quoted(entry.remark) +
               Quoted(MomentText()) + u')');
    RollBalanceChain(db, entry.sequence, entry.counterparty);
}

double MoveSequence(dao::Database& db, LedgerKind kind, const QString& key, double present,
                    const QString& counterparty, QDate date) {
    db.Execute(InfoFor(kind).release + Bare(present));
    RollBalanceChain(db, present, counterparty);
    const double now = text::Val(GetStr(db, u"SELECT SN FROM TB1 WHERE F1="_s + Quoted(key)));
    return SlotSequenceForDate(db, date, key, now);
}

void UpdateEntry(dao::Database& db, const QString& key, const LedgerEntry& entry) {
    db.Execute(u"update TB1 set F1="_s + Quoted(entry.key) + u",F2="_s + Quoted(entry.date) + u",F3="_s +
               Quoted(entry.counterparty) + u',' + InfoFor(entry.kind).amountField + u'=' +
               Bare(entry.amount) + u",S1="_s + Quoted(entry.handler) + u",F10="_s + Quoted(entry.remark) +
               u",H8="_s + Quoted(MomentText()) + u",SN="_s + Bare(entry.sequence) + u" Where F1="_s +
               Quoted(key));
    RollBalanceChain(db, entry.sequence, entry.counterparty);
}

void DeleteEntry(dao::Database& db, const QString& key) {
    db.Execute(u"delete from TB1 Where F1="_s + Quoted(key));
}

void DeleteWaybillEntries(dao::Database& db, const QString& waybill) {
    const auto [payable, receivable] = WaybillKeys(waybill);
    db.Execute(u"DELETE FROM TB1 WHERE F1="_s + Quoted(payable) + u" OR F1="_s + Quoted(receivable));
}

}  // namespace accounts
