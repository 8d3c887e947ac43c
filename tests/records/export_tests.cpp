// The export of a list, driven by keys: what reaches the workbook, what is refused, what is remembered.
#include "records/export.h"
#include "schema/data_files.h"
#include "tests/support/program.h"
#include "tests/support/workbooks.h"
#include "tests/waybills/waybill_company.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tests::Press;
using Sheet = QList<QStringList>;

namespace {

const QString Title = u"提示"_s;
const QString Done = u"数据成功导出到Excel文件！"_s;
const QString Dialog = u"导出数据保存到..."_s;
const QString Taken = u"目标文件夹存在同名文件，请更换文件名！"_s;

class Export : public tests::Program {
  public:
    Export() : Program(tests::WaybillMasters()) {
        schema::MakeExportFile(AppFolder + u"excel.dat"_s);
        grid.SetCols(3);
        Fill(grid, {{u"编号"_s, u"名称"_s, u"备注"_s}, {u"007"_s, u"O'Hara"_s, u"12.50"_s}});
    }

    static void Fill(controls::FlexGrid& grid, const Sheet& rows) {
        grid.SetRows(static_cast<int>(rows.size()));
        for (int row = 0; row < grid.Rows(); ++row)
            for (int col = 0; col < grid.Cols(); ++col) grid.SetTextMatrix(row, col, rows[row].value(col));
    }
    /// Shows the form over the list, does this in it and leaves by Cmd(1).
    void Visit(const std::function<void()>& drive) {
        modals.Next(u"ToExcel"_s, [&](QWidget& shown) {
            form = &shown;
            drive();
            Push(u"Cmd(1)"_s);
        });
        ExportGrid(grid);
    }
    static void Push(const QString& button) {
        for (int i = 0; i < 8 && tests::FocusName() != button; ++i) Press(Qt::Key_Tab);
        EXPECT_EQ(tests::FocusName(), button);
        Press(Qt::Key_Return);
    }
    void Choose(const QString& answer) {
        script.File(Dialog, answer);
        Push(u"CmdSaveTo"_s);
    }
    void ExportTo(const QString& name) {
        Choose(Path(name));
        script.Box(Done, {});
        Press(Qt::Key_Return);  // the focus is on Cmd(0)
    }
    QString Path(const QString& name) const { return AppFolder + name; }
    Sheet Read(const QString& name) { return tests::ReadWorkbook(Path(name)).rows; }
    QString Target() { return tests::Find<controls::LineBox>(*form, u"Txt"_s).Text(); }
    QString Version() { return tests::Find<controls::ComboBox>(*form, u"Cmb"_s).Text(); }
    QStringList Workbooks() const {
        return QDir(AppFolder).entryList({u"*.xls"_s, u"*.tmp"_s}, QDir::Files | QDir::Hidden);
    }

