#include "platform/workbook/workbook.h"

#include "platform/workbook/code_page.h"
#include "platform/workbook/container.h"
#include "platform/workbook/parts.h"
#include "platform/workbook/shared_strings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace workbook {
namespace {

constexpr quint16 kLabel = 0x0204;        // a cell that contains its text
constexpr quint16 kSharedLabel = 0x00FD;  // a cell that refers to the table of texts
constexpr std::size_t kLabelHead = 12;    // bytes before the text of a kLabel record

constexpr std::size_t kReserve = 1 << 22;  // bytes reserved, enough for a large list

constexpr ClassId kOpenerOf8{0x20, 0x08, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};
constexpr ClassId kOpenerOf5{0x10, 0x08, 0x02, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};

QString Words(DoesNotFit::Reason reason, int row) {
    return reason == DoesNotFit::Reason::TooManyRows ? u"工作表容纳不下第 %1 行！"_s.arg(row + 1)
                                                     : u"工作表第 %1 行的文字太长！"_s.arg(row + 1);
}

}  // namespace

int MostRows(Format format) {
    return format == Format::Biff8 ? 65'536 : 16'384;
}

int LongestText(Format format) {
    return format == Format::Biff8 ? 32'767 : 255;
}

DoesNotFit::DoesNotFit(Reason why, int atRow, int atColumn)
    : RuntimeError(Words(why, atRow)), reason(why), row(atRow), column(atColumn) {
}

struct Writer::State {
    Format format;
    QString sheet;
    SharedStrings texts;  ///< only in the 8.0 format
    Bytes cells;
    int rows = 0;
    int columns = 0;  ///< the columns of the widest row
    int column = 0;   ///< the column of the next cell

    [[noreturn]] void Refuse(DoesNotFit::Reason reason) const {
        throw DoesNotFit(reason, reason == DoesNotFit::Reason::TooManyRows ? rows : rows - 1, column);
    }
    quint16 Row() const { return static_cast<quint16>(rows - 1); }

    void PutShared(const QString& text) {
        if (text.size() > LongestText(format)) Refuse(DoesNotFit::Reason::TextTooLong);
        PutRecord(cells, kSharedLabel, Row(), static_cast<quint16>(column), kTextCell, texts.Use(text));
    }

    void PutOwn(const QString& text) {
        const std::size_t begin = cells.size();
        PutRecord(cells, kLabel, Row(), static_cast<quint16>(column), kTextCell, quint16(0));
        PutInCodePage(cells, text);
        const std::size_t length = cells.size() - begin - kLabelHead;
        if (length > static_cast<std::size_t>(LongestText(format))) Refuse(DoesNotFit::Reason::TextTooLong);
        Patch(cells, begin + 2, static_cast<quint16>(length + kLabelHead - 4));
        Patch(cells, begin + kLabelHead - 2, static_cast<quint16>(length));
    }
};

Writer::Writer(Format format, const QString& sheet)
    : state_(std::make_unique<State>(State{.format = format, .sheet = sheet})) {
    state_->cells.reserve(kReserve);
}

Writer::~Writer() = default;

void Writer::NextRow() {
    State& s = *state_;
    s.column = 0;
    if (s.rows == MostRows(s.format)) s.Refuse(DoesNotFit::Reason::TooManyRows);
    ++s.rows;
}

void Writer::Add(const QString& text) {
    State& s = *state_;
    if (!text.isEmpty() || s.column == 0) s.format == Format::Biff8 ? s.PutShared(text) : s.PutOwn(text);
    s.columns = std::max(s.columns, ++s.column);
}

void Writer::Save(const QString& path) {
    State& s = *state_;
    const bool eight = s.format == Format::Biff8;
    const Bytes book = BookRecords(s.format, s.sheet, eight ? ByteSpan(s.texts.Finish()) : ByteSpan());
    const Bytes begin = SheetBegin(s.format, s.rows, s.columns);
    const Bytes end = SheetEnd(s.format);
    WriteContainer(path, eight ? "Workbook" : "Book", eight ? kOpenerOf8 : kOpenerOf5,
                   {book, begin, s.cells, end});
}

}  // namespace workbook
