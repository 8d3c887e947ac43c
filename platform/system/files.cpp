#include "platform/system/files.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

constexpr QLatin1StringView kEngineFiles[] = {"-journal"_L1, "-wal"_L1, "-shm"_L1};
constexpr std::size_t kBlock = 1 << 20;  // bytes

struct Failed {
    QString words;
};

/// The system's words for what it has just refused.
[[noreturn]] void Fail() {
    throw Failed{QString::fromStdString(std::generic_category().message(errno))};
}

/// An open file of the operating system.
class Descriptor {
  public:
    Descriptor(const QString& path, int flags)
        : number_(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, 0600)) {
        if (number_ < 0) Fail();
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number_; }
    /// Some file systems say only here that they could not keep what was written.
    void Close() {
        if (::close(std::exchange(number_, -1)) != 0) Fail();
    }

  private:
    int number_;
};

/// Bytes read; 0 at the end.
std::size_t ReadBlock(const Descriptor& file, std::vector<char>& block) {
    for (;;) {
        const ssize_t count = ::read(file.Number(), block.data(), block.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) Fail();
    }
}

void WriteAll(const Descriptor& file, const char* bytes, std::size_t left) {
    while (left > 0) {
        const ssize_t count = ::write(file.Number(), bytes, left);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) Fail();
        bytes += count;
        left -= static_cast<std::size_t>(count);
    }
}

/// A new name is on the disk only when its folder is.
void FlushFolderOf(const QString& path) {
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int file = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    ::fsync(file);
    ::close(file);
}

/// Makes a file beside its name and gives it the name when all of it is on the disk.
QString MakeWhole(const QString& path, const std::function<void(const Descriptor& file)>& write) {
    const QString begun = path + kBegun;
    QFile::remove(begun);
    try {
        Descriptor file(begun, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
        write(file);
        // A file system that cannot say so refuses with EINVAL.
        if (::fsync(file.Number()) != 0 && errno != EINVAL) Fail();
        file.Close();
        const QString words = ReplaceFile(begun, path);
        if (!words.isEmpty()) throw Failed{words};
    } catch (const Failed& failed) {
        QFile::remove(begun);
        return failed.words;
    }
    return {};
}

}  // namespace

bool IsThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

QString ReplaceFile(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData(), error);
    if (error) return QString::fromStdString(error.message());
    FlushFolderOf(to);
    return {};
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

QString CopyWhole(const QString& from, const QString& to) {
    return MakeWhole(to, [&](const Descriptor& copy) {
        const Descriptor original(from, O_RDONLY);
        std::vector<char> block(kBlock);
        while (const std::size_t count = ReadBlock(original, block)) WriteAll(copy, block.data(), count);
    });
}

QString WriteWhole(const QString& path, const QByteArray& bytes) {
    return MakeWhole(path, [&](const Descriptor& file) {
        WriteAll(file, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    });
}

void RemoveEngineFiles(const QString& database) {
    for (const QLatin1StringView side : kEngineFiles) QFile::remove(database + side);
}

}  // namespace sys
