#include "platform/text/pinyin.h"

#include <memory>
#include <unicode/translit.h>
#include <unicode/unistr.h>

using namespace Qt::StringLiterals;

namespace text {
namespace {

struct Phrase {
    QStringView characters;
    QStringView syllables;
};

/// What both sources read wrong. Without an entry of its own a character has their readings.
constexpr Phrase kPhrases[] = {
    {u"厦门", u"xia men"},  {u"成都", u"cheng du"},   {u"番禺", u"pan yu"},   {u"六安", u"lu an"},
    {u"蚌埠", u"beng bu"},  {u"地区", u"di qu"},      {u"会计", u"kuai ji"},  {u"银行", u"yin hang"},
    {u"行号", u"hang hao"}, {u"调整", u"tiao zheng"}, {u"调价", u"tiao jia"}, {u"还款", u"huan kuan"},
    {u"校验", u"jiao yan"}, {u"校对", u"jiao dui"},
};

/// Reads texts by one of the library's tables.
class Source {
  public:
    explicit Source(const char* table) {
        UErrorCode status = U_ZERO_ERROR;
        table_.reset(icu::Transliterator::createInstance(table, UTRANS_FORWARD, status));
        if (U_FAILURE(status)) table_.reset();  // captions are still found by their characters
    }

    /// One syllable for each character; fewer when the table is missing.
    QStringList Read(const QString& characters) const {
        if (!table_) return {};
        icu::UnicodeString read(reinterpret_cast<const UChar*>(characters.utf16()),
                                static_cast<int32_t>(characters.size()));
        table_->transliterate(read);
        const QString syllables =
            QString::fromUtf16(reinterpret_cast<const char16_t*>(read.getBuffer()), read.length());
        return Plain(syllables).split(u' ', Qt::SkipEmptyParts);
    }

  private:
    /// Without tones; ü as a keyboard has it.
    static QString Plain(const QString& syllables) {
        QString plain;
        for (const QChar c : syllables.normalized(QString::NormalizationForm_D)) {
            if (c == QChar(0x0308) && plain.endsWith(u'u'))
                plain.back() = u'v';
            else if (!c.isMark())
                plain += c.toLower();
        }
        return plain;
    }

    std::unique_ptr<icu::Transliterator> table_;
};

void AddReadings(std::vector<QStringList>& readings, qsizetype from, const QString& characters) {
    static const Source sources[] = {Source("Han-Latin"), Source("Han-Latin/Names")};
    for (const Source& source : sources) {
        const QStringList syllables = source.Read(characters);
        if (syllables.size() != characters.size()) continue;
        for (qsizetype i = 0; i < syllables.size(); ++i) {
            QStringList& known = readings[static_cast<std::size_t>(from + i)];
            if (!known.contains(syllables[i])) known += syllables[i];
        }
    }
}

void CorrectPhrases(std::vector<QStringList>& readings, const QString& text) {
    for (const Phrase& phrase : kPhrases) {
        const auto syllables = phrase.syllables.toString().split(u' ');
        for (qsizetype at = text.indexOf(phrase.characters); at >= 0;
             at = text.indexOf(phrase.characters, at + 1))
            for (qsizetype i = 0; i < syllables.size(); ++i)
                readings[static_cast<std::size_t>(at + i)] = {syllables[i]};
    }
}

bool IsHan(QChar c) {
    return c.script() == QChar::Script_Han && c.isLetter();
}

}  // namespace

std::vector<QStringList> Readings(const QString& text) {
    std::vector<QStringList> readings(static_cast<std::size_t>(text.size()));
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at;
        while (end < text.size() && IsHan(text[end])) ++end;
        if (end > at) AddReadings(readings, at, text.sliced(at, end - at));
        if (end == at && text[at].isLetterOrNumber())
            readings[static_cast<std::size_t>(at)] = {text[at].toLower()};
        at = qMax(end, at + 1);
    }
    CorrectPhrases(readings, text);
    return readings;
}

}  // namespace text
