// Files under their names, where the toolkit's own calls do less than a data file needs.
#pragma once

#include <QByteArray>
#include <QString>

namespace sys {

/// Whether the name is taken, by a link that leads nowhere too.
bool IsThere(const QString& path);
/// Puts a file in the place of another in one step. Gives the system's words where that fails, and then
/// nothing has changed; "" else.
QString ReplaceFile(const QString& from, const QString& to);
/// Takes all rights to a file from everybody but its owner. A file of somebody else stays as it is.
void KeepToOwner(const QString& path);
/// The same for a database and for what the engine keeps beside it.
void KeepDatabaseToOwner(const QString& database);
/// Makes an empty file that its owner alone may read and write. False if the name is taken or the folder
/// refuses.
bool CreateForOwner(const QString& path);
/// What is behind the name of a file that is being written or copied. A process that is killed leaves one.
inline constexpr QLatin1StringView kBegun{".copying"};
/// Copies a whole file; an existing target is replaced in one step, and only when the copy is on the disk.
/// The copy can be read by its owner alone, where the file system knows rights. Gives the system's words
/// where anything fails, and then nothing has changed; "" else.
QString CopyWhole(const QString& from, const QString& to);
/// The same for a file that holds these bytes.
QString WriteWhole(const QString& path, const QByteArray& bytes);
/// Removes what the database engine keeps beside a file that it has open. Nobody may have it open.
void RemoveEngineFiles(const QString& database);

}  // namespace sys
