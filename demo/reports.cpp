#include "demo/reports.h"

#include "app/main_window.h"
#include "app/session.h"
#include "demo/day_entries.h"
#include "platform/report/painter_canvas.h"
#include "reports/printing.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

constexpr int kDots = 4;  // to the millimetre

/// The pages of the report in the preview.
std::vector<QImage> PagesInPreview() {
    const report::ReportControl& control = *dynamic_cast<Prnt&>(*TheFrame().Front()).Cry;
    report::Formulas formulas;
    for (const QString& formula : control.Formulas) formulas.insert(report::ReadFormula(formula));
    const auto document =
        report::Document::LayOut(report::ReadLayout(control.ReportFileName), *Db, formulas, kToday);
    std::vector<QImage> pages;
    for (int page = 0; page < document->Pages(); ++page) {
        const report::PaperSize paper = document->Paper();
        QImage image((QSizeF(paper.width, paper.height) * kDots).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        report::PaintPage(*document, page, {.dots = kDots, .snap = true}, painter);
        pages.push_back(image);
    }
    return pages;
}

/// A list report: what is typed into its boxes one after the other, "" for one that stays as it is.
struct List {
    QString keys, form, picture, caption;
    QStringList typed;
    QString status;
    QStringList papers;  ///< the names of its prints
};

const List kLists[] = {
    {u"C1"_s,
     u"C01"_s,
     u"manifest"_s,
     u"出货明细"_s,
     {u"Q1"_s, u"20241120"_s},
     {},
     {u"普通渠道出货"_s, u"香港联盟出货"_s, u"中外运出货"_s}},
    {u"C2"_s,
     u"C02"_s,
     u"statement"_s,
     u"客户对帐明细表"_s,
     {u"SH001"_s},
     u"共 24 条记录 当前为第 1 条"_s,
     {u"客户对帐明细表"_s}},
    {u"C3"_s,
     u"C03"_s,
     u"channel-statement"_s,
     u"渠道对帐明细表"_s,
     {u"Q2"_s},
     u"共 11 条记录 当前为第 1 条"_s,
     {u"渠道对帐明细表"_s}},
    {u"C4"_s, u"C04"_s, u"monthly"_s, u"月结表"_s, {u"20241120"_s}, {}, {u"月结表"_s}},
    {u"C6"_s, u"C06"_s, u"margin"_s, u"毛利表"_s, {}, {}, {u"毛利表"_s}},
};

void PlayList(Operator& op, const List& list, const QString& folder) {
    op.Command(list.keys);
    for (const QString& text : list.typed) {
        op.Type(text);
        op.Press(Qt::Key_Return);
    }
    op.EnterTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    if (!list.status.isEmpty()) op.ExpectStatus(list.status);
    op.Picture(list.picture, list.caption);
    for (qsizetype i = 0; i < list.papers.size(); ++i) {
        op.Command(u"P"_s);
        if (list.papers.size() > 1) {
            for (qsizetype down = 0; down < i; ++down) op.Press(Qt::Key_Down);
            op.Press(Qt::Key_Return);
        }
        if (list.form == u"C02") op.Picture(u"preview"_s, u"打印预览"_s);
        SavePaper(op, folder + u'/' + list.papers[i] + u".pdf"_s, list.picture, list.papers[i]);
    }
    op.Command(u"R"_s);
}

void PlayNotice(Operator& op, const QString& folder) {
    op.Command(u"C5"_s);
    op.Type(u"YL24112101"_s);
    op.Press(Qt::Key_Return);
    op.ExpectText(u"Txt(3)"_s, u"航班延误"_s);
    for (int box = 1; box < 4; ++box) op.Press(Qt::Key_Return);
    op.ExpectFocus(u"Txt(4)"_s);
    op.Type(u"外箱一角破损，内件完好，已拍照并通知收件人。请发件人决定是否重新包装派送"_s);
    op.ExpectFocus(u"Txt(5)"_s);
    op.Picture(u"notice"_s, u"问题件通知单：满 36 个字光标自己下移"_s);
    op.Command(u"P"_s);
    SavePaper(op, folder + u"/问题件通知单.pdf"_s, u"notice"_s, u"问题件通知单"_s);
    op.Command(u"R"_s);
}

}  // namespace

void SavePaper(Operator& op, const QString& file, const QString& picture, const QString& caption) {
    op.Expect(u"打印预览"_s, [] { return TheFrame().Front()->objectName() == u"Prnt"; });
    op.Do(u"移去上次的文件"_s, [file] { QFile::remove(file); });
    op.Press(Qt::Key_S, Qt::ControlModifier);
    op.ExpectWindow(u"FileDialog"_s);
    op.Type(file);
    op.Press(Qt::Key_Return);
    op.Expect(u"PDF 已生成"_s, [file] { return QFileInfo(file).size() > 0; });
    op.Pictures(picture + u"-page"_s, caption + u"："_s + QFileInfo(file).fileName(), PagesInPreview);
    op.Command(u"R"_s);
}

void PlayReports(Operator& op, const QString& folder) {
    for (const List& list : kLists) PlayList(op, list, folder);
    PlayNotice(op, folder);
}

}  // namespace demo
