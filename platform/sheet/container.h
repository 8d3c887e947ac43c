// The containers that workbooks lie in, opened by libgsf from bytes in memory.
#pragma once

#include <QByteArray>
#include <QHash>

#include <gsf/gsf-infile.h>
#include <gsf/gsf-input.h>
#include <memory>
#include <optional>
#include <vector>

namespace sheet {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

/// Null for one that is damaged. The bytes have to outlive it.
Held<GsfInfile> OpenCompound(const QByteArray& bytes);

/// The whole entry; nullopt where it is not there. Raises RuntimeError for one that is damaged or too large.
std::optional<QByteArray> EntryOf(GsfInfile& container, std::vector<const char*> names);

/// A zip, whose entries are checked against their sums, which libgsf does not ask for.
class Zip {
  public:
    /// Raises RuntimeError for one that is damaged. The bytes have to outlive it.
    explicit Zip(const QByteArray& bytes);
    /// As EntryOf; the path is parted by "/".
    std::optional<QByteArray> Entry(const QByteArray& path) const;

  private:
    Held<GsfInfile> zip_;
    QHash<QByteArray, quint32> sums_;  ///< by the paths
};

}  // namespace sheet
