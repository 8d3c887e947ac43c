#include "platform/sheet/container.h"

#include "platform/errors.h"
#include "platform/sheet/cells.h"

#include <QByteArrayList>
#include <QtEndian>

#include <array>
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

/// The check sum of zip files, CRC-32.
quint32 SumOf(const QByteArray& bytes) {
    static const std::array<quint32, 256> table = [] {
        std::array<quint32, 256> made{};
        for (quint32 i = 0; i < made.size(); ++i) {
            quint32 value = i;
            for (int bit = 0; bit < 8; ++bit)
                value = (value & 1) != 0 ? value >> 1 ^ 0xEDB88320U : value >> 1;
            made[i] = value;
        }
        return made;
    }();
    quint32 sum = 0xFFFFFFFFU;
    for (const char c : bytes) sum = table[(sum ^ static_cast<quint8>(c)) & 0xFF] ^ sum >> 8;
    return ~sum;
}

/// What the directory at the end of a zip says. Entries that it does not reach are not checked.
QHash<QByteArray, quint32> SumsOf(const QByteArray& bytes) {
    constexpr qsizetype endLength = 22, headLength = 46;
    QHash<QByteArray, quint32> sums;
    const auto number = [&]<class Number>(qsizetype at, Number) {
        return qFromLittleEndian<Number>(bytes.constData() + at);
    };
    const qsizetype end = bytes.lastIndexOf("PK\5\6");
    if (end < 0 || end + endLength > bytes.size()) return sums;
    qsizetype at = number(end + 16, quint32());
    while (at + headLength <= bytes.size() && bytes.mid(at, 4) == "PK\1\2") {
        const qsizetype name = number(at + 28, quint16());
        sums[bytes.mid(at + headLength, name)] = number(at + 16, quint32());
        at += headLength + name + number(at + 30, quint16()) + number(at + 32, quint16());
    }
    return sums;
}

}  // namespace

Held<GsfInfile> OpenCompound(const QByteArray& bytes) {
    return Held<GsfInfile>(gsf_infile_msole_new(Memory(bytes).get(), nullptr));
}

std::optional<QByteArray> EntryOf(GsfInfile& container, std::vector<const char*> names) {
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

Zip::Zip(const QByteArray& bytes)
    : zip_(gsf_infile_zip_new(Memory(bytes).get(), nullptr)), sums_(SumsOf(bytes)) {
    if (!zip_) RefuseDamaged();
}

std::optional<QByteArray> Zip::Entry(const QByteArray& path) const {
    const QByteArrayList parts = path.split('/');
    auto bytes = EntryOf(*zip_, std::vector<const char*>(parts.begin(), parts.end()));
    const auto sum = sums_.find(path);
    if (bytes && sum != sums_.end() && *sum != SumOf(*bytes)) RefuseDamaged();
    return bytes;
}

}  // namespace sheet
