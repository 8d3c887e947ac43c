#include "platform/sheet/sheet.h"

#include "platform/errors.h"
#include "platform/sheet/cells.h"

#include <QDateTime>
#include <QFile>

#include <cmath>
#include <glib.h>

using namespace Qt::StringLiterals;

namespace sheet {
namespace {

constexpr int kRowsBetween = 2000;  // two calls of the progress

/// RAII guard: what the libraries would write about a damaged file is dropped, since the operator gets a
/// message.
class QuietLibraries {
  public:
    QuietLibraries()
        : log_(g_log_set_default_handler([](const gchar*, GLogLevelFlags, const gchar*, gpointer) {},
                                         nullptr)),
          print_(g_set_printerr_handler([](const gchar*) {})) {}
    ~QuietLibraries() {
        g_log_set_default_handler(log_, nullptr);
        g_set_printerr_handler(print_);
    }
    QuietLibraries(const QuietLibraries&) = delete;
    QuietLibraries& operator=(const QuietLibraries&) = delete;

  private:
    GLogFunc log_;
    GPrintFunc print_;
};

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw RuntimeError(u"无法打开文件：%1！"_s.arg(file.errorString()));
    if (file.size() > kMostBytes) throw RuntimeError(u"文件太大，无法读取！"_s);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFile::NoError) throw RuntimeError(u"无法读取文件：%1！"_s.arg(file.errorString()));
    if (bytes.isEmpty()) throw RuntimeError(u"文件是空的！"_s);
    return bytes;
}

/// What programs write under the name of a workbook.
bool IsMarkup(const QByteArray& bytes) {
    const QByteArray start = bytes.left(4096).trimmed().toLower();
    return start.startsWith("<!doctype html") || start.startsWith("<html") || start.startsWith("<table") ||
           start.startsWith("<?xml") || start.startsWith("\xEF\xBB\xBF<");
}

bool IsOldWorkbook(const QByteArray& bytes) {
    for (const char version : {'\0', '\2', '\4'})
        if (bytes.startsWith(QByteArray("\x09") + version)) return true;
    return false;
}

void ReadAny(const QByteArray& bytes, int which, Cells& cells) {
    if (bytes.startsWith("\xD0\xCF\x11\xE0")) return ReadXls(bytes, which, cells);
    if (bytes.startsWith("PK\x03\x04")) return ReadXlsx(bytes, which, cells);
    if (IsOldWorkbook(bytes)) throw RuntimeError(u"工作簿的版本太旧，请另存为 EXCEL 97 或更新的格式！"_s);
    if (IsMarkup(bytes))
        throw RuntimeError(u"文件的内容是网页，不是工作簿！请用表格软件打开后另存为工作簿。"_s);
    ReadCsv(bytes, cells);
}

}  // namespace

QString Sheet::At(int row, int column) const {
    if (row < 0 || row >= static_cast<int>(rows.size())) return {};
    return rows[static_cast<std::size_t>(row)].value(column);
}

QString ColumnName(int column) {
    QString name;
    for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26) name.prepend(QChar(u'A' + (rest - 1) % 26));
    return name;
}

QString Address(int row, int column) {
    return ColumnName(column) + QString::number(row + 1);
}

Sheet Read(const QString& path, int which, const Progress& progress) {
    const QuietLibraries quiet;
    Sheet sheet;
    Cells cells(sheet, progress);
    ReadAny(BytesOf(path), which, cells);
    if (sheet.rows.empty() && sheet.reports == 0) throw RuntimeError(u"文件里没有数据！"_s);
    return sheet;
}

void Cells::Put(int row, int column, const QString& text) {
    if (text.isEmpty()) return;
    if (column >= kMostColumns) return Report(row, column, u"在第 %1 列之后"_s.arg(kMostColumns));
    if (text.contains(QChar(0))) {
        Report(row, column, u"有无法识别的字符"_s);
        return Put(row, column, QString(text).remove(QChar(0)));
    }
    if (row >= kMostRows) RefuseTooMuch();
    if (row >= static_cast<int>(sheet_.rows.size())) sheet_.rows.resize(static_cast<std::size_t>(row) + 1);
    QStringList& cellsOfRow = sheet_.rows[static_cast<std::size_t>(row)];
    for (; cellsOfRow.size() <= column; cellsOfRow.emplace_back())
        if (++cells_ > kMostCells) RefuseTooMuch();
    cellsOfRow[column] = text;
    if (!progress_ || row - reported_ < kRowsBetween) return;
    reported_ = row;
    progress_(row);
}

void Cells::Report(int row, int column, QStringView reason) {
    if (++sheet_.reports <= kMostReports) sheet_.notUnderstood.push_back({row, column, reason.toString()});
}

QString NumberText(double value) {
    const QString text = QString::number(value, 'g', 15);
    const qsizetype e = text.indexOf(u'e');
    if (e < 0) return text;
    const int exponent = text.mid(e + 1).toInt();
    if (std::abs(exponent) > 30) return text;
    const bool negative = text.startsWith(u'-');
    QString digits = text.left(e).remove(u'-').remove(u'.');
    const QString sign = negative ? u"-"_s : QString();
    if (exponent < 0) return sign + u"0."_s + QString(-exponent - 1, u'0') + digits;
    return sign + digits.leftJustified(exponent + 1, u'0');
}

int DigitsOf(const QString& format) {
    constexpr qsizetype most = 40;
    const bool zeros = format.size() > 1 && format.size() <= most && format.count(u'0') == format.size();
    return zeros ? static_cast<int>(format.size()) : 0;
}

QString Filled(const QString& number, int digits) {
    return number.contains(u'-') ? number : number.rightJustified(digits, u'0');
}

bool IsTooLong(QStringView number) {
    constexpr qsizetype most = 15;
    const qsizetype point = number.indexOf(u'.');
    return (point < 0 ? number.size() : point) - (number.startsWith(u'-') ? 1 : 0) > most;
}

std::optional<QString> DateText(double serial, Look look, bool from1904) {
    constexpr double mostDays = 2'958'466;  // of the year 9999
    constexpr int secondsOfDay = 86'400;
    if (!(serial >= 0 && serial < mostDays)) return std::nullopt;
    double days = std::floor(serial);
    qint64 seconds = std::llround((serial - days) * secondsOfDay);
    if (seconds == secondsOfDay) {
        seconds = 0;
        ++days;
    }
    const QString time = QTime(0, 0).addSecs(static_cast<int>(seconds)).toString(u"HH:mm:ss"_s);
    if (look == Look::Time && days == 0) return time;
    // The day numbers of 1900 count a 29th of February that there was not.
    if (!from1904 && days < 60) ++days;
    const QDate first = from1904 ? QDate(1904, 1, 1) : QDate(1899, 12, 30);
    const QString date = first.addDays(static_cast<qint64>(days)).toString(u"yyyy-MM-dd"_s);
    return seconds == 0 ? date : date + u' ' + time;
}

void RefuseDamaged() {
    throw RuntimeError(u"文件已损坏，或者不是工作簿！"_s);
}

void RefuseTooMuch() {
    throw RuntimeError(u"数据太多，无法读取！"_s);
}

void RefuseEncrypted() {
    throw RuntimeError(u"工作簿有密码，无法读取！请去掉密码后另存。"_s);
}

}  // namespace sheet
