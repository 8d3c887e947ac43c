#include "platform/workbook/parts.h"

#include "platform/workbook/code_page.h"

using namespace Qt::StringLiterals;

namespace workbook {
namespace {

enum Kind : quint16 {
    kEnd = 0x000A,
    kFont = 0x0031,
    kBookWindow = 0x003D,
    kCodePage = 0x0042,
    kSheet = 0x0085,
    kCellLook = 0x00E0,
    kDimensions = 0x0200,
    kSheetWindow = 0x023E,
    kStyle = 0x0293,
    kBegin = 0x0809
};

constexpr quint16 kBook = 0x0005;
constexpr quint16 kWorksheet = 0x0010;
constexpr quint16 kUnicode = 1200;
constexpr quint16 kChinese = 936;

constexpr int kFonts = 4;        // the number that programs expect
constexpr int kStyleLooks = 15;  // style looks that programs expect before the first cell look

bool IsBiff8(Format format) {
    return format == Format::Biff8;
}

void PutBegin(Bytes& bytes, Format format, quint16 what) {
    if (IsBiff8(format))
        return PutRecord(bytes, kBegin, quint16(0x0600), what, quint16(3515), quint16(1996), quint32(0xC1),
                         quint32(0x0306));
    // A 7.0 file differs from a 5.0 file in the build and the year of the program that writes it.
    const bool seven = format == Format::Biff7;
    PutRecord(bytes, kBegin, quint16(0x0500), what, quint16(seven ? 4323 : 2412),
              quint16(seven ? 1995 : 1993));
}

/// A name of at most 255 characters or bytes, preceded by its length.
void PutName(Bytes& bytes, Format format, const QString& name) {
    if (IsBiff8(format)) {
        Put(bytes, static_cast<uchar>(name.size()), uchar(1));
        for (const QChar c : name) Put(bytes, static_cast<quint16>(c.unicode()));
    } else {
        Bytes coded;
        PutInCodePage(coded, name);
        bytes.push_back(static_cast<uchar>(coded.size()));
        bytes.insert(bytes.end(), coded.begin(), coded.end());
    }
}

void PutFont(Bytes& bytes, Format format) {
    constexpr quint16 kTwelvePoint = 240;
    constexpr quint16 kInkOfSystem = 0x7FFF;
    constexpr quint16 kNormal = 400;
    constexpr uchar kChineseScript = 134;
    Bytes font;
    Put(font, kTwelvePoint, quint16(0), kInkOfSystem, kNormal, quint16(0), uchar(0), uchar(0), kChineseScript,
        uchar(0));
    PutName(font, format, u"宋体"_s);
    PutRecord(bytes, kFont, font);
}

/// `protection` gives the kind of the look and whether its cells are locked.
void PutLook(Bytes& bytes, Format format, quint16 protection, uchar used) {
    constexpr uchar kAtBottom = 0x20;
    constexpr quint16 kNoPattern = 0x20C0;
    if (IsBiff8(format))
        PutRecord(bytes, kCellLook, quint16(0), quint16(0), protection, kAtBottom, uchar(0), uchar(0), used,
                  quint32(0), quint32(0), kNoPattern);
    else
        PutRecord(bytes, kCellLook, quint16(0), quint16(0), protection, kAtBottom, used, kNoPattern,
                  quint16(0), quint32(0));
}

void PutLooks(Bytes& bytes, Format format) {
    constexpr quint16 kStyleLook = 0xFFF5;
    constexpr quint16 kCell = 0x0001;
    constexpr quint16 kMarkedAsText = 0x0008;  // digits remain text after the cell is edited
    for (int i = 0; i < kStyleLooks; ++i) PutLook(bytes, format, kStyleLook, i == 0 ? 0 : 0xF4);
    PutLook(bytes, format, kCell, 0);
    PutLook(bytes, format, kCell | kMarkedAsText, 0);
}

void PutBookWindow(Bytes& bytes) {
    PutRecord(bytes, kBookWindow, quint16(0), quint16(0), quint16(0x4000), quint16(0x2000), quint16(0x0038),
              quint16(0), quint16(0), quint16(1), quint16(600));
}

}  // namespace

Bytes BookRecords(Format format, const QString& sheet, ByteSpan sharedStrings) {
    Bytes book;
    PutBegin(book, format, kBook);
    PutRecord(book, kCodePage, IsBiff8(format) ? kUnicode : kChinese);
    PutBookWindow(book);
    for (int i = 0; i < kFonts; ++i) PutFont(book, format);
    PutLooks(book, format);
    PutRecord(book, kStyle, quint16(0x8000), uchar(0), uchar(0xFF));
    Bytes entry;
    Put(entry, quint32(0), quint16(0));
    PutName(entry, format, sheet);
    const std::size_t place = book.size() + 4;  // the position of the field that holds the sheet's offset
    PutRecord(book, kSheet, entry);
    book.insert(book.end(), sharedStrings.begin(), sharedStrings.end());
    PutRecord(book, kEnd);
    Patch(book, place, static_cast<quint32>(book.size()));
    return book;
}

Bytes SheetBegin(Format format, int rows, int columns) {
    Bytes sheet;
    PutBegin(sheet, format, kWorksheet);
    if (IsBiff8(format))
        PutRecord(sheet, kDimensions, quint32(0), static_cast<quint32>(rows), quint16(0),
                  static_cast<quint16>(columns), quint16(0));
    else
        PutRecord(sheet, kDimensions, quint16(0), static_cast<quint16>(rows), quint16(0),
                  static_cast<quint16>(columns), quint16(0));
    return sheet;
}

Bytes SheetEnd(Format format) {
    constexpr quint16 kShown = 0x06B6;  // grid lines, headings, zeros, and the sheet is the selected one
    Bytes sheet;
    if (IsBiff8(format))
        PutRecord(sheet, kSheetWindow, kShown, quint16(0), quint16(0), quint16(64), quint16(0), quint16(0),
                  quint16(0), quint32(0));
    else
        PutRecord(sheet, kSheetWindow, kShown, quint16(0), quint16(0), quint32(0));
    PutRecord(sheet, kEnd);
    return sheet;
}

}  // namespace workbook
