// Looking into a file that nobody has open, such as a copy of the database, without changing it.
#pragma once

#include <QString>
#include <QStringList>

namespace dao {

enum class Depth {
    Quick,  ///< that each page is what it should be
    Whole   ///< that each index has the rows of its table as well; several times as long
};

/// The first field of each of these SELECTs of the engine's own, as text. Opens the file for reading alone,
/// with the password of connect (";PWD=..."), past any log beside it, and makes nothing beside it.
/// Raises DatabaseError for a file that does not open or that a statement fails on.
QStringList ReadFile(const QString& path, const QString& connect, const QStringList& selects);

/// Checks the file, and then reads it. Raises DatabaseError with the engine's words also for a damaged one.
QStringList CheckFile(const QString& path, const QString& connect, Depth depth, const QStringList& selects);

}  // namespace dao
