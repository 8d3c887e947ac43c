#include "reports/batch_statements.h"

#include "app/data_access.h"
#include "platform/errors.h"
#include "platform/report/document.h"
#include "platform/report/pdf.h"
#include "platform/system/files.h"
#include "platform/system/new_file.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export_sheet.h"
#include "reports/report_rows.h"

#include <QBuffer>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reports {
namespace {

const QString Pdf = u".pdf"_s;
const QString Xls = u".xls"_s;
constexpr int Tries = 5;  // for a name that is still free when the files are whole
constexpr qsizetype LongestName =
    200;  // bytes of the 255 that a name may have; a number and an extension follow

const Settings& Report() {
    return CustomerStatementReport;
}

/// Whole characters only.
QString CutToBytes(QString name, qsizetype bytes) {
    while (name.toUtf8().size() > bytes) name.chop(name.back().isLowSurrogate() && name.size() > 1 ? 2 : 1);
    return name;
}

/// From (2) up behind the name.
QString Numbered(const QString& name, int number) {
    return number == 1 ? name : name + u"(%1)"_s.arg(number);
}

bool IsSummed(const Column& column) {
    return column.sum != Column::Sum::None;
}

QStringList Headers() {
    QStringList headers;
    for (const Column& column : Report().columns) headers += column.header;
    return headers;
}

/// The columns that are summed up.
std::vector<Column> SummedColumns() {
    std::vector<Column> columns;
    std::ranges::copy_if(Report().columns, std::back_inserter(columns), IsSummed);
    return columns;
}

/// The cells of a row in these columns.
QStringList Summed(const QStringList& row) {
    QStringList cells;
    for (qsizetype col = 0; col < row.size(); ++col)
        if (IsSummed(Report().columns[static_cast<std::size_t>(col)])) cells += row[col];
    return cells;
}

/// The second one is removed where the first cannot be written.
void WritePair(const QString& pdfPath, const QByteArray& pdf, const QString& sheetPath, ExportSheet& sheet) {
    sheet.Save(sheetPath);
    try {
        sys::WriteNew(pdfPath, pdf);
    } catch (const RuntimeError&) {
        QFile::remove(sheetPath);
        throw;
    }
}

}  // namespace

std::vector<BatchCustomer> CustomersOf(dao::Database& db, const Scope& period) {
    std::vector<BatchCustomer> customers;
    auto rows = db.OpenRecordset(CustomersWithStatement(period));
    for (; !rows.Eof(); rows.MoveNext())
        customers.push_back({.code = rows.Fields(0).Text(),
                             .name = rows.Fields(1).Text(),
                             .waybills = static_cast<int>(rows.Fields(2).Number())});
    rows.Close();
    return customers;
}

QString StatementFileName(const BatchCustomer& customer) {
    QString name = customer.name.isEmpty() ? customer.code : customer.code + u'_' + customer.name;
    name = CutToBytes(sys::FileNameOf(name, u'_'), LongestName);
    while (name.endsWith(u' ') || name.endsWith(u'.')) name.chop(1);
    // A name that begins with a point is hidden, one of blanks or nothing is none.
    if (name.isEmpty() || name.startsWith(u'.') || name.startsWith(u' ')) name.prepend(u'_');
    return name;
}

StatementBatch::StatementBatch(dao::Database& db, const QString& layouts, const QString& folder, Scope period)
    : db_(db),
      folder_(folder.endsWith(u'/') ? folder : folder + u'/'),
      period_(std::move(period)),
      layout_(report::ReadLayout(layouts + Report().prints.front().layout)) {
}

StatementBatch::Cells StatementBatch::ReadCells(const Scope& scope) const {
    auto rows = db_.OpenRecordset(Report().statement(scope));
    Cells cells;
    const int count = CountRows(rows);
    if (count > 0) {
        cells.assign(static_cast<std::size_t>(count) + 1, QStringList(Headers().size()));
        ReadList(rows, count, Report().columns, [&](int row, int column, QString cell) {
            cells[static_cast<std::size_t>(row)][column] = std::move(cell);
        });
    }
    rows.Close();
    return cells;
}

