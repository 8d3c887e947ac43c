#include "platform/report/cff.h"

#include <stdexcept>

namespace report {
namespace {

// Operators of a dictionary; those of two bytes begin with 12.
constexpr int kEscape = 12, kCharset = 15, kRos = 12 << 8 | 30;

/// Reads numbers from a table; raises std::out_of_range behind its end.
class Bytes {
  public:
    Bytes(const QByteArray& bytes, size_t at) : bytes_(bytes), at_(at) {}
    size_t At() const { return at_; }
    void Skip(size_t count) { at_ += count; }
    unsigned Take(int size) {
        unsigned number = 0;
        for (; size > 0; --size) {
            if (at_ >= static_cast<size_t>(bytes_.size())) throw std::out_of_range("CFF");
            number = number << 8 | static_cast<unsigned char>(bytes_[static_cast<qsizetype>(at_++)]);
        }
        return number;
    }

  private:
    const QByteArray& bytes_;
    size_t at_;
};

struct Index {
    size_t first, end;  ///< of the first entry; behind all of them
    size_t firstEnd;
};

Index ReadIndex(const QByteArray& cff, size_t at) {
    Bytes bytes(cff, at);
    const unsigned count = bytes.Take(2);
    if (count == 0) return {at + 2, at + 2, at + 2};
    const int size = static_cast<int>(bytes.Take(1));
    if (size < 1 || size > 4) throw std::out_of_range("CFF");
    const size_t data = bytes.At() + (size_t{count} + 1) * static_cast<size_t>(size) - 1;
    const size_t first = bytes.Take(size), second = bytes.Take(size);
    Bytes last(cff, at + 3 + size_t{count} * static_cast<size_t>(size));
    return {data + first, data + last.Take(size), data + second};
}

struct TopDictionary {
    bool keyed = false;
    size_t charset = 0;
};

TopDictionary ReadDictionary(const QByteArray& cff, size_t from, size_t to) {
    TopDictionary read;
    Bytes bytes(cff, from);
    long operand = 0;
    while (bytes.At() < to) {
        const int b = static_cast<int>(bytes.Take(1));
        if (b <= 21) {
            const int name = b == kEscape ? kEscape << 8 | static_cast<int>(bytes.Take(1)) : b;
            if (name == kRos) read.keyed = true;
            if (name == kCharset) read.charset = static_cast<size_t>(operand);
        } else if (b == 28) {
            operand = bytes.Take(2);
        } else if (b == 29) {
            operand = bytes.Take(4);
        } else if (b == 30) {
            for (unsigned nibbles = bytes.Take(1); (nibbles & 0xF) != 0xF; nibbles = bytes.Take(1)) {
            }
        } else if (b <= 246) {
            operand = b - 139;
        } else {
            operand = (b - 247) * 256 + static_cast<int>(bytes.Take(1)) + 108;
        }
    }
    return read;
}

std::vector<std::uint16_t> ReadCharset(const QByteArray& cff, size_t at, unsigned glyphs) {
    std::vector<std::uint16_t> ids{0};
    Bytes bytes(cff, at);
    const unsigned format = bytes.Take(1);
    while (ids.size() < glyphs) {
        unsigned id = bytes.Take(2);
        unsigned more = format == 0 ? 0 : bytes.Take(format == 1 ? 1 : 2);
        for (++more; more > 0 && ids.size() < glyphs; --more) ids.push_back(static_cast<std::uint16_t>(id++));
    }
    return ids;
}

}  // namespace

std::optional<std::vector<std::uint16_t>> CharacterIds(const QByteArray& cff, unsigned glyphs) {
    try {
        Bytes header(cff, 2);
        const Index names = ReadIndex(cff, header.Take(1));
        const Index dictionaries = ReadIndex(cff, names.end);
        const TopDictionary top = ReadDictionary(cff, dictionaries.first, dictionaries.firstEnd);
        if (!top.keyed || top.charset <= 2)
            return std::nullopt;  // up to 2: charsets that are known by number
        return ReadCharset(cff, top.charset, glyphs);
    } catch (const std::out_of_range&) {
        return std::nullopt;
    }
}

}  // namespace report