    tests::ModalScript modals;
    controls::FlexGrid grid;
    QWidget* form = nullptr;
};

TEST(ToExcel, ExportsTheWaybillsThatTheListShows) {
    Export run;
    run.Execute(
        u"insert into B01 (F1,F101,F202,F603,F401,F103) VALUES ('007','2024-01-05','H1','C2',12.5,'急件')"_s);
    run.Open(u"B"_s, u"B01"_s);
    QStringList captions;
    run.modals.Next(u"ToExcel"_s, [&](QWidget& form) {
        run.form = &form;
        EXPECT_EQ(form.windowTitle(), u"导出数据到EXCEL");
        EXPECT_EQ(tests::FocusName(), u"Cmb");
        QObject::connect(&form, &QWidget::windowTitleChanged, [&](const QString& t) { captions += t; });
        run.ExportTo(u"单"_s);
        EXPECT_EQ(run.Target(), run.Path(u"单.xls"_s));
        for (const auto& name : {u"CmdSaveTo"_s, u"Cmb"_s})
            EXPECT_FALSE(tests::Find<QWidget>(form, name).isEnabled()) << name.toStdString();
        EXPECT_EQ(tests::Find<controls::Button>(form, u"Cmd(0)"_s).Caption(), u"打开文件");
        run.script.Address(u"file://"_s + run.Path(u"单.xls"_s));
        Press(Qt::Key_Return);
        QFile::rename(run.Path(u"单.xls"_s), run.Path(u"moved"_s));
        run.script.Box(u"指定文件已经被移除！"_s, Title);
        Press(Qt::Key_Return);
        Press(Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible()) << "Esc is none of its keys";
        Export::Push(u"Cmd(1)"_s);
    });
    tests::AltKey(u'T');
    EXPECT_EQ(captions, (QStringList{u"正在读取第 0 行"_s, u"读取数据完毕,准备导出到Excel文件 "_s, Done}));
    const auto book = tests::ReadWorkbook(run.Path(u"moved"_s));
    EXPECT_EQ(book.biff, 80);
    EXPECT_TRUE(book.readByBoth);
    EXPECT_EQ(book.sheets, QStringList{u"mysheet"_s});
    Sheet expected{{},
                   {u"速递单号"_s, u"寄件日期"_s, u"目的地"_s, u"服务类型"_s, u"货品件数"_s, u"付款方式"_s,
                    u"出货渠道"_s, u"发件客户"_s, u"外务员"_s, u"出货审核"_s, u"备注"_s}};
    for (int field = 1; field <= 11; ++field) expected[0] += u'F' + QString::number(field);
    expected += {u"007"_s, u"2024-01-05"_s, {}, {}, u"12.5"_s, {}, u"环洋"_s, u"恒丰"_s, {}, {}, u"急件"_s};
    EXPECT_EQ(book.rows, expected);
}

TEST(ToExcel, TakesTheShownColumnsUpToThirty) {
    const struct {
        int cols;
        QList<std::pair<int, int>> widths;  ///< column and its width
        QList<int> exported;
        const char* why;
    } rows[] = {
        {4, {{1, 0}}, {0, 2, 3}, "a hidden column takes no field"},
        {4,
         {{0, 0}, {1, 1}, {2, 2}},
         {0, 2, 3},
         "the first always goes out, the others from a width of 2 on"},
        {31, {}, {}, "the thirty-first stays"},
        {33, {{5, 0}, {29, 0}}, {}, "and no later one comes in for a hidden one"},
    };
    for (const auto& row : rows) {
        Export run;
        run.grid.SetCols(row.cols);
        QStringList headers, cells;
        for (int col = 0; col < row.cols; ++col) {
            headers += u"列%1"_s.arg(col);
            cells += QString::number(col);
        }
        Export::Fill(run.grid, {headers, cells});
        for (const auto& [col, width] : row.widths) run.grid.SetGridColWidth(col, width);
        Sheet expected(3);
        for (int col = 0; col < std::min(row.cols, 30); ++col) {
            if (row.exported.isEmpty() ? row.widths.contains(std::pair(col, 0)) : !row.exported.contains(col))
                continue;
            expected[0] += u'F' + QString::number(expected[0].size() + 1);
            expected[1] += headers[col];
            expected[2] += cells[col];
        }
        run.Visit([&] { run.ExportTo(u"a.xls"_s); });
        EXPECT_EQ(run.Read(u"a.xls"_s), expected) << row.why;
    }
}

TEST(ToExcel, AnEmptyListIsItsHeaderAndOneEmptyRow) {
    Export run;
    Export::Fill(run.grid, {{u"编号"_s, u"名称"_s, u"备注"_s}, {}});
    run.Visit([&] { run.ExportTo(u"a.XLS"_s); });
    EXPECT_EQ(run.Read(u"a.XLS"_s),
              (Sheet{{u"F1"_s, u"F2"_s, u"F3"_s}, {u"编号"_s, u"名称"_s, u"备注"_s}, {{}, {}, {}}}));
}

TEST(ToExcel, RefusesInOrderAndStaysUsable) {
    Export run;
    run.Visit([&] {
        ASSERT_TRUE(QFile::rename(run.Path(u"excel.dat"_s), run.Path(u"away"_s)));
        run.script.Box(u"请首先选择文件保存位置!"_s, Title);
        Export::Push(u"Cmd(0)"_s);
        run.Choose({});
        EXPECT_EQ(run.Target(), u"");
        run.Choose(run.Path(u"a"_s));
        run.script.Box(u"Korvane系统文件excel.dat丢失,无法执行操作!"_s, Title);
        Press(Qt::Key_Return);
        EXPECT_EQ(run.form->windowTitle(), u"导出数据到EXCEL") << "nothing else has happened";
        ASSERT_TRUE(QFile::rename(run.Path(u"away"_s), run.Path(u"excel.dat"_s)));
        // Cancelling and a name that is taken leave the choice as it was; so does the extension that is
        // added.
        run.Choose({});
        ASSERT_TRUE(QFile::copy(run.Path(u"excel.dat"_s), run.Path(u"taken.xls"_s)));
        for (const auto& name : {u"taken"_s, u"taken.xls"_s}) {
            run.script.File(Dialog, run.Path(name));
            run.script.Box(Taken, Title);
            Export::Push(u"CmdSaveTo"_s);
        }
        EXPECT_EQ(run.Target(), run.Path(u"a.xls"_s));
        // A folder that went away in between.
        run.Choose(run.Path(u"none/b.xls"_s));
        run.script.Box(u"无法写入“%1”：文件夹不存在！"_s.arg(run.Path(u"none/b.xls"_s)), Title);
        Press(Qt::Key_Return);
        EXPECT_EQ(tests::Find<controls::Button>(*run.form, u"Cmd(0)"_s).Caption(), u"导出数据");
        EXPECT_EQ(run.Workbooks(), QStringList{u"taken.xls"_s});
        run.ExportTo(u"c"_s);
    });
    EXPECT_EQ(run.Read(u"c.xls"_s), (Sheet{{u"F1"_s, u"F2"_s, u"F3"_s},
                                           {u"编号"_s, u"名称"_s, u"备注"_s},
                                           {u"007"_s, u"O'Hara"_s, u"12.50"_s}}))
        << "an apostrophe is a text like any other";
}

TEST(ToExcel, NamesTheRowThatDoesNotFit) {
    const struct {
        int version;
        QString note;
        int rows;
        QString message;
    } rows[] = {
        {0, QString(32'768, u'x'), 3, u"第 2 行“备注”的文字太长：EXCEL 8.0 的单元格最多 32767 个字符！"_s},
        {1, u"字"_s.repeated(128), 3,
         u"第 2 行“备注”的文字太长：EXCEL 7.0 的单元格最多 255 个字节！\r请选择 EXCEL 8.0 再导出。"_s},
        {0, {}, 65'536, u"从第 65535 行起放不下：EXCEL 8.0 的工作表最多 65536 行（含字段名一行）！"_s},
        {2,
         {},
         16'384,
         u"从第 16383 行起放不下：EXCEL 5.0 的工作表最多 16384 行（含字段名一行）！\r请选择 EXCEL 8.0 再导出。"_s},
    };
    for (const auto& row : rows) {
        Export run;
        run.grid.SetGridColWidth(1, 0);
        run.grid.SetRows(row.rows);
        run.grid.SetTextMatrix(2, 2, row.note);
        run.Visit([&] {
            for (int down = 0; down < row.version; ++down) Press(Qt::Key_Down);
            run.Choose(run.Path(u"a.xls"_s));
            run.script.Box(row.message, Title);
            Press(Qt::Key_Return);
            EXPECT_TRUE(run.Workbooks().isEmpty());
            if (row.rows == 3) return;
            run.grid.SetRows(row.rows - 1);
            run.script.Box(Done, {});
            Press(Qt::Key_Return);
        });
    }
}

TEST(ToExcel, TheVersionIsTheOneChosenLast) {
    Export run;
    auto& settings = run.script.Settings();
    const struct {
        QString stored, shown;
        int downs;
        QString storedAfter;
        int biff;
    } rows[] = {
        {{}, u"EXCEL 8.0"_s, 0, {}, 80},           {{}, u"EXCEL 8.0"_s, 1, u"1"_s, 70},
        {u"1"_s, u"EXCEL 7.0"_s, 1, u"2"_s, 50},   {u"2"_s, u"EXCEL 5.0"_s, 0, u"2"_s, 50},
        {u"3"_s, u"EXCEL 8.0"_s, 0, u"0"_s, 80},   {u"-1"_s, u"EXCEL 8.0"_s, 0, u"0"_s, 80},
        {u"1x"_s, u"EXCEL 7.0"_s, 0, u"1x"_s, 70}, {u"x"_s, u"EXCEL 8.0"_s, 9, u"2"_s, 50},
    };
    int file = 0;
    for (const auto& row : rows) {
        settings[u"ToExcel"_s] = row.stored;
        const QString name = u"%1.xls"_s.arg(++file);
        run.Visit([&] {
            EXPECT_EQ(run.Version(), row.shown);
            for (int down = 0; down < row.downs; ++down) Press(Qt::Key_Down);
            tests::Type(u"z"_s);  // the version is chosen, not typed
            run.ExportTo(name);
        });
        EXPECT_EQ(settings[u"ToExcel"_s], row.storedAfter) << row.stored.toStdString();
        EXPECT_EQ(tests::ReadWorkbook(run.Path(name)).biff, row.biff) << row.stored.toStdString();
    }
}

}  // namespace
