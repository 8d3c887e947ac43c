#include "platform/system/files.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>

using namespace Qt::StringLiterals;

namespace sys {

bool IsThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString TakePlace(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData(), error);
    return error ? QString::fromStdString(error.message()) : QString();
}

void RemoveEngineFiles(const QString& database) {
    for (const QString& side : {u"-journal"_s, u"-wal"_s, u"-shm"_s}) QFile::remove(database + side);
}

}  // namespace sys
