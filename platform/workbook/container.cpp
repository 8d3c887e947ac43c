#include "platform/workbook/container.h"

#include "platform/errors.h"
#include "platform/system/new_file.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace workbook {
namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

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
    const Held<GsfOutput> packed = Packed(stream, opener, parts);
    auto* memory = GSF_OUTPUT_MEMORY(packed.get());
    sys::WriteNew(
        path, {gsf_output_memory_get_bytes(memory), static_cast<qsizetype>(gsf_output_size(packed.get()))});
}

}  // namespace workbook
