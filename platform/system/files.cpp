#include "platform/system/files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

constexpr QLatin1StringView kEngineFiles[] = {"-journal"_L1, "-wal"_L1, "-shm"_L1};

}  // namespace

bool IsThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString ReplaceFile(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData(), error);
    return error ? QString::fromStdString(error.message()) : QString();
}

void KeepToOwner(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat found;
    if (::stat(name.constData(), &found) != 0) return;
    const mode_t owners = found.st_mode & 07777 & ~(S_IRWXG | S_IRWXO);
    // By its name: a descriptor that is opened and closed again would drop the engine's locks on the file.
    if (owners != (found.st_mode & 07777)) static_cast<void>(::chmod(name.constData(), owners));
}

void KeepDatabaseToOwner(const QString& database) {
    // The engine puts its files beside the file itself, not beside a link to it.
    const QString real = QFileInfo(database).canonicalFilePath();
    KeepToOwner(real);
    for (const QLatin1StringView side : kEngineFiles) KeepToOwner(real + side);
}

bool CreateForOwner(const QString& path) {
    const int file =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    return file >= 0 && ::close(file) == 0;
}

bool CopyWhole(const QString& from, const QString& to) {
    QFile source(from);
    QSaveFile target(to);
    // Unbuffered: what fails when a buffer is emptied at the end is not reported.
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    target.setPermissions(QFile::ReadOwner | QFile::WriteOwner);  // a stick knows no rights, and refuses
    while (!source.atEnd()) {
        const QByteArray block = source.read(1 << 20);
        if (block.isEmpty() || target.write(block) != block.size()) return false;
    }
    return source.error() == QFileDevice::NoError && target.commit();
}

void RemoveEngineFiles(const QString& database) {
    for (const QLatin1StringView side : kEngineFiles) QFile::remove(database + side);
}

}  // namespace sys
