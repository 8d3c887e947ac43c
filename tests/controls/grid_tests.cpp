#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_header.h"
#include "platform/controls/grid_model.h"
#include "platform/errors.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using controls::FlexGrid;

namespace {

/// A grid in a window with a box beside it to go to, checked by the toolkit's model tester all the while.
class GridTest : public testing::Test {
  protected:
    GridTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&grid);
        layout->addWidget(&other);
        window.resize(400, 28 + 10 * 24 + other.sizeHint().height() + layout->spacing());
        grid.RowChange = [this] { changes << grid.Row(); };
    }

    void Open() {
        window.show();
        window.activateWindow();
        grid.SetFocus();
        QApplication::processEvents();
    }

    void Fill(int dataRows, int cols = 3) {
        grid.SetCols(cols);
        grid.BeginLoad(dataRows);
        for (int row = 0; row < dataRows; ++row)
            for (int col = 0; col < cols; ++col) grid.LoadCell(row, col, Cell(row + 1, col));
        grid.EndLoad();
    }

    static QString Cell(int row, int col) { return u"%1/%2"_s.arg(row).arg(col); }

    QString Column(int col) const {
        QStringList texts;
        for (int row = 0; row < grid.Rows(); ++row) texts << grid.TextMatrix(row, col);
        return texts.join(u'|');
    }

    /// The rows that a selection model's listener, a screen reader for one, sees as selected.
    QString Highlighted() const {
        QStringList rows;
        for (const QModelIndex& index : grid.selectionModel()->selectedRows())
            rows << QString::number(index.row() + grid.FixedRows());
        return rows.join(u',');
    }

    void ClickCell(int row, int col) {
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(row, col).center());
    }

    QWidget window;
    FlexGrid grid{&window};
    QLineEdit other{&window};
    QAbstractItemModelTester tester{grid.model(), QAbstractItemModelTester::FailureReportingMode::Fatal};
    QList<int> changes;
};

TEST_F(GridTest, RowsComeAndGoAndRowKeepsItsNumber) {
    Open();
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Row(), 1);
    Fill(3);
    grid.SetTextMatrix(0, 0, u"头"_s);
    grid.AddItem(u"甲\t乙\t丙\t丁"_s);  // one cell too many
    grid.AddItem(u"戊"_s, 2);
    EXPECT_EQ(Column(0), u"头|1/0|戊|2/0|3/0|甲"_s);
    EXPECT_EQ(Column(2), u"|1/2||2/2|3/2|丙"_s);
    grid.SetRow(4);
    changes.clear();
    grid.RemoveItem(2);  // before Row
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), u"甲"_s);
    EXPECT_EQ(Highlighted(), u"4"_s);
    grid.RemoveItem(4);  // Row itself, the last one
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(Highlighted(), u"3"_s);
    grid.RemoveItem(1);
    grid.RemoveItem(1);
    EXPECT_EQ(Column(0), u"头|3/0"_s);
    EXPECT_EQ(Highlighted(), u"1"_s);
    EXPECT_THROW(grid.RemoveItem(1), RuntimeError);
    grid.SetRows(4);
    EXPECT_EQ(Column(0), u"头|3/0||"_s);
    grid.Clear();
    EXPECT_EQ(Column(0), u"|||"_s);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(GridTest, ReshapingKeepsTheCellsThatRemain) {
    Fill(3);
    grid.SetCols(5);
    EXPECT_EQ(Column(2), u"|1/2|2/2|3/2"_s);
    EXPECT_EQ(Column(4), u"|||"_s);
    grid.SetCols(1);
    EXPECT_EQ(Column(0), u"|1/0|2/0|3/0"_s);
    grid.SetFixedRows(2);
    EXPECT_EQ(grid.model()->rowCount(), 2);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(Highlighted(), u"2"_s);
    grid.SetFixedRows(4);
    EXPECT_EQ(grid.Rows(), 5);
    EXPECT_EQ(grid.TextMatrix(4, 0), QString());
}

TEST_F(GridTest, OutOfRangeRaises) {
    Fill(3);
    const std::vector<std::function<void()>> wrong = {
        [&] { grid.SetRow(4); },          [&] { grid.SetRow(-1); },
        [&] { grid.SetCol(3); },          [&] { grid.SetRowSel(4); },
        [&] { grid.SetTopRow(4); },       [&] { static_cast<void>(grid.TextMatrix(4, 0)); },
        [&] { grid.TextMatrix(0, -1); },  [&] { grid.SetTextMatrix(0, 3, u""_s); },
        [&] { grid.AddItem(u"x"_s, 0); }, [&] { grid.AddItem(u"x"_s, 5); },
        [&] { grid.RemoveItem(0); },      [&] { grid.RemoveItem(4); },
        [&] { grid.SetRows(1); },         [&] { grid.SetGridColWidth(3, 15); },
        [&] { grid.EditCell(0, 0); },     [&] { grid.SetCellColor(4, 0, Qt::red); },
        [&] { grid.LoadCell(3, 0, {}); },
    };
    for (std::size_t i = 0; i < wrong.size(); ++i) {
        SCOPED_TRACE(i);
        try {
            wrong[i]();
            ADD_FAILURE() << "nothing raised";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Text(), u"下标越界"_s);
        }
    }
    EXPECT_EQ(Column(0), u"|1/0|2/0|3/0"_s);
}

}  // namespace