QByteArray StatementBatch::MakePdf(const Scope& scope, const Cells& cells) const {
    const QStringList texts =
        PreparePrint(db_, Report(), Report().prints.front(), scope, static_cast<int>(cells.size()),
                     [&](int row, int column) { return cells[static_cast<std::size_t>(row)][column]; });
    report::Formulas formulas;
    for (const QString& text : texts) formulas.insert(report::ReadFormula(text));
    const auto document = report::Document::LayOut(layout_, db_, formulas, sys::Today());
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    report::WritePdf(*document, pdf);
    return pdf.data();
}

void StatementBatch::EmptyWorkTable() {
    db_.Execute(u"DELETE FROM PRNTC023"_s);
}

/// The first number from `number` on whose name none of the files has.
int StatementBatch::FreeNumber(const QString& name, const QStringList& extensions, int number) const {
    const auto taken = [&](const QString& extension) {
        return sys::IsThere(folder_ + Numbered(name, number) + extension);
    };
    while (std::ranges::any_of(extensions, taken)) ++number;
    return number;
}

/// Gives the name that they have. One that has been taken since it was found free is passed over.
QString StatementBatch::WriteFiles(const QString& name, const QByteArray& pdf, ExportSheet& sheet) const {
    int number = 0;
    for (int tries = 1;; ++tries) {
        number = FreeNumber(name, {Pdf, Xls}, number + 1);
        const QString free = Numbered(name, number);
        try {
            WritePair(folder_ + free + Pdf, pdf, folder_ + free + Xls, sheet);
            return free;
        } catch (const sys::WriteError& error) {
            if (error.Why() != sys::WriteError::Cause::NameTaken || tries == Tries) throw;
        }
    }
}

BatchResult StatementBatch::Write(const BatchCustomer& customer) {
    BatchResult result{.customer = customer};
    try {
        const Scope scope{.from = period_.from, .to = period_.to, .code = customer.code};
        const Cells cells = ReadCells(scope);
        if (cells.empty()) throw RuntimeError(u"没有月结的运单！"_s);
        ExportSheet sheet(workbook::Format::Biff8, Report().columns.size());
        sheet.AddRow(Headers());
        for (const QStringList& row : cells) sheet.AddRow(row);
        const QByteArray pdf = MakePdf(scope, cells);
        EmptyWorkTable();  // before there are files, which remain where this fails
        result.file = WriteFiles(StatementFileName(customer), pdf, sheet);
        result.sums = Summed(cells.back());
        result.customer.waybills = static_cast<int>(cells.size()) - 1;
    } catch (const DatabaseError& error) {
        if (error.GroupLost()) throw;
        result.refusal = error.Text();
    } catch (const sys::WriteError& error) {
        result.refusal = error.Text();
        result.folderRefuses = error.Why() == sys::WriteError::Cause::Other;
    } catch (const RuntimeError& error) {
        result.refusal = error.Text();
    }
    if (!result.refusal.isEmpty()) EmptyWorkTable();
    return result;
}

QString StatementBatch::WriteSummary(const std::vector<BatchResult>& results) const {
    const QStringList headers = QStringList{u"客户编码"_s, u"客户名称"_s, u"票数"_s} + Summed(Headers()) +
                                QStringList{u"文件"_s, u"说明"_s};
    ExportSheet sheet(workbook::Format::Biff8, static_cast<std::size_t>(headers.size()));
    sheet.AddRow(headers);
    const std::vector<Column> columns = SummedColumns();
    const QStringList blank(static_cast<qsizetype>(columns.size()));
    Sums sums(columns);
    int waybills = 0;
    for (const auto& [customer, itsSums, file, refusal, folderRefuses] : results) {
        const bool made = !file.isEmpty();
        for (qsizetype col = 0; col < itsSums.size(); ++col) sums.Add(static_cast<int>(col), itsSums[col]);
        if (made) waybills += customer.waybills;
        sheet.AddRow(
            QStringList{customer.code, customer.name, made ? QString::number(customer.waybills) : u""_s} +
            (made ? itsSums : blank) + QStringList{file, refusal});
    }
    QStringList total{u"合计"_s, {}, QString::number(waybills)};
    for (int col = 0; col < blank.size(); ++col) total += sums.Text(col);
    sheet.AddRow(total);
    const QString base = sys::FileNameOf(u"对帐单汇总_"_s + period_.from + u"至"_s + period_.to, u'_');
    const QString name = Numbered(base, FreeNumber(base, {Xls}, 1));
    sheet.Save(folder_ + name + Xls);
    return name + Xls;
}

}  // namespace reports
