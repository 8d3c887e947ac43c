// Numbers, dates and the texts of the older formats come from FreeXL, which passes over records that it does
// not know and refuses a workbook with an empty text in its table of texts, as our own exports have. So the
// records are looked through as well: the table of texts is read here, and a cell that has a record and no
// value from FreeXL is read here or reported.
#include "platform/errors.h"
#include "platform/sheet/cells.h"
#include "platform/sheet/container.h"
#include "platform/workbook/container.h"

#include <QFile>
#include <QHash>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstring>
#include <freexl.h>

using namespace Qt::StringLiterals;

namespace sheet {
namespace {

enum RecordType : quint16 {
    Formula = 0x0006,
    End = 0x000A,
    FilePass = 0x002F,
    Continue = 0x003C,
    BoundSheet = 0x0085,
    Xf = 0x00E0,
    Format = 0x041E,
    MulRk = 0x00BD,
    RString = 0x00D6,
    Sst = 0x00FC,
    LabelSst = 0x00FD,
    Number = 0x0203,
    Label = 0x0204,
    BoolErr = 0x0205,
    String = 0x0207,
    Rk = 0x027E,
    Begin = 0x0809,
};

struct Record {
    quint16 type = 0;
    QByteArrayView data;

    quint8 Byte(qsizetype at) const {
        return at >= 0 && at < data.size() ? static_cast<quint8>(data[at]) : 0;
    }
    quint16 Short(qsizetype at) const { return static_cast<quint16>(Byte(at) | Byte(at + 1) << 8); }
    double Double(qsizetype at) const {
        quint64 bits = 0;
        for (qsizetype i = 7; i >= 0; --i) bits = bits << 8 | Byte(at + i);
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
};

/// The records of a stream from a place on; a stream that ends inside of one is damaged.
class Records {
  public:
    Records(const QByteArray& stream, qsizetype at) : stream_(stream), at_(at) {}

    bool Next(Record& record) {
        if (at_ < 0 || at_ + 4 > stream_.size()) return false;
        const auto* const head = stream_.constData() + at_;
        const qsizetype length = qFromLittleEndian<quint16>(head + 2);
        if (at_ + 4 + length > stream_.size()) RefuseDamaged();
        record = {qFromLittleEndian<quint16>(head), QByteArrayView(head + 4, length)};
        at_ += 4 + length;
        return true;
    }

  private:
    const QByteArray& stream_;
    qsizetype at_;
};

/// The table of texts, which goes over several records: where one ends inside of a text's characters, the
/// next begins with their width.
class Texts {
  public:
    explicit Texts(std::vector<QByteArrayView> parts) : parts_(std::move(parts)) {}

    std::vector<QString> Read() {
        std::vector<QString> texts;
        Skip(4);
        const quint32 count = Long();
        while (texts.size() < count && !AtEnd()) {
            texts.push_back(Text());
            if (texts.size() > kMostCells) RefuseTooMuch();
        }
        return texts;
    }

  private:
    bool AtEnd() const { return part_ >= parts_.size(); }
    void NextPart() {
        while (!AtEnd() && at_ >= parts_[part_].size()) {
            ++part_;
            at_ = 0;
        }
    }
    quint8 Byte() {
        NextPart();
        if (AtEnd()) RefuseDamaged();
        return static_cast<quint8>(parts_[part_][at_++]);
    }
    quint16 Short() {
        const quint8 low = Byte();
        return static_cast<quint16>(low | Byte() << 8);
    }
    quint32 Long() {
        const quint32 low = Short();
        return low | static_cast<quint32>(Short()) << 16;
    }
    void Skip(qint64 bytes) {
        for (; bytes > 0; --bytes) Byte();
    }

    QString Text() {
        const int length = Short();
        const int flags = Byte();
        const int runs = (flags & 8) != 0 ? Short() : 0;
        const quint32 further = (flags & 4) != 0 ? Long() : 0;
        QString text;
        text.reserve(length);
        bool wide = (flags & 1) != 0;
        while (text.size() < length) {
            if (at_ >= parts_[part_].size()) wide = (Byte() & 1) != 0;
            text += QChar(wide ? Short() : static_cast<quint16>(Byte()));
        }
        Skip(4LL * runs + further);
        NextPart();
        return text;
    }

