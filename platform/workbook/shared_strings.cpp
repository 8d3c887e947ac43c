#include "platform/workbook/shared_strings.h"

#include <algorithm>

namespace workbook {
namespace {

constexpr quint16 kTable = 0x00FC;
constexpr quint16 kContinue = 0x003C;
constexpr std::size_t kRecordHead = 4;
constexpr std::size_t kLongestRecord = 8224;
constexpr std::size_t kTextHead = 3;
constexpr uchar kWide = 1;  // option: two bytes per character

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

SharedStrings::SharedStrings() {
    StartRecord(kTable);
    Put(bytes_, quint32(0), quint32(0));
}

quint32 SharedStrings::Use(const QString& text) {
    ++uses_;
    // Equal texts of a grid often share their data, which the table then holds too.
    Seen& seen = lately_[reinterpret_cast<quintptr>(text.constData()) / 16 % lately_.size()];
    if (seen.data == text.constData() && seen.size == text.size()) return seen.number;
    auto found = numbers_.constFind(text);
    if (found == numbers_.cend()) {
        Append(Whole(text));
        found = numbers_.insert(text, static_cast<quint32>(numbers_.size()));
    }
    seen = {found.key().constData(), found.key().size(), found.value()};
    return seen.number;
}

const Bytes& SharedStrings::Finish() {
    CloseRecord();
    Patch(bytes_, kRecordHead, uses_);
    Patch(bytes_, kRecordHead + sizeof uses_, static_cast<quint32>(numbers_.size()));
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
