// The form Prnt and the preview in it, as an operator drives them.
#include "platform/errors.h"
#include "platform/report/desk.h"
#include "reports/printing.h"
#include "schema/data_files.h"
#include "tests/report/papers.h"
#include "tests/support/files.h"
#include "tests/support/program.h"

#include <QFileInfo>
#include <QPrinter>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tests {
namespace {

class PreviewTest : public testing::Test {
  protected:
    PreviewTest() {
        for (const QString& layout : schema::LayoutFiles()) schema::MakeLayout(AppFolder + layout);
        program.Frame().resize(1366, 768);
    }

    void Run(int rows, const QString& layout = u"prntc023.rpt"_s) {
        FillWorkTable(layout, rows, [&](const QString& sql) { program.Execute(sql); });
        for (const Paper& paper : Papers())
            if (paper.layout == layout) RunReport(layout, paper.formulas);
        Settle();
    }
    report::Desk& Pages() { return program.At<report::Desk>(u"Pages"_s); }
    int Page() { return Pages().CurrentPage() + 1; }
    QString Words(const QString& label) { return program.At<QLabel>(label).text(); }
    bool CanPress(const QString& button) { return program.At<QToolButton>(button).isEnabled(); }
    Program program;
};

TEST_F(PreviewTest, KeysTurnPagesAndZoom) {
    Run(100);
    EXPECT_EQ(program.Frame().Front()->objectName(), u"Prnt"_s);
    EXPECT_EQ(program.Status(), u"对帐明细表：A4 纵向，共 3 页 当前为第 1 页"_s);
    EXPECT_FALSE(CanPress(u"PreviousPage"_s));
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers with;
        int page;
        int zoom;
    } steps[] = {{Qt::Key_PageDown, Qt::NoModifier, 2, 100},  {Qt::Key_End, Qt::NoModifier, 3, 100},
                 {Qt::Key_PageDown, Qt::NoModifier, 3, 100},  {Qt::Key_PageUp, Qt::NoModifier, 2, 100},
                 {Qt::Key_Home, Qt::NoModifier, 1, 100},      {Qt::Key_Plus, Qt::ControlModifier, 1, 125},
                 {Qt::Key_Minus, Qt::ControlModifier, 1, 100}};
    for (const auto& step : steps) {
        Press(step.key, step.with);
        EXPECT_EQ(Page(), step.page) << step.key;
        EXPECT_EQ(std::lround(Pages().Zoom() * 100), step.zoom) << step.key;
    }
    Press(Qt::Key_0, Qt::ControlModifier);  // the whole page
    EXPECT_LT(Pages().Zoom(), 0.6);
    EXPECT_EQ(Page(), 1);
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Page(), 2);
    Press(Qt::Key_2, Qt::ControlModifier);  // its width
    EXPECT_GT(Pages().Zoom(), 1.4);
    Press(Qt::Key_G, Qt::ControlModifier);
    Type(u"3"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(Page(), 3);
    EXPECT_EQ(FocusName(), u"Pages"_s);
}

TEST_F(PreviewTest, FindsTextOnAllPages) {
    Run(100);
    Press(Qt::Key_F, Qt::ControlModifier);
    Type(u"kv00009"_s);
    for (int i = 0; i < 100 && !Words(u"Found"_s).endsWith(u"10 处"_s); ++i) Settle();
    EXPECT_EQ(Words(u"Found"_s), u"1 / 10 处"_s);
    EXPECT_EQ(Page(), 3);
    Press(Qt::Key_Return);
    EXPECT_EQ(Words(u"Found"_s), u"2 / 10 处"_s);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Words(u"Found"_s), u"10 / 10 处"_s);
    TypeOver(u"没有这个"_s);
    for (int i = 0; i < 100 && Words(u"Found"_s) != u"没有找到"_s; ++i) Settle();
    EXPECT_EQ(Words(u"Found"_s), u"没有找到"_s);
    EXPECT_FALSE(CanPress(u"HitAfter"_s));
}