    std::vector<QByteArrayView> parts_;
    std::size_t part_ = 0;
    qsizetype at_ = 0;
};

/// Of the table's records, which come one after the other.
std::vector<QString> TextsOf(const QByteArray& stream) {
    Records records(stream, 0);
    Record record;
    std::vector<QByteArrayView> parts;
    bool inside = false;
    while (records.Next(record) && record.type != End) {
        inside = record.type == Sst || (inside && record.type == Continue);
        if (inside) parts.push_back(record.data);
    }
    if (parts.empty()) return {};
    return Texts(std::move(parts)).Read();
}

/// The stream without what names texts of the table: those records get a type that no reader knows.
QByteArray WithoutTexts(const QByteArray& stream) {
    constexpr char unknown[] = {'\xFE', '\x0F'};
    QByteArray without = stream;
    Records records(stream, 0);
    Record record;
    bool inside = false;
    while (records.Next(record)) {
        inside = record.type == Sst || (inside && record.type == Continue);
        if (!inside && record.type != LabelSst) continue;
        const qsizetype place = record.data.data() - stream.constData() - 4;
        std::copy(std::begin(unknown), std::end(unknown), without.data() + place);
    }
    return without;
}

struct SheetPlace {
    qsizetype offset;
    unsigned short index;  ///< as FreeXL counts
};

/// The sheets of cells that are not hidden; counts the others.
std::vector<SheetPlace> SheetsOf(const QByteArray& stream, int& hiddenSheets) {
    std::vector<SheetPlace> sheets;
    Records records(stream, 0);
    Record record;
    unsigned short index = 0;
    if (!records.Next(record) || record.type != Begin) RefuseDamaged();
    while (records.Next(record) && record.type != End) {
        if (record.type == FilePass) RefuseEncrypted();
        if (record.type != BoundSheet) continue;
        const bool hidden = (record.Byte(4) & 3) != 0;
        const bool cells = record.Byte(5) == 0;
        if (hidden && cells) ++hiddenSheets;
        if (!hidden && cells) {
            const auto offset = static_cast<qsizetype>(record.Short(0) | quint32(record.Short(2)) << 16);
            sheets.push_back({offset, index});
        }
        ++index;
    }
    if (sheets.empty()) throw RuntimeError(u"工作簿里没有可以读取的工作表！"_s);
    return sheets;
}

/// Of the looks of cells: to how many digits numbers are filled up.
std::vector<int> DigitsOfLooks(const QByteArray& stream) {
    Records records(stream, 0);
    Record record;
    std::vector<int> looks;
    QHash<int, int> formats;
    bool large = false;  // texts of 8.0
    while (records.Next(record) && record.type != End) {
        if (record.type == Begin) large = record.Short(0) >= 0x0600;
        if (record.type == Format) {
            const bool wide = large && (record.Byte(4) & 1) != 0;
            QByteArray format =
                record.data.sliced(std::min<qsizetype>(large ? 5 : 3, record.data.size())).toByteArray();
            if (wide) format.replace(QByteArrayView("\0", 1), QByteArrayView());
            formats[record.Short(0)] = DigitsOf(QString::fromLatin1(format));
        }
        if (record.type == Xf) looks.push_back(formats.value(record.Short(2)));
    }
    return looks;
}

QString ErrorName(int code) {
    static const QHash<int, QString> names = {{0x00, u"#NULL!"_s}, {0x07, u"#DIV/0!"_s}, {0x0F, u"#VALUE!"_s},
                                              {0x17, u"#REF!"_s},  {0x1D, u"#NAME?"_s},  {0x24, u"#NUM!"_s},
                                              {0x2A, u"#N/A"_s}};
    return names.value(code, u"#?"_s);
}

/// The stream as FreeXL reads it. It gets a container of our own, since it fails for streams of less than
/// 4096 bytes, which lie in another place of the container, and trusts what a damaged one says.
class File {
  public:
    explicit File(QByteArray stream) {
        constexpr qsizetype least = 4096;
        if (!folder_.isValid()) throw RuntimeError(u"无法建立临时文件：%1！"_s.arg(folder_.errorString()));
        if (stream.size() < least) stream.append(least - stream.size(), '\0');
        const QString path = folder_.filePath(u"bill.xls"_s);
        workbook::WriteContainer(
            path, "Workbook", {},
            {{reinterpret_cast<const uchar*>(stream.constData()), static_cast<std::size_t>(stream.size())}});
        if (freexl_open(QFile::encodeName(path).constData(), &handle_) == FREEXL_OK && handle_) return;
        freexl_close(handle_);
        RefuseDamaged();
    }
    ~File() { freexl_close(handle_); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    QString NameOf(unsigned short index) const {
        const char* name = nullptr;
        if (freexl_get_worksheet_name(handle_, index, &name) != FREEXL_OK || !name) return {};
        return QString::fromUtf8(name);
    }
    void Choose(unsigned short index) const {
        if (freexl_select_active_worksheet(handle_, index) != FREEXL_OK) RefuseDamaged();
    }
    std::optional<QString> TextAt(int row, int column) const {
        FreeXL_CellValue value;
        const int code = freexl_get_cell_value(handle_, static_cast<unsigned>(row),
                                               static_cast<unsigned short>(column), &value);
        if (code != FREEXL_OK) return std::nullopt;
        switch (value.type) {
            case FREEXL_CELL_INT:
                return QString::number(value.value.int_value);
            case FREEXL_CELL_DOUBLE:
                return NumberText(value.value.double_value);
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME:
                return QString::fromUtf8(value.value.text_value);
            default:
                return std::nullopt;
        }
    }

  private:
    QTemporaryDir folder_;
    const void* handle_ = nullptr;
};

/// Brings the cells that the records of a sheet name into the sheet.
class Reader {
  public:
    Reader(const File& file, const std::vector<QString>& texts, const std::vector<int>& digits, Cells& cells)
        : file_(file), texts_(texts), digits_(digits), cells_(cells) {}

