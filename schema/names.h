// The files beside the program and the password of the one that is locked. Said once, for the program that
// makes them and for the one that opens them.
#pragma once

#include <QString>

namespace schema {

inline constexpr QStringView kDatabaseFile = u"tessik.dat";  ///< all data of the company
inline constexpr QStringView kExportFile = u"excel.dat";     ///< helper of the export, no password
inline constexpr QStringView kPictureFile = u"syspic.dat";   ///< the wallpaper: a picture of any format

/// In the names of the copies that are kept of the first before it is replaced or upgraded, and how many.
inline constexpr QStringView kKeptLabel = u"更改前";
inline constexpr int kMostKept = 10;

inline constexpr QStringView kConnect = u";PWD=QXR7305";  ///< opens the locked one
inline constexpr QStringView kPassword = kConnect.sliced(QStringView(u";PWD=").size());

}  // namespace schema
