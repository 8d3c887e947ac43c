// What the history calls the tables: one row for each object of the business, with the captions of its
// columns.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace history {

/// Rows of another table that belong to a record and are written by the same commands.
struct Family {
    QByteArray table;
    /// Which of the rows that the command has deleted are the record's; %1 is the record's key as an
    /// expression.
    QString condition;
    bool prices = false;   ///< shown as a table of prices of its own
    bool cascade = false;  ///< goes with the record where it is deleted, and is not written with it
};

struct Object {
    QByteArray table;
    QString caption;
    QString menu;     ///< the top menu whose right shows the object
    QByteArray name;  ///< column shown behind the key; "" for none
    std::vector<Family> family = {};
    /// What holds the record's key: the tables and columns that the object's form asks before a change of
    /// it, as "B01 where F202".
    QStringList usedIn = {};
};

/// The standard is one row without a key.
bool HasKey(const Object& object);

/// In the order in which they are offered.
const std::vector<Object>& Objects();

struct ColumnCaption {
    QString text;
    bool figure = false;  ///< hidden from an operator who may not see figures
    bool cost = false;    ///< hidden from all but the administrator
};
/// For a column without a caption its own name.
ColumnCaption CaptionOf(const QByteArray& table, const QString& column);

/// What a journal row is called by its LB: 应收款, 应付款, 付款, 收款.
QString JournalCaption(const QString& kind);

}  // namespace history
