// Builds the workbook's records in memory. A record is a kind, a length and a content, all little-endian.
#pragma once

#include <QtEndian>

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace workbook {

using Bytes = std::vector<uchar>;
using ByteSpan = std::span<const uchar>;

/// Appends numbers, each in the size of its type.
template <class... Numbers>
void Put(Bytes& bytes, Numbers... numbers) {
    std::array<uchar, (sizeof(Numbers) + ...)> packed;
    uchar* at = packed.data();
    ((qToLittleEndian(numbers, at), at += sizeof(Numbers)), ...);
    bytes.insert(bytes.end(), packed.begin(), packed.end());
}

/// Appends a record whose content is these numbers.
template <class... Numbers>
void PutRecord(Bytes& bytes, quint16 kind, Numbers... numbers) {
    Put(bytes, kind, static_cast<quint16>((sizeof(Numbers) + ... + 0)), numbers...);
}

inline void PutRecord(Bytes& bytes, quint16 kind, const Bytes& content) {
    Put(bytes, kind, static_cast<quint16>(content.size()));
    bytes.insert(bytes.end(), content.begin(), content.end());
}

/// Overwrites a number that was appended before its value was known.
template <class Number>
void Patch(Bytes& bytes, std::size_t at, Number number) {
    qToLittleEndian(number, bytes.data() + at);
}

}  // namespace workbook
