#include "platform/errors.h"
#include "platform/sheet/cells.h"

#include <QStringDecoder>

#include <algorithm>
#include <memory>
#include <unicode/ucnv.h>

using namespace Qt::StringLiterals;

namespace sheet {
namespace {

constexpr QChar kUnknown(0xFFFD);
constexpr int kMostLines = 30;  // of a cell between quotes

QString FromGb18030(const QByteArray& bytes) {
    struct Close {
        void operator()(UConverter* converter) const { ucnv_close(converter); }
    };
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, Close> converter(ucnv_open("gb18030", &error));
    if (U_FAILURE(error)) throw RuntimeError(u"无法转换文件的编码！"_s);
    QString text(bytes.size() + 1, Qt::Uninitialized);  // never more units than bytes
    const int32_t length = ucnv_toUChars(converter.get(), reinterpret_cast<UChar*>(text.data()),
                                         static_cast<int32_t>(text.size()), bytes.constData(),
                                         static_cast<int32_t>(bytes.size()), &error);
    if (U_FAILURE(error)) throw RuntimeError(u"无法转换文件的编码！"_s);
    text.truncate(length);
    return text;
}

QString TextOf(const QByteArray& bytes) {
    if (const auto encoding = QStringConverter::encodingForData(bytes);
        encoding && *encoding != QStringConverter::Utf8)
        return QStringDecoder(*encoding).decode(bytes);
    QStringDecoder utf8(QStringConverter::Utf8);
    QString text = utf8.decode(bytes);
    return utf8.hasError() ? FromGb18030(bytes) : text;
}

/// The one that the first line with any of them holds most often outside of quotes.
QChar DelimiterOf(const QString& text) {
    constexpr char16_t choices[] = {u',', u';', u'\t'};
    int counts[] = {0, 0, 0};
    bool quoted = false;
    for (const QChar c : text) {
        if (c == u'"') quoted = !quoted;
        if (quoted) continue;
        const auto* const found = std::ranges::find(choices, c.unicode());
        if (found != std::end(choices)) ++counts[found - choices];
        if (c == u'\n' && std::ranges::any_of(counts, [](int count) { return count > 0; })) break;
    }
    return QChar(choices[std::ranges::max_element(counts) - counts]);
}

class Lines {
  public:
    Lines(const QString& text, QChar delimiter, Cells& cells)
        : text_(text), delimiter_(delimiter), cells_(cells) {}

    void Read() {
        while (at_ < text_.size()) ReadCell();
    }

  private:
    void ReadCell() {
        QString cell;
        const qsizetype start = at_;
        if (text_[at_] == u'"') {
            cell = Quoted();
        } else if (QStringView(text_).mid(at_).startsWith(u"=\"")) {  // a number that is kept as text
            ++at_;
            cell = Quoted();
        }
        const bool quoted = at_ > start;
        qsizetype end = at_;
        while (end < text_.size() && text_[end] != delimiter_ && text_[end] != u'\n' && text_[end] != u'\r')
            ++end;
        const QStringView rest = QStringView(text_).mid(at_, end - at_);
        if (quoted && !rest.trimmed().isEmpty()) cells_.Report(row_, column_, u"引号之后还有文字");
        // A quote that is missing somewhere makes one cell of many lines.
        if (cell.count(u'\n') > kMostLines) cells_.Report(row_, column_, u"一个单元格里有太多行");
        cell += rest;
        at_ = end;
        if (cell.contains(kUnknown)) cells_.Report(row_, column_, u"有无法识别的字符"_s);
        cells_.Put(row_, column_, cell);
        ++column_;
        Next();
    }

    QString Quoted() {
        QString cell;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] != u'"') {
                cell += text_[at_];
            } else if (at_ + 1 < text_.size() && text_[at_ + 1] == u'"') {
                cell += text_[at_++];
            } else {
                ++at_;
                return cell;
            }
        }
        cells_.Report(row_, column_, u"引号没有结束"_s);
        return cell;
    }

    /// Over the delimiter or the end of the line.
    void Next() {
        if (at_ >= text_.size()) return;
        const QChar c = text_[at_++];
        if (c == delimiter_) return;
        if (c == u'\r' && at_ < text_.size() && text_[at_] == u'\n') ++at_;
        ++row_;
        column_ = 0;
    }

    const QString& text_;
    const QChar delimiter_;
    Cells& cells_;
    qsizetype at_ = 0;
    int row_ = 0;
    int column_ = 0;
};

}  // namespace

void ReadCsv(const QByteArray& bytes, Cells& cells) {
    const QString text = TextOf(bytes);
    if (text.contains(QChar(0))) RefuseDamaged();
    Lines(text, DelimiterOf(text), cells).Read();
}

}  // namespace sheet