TEST_F(PreviewTest, SavesAPdfOfWhatWasLaidOut) {
    Run(40);
    program.Execute(u"delete from PRNTC023"_s);
    const QString path = AppFolder + u"out"_s;
    program.script.File(u"另存为 PDF"_s, path);
    Press(Qt::Key_S, Qt::ControlModifier);
    const QByteArray pdf = Bytes(path + u".pdf"_s);
    EXPECT_TRUE(pdf.startsWith("%PDF-")) << "no PDF";
    EXPECT_EQ(pdf.count("/Type/Page/"), 2);

    program.script.File(u"另存为 PDF"_s, path + u".pdf"_s);
    program.script.Question(u"文件“%1.pdf”已经存在，要替换它吗？"_s.arg(path), MsgTitle, false);
    Press(Qt::Key_S, Qt::ControlModifier);
    program.script.File(u"另存为 PDF"_s, AppFolder + u"nowhere/out.pdf"_s);
    program.script.BoxContaining(u"无法写入"_s);
    Press(Qt::Key_S, Qt::ControlModifier);
}

TEST_F(PreviewTest, AChangedLayoutIsSeenAtOnceAndAFaultyOneIsReported) {
    Run(3);
    const QByteArray good = Bytes(AppFolder + u"prntc023.rpt"_s);
    Write(AppFolder + u"prntc023.rpt"_s,
          QByteArray(good).replace("title=\"对帐明细表\"", "title=\"对帐单\""));
    Press(Qt::Key_F5);
    EXPECT_TRUE(program.Status().startsWith(u"对帐单：A4"_s)) << program.Status().toStdString();
    Write(AppFolder + u"prntc023.rpt"_s, "<report>\n<data>select</data></raport>");
    program.script.BoxContaining(u"报表文件“prntc023.rpt”第 2 行"_s);
    Press(Qt::Key_F5);
    EXPECT_TRUE(program.Status().startsWith(u"对帐单：A4"_s));
    EXPECT_EQ(Pages().Pages(), 1);
}

TEST_F(PreviewTest, AMissingLayoutFailsAtActionAndIsSilentWhenPrinted) {
    ASSERT_TRUE(QFile::remove(AppFolder + u"prntc05.rpt"_s));
    FillWorkTable(u"prntc05.rpt"_s, 1, [&](const QString& sql) { program.Execute(sql); });
    EXPECT_THROW(RunReport(u"prntc05.rpt"_s, {}), RuntimeError);
    Settle();
    EXPECT_TRUE(program.Shown(u"Label1"_s));
    AltKey(u'P');
    program.script.Box(u"报表文件prntc05.rpt丢失!"_s, MsgTitle);
    EXPECT_FALSE(LayoutIsThere(u"prntc05.rpt"_s, u"丢失!"_s));
    AltKey(u'R');
    EXPECT_EQ(program.Frame().Front(), nullptr);
    EXPECT_TRUE(program.Frame().ToolBarShown());
}

TEST_F(PreviewTest, PrintsThePagesThatThePrinterIsAskedFor) {
    Run(100);
    program.Execute(u"delete from PRNTC023"_s);
    const QString path = AppFolder + u"printed.pdf"_s;
    const auto before = report::ReportControl::AskPrinter();
    int offered = 0;
    report::ReportControl::AskPrinter() = [&](QPrinter& printer, int pages, QWidget*) {
        offered = pages;
        printer.setOutputFileName(path);
        printer.setPrintRange(QPrinter::PageRange);
        printer.setFromTo(2, 3);
        return true;
    };
    AltKey(u'P');
    report::ReportControl::AskPrinter() = before;
    EXPECT_EQ(offered, 3);
    EXPECT_EQ(Bytes(path).count("/Type /Page\n"), 2);
}

}  // namespace
}  // namespace tests
