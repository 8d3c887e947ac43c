#include "platform/report/report_control.h"

#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/report/painter_canvas.h"
#include "platform/report/pdf.h"
#include "platform/report/preview.h"
#include "platform/system/files.h"
#include "platform/system/new_file.h"
#include "platform/system/seams.h"

#include <QEvent>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {
namespace {

/// Keeps a window as large as the one that it lies in.
class Filler : public QObject {
  public:
    Filler(QWidget& window, QPoint corner) : QObject(&window), window_(window), corner_(corner) {
        window.parentWidget()->installEventFilter(this);
        Fill();
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize) Fill();
        return false;
    }

  private:
    void Fill() {
        const QSize available = window_.parentWidget()->size();
        window_.setGeometry(QRect(corner_, available - QSize(corner_.x(), corner_.y())));
    }
    QWidget& window_;
    QPoint corner_;
};

QPageSize PageSizeOf(const Document& document) {
    PaperSize paper = document.Paper();
    if (document.IsLandscape()) std::swap(paper.width, paper.height);
    return QPageSize(QSizeF(paper.width, paper.height), QPageSize::Millimeter, {}, QPageSize::FuzzyMatch);
}

bool ShowPrintDialog(QPrinter& printer, int pages, QWidget* over) {
    if (QPrinterInfo::availablePrinterNames().isEmpty()) throw RuntimeError(u"您的电脑没有安装打印机!"_s);
    QPrintDialog dialog(&printer, over);
    dialog.setWindowTitle(u"打印"_s);
    dialog.setMinMax(1, pages);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                      QAbstractPrintDialog::PrintCollateCopies);
    const controls::OrdinaryPointer pointer;
    return dialog.exec() == QDialog::Accepted;
}

void PrintPages(const Document& document, QPrinter& printer) {
    const bool all = printer.printRange() == QPrinter::AllPages || printer.fromPage() == 0;
    const int from = all ? 0 : printer.fromPage() - 1;
    const int to = all ? document.Pages() : std::min(printer.toPage(), document.Pages());
    // A printer that can't count does it sheet by sheet.
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(printer.copyCount(), 1);
    const Device device{printer.resolution() / kMillimetresPerInch, false};
    QPainter painter;
    if (!painter.begin(&printer)) throw RuntimeError(u"打印机无法打印！"_s);
    for (int copy = 0; copy < copies; ++copy)
        for (int page = from; page < to; ++page) {
            if (page > from || copy > 0) printer.newPage();
            PaintPage(document, page, device, painter);
        }
}

}  // namespace

ReportControl::ReportControl(QObject* parent) : QObject(parent) {
}

std::function<bool(QPrinter&, int, QWidget*)>& ReportControl::AskPrinter() {
    static std::function<bool(QPrinter&, int, QWidget*)> ask = ShowPrintDialog;
    return ask;
}

QString ReportControl::Position() const {
    return preview_ ? preview_->Position() : QString();
}

void ReportControl::SetAction(int action) {
    if (action != 1) return;
    if (Destination == ToPrinter) {
        if (!document_) document_ = LayOut();
        return Print();
    }
    document_ = LayOut();
    ShowPreview();
}

std::shared_ptr<const Document> ReportControl::LayOut() const {
    const auto layout = ReadLayout(ReportFileName);
    if (!OpenDataFile) throw RuntimeError(u"没有数据文件"_s);
    report::Formulas formulas;
    for (const QString& formula : Formulas) formulas.insert(ReadFormula(formula));
    const auto db = OpenDataFile(DataFiles.value(0));
    return Document::LayOut(layout, *db, formulas, sys::Today());
}

void ReportControl::ShowPreview() {
    if (!preview_) {
        preview_ = new Preview(WindowParent);
        preview_->Save = [this] { SaveAsPdf(); };
        preview_->Reload = [this] { Reload(); };
        preview_->Moved = [this] {
            if (PositionChanged) PositionChanged(Position());
        };
        if (WindowParent) new Filler(*preview_, {WindowLeft, WindowTop});
    }
    preview_->SetDocument(document_);
    preview_->show();
    preview_->raise();
    preview_->FocusPages();
}

void ReportControl::Print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(document_->Title());
    printer.setFullPage(true);
    printer.setPageLayout(QPageLayout(
        PageSizeOf(*document_), document_->IsLandscape() ? QPageLayout::Landscape : QPageLayout::Portrait,
        QMarginsF(), QPageLayout::Millimeter));
    sys::CloseCommand();
    if (!AskPrinter()(printer, document_->Pages(), WindowParent)) return;
    const controls::WaitPointer wait;
    PrintPages(*document_, printer);
}

void ReportControl::SaveAsPdf() {
    QString path =
        sys::AskFile({.kind = sys::FileRequest::Kind::Save,
                      .title = u"另存为 PDF"_s,
                      .proposed = sys::FileNameOf(document_->Title(), u' ').simplified() + u".pdf"_s,
                      .pattern = u"*.pdf"_s});
    if (path.isEmpty()) return;
    if (!path.endsWith(u".pdf"_s, Qt::CaseInsensitive)) path += u".pdf"_s;
    if (sys::IsThere(path) &&
        !sys::AskToDestroy(u"文件“%1”已经存在，要替换它吗？"_s.arg(path), MessageTitle, sys::BoxAnswer::No))
        return;
    const controls::WaitPointer wait;
    try {
        WritePdf(*document_, path);
    } catch (const RuntimeError& error) {
        sys::Inform(error.Text(), MessageTitle);
    }
}

/// The layout anew, over the same data file. A fault is reported, and the pages stay as they are.
void ReportControl::Reload() {
    try {
        document_ = LayOut();
        preview_->SetDocument(document_);
    } catch (const PlatformError& error) {
        sys::Inform(error.Text(), MessageTitle);
    }
}

}  // namespace report