    void Read(Records records) {
        Record record;
        int depth = 0;  // of charts inside of the sheet
        while (records.Next(record)) {
            if (record.type == Begin) ++depth;
            if (record.type == End && --depth <= 0) return ReportLostText();
            if (depth == 1) Take(record);
        }
        RefuseDamaged();  // the end is missing, and cells may be
    }

  private:
    void Take(const Record& record) {
        const int row = record.Short(0), column = record.Short(2);
        switch (record.type) {
            case MulRk:
                return TakeNumbers(record, row, column);
            case Formula:
            case RString:
            case LabelSst:
            case Number:
            case Label:
            case BoolErr:
            case Rk:
                return TakeCell(record, row, column);
            case String:
                return TakeString(record);
            default:
                return;
        }
    }

    /// As many as the record says and has.
    void TakeNumbers(const Record& record, int row, int first) {
        const qsizetype size = record.data.size();
        const int last = std::min(int(record.Short(size - 2)), first + static_cast<int>((size - 6) / 6) - 1);
        for (int column = first; column <= last; ++column) TakeCell(record, row, column);
    }

    void TakeCell(const Record& record, int row, int column) {
        if (record.type == LabelSst) return TakeText(record, row, column);
        if (const auto text = file_.TextAt(row, column)) {
            if (record.type == Label || record.type == RString) return cells_.Put(row, column, *text);
            return PutNumber(record, row, column, *text);
        }
        if (record.type == Number) return PutNumber(record, row, column, NumberText(record.Double(6)));
        if (record.type == BoolErr) return TakeBoolOrError(row, column, record.Byte(7) != 0, record.Byte(6));
        if (record.type == Label && record.Short(6) == 0) return;  // an empty text
        if (record.type == Formula) return TakeFormula(record, row, column);
        cells_.Report(row, column, u"无法读取"_s);
    }

