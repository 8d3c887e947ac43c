// The containers that workbooks lie in, opened by libgsf from bytes in memory.
#pragma once

#include <QByteArray>

#include <gsf/gsf-infile.h>
#include <gsf/gsf-input.h>
#include <initializer_list>
#include <memory>
#include <optional>

namespace sheet {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

/// Null for one that is damaged. The bytes have to outlive it.
Held<GsfInfile> OpenCompound(const QByteArray& bytes);
Held<GsfInfile> OpenZip(const QByteArray& bytes);

/// The whole entry; nullopt where it is not there. Raises RuntimeError for one that is damaged or too large.
std::optional<QByteArray> EntryOf(GsfInfile& container, std::initializer_list<const char*> path);
std::optional<QByteArray> EntryOf(GsfInfile& container, const QByteArray& path);  ///< parted by "/"

}  // namespace sheet
