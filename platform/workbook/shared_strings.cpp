#include "platform/workbook/shared_strings.h"

#include <QList>

#include <algorithm>
#include <cstring>

namespace workbook {
namespace {

constexpr quint16 kTable = 0x00FC;
constexpr quint16 kContinue = 0x003C;
constexpr std::size_t kRecordHead = 4;
constexpr std::size_t kLongestRecord = 8224;
constexpr std::size_t kTextHead = 3;
constexpr uchar kWide = 1;  // option: two bytes per character
constexpr std::size_t kFirstSlots = 4096;

/// A hash of the text. Processes eight bytes at a time because a list has hundreds of thousands of texts.
quint32 Mix(QStringView text) {
    constexpr quint64 kOdd = 0x9E3779B97F4A7C15;
    const auto* at = reinterpret_cast<const char*>(text.utf16());
    auto bytes = static_cast<std::size_t>(text.size()) * 2;
    quint64 mix = bytes;
    while (bytes > 0) {
        const std::size_t step = std::min(bytes, sizeof(quint64));
        quint64 word = 0;
        std::memcpy(&word, at, step);
        mix = (mix ^ word) * kOdd;
        mix ^= mix >> 32;
        at += step;
        bytes -= step;
    }
    return static_cast<quint32>(mix);
}

bool IsWide(QStringView text) {
    char16_t all = 0;
    for (const QChar c : text) all |= c.unicode();
    return all > 0xFF;
}

/// Replaces each unpaired surrogate by U+FFFD; a reader would reject the file otherwise.
QString Whole(const QString& text) {
    if (text.isValidUtf16()) return text;
    QString whole;
    for (const uint character : text.toUcs4()) whole += QChar::fromUcs4(character);
    return whole;
}

}  // namespace

SharedStrings::SharedStrings() : slots_(kFirstSlots) {
    StartRecord(kTable);
    Put(bytes_, quint32(0), quint32(0));
}

quint32 SharedStrings::Use(const QString& text) {
    ++uses_;
    // Equal texts of a grid often share their data. The table holds a reference, so the data has not changed.
    quint32& seen = lately_[reinterpret_cast<quintptr>(text.constData()) / 16 % lately_.size()];
    if (seen != 0 && texts_[seen - 1].constData() == text.constData() &&
        texts_[seen - 1].size() == text.size())
        return seen - 1;
    const quint32 number = Find(text);
    seen = number + 1;
    return number;
}

quint32 SharedStrings::Find(const QString& text) {
    const quint32 mix = Mix(text);
    std::size_t at = mix & (slots_.size() - 1);
    for (; slots_[at].text != 0; at = (at + 1) & (slots_.size() - 1))
        if (slots_[at].mix == mix && texts_[slots_[at].text - 1] == text) return slots_[at].text - 1;
    Append(Whole(text));
    texts_.push_back(text);
    const auto count = static_cast<quint32>(texts_.size());
    slots_[at] = {mix, count};
    if (2 * texts_.size() > slots_.size()) Grow();
    return count - 1;
}

void SharedStrings::Grow() {
    std::vector<Slot> grown(4 * slots_.size());
    for (const Slot& slot : slots_) {
        if (slot.text == 0) continue;
        std::size_t at = slot.mix & (grown.size() - 1);
        while (grown[at].text != 0) at = (at + 1) & (grown.size() - 1);
        grown[at] = slot;
    }
    slots_ = std::move(grown);
}

const Bytes& SharedStrings::Finish() {
    CloseRecord();
    Patch(bytes_, kRecordHead, uses_);
    Patch(bytes_, kRecordHead + sizeof uses_, static_cast<quint32>(texts_.size()));
    return bytes_;
}

std::size_t SharedStrings::Remaining() const {
    return kLongestRecord - (bytes_.size() - record_ - kRecordHead);
}

void SharedStrings::StartRecord(quint16 kind) {
    record_ = bytes_.size();
    PutRecord(bytes_, kind);
}

void SharedStrings::CloseRecord() {
    Patch(bytes_, record_ + 2, static_cast<quint16>(bytes_.size() - record_ - kRecordHead));
}

void SharedStrings::Append(QStringView text) {
    const bool wide = IsWide(text);
    const std::size_t least = kTextHead + (text.isEmpty() ? 0 : wide ? 4 : 1);  // a surrogate pair fits
    if (Remaining() < least) {
        CloseRecord();
        StartRecord(kContinue);
    }
    Put(bytes_, static_cast<quint16>(text.size()), wide ? kWide : uchar(0));
    for (;;) {
        auto fits = std::min<qsizetype>(text.size(), static_cast<qsizetype>(Remaining() / (wide ? 2 : 1)));
        if (fits < text.size() && text[fits].isLowSurrogate()) --fits;
        AppendCharacters(text.first(fits), wide);
        text = text.sliced(fits);
        if (text.isEmpty()) return;
        CloseRecord();
        StartRecord(kContinue);
        Put(bytes_, wide ? kWide : uchar(0));
    }
}

void SharedStrings::AppendCharacters(QStringView text, bool wide) {
    const std::size_t begin = bytes_.size();
    const auto count = static_cast<std::size_t>(text.size());
    if (wide) {
        bytes_.resize(begin + 2 * count);
        qToLittleEndian<quint16>(text.utf16(), text.size(), bytes_.data() + begin);
    } else {
        bytes_.resize(begin + count);
        std::ranges::transform(text, bytes_.data() + begin,
                               [](QChar c) { return static_cast<uchar>(c.unicode()); });
    }
}

}  // namespace workbook
