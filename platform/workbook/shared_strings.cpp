#include "platform/workbook/shared_strings.h"

#include <algorithm>

namespace workbook {
namespace {

constexpr quint16 kTable = 0x00FC;
constexpr quint16 kContinue = 0x003C;
constexpr std::size_t kRecordHead = 4;
constexpr std::size_t kLongestRecord = 8224;
constexpr std::size_t kTextHead = 3;
constexpr uchar kWide = 1;  // option: two bytes a character

bool IsWide(QStringView text) {
    char16_t all = 0;
    for (const QChar c : text) all |= c.unicode();
    return all > 0xFF;
}

/// Half of a pair becomes the character that stands for what cannot be read; a reader would refuse the file.
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
    const auto found = numbers_.constFind(text);
    if (found != numbers_.constEnd()) return *found;
    const auto number = static_cast<quint32>(numbers_.size());
    numbers_.insert(text, number);
    Append(Whole(text));
    return number;
}

const Bytes& SharedStrings::Finish() {
    CloseRecord();
    Patch(bytes_, kRecordHead, uses_);
    Patch(bytes_, kRecordHead + sizeof uses_, static_cast<quint32>(numbers_.size()));
    return bytes_;
}

std::size_t SharedStrings::Room() const {
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
    const std::size_t least = kTextHead + (text.isEmpty() ? 0 : wide ? 4 : 1);  // a pair of halves fits
    if (Room() < least) {
        CloseRecord();
        StartRecord(kContinue);
    }
    Put(bytes_, static_cast<quint16>(text.size()), wide ? kWide : uchar(0));
    for (;;) {
        auto fits = std::min<qsizetype>(text.size(), static_cast<qsizetype>(Room() / (wide ? 2 : 1)));
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
