// Files under their names, where the toolkit's own calls do less than a data file needs.
#pragma once

#include <QString>

namespace sys {

/// Whether the name is taken, by a link that leads nowhere too.
bool IsThere(const QString& path);
/// Puts a file in the place of another in one step. Gives the system's words where that fails, and then
/// nothing has changed; "" else.
QString TakePlace(const QString& from, const QString& to);
/// Removes what the database engine keeps beside a file that it has open. Nobody may have it open.
void RemoveEngineFiles(const QString& database);

}  // namespace sys
