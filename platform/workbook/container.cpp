#include "platform/workbook/container.h"

#include "platform/errors.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace workbook {
namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

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

/// A file that is not there under its own name yet, and never will be unless it was placed.
class Begun {
  public:
    explicit Begun(const QString& path)
        : path_(path),
          target_(QFile::encodeName(path)),
          temporary_(QFile::encodeName(QFileInfo(path).path() + u"/.workbook-%1.tmp"_s.arg(::getpid()))) {
        ::unlink(temporary_.constData());  // of a process of that number that was killed
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

    void Write(ByteSpan bytes) {
        while (!bytes.empty()) {
            const ssize_t written = ::write(file_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written <= 0) Fail();
            bytes = bytes.subspan(static_cast<std::size_t>(written));
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
        throw RuntimeError(u"无法写入“%1”：%2！"_s.arg(path_, Words(error)));
    }

    QString path_;
    QByteArray target_;
    QByteArray temporary_;
    int file_ = -1;
};

Held<GsfOutput> Packed(const char* name, const ClassId& opener, std::initializer_list<ByteSpan> parts) {
    static const bool ready = (gsf_init(), true);
    Q_UNUSED(ready);
    Held<GsfOutput> memory(gsf_output_memory_new());
    const Held<GsfOutfile> container(gsf_outfile_msole_new(memory.get()));
    gsf_outfile_msole_set_class_id(GSF_OUTFILE_MSOLE(container.get()), opener.data());
    const Held<GsfOutput> stream(gsf_outfile_new_child(container.get(), name, FALSE));
    bool whole = stream != nullptr;
    for (const ByteSpan part : parts)
        whole = whole && gsf_output_write(stream.get(), part.size(), part.data());
    whole = whole && gsf_output_close(stream.get());
    whole = gsf_output_close(GSF_OUTPUT(container.get())) && whole;
    if (!whole) throw RuntimeError(u"无法生成工作簿！"_s);
    return memory;
}

}  // namespace

void WriteContainer(const QString& path, const char* stream, const ClassId& opener,
                    std::initializer_list<ByteSpan> parts) {
    Begun file(path);
    const Held<GsfOutput> packed = Packed(stream, opener, parts);
    auto* memory = GSF_OUTPUT_MEMORY(packed.get());
    file.Write(
        {gsf_output_memory_get_bytes(memory), static_cast<std::size_t>(gsf_output_size(packed.get()))});
    file.Place();
}

}  // namespace workbook
