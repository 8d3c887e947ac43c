#include "platform/sheet/container.h"

#include "platform/errors.h"
#include "platform/sheet/cells.h"

#include <QByteArrayList>

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile-zip.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-utils.h>

using namespace Qt::StringLiterals;

namespace sheet {
namespace {

Held<GsfInput> Memory(const QByteArray& bytes) {
    static const bool ready = (gsf_init(), true);
    Q_UNUSED(ready);
    return Held<GsfInput>(
        gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.constData()), bytes.size(), FALSE));
}

}  // namespace

Held<GsfInfile> OpenCompound(const QByteArray& bytes) {
    return Held<GsfInfile>(gsf_infile_msole_new(Memory(bytes).get(), nullptr));
}

Held<GsfInfile> OpenZip(const QByteArray& bytes) {
    return Held<GsfInfile>(gsf_infile_zip_new(Memory(bytes).get(), nullptr));
}

std::optional<QByteArray> EntryOf(GsfInfile& container, std::initializer_list<const char*> path) {
    return EntryOf(container, QByteArrayList(path.begin(), path.end()).join('/'));
}

std::optional<QByteArray> EntryOf(GsfInfile& container, const QByteArray& path) {
    const QByteArrayList parts = path.split('/');
    std::vector<const char*> names;
    for (const QByteArray& part : parts) names.push_back(part.constData());
    names.push_back(nullptr);
    const Held<GsfInput> entry(gsf_infile_child_by_aname(&container, names.data()));
    if (!entry) return std::nullopt;
    const gsf_off_t size = gsf_input_size(entry.get());
    if (size < 0) RefuseDamaged();
    if (size > kMostBytes) throw RuntimeError(u"文件太大，无法读取！"_s);
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (size > 0 &&
        !gsf_input_read(entry.get(), static_cast<size_t>(size), reinterpret_cast<guint8*>(bytes.data())))
        RefuseDamaged();
    return bytes;
}

}  // namespace sheet