    void PutNumber(const Record& record, int row, int column, const QString& text) {
        const std::size_t look = record.Short(4 + 6 * (column - record.Short(2)));
        if (IsTooLong(text)) cells_.Report(row, column, kTooLong);
        cells_.Put(row, column, look < digits_.size() ? Filled(text, digits_[look]) : text);
    }

    void TakeText(const Record& record, int row, int column) {
        const std::size_t index = record.Short(6) | static_cast<std::size_t>(record.Short(8)) << 16;
        if (index >= texts_.size()) return cells_.Report(row, column, u"文字不在工作簿里");
        cells_.Put(row, column, texts_[index]);
    }

    void TakeBoolOrError(int row, int column, bool error, int value) {
        const QString text = error ? ErrorName(value) : value ? u"TRUE"_s : u"FALSE"_s;
        cells_.Put(row, column, text);
        if (error) cells_.Report(row, column, u"错误值"_s);
    }

    void TakeFormula(const Record& record, int row, int column) {
        if (record.Short(12) != 0xFFFF) return PutNumber(record, row, column, NumberText(record.Double(6)));
        switch (record.Byte(6)) {
            case 0:  // the text follows in a record of its own
                ReportLostText();
                textRow_ = row;
                textColumn_ = column;
                return;
            case 1:
            case 2:
                return TakeBoolOrError(row, column, record.Byte(6) == 2, record.Byte(8));
            default:
                return;  // an empty text
        }
    }

    /// Of a formula whose text has not followed.
    void ReportLostText() {
        if (textRow_ >= 0) cells_.Report(std::exchange(textRow_, -1), textColumn_, u"公式的文字无法读取");
    }

    /// Of 8.0: characters of one byte or of two, in one record; any other is reported.
    void TakeString(const Record& record) {
        if (textRow_ < 0) return;
        const int row = std::exchange(textRow_, -1);
        const qsizetype length = record.Short(0);
        const int flags = record.Byte(2);
        const QByteArrayView characters = record.data.sliced(std::min<qsizetype>(3, record.data.size()));
        if (flags == 0 && characters.size() == length)
            return cells_.Put(row, textColumn_, QString::fromLatin1(characters));
        if (flags == 1 && characters.size() == 2 * length) {
            QString text(length, Qt::Uninitialized);
            qFromLittleEndian<char16_t>(characters.data(), length, text.data());
            return cells_.Put(row, textColumn_, text);
        }
        cells_.Report(row, textColumn_, u"公式的文字无法读取"_s);
    }

    const File& file_;
    const std::vector<QString>& texts_;
    const std::vector<int> digits_;  ///< by the looks of cells
    Cells& cells_;
    int textRow_ = -1;  ///< of the formula whose text follows; -1: none
    int textColumn_ = 0;
};

QByteArray StreamOf(const QByteArray& bytes) {
    const Held<GsfInfile> container = OpenCompound(bytes);
    if (!container) RefuseDamaged();
    for (const char* const name : {"Workbook", "Book"})
        if (auto stream = EntryOf(*container, {name})) return *stream;
    if (EntryOf(*container, {"EncryptedPackage"})) RefuseEncrypted();
    RefuseDamaged();
}

}  // namespace

void ReadXls(const QByteArray& bytes, int which, Cells& cells) {
    const QByteArray stream = StreamOf(bytes);
    const std::vector<SheetPlace> sheets = SheetsOf(stream, cells.Hidden());
    const std::vector<QString> texts = TextsOf(stream);
    const File file(WithoutTexts(stream));
    for (const SheetPlace& sheet : sheets) cells.Names() += file.NameOf(sheet.index);
    const bool there = which >= 0 && which < static_cast<int>(sheets.size());
    const SheetPlace& chosen = sheets[there ? static_cast<std::size_t>(which) : 0];
    file.Choose(chosen.index);
    Reader(file, texts, DigitsOfLooks(stream), cells).Read(Records(stream, chosen.offset));
}

}  // namespace sheet
