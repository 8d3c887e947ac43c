// The files beside the program and the password of the one that is locked. Said once, for the program that
// makes them and for the one that opens them.
#pragma once

#include <QString>

namespace schema {

inline constexpr QStringView kDatabaseFile = u"tessik.dat";  ///< all data of the company
inline constexpr QStringView kExportFile = u"excel.dat";     ///< helper of the export, no password
inline constexpr QStringView kPictureFile = u"syspic.dat";   ///< the wallpaper: a picture of any format

inline constexpr QStringView kPassword = u"QXR7305";
inline constexpr QStringView kConnect = u";PWD=QXR7305";  ///< the same as a connect string

// How the database file is locked. Stated wherever it is opened, so that a later release of the engine, with
// other values of its own, reads it too.
inline constexpr int kPageSize = 4096;         ///< bytes
inline constexpr int kKeyIterations = 64'000;  ///< rounds of the key's derivation

}  // namespace schema
