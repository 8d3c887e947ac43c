#include "platform/system/new_file.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace sys {
namespace {

/// Why it failed, as the operator says it.
QString Words(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return u"磁盘空间不足"_s;
        case EACCES:
        case EPERM:
        case EROFS:
            return u"没有在该文件夹中写入的权限"_s;
        case ENOENT:
        case ENOTDIR:
            return u"文件夹不存在"_s;
        case EEXIST:
            return u"文件已经存在，不能覆盖"_s;
        case ENAMETOOLONG:
            return u"文件名太长"_s;
        default:
            return qt_error_string(error);
    }
}

WriteError::Cause CauseOf(int error) {
    using enum WriteError::Cause;
    return error == EEXIST ? NameTaken : error == ENAMETOOLONG ? NameTooLong : Other;
}

/// A name of its own in a folder that other machines write to as well, where a process number says little.
QByteArray TemporaryIn(const QString& folder) {
    const quint64 random = QRandomGenerator::system()->generate64();
    return QFile::encodeName(folder +
                             u"/.writing-%1-%2.tmp"_s.arg(::getpid()).arg(random, 16, 16, QChar(u'0')));
}

/// A file that is not there under its own name yet, and never will be unless it was placed.
class Begun {
  public:
    explicit Begun(const QString& path)
        : path_(path), target_(QFile::encodeName(path)), temporary_(TemporaryIn(QFileInfo(path).path())) {
        file_ = ::open(temporary_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (file_ < 0) Fail();
    }
    ~Begun() {
        if (file_ < 0) return;
        ::close(file_);
        ::unlink(temporary_.constData());
    }
    Begun(const Begun&) = delete;
    Begun& operator=(const Begun&) = delete;

    void Write(QByteArrayView bytes) {
        while (!bytes.isEmpty()) {
            const ssize_t written = ::write(file_, bytes.data(), static_cast<std::size_t>(bytes.size()));
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) Fail();
            bytes = bytes.sliced(written);
        }
    }

    void Place() {
        // Some media know no syncing; that is no reason to refuse them.
        if (::fsync(file_) != 0 && errno != EINVAL && errno != ENOTSUP) Fail();
        if (!Rename()) Fail();
        const int file = std::exchange(file_, -1);
        if (::close(file) == 0) return;
        const int error = errno;
        ::unlink(target_.constData());
        Fail(error);
    }

  private:
    bool Rename() const {
        const char* from = temporary_.constData();
        const char* to = target_.constData();
        if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0) return true;
        if (errno != EINVAL && errno != ENOSYS) return false;
        struct stat there;  // a file system that cannot do both at once
        if (::lstat(to, &there) == 0) {
            errno = EEXIST;
            return false;
        }
        return ::rename(from, to) == 0;
    }
    [[noreturn]] void Fail(int error = errno) const {
        throw WriteError(u"无法写入“%1”：%2！"_s.arg(path_, Words(error)), CauseOf(error));
    }

    QString path_;
    QByteArray target_;
    QByteArray temporary_;
    int file_ = -1;
};

}  // namespace

void WriteNew(const QString& path, QByteArrayView bytes) {
    Begun file(path);
    file.Write(bytes);
    file.Place();
}

QString FileNameOf(QString text, QChar instead) {
    for (QChar& c : text)
        if (c.category() == QChar::Other_Control || u"/\\:*?\"<>|"_s.contains(c)) c = instead;
    return text;
}

}  // namespace sys
