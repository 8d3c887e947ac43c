#include "history/changes.h"

#include "schema/history.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace history {
namespace {

QString KeyIs(const Entry& entry, const QString& key) {
    return HasKey(*entry.object) ? u"F1 is "_s + Literal(key) + u" and "_s : QString();
}

/// The entry of a row of the mirror; `group` is the row's.
template <class Is>
std::optional<Entry> EntryWith(dao::Database& db, const Object& object, qint64 group, const Is& is) {
    const std::vector<Entry> entries = ChangesOf(db, object, group);
    const auto found = std::ranges::find_if(entries, is);
    return found == entries.end() ? std::nullopt : std::optional(*found);
}

std::optional<Entry> NextChange(dao::Database& db, const Entry& entry) {
    auto rows = db.ReadEngine(
        u"select rowid,N from H_%1 where %2Op<>'I' and Op<>'K' and R=%3 and rowid>%4 order by rowid limit 1"_s
            .arg(QString::fromLatin1(entry.object->table), KeyIs(entry, entry.afterKey))
            .arg(entry.row)
            .arg(entry.after));
    if (rows.Eof()) return std::nullopt;
    const qint64 row = rows.Fields(0).Text().toLongLong();
    return EntryWith(db, *entry.object, rows.Fields(1).Text().toLongLong(),
                     [=](const Entry& each) { return each.before == row; });
}

/// Whether the record that was inserted is the one that was deleted, apart from what putting back makes anew
/// and what the history does not follow.
bool IsSameRecord(dao::Database& db, const Entry& inserted, const Entry& deleted) {
    const QByteArray& table = deleted.object->table;
    const Image was = ImagesOf(db, deleted).before, is = ImagesOf(db, inserted).after;
    if (!was || !is) return false;
    const QStringList columns = ColumnsOf(db, table);
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const bool anew = schema::FindKept(table)->computed.contains(columns[i].toLatin1()) ||
                          (table == "TB1" && columns[i] == u"H8");
        if (!anew && (*was)[i] != (*is)[i]) return false;
    }
    return true;
}

/// The key may be another record's by now: its next insert has to be one of ours, and of this record.
std::optional<Entry> PutBackAgain(dao::Database& db, const Entry& deleted) {
    auto rows =
        db.ReadEngine(u"select rowid,N,Command from H_%1 where %2Op='I' and rowid>%3 order by rowid limit 1"_s
                          .arg(QString::fromLatin1(deleted.object->table), KeyIs(deleted, deleted.key))
                          .arg(deleted.before));
    if (rows.Eof() || rows.Fields(2).Text() != u"History") return std::nullopt;
    const qint64 row = rows.Fields(0).Text().toLongLong();
    const auto added =
        EntryWith(db, *deleted.object, rows.Fields(1).Text().toLongLong(),
                  [=](const Entry& each) { return each.action == Action::Added && each.after == row; });
    return added && IsSameRecord(db, *added, deleted) ? added : std::nullopt;
}

}  // namespace

Changes::Changes(dao::Database& db, const Entry& chosen) : all_{chosen} {
    if (chosen.action == Action::Deleted) return;
    while (const std::optional<Entry> next =
               Last().action == Action::Deleted ? PutBackAgain(db, Last()) : NextChange(db, Last()))
        all_.push_back(*next);
}

const Entry* Changes::Replacing() const {
    const auto found = std::ranges::find_if(
        all_, [](const Entry& each) { return each.joined || each.action == Action::Deleted; });
    return found == all_.end() ? nullptr : &*found;
}

}  // namespace history
