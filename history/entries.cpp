#include "history/entries.h"

#include "platform/text/dates.h"
#include "platform/text/numbers.h"
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

qint64 WholeOf(dao::Database& db, const QString& select) {
    auto rows = db.ReadEngine(select);
    return rows.Eof() ? 0 : rows.Fields(0).Text().toLongLong();
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
        if (rows.first < rows.end) conditions += u"rowid>=%1 and rowid<%2"_s.arg(rows.first).arg(rows.end);
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

bool SameKey(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// What a command has deleted, inserted and deleted again is deleted; what it has inserted first is an entry
/// of its own.
void AddDeleted(std::vector<Entry>& entries, const Object& object, const Event& event) {
    const auto replaced = std::ranges::find_if(entries, [&](const Entry& each) {
        return each.action == Action::Changed && each.joined && each.row == event.row &&
               SameKey(each.afterKey, event.key);
    });
    if (replaced == entries.end()) return entries.push_back(EntryOf(object, event, Action::Deleted));
    replaced->action = Action::Deleted;
    replaced->after = replaced->row = 0;
    replaced->afterKey = QString();
    replaced->joined = false;
}

void AddInserted(std::vector<Entry>& entries, const Object& object, const Event& event) {
    const auto open = std::ranges::find_if(entries, [&](const Entry& each) {
        return each.action == Action::Deleted && SameKey(each.key, event.key);
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

/// What matches by its key, with its neighbours, since the other half of a pair may have another key.
QString ByKey(dao::Database& db, const Object& object, const QString& condition, const QString& text) {
    auto rows = db.ReadEngine(u"select rowid from "_s + MirrorOf(object.table) + u" where "_s + condition +
                              u" and instr(lower(F1),lower("_s + Literal(text) +
                              u")) order by rowid desc limit "_s + QString::number(MostEntries));
    QStringList near;
    for (; !rows.Eof(); rows.MoveNext()) {
        const qint64 row = rows.Fields(0).Text().toLongLong();
        for (qint64 i = row - 4; i <= row + 4; ++i) near += QString::number(i);
    }
    return condition + u" and rowid in ("_s + near.join(u',') + u')';
}

bool Matches(const Entry& entry, const QString& text) {
    const auto has = [&](const QString& where) { return where.contains(text, Qt::CaseInsensitive); };
    return text.isEmpty() || has(entry.key) || has(entry.name) || has(entry.afterKey);
}

std::vector<Entry> OfObject(dao::Database& db, const Object& object, const Search& search) {
    QString condition = OfPeriod(db, object.table, search.from, search.to);
    // The masters are few, and are searched by their names as well.
    const bool large = object.table == "B01" || object.table == "TB1";
    if (large && !search.text.isEmpty()) condition = ByKey(db, object, condition, search.text);
    if (search.operatorName == OtherProgram)
        condition += u" and Operator is null"_s;
    else if (!search.operatorName.isEmpty())
        condition += u" and Operator="_s + Literal(search.operatorName);
    return Grouped(object, Events(db, object, condition, MostEvents));
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

void Newest(std::vector<Entry>& entries) {
    std::ranges::stable_sort(entries, [](const Entry& a, const Entry& b) { return a.group > b.group; });
    if (entries.size() > MostEntries) entries.resize(MostEntries);
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

void Summarize(dao::Database& db, Entry& entry, const QStringList& columns) {
    const Images images = ImagesOf(db, entry);
    const Image& known = images.before ? images.before : images.after;
    if (entry.name.isEmpty() && known && !entry.object->name.isEmpty())
        entry.name = known->value(columns.indexOf(QString::fromLatin1(entry.object->name)));
    if (entry.object->table == "TB1" && known) {
        entry.caption = JournalCaption(known->value(columns.indexOf(u"LB"_s)));
        entry.summary = known->value(columns.indexOf(u"F3"_s)) + u' ' + AmountOf(columns, *known);
    }
    if (entry.action != Action::Changed || !images.before || !images.after) return;
    QStringList changed;
    for (qsizetype i = 0; i < columns.size(); ++i)
        if (Shown(entry.object->table, columns[i]) && (*images.before)[i] != (*images.after)[i])
            changed += columns[i];
    if (changed == QStringList{u"F604"_s} && entry.object->table == "B01" &&
        waybills::IsReleased(images.after->value(columns.indexOf(u"F604"_s)))) {
        entry.action = Action::Released;
        entry.summary = u"审核人、已出货"_s;
    } else if (!changed.isEmpty()) {
        if (entry.object->table != "TB1") entry.summary = u"改动 %1 项"_s.arg(changed.size());
    } else if (entry.object->table == "TE1") {
        entry.summary = u"密码"_s;
    } else if (entry.object->table == "M03") {
        entry.caption = u"客户报价"_s;
    }
}

void SummarizeAll(dao::Database& db, std::vector<Entry>& entries) {
    std::map<QByteArray, QStringList> columns;
    for (Entry& entry : entries) {
        QStringList& ofTable = columns[entry.object->table];
        if (ofTable.isEmpty()) ofTable = ColumnsOf(db, entry.object->table);
        Summarize(db, entry, ofTable);
    }
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

QString Literal(const QString& text) {
    return text.isNull() ? u"null"_s : u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
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

std::vector<Entry> Find(dao::Database& db, const Search& search) {
    std::vector<Entry> entries;
    for (const Object& object : Objects()) {
        if ((search.object && search.object != &object) || !search.menus.contains(object.menu)) continue;
        for (Entry& entry : OfObject(db, object, search)) entries.push_back(std::move(entry));
    }
    if (!search.object) DropDependents(entries);
    Newest(entries);
    SummarizeAll(db, entries);
    std::erase_if(entries, [&](const Entry& entry) { return !Matches(entry, search.text); });
    return entries;
}

std::vector<Entry> ChangesOf(dao::Database& db, const Object& object, qint64 group) {
    const Range range = RowsOfGroup(db, object.table, group);
    if (range.first >= range.end) return {};
    return Paired(object,
                  Events(db, object, u"rowid>=%1 and rowid<%2"_s.arg(range.first).arg(range.end), -1));
}

std::vector<Entry> OfGroup(dao::Database& db, qint64 group) {
    std::vector<Entry> entries;
    for (const Object& object : Objects())
        for (Entry& entry : ChangesOf(db, object, group)) entries.push_back(std::move(entry));
    DropDependents(entries);
    SummarizeAll(db, entries);
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

std::vector<FamilyRow> FamilyOf(dao::Database& db, const Entry& entry, const Family& family) {
    const QString mirror = MirrorOf(family.table);
    const QStringList columns = ColumnsOf(db, family.table);
    const Range range = RowsOfGroup(db, family.table, entry.group);
    const bool areas = columns.contains(u"F0"_s);
    std::map<QString, FamilyRow> rows;
    for (const bool before : {true, false}) {
        const QString key = before ? entry.key : entry.afterKey;
        if (key.isNull()) continue;
        auto events = db.ReadEngine(
            u"select rowid,R,F1,%1 from %2 where rowid>=%3 and rowid<%4 and Op='%5' and %6 order by rowid"_s
                .arg(areas ? u"F0"_s : u"''"_s, mirror, QString::number(range.first),
                     QString::number(range.end), before ? u"D"_s : u"I"_s,
                     QString(family.condition).arg(Literal(key))));
        for (; !events.Eof(); events.MoveNext()) {
            const qint64 event = events.Fields(0).Text().toLongLong();
            const QString own = events.Fields(2).Text();
            FamilyRow& row = rows[own];
            row.key = own;
            if (before)
                row.before = Read(db, Select(columns, mirror) + u" where rowid="_s + QString::number(event));
            else
                row.after = ImageAfter(
                    db, family.table, columns, event, events.Fields(1).Text().toLongLong(),
                    areas ? u"F0 is %1 and F1 is %2"_s.arg(Literal(TextOf(events.Fields(3))), Literal(own))
                          : u"F1 is "_s + Literal(own));
        }
    }
    std::vector<FamilyRow> sorted;
    for (auto& [key, row] : rows) sorted.push_back(std::move(row));
    return sorted;
}

}  // namespace history
