#include "history/entries.h"

#include "accounts/journal.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"
#include "schema/history.h"
#include "waybills/waybill_fields.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

using namespace Qt::StringLiterals;

namespace history {
namespace {

constexpr int MostEvents = 4 * MostEntries;  // of a mirror; a save of a waybill is up to three

struct Event {
    qint64 rowid, group;
    QString at, operatorName, command, op;
    qint64 row;
    QString key, name;
    QString kind;  ///< LB of a journal row
};

QString MirrorOf(const QByteArray& table) {
    return u"H_"_s + QString::fromLatin1(table);
}

QString TextOf(const dao::Field& field) {
    return field.IsNull() ? QString() : QStringLiteral("") + field.Text();
}

Range AllRows(dao::Database& db, const QByteArray& table) {
    const QString from = u" from "_s + MirrorOf(table);
    const qint64 first = WholeOf(db, u"select min(rowid)"_s + from);
    return first == 0 ? Range{1, 1} : Range{first, WholeOf(db, u"select max(rowid)"_s + from) + 1};
}

/// The first row of the range for which `reached` is true of that column; they are true from some row on.
qint64 FirstRow(dao::Database& db, const QByteArray& table, const Range& range, const QString& column,
                const std::function<bool(const QString&)>& reached) {
    const QString from = u" from "_s + MirrorOf(table);
    qint64 low = range.first, high = range.end;
    while (low < high) {
        const qint64 middle = low + (high - low) / 2;
        auto rows =
            db.ReadEngine(u"select "_s + column + from + u" where rowid="_s + QString::number(middle));
        if (!rows.Eof() && reached(rows.Fields(0).Text()))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

/// The first row of a group of that number or a later one.
qint64 FirstFrom(dao::Database& db, const QByteArray& table, const Range& range, qint64 group) {
    return FirstRow(db, table, range, u"N"_s, [&](const QString& n) { return n.toLongLong() >= group; });
}

/// The rows of a period as a condition. Between two steps of the clock the times ascend.
QString OfPeriod(dao::Database& db, const QByteArray& table, QDate from, QDate to) {
    const QString first = text::DateText(from), end = text::DateText(to.addDays(1));
    const Range all = AllRows(db, table);
    QStringList conditions;
    const auto add = [&](const Range& steady) {
        if (steady.first >= steady.end) return;
        const auto reaching = [&](const QString& day) {
            return FirstRow(db, table, steady, u"At"_s, [&](const QString& at) { return at >= day; });
        };
        const Range rows{reaching(first), reaching(end)};
        if (rows.first < rows.end) conditions += rows.Condition();
    };
    Range steady = all;
    for (auto steps = db.ReadEngine(u"select N from HClock order by rowid"_s); !steps.Eof();
         steps.MoveNext()) {
        steady.end = FirstFrom(db, table, all, steps.Fields(0).Text().toLongLong());
        add(steady);
        steady = {steady.end, all.end};
    }
    add(steady);
    return conditions.isEmpty() ? u"0"_s : u'(' + conditions.join(u" or "_s) + u')';
}

QString EventColumns(const Object& object) {
    return u"select rowid,N,At,Operator,Command,Op,R,"_s + (HasKey(object) ? u"F1"_s : u"''"_s) + u',' +
           (object.name.isEmpty() ? u"''"_s : QString::fromLatin1(object.name)) + u',' +
           (object.table == "TB1" ? u"LB"_s : u"''"_s) + u" from "_s + MirrorOf(object.table) + u" where "_s;
}

/// The last ones that the condition admits, in ascending order.
std::vector<Event> Events(dao::Database& db, const Object& object, const QString& condition, int most) {
    auto rows = db.ReadEngine(EventColumns(object) + condition + u" order by rowid desc limit "_s +
                              QString::number(most));
    std::vector<Event> events;
    for (; !rows.Eof(); rows.MoveNext())
        events.push_back({rows.Fields(0).Text().toLongLong(), rows.Fields(1).Text().toLongLong(),
                          rows.Fields(2).Text(),
                          rows.Fields(3).IsNull() ? OtherProgram : rows.Fields(3).Text(),
                          rows.Fields(4).Text(), rows.Fields(5).Text(), rows.Fields(6).Text().toLongLong(),
                          TextOf(rows.Fields(7)), rows.Fields(8).Text(), rows.Fields(9).Text()});
    std::reverse(events.begin(), events.end());
    return events;
}

Entry EntryOf(const Object& object, const Event& event, Action action) {
    Entry entry;
    entry.object = &object;
    entry.group = event.group;
    entry.at = event.at;
    entry.operatorName = event.operatorName;
    entry.command = event.command;
    entry.action = action;
    entry.key = event.key;
    entry.name = event.name;
    entry.caption = object.table == "TB1" ? JournalCaption(event.kind) : object.caption;
    if (action != Action::Added) entry.before = event.rowid;
    if (action != Action::Deleted) {
        entry.after = event.rowid;
        entry.row = event.row;
        entry.afterKey = event.key;
    }
    return entry;
}

/// An edit of a card is a delete and an insert; the inserted one gives what follows.
void Follow(Entry& deleted, const Entry& inserted) {
    deleted.action = Action::Changed;
    deleted.joined = true;
    deleted.after = inserted.after;
    deleted.row = inserted.row;
    deleted.afterKey = inserted.afterKey;
}

/// What a command has deleted, inserted and deleted again is deleted; what it has inserted first is an entry
/// of its own.
void AddDeleted(std::vector<Entry>& entries, const Object& object, const Event& event) {
    const auto replaced = std::ranges::find_if(entries, [&](const Entry& each) {
        return each.action == Action::Changed && each.joined && each.row == event.row &&
               text::SameAsStored(each.afterKey, event.key);
    });
    if (replaced == entries.end()) return entries.push_back(EntryOf(object, event, Action::Deleted));
    replaced->action = Action::Deleted;
    replaced->after = replaced->row = 0;
    replaced->afterKey = QString();
    replaced->joined = false;
}

void AddInserted(std::vector<Entry>& entries, const Object& object, const Event& event) {
    const auto open = std::ranges::find_if(entries, [&](const Entry& each) {
        return each.action == Action::Deleted && text::SameAsStored(each.key, event.key);
    });
    if (open == entries.end()) return entries.push_back(EntryOf(object, event, Action::Added));
    Follow(*open, EntryOf(object, event, Action::Added));
}

/// A card whose key was changed. Another program's statements have one number for all of them.
void JoinRenamed(std::vector<Entry>& entries) {
    const auto only = [&](Action action) {
        const auto is = [=](const Entry& each) { return each.action == action; };
        return std::ranges::count_if(entries, is) == 1 ? std::ranges::find_if(entries, is) : entries.end();
    };
    const auto deleted = only(Action::Deleted), added = only(Action::Added);
    if (deleted == entries.end() || added == entries.end() || deleted->before > added->after ||
        deleted->operatorName == OtherProgram)
        return;
    Follow(*deleted, *added);
    entries.erase(added);
}

/// The events of one group and one object.
std::vector<Entry> Paired(const Object& object, const std::vector<Event>& events) {
    std::vector<Entry> entries;
    for (const Event& event : events) {
        if (event.op == u"D") AddDeleted(entries, object, event);
        if (event.op == u"U") entries.push_back(EntryOf(object, event, Action::Changed));
        if (event.op == u"K" && !entries.empty()) entries.back().afterKey = event.key;
        if (event.op == u"I") AddInserted(entries, object, event);
    }
    JoinRenamed(entries);
    return entries;
}

std::vector<Entry> Grouped(const Object& object, const std::vector<Event>& events) {
    std::vector<Entry> entries;
    for (auto first = events.begin(); first != events.end();) {
        const auto last =
            std::find_if(first, events.end(), [&](const Event& each) { return each.group != first->group; });
        for (Entry& entry : Paired(object, {first, last})) entries.push_back(std::move(entry));
        first = last;
    }
    return entries;
}

QString Has(const QString& column, const QString& text) {
    return u"instr(lower(%1),lower(%2))"_s.arg(column, Literal(text));
}

/// The codes of the customers whose names have the text, also of those that are deleted by now.
QStringList CustomersLike(dao::Database& db, const QString& text) {
    auto rows =
        db.ReadEngine(u"select F1 from M03 where %1 union select F1 from H_M03 where Op<>'I' and %1"_s.arg(
            Has(u"F2"_s, text)));
    QStringList codes;
    for (; !rows.Eof(); rows.MoveNext()) codes += rows.Fields(0).Text();
    return codes;
}

/// Where a row of the table or of its mirror has the customer or counterparty; "" where there is none.
QString ByParty(const Object& object, const Search& search, const QStringList& customers) {
    if (object.table == "TB1") return Has(u"F3"_s, search.text);
    QStringList codes;
    for (const QString& code : customers) codes += Literal(code);
    return codes.isEmpty() ? QString() : u"F603 in (%1)"_s.arg(codes.join(u','));
}

/// What matches by its key or party, with its neighbours, since the other half of a pair may have another
/// key. An insert keeps no party: it is what a later change or the row of today has.
QString Matching(dao::Database& db, const Object& object, const QString& condition, const Search& search,
                 const QStringList& customers, bool& cut) {
    QString match = Has(u"F1"_s, search.text);
    if (const QString party = ByParty(object, search, customers); !party.isEmpty())
        match += u" or %1 or R in (select rowid from %2 where %1 union select R from H_%2 where %1)"_s.arg(
            party, QString::fromLatin1(object.table));
    auto rows = db.ReadEngine(u"select rowid from %1 where %2 and (%3) order by rowid desc limit %4"_s.arg(
        MirrorOf(object.table), condition, match, QString::number(MostEntries)));
    QStringList near;
    int found = 0;
    for (; !rows.Eof(); rows.MoveNext(), ++found) {
        const qint64 row = rows.Fields(0).Text().toLongLong();
        for (qint64 i = row - 4; i <= row + 4; ++i) near += QString::number(i);
    }
    cut = cut || found == MostEntries;
    return condition + u" and rowid in ("_s + near.join(u',') + u')';
}

bool Matches(const Entry& entry, const QString& text, const QStringList& customers) {
    const auto has = [&](const QString& where) { return where.contains(text, Qt::CaseInsensitive); };
    if (text.isEmpty() || has(entry.key) || has(entry.name) || has(entry.afterKey)) return true;
    return std::ranges::any_of(entry.parties, [&](const QString& party) {
        const auto is = [&](const QString& code) { return text::SameAsStored(code, party); };
        return entry.object->table == "B01" ? std::ranges::any_of(customers, is) : has(party);
    });
}

bool HasParties(const Object& object) {
    return object.table == "B01" || object.table == "TB1";
}

/// Whether the summary, which costs the most, can still find a name or a party.
bool MayMatch(const Entry& entry, const QString& text, const QStringList& customers) {
    const bool unnamed = entry.name.isEmpty() && !entry.object->name.isEmpty();
    return unnamed || HasParties(*entry.object) || Matches(entry, text, customers);
}

std::vector<Entry> OfObject(dao::Database& db, const Object& object, const Search& search,
                            const QStringList& customers, bool& cut) {
    QString condition = OfPeriod(db, object.table, search.from, search.to);
    // The masters are few, and are searched by their names as well.
    if (HasParties(object) && !search.text.isEmpty())
        condition = Matching(db, object, condition, search, customers, cut);
    if (search.operatorName == OtherProgram)
        condition += u" and Operator is null"_s;
    else if (!search.operatorName.isEmpty())
        condition += u" and Operator="_s + Literal(search.operatorName);
    const std::vector<Event> events = Events(db, object, condition, MostEvents);
    cut = cut || events.size() == MostEvents;
    return Grouped(object, events);
}

/// A waybill's journal rows come with the waybill, the zones of a deleted channel with the channel.
void DropDependents(std::vector<Entry>& entries) {
    std::map<qint64, QStringList> numbers;
    std::set<qint64> channels;
    for (const Entry& entry : entries) {
        if (entry.object->table == "B01") numbers[entry.group] += {entry.key, entry.afterKey};
        if (entry.object->table == "M01") channels.insert(entry.group);
    }
    std::erase_if(entries, [&](const Entry& entry) {
        if (entry.object->table == "M02") return channels.contains(entry.group);
        const auto found = numbers.find(entry.group);
        return entry.object->table == "TB1" && found != numbers.end() &&
               found->second.contains(entry.key.mid(2));
    });
}

QString Select(const QStringList& columns, const QString& from) {
    return u"select "_s + columns.join(u',') + u" from "_s + from;
}

Image Read(dao::Database& db, const QString& select) {
    auto rows = db.ReadEngine(select);
    if (rows.Eof()) return std::nullopt;
    QStringList values;
    for (int i = 0; i < rows.FieldCount(); ++i) values += TextOf(rows.Fields(i));
    return values;
}

/// The record that a row of the mirror has inserted or overwritten, as it was from then on.
Image ImageAfter(dao::Database& db, const QByteArray& table, const QStringList& columns, qint64 event,
                 qint64 row, const QString& key) {
    const QString condition = key.isEmpty() ? QString() : key + u" and "_s;
    Image next = Read(
        db, Select(columns, MirrorOf(table)) + u" where "_s + condition +
                u"Op<>'I' and Op<>'K' and R=%1 and rowid>%2 order by rowid limit 1"_s.arg(row).arg(event));
    if (next) return next;
    return Read(db, Select(columns, QString::fromLatin1(table)) + u" where "_s + condition + u"rowid="_s +
                        QString::number(row));
}

QString AmountOf(const QStringList& columns, const QStringList& values) {
    const QString raised = values.value(columns.indexOf(u"YF"_s));
    const QString lowered = values.value(columns.indexOf(u"FK"_s));
    return text::FormatFixed(text::Val(raised.isEmpty() || raised == u"0" ? lowered : raised), 2);
}

/// The captions of rows that go with a record, for its summary.
QString CountOfFamily(dao::Database& db, const Entry& entry, bool& prices) {
    QStringList words;
    for (const Family& family : entry.object->family) {
        if (family.cascade) continue;
        const auto rows = FamilyOf(db, entry, family);
        const auto changed = std::ranges::count_if(rows, [](const FamilyRow& row) { return row.Changed(); });
        if (changed == 0) continue;
        prices = family.prices;
        words += (family.prices ? u"更新报价，%1 个区域"_s : u"改动地区 %1 处"_s).arg(changed);
    }
    return words.join(u'，');
}

QString CountOfFields(const Entry& entry, const QStringList& changed) {
    const auto right = [&](const QString& column) {
        return entry.object->table == "TE1" && column.startsWith(u"F6");
    };
    const auto rights = std::ranges::count_if(changed, right);
    QStringList words;
    if (changed.size() > rights) words += u"改动 %1 项"_s.arg(changed.size() - rights);
    if (rights > 0) words += u"权限改动 %1 项"_s.arg(rights);
    return words.join(u'，');
}

/// What an edit has changed; a save of a card may change nothing.
void SummarizeChange(dao::Database& db, Entry& entry, const QStringList& columns, const Images& images) {
    QStringList changed;
    for (qsizetype i = 0; i < columns.size(); ++i)
        if (Shown(entry.object->table, columns[i]) && (*images.before)[i] != (*images.after)[i])
            changed += columns[i];
    if (changed == QStringList{u"F604"_s} && entry.object->table == "B01" &&
        waybills::IsReleased(images.after->value(columns.indexOf(u"F604"_s)))) {
        entry.action = Action::Released;
        entry.summary = u"审核人、已出货"_s;
        return;
    }
    bool prices = false;
    QStringList words{entry.summary, CountOfFields(entry, changed), CountOfFamily(db, entry, prices)};
    if (prices && changed.isEmpty()) entry.caption = u"客户报价"_s;
    words.removeAll(QString());
    if (changed.isEmpty() && entry.object->table == "TE1") words += u"密码"_s;
    if (words.isEmpty()) words += u"内容没有改动"_s;
    entry.summary = words.join(u'，');
}

void Summarize(dao::Database& db, Entry& entry, const QStringList& columns) {
    const Images images = ImagesOf(db, entry);
    const Image& known = images.before ? images.before : images.after;
    const auto of = [&](const Image& image, const QString& column) {
        return image ? image->value(columns.indexOf(column)) : QString();
    };
    if (entry.name.isEmpty() && !entry.object->name.isEmpty())
        entry.name = of(known, QString::fromLatin1(entry.object->name));
    const bool journal = entry.object->table == "TB1";
    if (journal || entry.object->table == "B01")
        for (const Image* image : {&images.before, &images.after})
            entry.parties += of(*image, journal ? u"F3"_s : u"F603"_s);
    if (journal && known) {
        entry.caption = JournalCaption(of(known, u"LB"_s));
        entry.summary = of(known, u"F3"_s) + u' ' + AmountOf(columns, *known);
    }
    if (entry.action == Action::Changed && images.before && images.after)
        SummarizeChange(db, entry, columns, images);
}

/// Summarizes the entries in their order until there are enough for which `wanted` is true, and leaves those.
/// Gives whether there were more.
template <class Wanted>
bool SummarizeFirst(dao::Database& db, std::vector<Entry>& entries, std::size_t enough,
                    const Wanted& wanted) {
    std::map<QByteArray, QStringList> columns;
    std::vector<Entry> kept;
    for (Entry& entry : entries) {
        QStringList& ofTable = columns[entry.object->table];
        if (ofTable.isEmpty()) ofTable = ColumnsOf(db, entry.object->table);
        Summarize(db, entry, ofTable);
        if (!wanted(entry)) continue;
        if (kept.size() == enough) {
            entries = std::move(kept);
            return true;
        }
        kept.push_back(std::move(entry));
    }
    entries = std::move(kept);
    return false;
}

}  // namespace

QString WordOf(Action action) {
    switch (action) {
        case Action::Added:
            return u"新增"_s;
        case Action::Deleted:
            return u"删除"_s;
        case Action::Released:
            return u"出货"_s;
        case Action::Changed:
            break;
    }
    return u"修改"_s;
}

bool Shown(const QByteArray& table, const QString& column) {
    static const QStringList hidden{u"SN"_s, u"LB"_s, u"QC"_s, u"QM"_s, u"H8"_s, u"K"_s, u"F30"_s};
    return table != "TB1" || !hidden.contains(column);
}

qint64 WholeOf(dao::Database& db, const QString& select) {
    auto rows = db.ReadEngine(select);
    return rows.Eof() ? 0 : rows.Fields(0).Text().toLongLong();
}

bool IsThere(dao::Database& db, const QString& from) {
    return !db.ReadEngine(u"select 1 from "_s + from + u" limit 1"_s).Eof();
}

QString Literal(const QString& text) {
    return text.isNull() ? u"null"_s : u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}

QString PostingKeys(const QString& waybill) {
    const auto [payable, receivable] = accounts::WaybillKeys(waybill);
    return Literal(payable) + u',' + Literal(receivable);
}

QStringList ColumnsOf(dao::Database& db, const QByteArray& table) {
    QStringList columns;
    const schema::KeptTable* const kept = schema::FindKept(table);
    auto rows = db.ReadEngine(u"pragma table_info("_s + QString::fromLatin1(table) + u')');
    for (; !rows.Eof(); rows.MoveNext())
        if (const QString name = rows.Fields(1).Text(); !kept || !kept->secret.contains(name.toLatin1()))
            columns += name;
    return columns;
}

Range RowsOfGroup(dao::Database& db, const QByteArray& table, qint64 group) {
    const Range all = AllRows(db, table);
    return {FirstFrom(db, table, all, group), FirstFrom(db, table, all, group + 1)};
}

std::vector<Entry> Find(dao::Database& db, const Search& search, bool* cut) {
    std::vector<Entry> entries;
    bool more = false;
    const QStringList customers = search.text.isEmpty() ? QStringList() : CustomersLike(db, search.text);
    for (const Object& object : Objects()) {
        if ((search.object && search.object != &object) || !search.menus.contains(object.menu)) continue;
        for (Entry& entry : OfObject(db, object, search, customers, more))
            entries.push_back(std::move(entry));
    }
    if (!search.object) DropDependents(entries);
    std::erase_if(entries, [&](const Entry& entry) { return !MayMatch(entry, search.text, customers); });
    std::ranges::stable_sort(entries, [](const Entry& a, const Entry& b) { return a.group > b.group; });
    const auto wanted = [&](const Entry& entry) { return Matches(entry, search.text, customers); };
    more = SummarizeFirst(db, entries, MostEntries, wanted) || more;
    if (cut) *cut = more;
    return entries;
}

std::vector<Entry> ChangesOf(dao::Database& db, const Object& object, qint64 group) {
    const Range range = RowsOfGroup(db, object.table, group);
    if (range.first >= range.end) return {};
    return Paired(object, Events(db, object, range.Condition(), -1));
}

std::vector<Entry> OfGroup(dao::Database& db, qint64 group) {
    std::vector<Entry> entries;
    for (const Object& object : Objects())
        for (Entry& entry : ChangesOf(db, object, group)) entries.push_back(std::move(entry));
    DropDependents(entries);
    SummarizeFirst(db, entries, entries.size(), [](const Entry&) { return true; });
    return entries;
}

QString RowBefore(const Entry& entry) {
    return u"rowid=%1 and N=%2"_s.arg(entry.before).arg(entry.group);
}

Images ImagesOf(dao::Database& db, const Entry& entry) {
    const QByteArray& table = entry.object->table;
    const QStringList columns = ColumnsOf(db, table);
    Images images;
    if (entry.before != 0)
        images.before = Read(db, Select(columns, MirrorOf(table)) + u" where "_s + RowBefore(entry));
    if (entry.after != 0)
        images.after = ImageAfter(db, table, columns, entry.after, entry.row,
                                  HasKey(*entry.object) ? u"F1 is "_s + Literal(entry.afterKey) : QString());
    return images;
}

namespace {

/// A row that a command has inserted, by number and key.
using Inserted = std::map<std::pair<qint64, QString>, Image>;

/// Fills in what the rows were from then on: what the next change of each has found, else what they are.
void ReadAfter(dao::Database& db, const QByteArray& table, const QString& where, qint64 end, Inserted& rows) {
    const QString columns = ColumnsOf(db, table).join(u',');
    const auto take = [&](const QString& number, const QString& from, int limit) {
        auto found =
            db.ReadEngine(u"select %1,F1,%2 from %3 limit %4"_s.arg(number, columns, from).arg(limit));
        int taken = 0;
        for (; !found.Eof(); found.MoveNext(), ++taken) {
            const auto row = rows.find({found.Fields(0).Text().toLongLong(), found.Fields(1).Text()});
            if (row == rows.end() || row->second) continue;
            row->second.emplace();
            for (int i = 2; i < found.FieldCount(); ++i) *row->second += TextOf(found.Fields(i));
        }
        return taken;
    };
    const auto missing = [&] {
        return std::ranges::any_of(rows, [](const auto& row) { return !row.second; });
    };
    const QString later = u"%1 where %2 and Op<>'I' and Op<>'K' and rowid>=%3 order by rowid"_s.arg(
        MirrorOf(table), where, QString::number(end));
    // A save deletes all of them at once.
    const int usual = 2 * static_cast<int>(rows.size());
    if (take(u"R"_s, later, usual) == usual && missing()) take(u"R"_s, later, -1);
    if (missing()) take(u"rowid"_s, QString::fromLatin1(table) + u" where "_s + where, -1);
}

}  // namespace

std::vector<FamilyRow> FamilyOf(dao::Database& db, const Entry& entry, const Family& family) {
    const QStringList columns = ColumnsOf(db, family.table);
    const Range range = RowsOfGroup(db, family.table, entry.group);
    const QString of = u" from %1 where %2 and "_s.arg(MirrorOf(family.table), range.Condition());
    const auto belongsTo = [&](const QString& key) { return QString(family.condition).arg(Literal(key)); };
    std::map<QString, FamilyRow> rows;
    auto deleted = db.ReadEngine(u"select F1,"_s + columns.join(u',') + of + u"Op='D' and "_s +
                                 belongsTo(entry.key) + u" order by rowid"_s);
    for (; !deleted.Eof(); deleted.MoveNext()) {
        Image& before = rows[deleted.Fields(0).Text()].before;
        before.emplace();
        for (int i = 1; i < deleted.FieldCount(); ++i) *before += TextOf(deleted.Fields(i));
    }
    if (!entry.afterKey.isNull()) {
        Inserted inserted;
        auto events = db.ReadEngine(u"select R,F1"_s + of + u"Op='I' and "_s + belongsTo(entry.afterKey));
        for (; !events.Eof(); events.MoveNext())
            inserted[{events.Fields(0).Text().toLongLong(), events.Fields(1).Text()}];
        if (!inserted.empty()) ReadAfter(db, family.table, belongsTo(entry.afterKey), range.end, inserted);
        for (auto& [row, image] : inserted) rows[row.second].after = std::move(image);
    }
    std::vector<FamilyRow> sorted;
    for (auto& [key, row] : rows) {
        row.key = key;
        sorted.push_back(std::move(row));
    }
    return sorted;
}

}  // namespace history
