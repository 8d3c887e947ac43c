// A statement of 5,000 rows and one of 50,000 in the preview, and their way into a PDF: seconds, memory,
// pages a second.
#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/errors.h"
#include "platform/report/desk.h"
#include "platform/report/pdf.h"
#include "platform/system/files.h"
#include "reports/printing.h"
#include "schema/data_files.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include <cstdio>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

const QString Layout = u"prntc023.rpt"_s;
const QStringList Formulas{u"RQ='对帐日期:2024-01-01至2024-12-31'"_s, u"KH='华兴电子'"_s};

void FillWorkTable(int rows) {
    Db->Execute(u"delete from PRNTC023"_s);
    for (int row = 1; row <= rows; ++row)
        Db->Execute(
            u"insert into prntc023 (F1,F2,F3,F4,F5,F6) VALUES('2024-%1-%2','KV24%3','S','洛杉矶','%4','%5')"_s
                .arg(1 + row % 12, 2, 10, QChar(u'0'))
                .arg(1 + row % 28, 2, 10, QChar(u'0'))
                .arg(row, 8, 10, QChar(u'0'))
                .arg(0.5 * (row % 60 + 1))
                .arg(37.5 * (row % 90 + 1)));
    Db->Execute(u"insert into prntc023 (F1,F2,F3,F4,F5,F6) VALUES('','','','','','1234567.5')"_s);
    Db->CloseGroup();
}

/// Until the first page is on the screen.
double SecondsToOpen() {
    QElapsedTimer timer;
    timer.start();
    RunReport(Layout, Formulas);
    auto* pages = TheFrame().Front()->findChild<report::Desk*>();
    pages->viewport()->repaint();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

double MemoryInMiB() {
    QFile statistics(u"/proc/self/statm"_s);
    if (!statistics.open(QIODevice::ReadOnly)) return 0;
    const double pages = statistics.readAll().split(' ').value(1).toDouble();
    return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

std::shared_ptr<const report::Document> LaidOut() {
    report::Formulas formulas;
    for (const QString& formula : Formulas) formulas.insert(report::ReadFormula(formula));
    return report::Document::LayOut(report::ReadLayout(AppFolder + Layout), *Db, formulas,
                                    QDate(2024, 12, 31));
}

/// The same rows as a sheet for an office program.
void WriteCsv(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return;
    auto rows = Db->OpenRecordset(u"select F1,F2,F3,F4,F5,F6 from PRNTC023"_s);
    for (; !rows.Eof(); rows.MoveNext()) {
        QStringList cells;
        for (int i = 0; i < rows.FieldCount(); ++i) cells += rows.Fields(i).Text();
        file.write(cells.join(u',').toUtf8() + '\n');
    }
}

void MeasurePdf(Bench& bench) {
    const auto document = LaidOut();
    const QString path = AppFolder + u"statement.pdf"_s;
    const double seconds = BestOf(3, {}, [&] { report::WritePdf(*document, path); });
    bench.State("report: 5,000 rows to PDF, pages a second", document->Pages() / seconds, "pages/s");
    if (QStandardPaths::findExecutable(u"libreoffice"_s).isEmpty()) {
        std::printf(
            "report: libreoffice is not installed (package libreoffice-calc), so it is not measured\n");
        return;
    }
    const QString csv = AppFolder + u"statement.csv"_s;
    WriteCsv(csv);
    bench.Run({.name = "report: the same beside libreoffice",
               .limit = 0.2,
               .ours = [&] { report::WritePdf(*LaidOut(), path); },
               .bare =
                   [&] {
                       QProcess::execute(u"libreoffice"_s, {u"--headless"_s, u"--convert-to"_s, u"pdf"_s,
                                                            u"--outdir"_s, AppFolder, csv});
                   }});
}

}  // namespace

void MeasureReports(Bench& bench, Office&) {
    if (!bench.Wanted("report")) return;
    if (!sys::IsThere(AppFolder + Layout)) schema::MakeLayout(AppFolder + Layout);
    FillWorkTable(5'000);
    bench.State("report: first page of 5,000 rows", SecondsToOpen(), "s", 0.3);
    MeasurePdf(bench);
    TheFrame().Front()->Unload();
    Office::Settle();
    FillWorkTable(50'000);
    const double before = MemoryInMiB();
    bench.State("report: preview of 50,000 rows opens", SecondsToOpen(), "s", 2);
    bench.State("report: its memory", MemoryInMiB() - before, "MiB", 500);
    TheFrame().Front()->Unload();
    Office::Settle();
}

}  // namespace benchmarks
