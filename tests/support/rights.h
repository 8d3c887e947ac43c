// Who may read a file: its permission bits, as 0600.
#pragma once

#include <QFile>
#include <QString>

#include <sys/stat.h>

namespace tests {

/// -1 if there is no such file.
inline int RightsOf(const QString& path) {
    struct stat found;
    return ::stat(QFile::encodeName(path).constData(), &found) == 0 ? static_cast<int>(found.st_mode & 07777)
                                                                    : -1;
}

/// Opens a file to everybody, as an earlier release or a careless copy has left it.
inline void OpenToAll(const QString& path) {
    ::chmod(QFile::encodeName(path).constData(), 0666);
}

}  // namespace tests
