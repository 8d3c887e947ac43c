// The entries of the history: what a command has done to one record, with the record as it was before and
// after. Read from the mirrors (schema/history.h); nothing here writes.
//
// Always holds: a null value is a null QString, an empty text an empty one. What is asked of a database
// raises DatabaseError.
#pragma once

#include "history/objects.h"
#include "platform/dao/database.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace history {

enum class Action { Added, Changed, Deleted, Released };
QString WordOf(Action action);

/// The operator where no command of ours has written.
inline const QString OtherProgram = QStringLiteral("其他程序");

struct Entry {
    const Object* object = nullptr;
    qint64 group = 0;  ///< number of the command's commit group
    QString at, operatorName, command;
    Action action = Action::Added;
    QString key;      ///< of the record; before the command where there was one
    QString name;     ///< behind the key; "" where it is not known
    QString caption;  ///< the object's, of a journal row by its kind
    QString summary;
    QStringList parties;  ///< customer codes of a waybill, counterparties of a journal row, before and after
    qint64 before = 0;    ///< row of the mirror with the record as it was; 0 for a new one
    qint64 after = 0;     ///< row of the mirror from which on the record is as it is after; 0 for none
    qint64 row = 0;       ///< row number of the record after the command
    bool joined = false;  ///< changed by a delete and an insert, and not in place
    QString afterKey;
};

struct Search {
    const Object* object = nullptr;  ///< null for all that `menus` shows
    QStringList menus;               ///< top menus that the operator may use
    QString operatorName;            ///< "" for all
    QDate from, to;
    /// Part of the number or name, of a waybill's customer, of a counterparty; "" for all.
    QString text;
};

constexpr int MostEntries = 1000;

/// The newest first, at most MostEntries. `cut` becomes whether older ones may be left out.
std::vector<Entry> Find(dao::Database& db, const Search& search, bool* cut = nullptr);
/// What one command did, all objects.
std::vector<Entry> OfGroup(dao::Database& db, qint64 group);
/// What it did to one object, without summaries.
std::vector<Entry> ChangesOf(dao::Database& db, const Object& object, qint64 group);

/// The columns that the mirror of a table has of it.
QStringList ColumnsOf(dao::Database& db, const QByteArray& table);

/// Values in the order of the columns; nothing where there was no record.
using Image = std::optional<QStringList>;
struct Images {
    Image before, after;
};
Images ImagesOf(dao::Database& db, const Entry& entry);

/// The condition for the entry's row of the mirror with the record as it was. The mirrors of an emptied table
/// begin again, so that the row of a list from before can be another command's.
QString RowBefore(const Entry& entry);

/// A row of the record's family before and after, joined by its key.
struct FamilyRow {
    QString key;  ///< of the row within the record
    Image before, after;
    /// Apart from the record's key, the first column.
    bool Changed() const { return !before || !after || before->mid(1) != after->mid(1); }
};
std::vector<FamilyRow> FamilyOf(dao::Database& db, const Entry& entry, const Family& family);

/// The rows of a mirror that a group has written: from the first, to before the end.
struct Range {
    qint64 first = 0, end = 0;
    QString Condition() const { return QStringLiteral("rowid>=%1 and rowid<%2").arg(first).arg(end); }
};
Range RowsOfGroup(dao::Database& db, const QByteArray& table, qint64 group);

/// The first field of the first row as a whole number; 0 where there is no row.
qint64 WholeOf(dao::Database& db, const QString& select);
/// Whether there is a row; `from` is what follows "from".
bool IsThere(dao::Database& db, const QString& from);

/// A text as a literal of the engine.
QString Literal(const QString& text);
/// The keys of a waybill's journal rows as a list of literals.
QString PostingKeys(const QString& waybill);
/// Whether a column is one that an operator looks at, and not kept by the journal for itself.
bool Shown(const QByteArray& table, const QString& column);

}  // namespace history
