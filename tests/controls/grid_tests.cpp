#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_header.h"
#include "platform/controls/grid_model.h"
#include "platform/errors.h"
#include "tests/support/gui.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;
using controls::FlexGrid;

namespace {

/// A grid in a window with a text box beside it to go to, checked by the toolkit's model tester all the
/// while.
class GridTest : public testing::Test {
  protected:
    GridTest() {
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&grid);
        layout->addWidget(&other);
        window.resize(400, 28 + 10 * 24 + other.sizeHint().height() + layout->spacing());
        grid.RowChange = [this] { changes.push_back(grid.Row()); };
    }

    void Open() {
        tests::Show(window);
        grid.SetFocus();
        tests::Settle();
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
    std::vector<int> changes;
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
    EXPECT_TRUE(changes.empty());
}

TEST_F(GridTest, OutOfRangeRaises) {
    Fill(3);
    const std::vector<std::function<void()>> wrong = {
        [&] { grid.SetRow(4); },
        [&] { grid.SetRow(-1); },
        [&] { grid.SetCol(3); },
        [&] { grid.SetRowSel(4); },
        [&] { grid.SetTopRow(4); },
        [&] { static_cast<void>(grid.TextMatrix(4, 0)); },
        [&] { grid.TextMatrix(0, -1); },
        [&] { grid.SetTextMatrix(0, 3, u""_s); },
        [&] { grid.AddItem(u"x"_s, 0); },
        [&] { grid.AddItem(u"x"_s, 5); },
        [&] { grid.RemoveItem(0); },
        [&] { grid.RemoveItem(4); },
        [&] { grid.SetRows(1); },
        [&] { grid.SetGridColWidth(3, 15); },
        [&] { grid.EditCell(0, 0); },
        [&] { grid.SetCellColor(4, 0, Qt::red); },
        [&] { grid.SetRowStyle(1, 9, Qt::red, true); },
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

// ---------------------------------------------------------------- the row-change event

TEST_F(GridTest, RowChangeFiresForTheOperatorAndForAnAssignmentThatChangesRow) {
    Fill(30);
    Open();
    struct {
        const char* what;
        std::function<void()> act;
        std::vector<int> reported;
        int row;
    } const steps[] = {
        {"same row", [&] { grid.SetRow(1); }, {}, 1},
        {"assignment", [&] { grid.SetRow(3); }, {3}, 3},
        {"down", [&] { QTest::keyClick(&grid, Qt::Key_Down); }, {4}, 4},
        {"click", [&] { ClickCell(7, 1); }, {7}, 7},
        {"click on the current row", [&] { ClickCell(7, 2); }, {}, 7},
        {"page", [&] { QTest::keyClick(&grid, Qt::Key_PageDown); }, {17}, 17},
        {"end", [&] { QTest::keyClick(&grid, Qt::Key_End); }, {30}, 30},
        {"down at the end", [&] { QTest::keyClick(&grid, Qt::Key_Down); }, {}, 30},
        {"home", [&] { QTest::keyClick(&grid, Qt::Key_Home); }, {1}, 1},
        {"up at the beginning", [&] { QTest::keyClick(&grid, Qt::Key_Up); }, {}, 1},
        {"letters search nothing", [&] { QTest::keyClick(&grid, Qt::Key_2); }, {}, 1},
        {"header row", [&] { grid.SetRow(0); }, {0}, 0},
        {"down from the header row", [&] { QTest::keyClick(&grid, Qt::Key_Down); }, {1}, 1},
        {"column and end of selection", [&] { grid.SetCol(2), grid.SetRowSel(4), grid.SetColSel(1); }, {}, 1},
        {"a screen reader's choice",
         [&] {
             grid.selectionModel()->select(grid.model()->index(8, 0),
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
         },
         {9},
         9},
        {"reload", [&] { Fill(20); }, {}, 1},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.what);
        changes.clear();
        step.act();
        EXPECT_EQ(changes, step.reported);
        EXPECT_EQ(grid.Row(), step.row);
        if (grid.RowSel() == grid.Row()) {
            EXPECT_EQ(Highlighted(), step.row == 0 ? QString() : QString::number(step.row));
        }
    }
}

TEST_F(GridTest, RowChangeIsSilentInItsOwnHandler) {
    Fill(9);
    grid.RowChange = [this] {
        changes.push_back(grid.Row());
        grid.SetRow(2);
    };
    grid.SetRow(5);
    EXPECT_EQ(changes, std::vector<int>{5});
    EXPECT_EQ(grid.Row(), 2);
    grid.SetRow(6);
    EXPECT_EQ(changes, (std::vector<int>{5, 6}));
}

// ---------------------------------------------------------------- keys and mouse

TEST_F(GridTest, KeysGoToTheFormFirst) {
    Fill(4);
    Open();
    QList<int> seen;
    bool take = true;
    grid.KeyPressed = [&](controls::KeyPress& press) {
        seen << press.key;
        press.taken = take;
    };
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(seen, (QList<int>{Qt::Key_Return, Qt::Key_Down}));
    EXPECT_EQ(grid.Row(), 1);
    take = false;
    QTest::keyClick(&grid, Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 2);
    QTest::keyClick(&grid, Qt::Key_Tab);  // on to the next control, not to the next cell
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(grid.Row(), 2);
}

TEST_F(GridTest, LeftAndRightMoveOverTheColumnsInSightAndCopyTakesThem) {
    Fill(4, 4);
    grid.SetGridColWidth(1, 0);
    Open();
    for (const auto& [key, col] : {std::pair(Qt::Key_Right, 2),
                                   {Qt::Key_Right, 3},
                                   {Qt::Key_Right, 3},
                                   {Qt::Key_Left, 2},
                                   {Qt::Key_Left, 0},
                                   {Qt::Key_Left, 0}}) {
        QTest::keyClick(&grid, key);
        EXPECT_EQ(grid.Col(), col);
    }
    grid.SetRow(2);
    grid.SetRowSel(3);
    EXPECT_EQ(Highlighted(), u"2,3"_s);
    QTest::keyClick(&grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"2/0\t2/2\t2/3\n3/0\t3/2\t3/3"_s);
}

TEST_F(GridTest, ClicksComeAfterRowChange) {
    Fill(5);
    Open();
    QStringList reported;
    grid.RowChange = [&] { reported << u"row"_s; };
    grid.Click = [&] { reported << u"click"_s; };
    grid.DoubleClick = [&] { reported << u"double"_s; };
    ClickCell(3, 1);
    EXPECT_EQ(reported, (QStringList{u"row"_s, u"click"_s}));
    EXPECT_EQ(grid.Col(), 1);
    reported.clear();
    ClickCell(4, 0);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(4, 0).center());
    EXPECT_EQ(reported, (QStringList{u"row"_s, u"click"_s, u"double"_s}));
    reported.clear();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, QPoint(10, 8 * 24));  // below the rows
    QTest::mouseClick(grid.viewport(), Qt::RightButton, {}, grid.CellRect(1, 0).center());
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(4, 0).center());
    QTest::mouseMove(grid.viewport(), grid.CellRect(1, 0).center());
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, QPoint(-50, -50));
    EXPECT_EQ(reported, QStringList());
    EXPECT_EQ(Highlighted(), u"4"_s);
}

TEST_F(GridTest, ScrollsSoThatRowIsInSight) {
    Fill(100);
    grid.SetTopRow(40);
    EXPECT_EQ(grid.TopRow(), 40);
    grid.SetRow(45);
    Open();
    EXPECT_EQ(grid.TopRow(), 40);  // what was set before it was shown
    grid.SetRow(60);
    EXPECT_EQ(grid.TopRow(), 51);
    grid.SetRow(7);
    EXPECT_EQ(grid.TopRow(), 7);
    grid.SetTopRow(0);
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetTopRow(100);
    EXPECT_EQ(grid.TopRow(), 91);  // ten rows fit
    grid.SetRow(100);
    window.resize(400, 200);
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.CellRect(100, 0).center()));
    EXPECT_EQ(grid.CellRect(grid.TopRow(), 0).top(), 0) << "the row on top is whole at the end too";
    Fill(50);
    EXPECT_EQ(grid.TopRow(), 1);
}

// ---------------------------------------------------------------- columns and looks

TEST_F(GridTest, ColoursGoWithTheirRows) {
    Fill(4);
    for (const int row : {2, 4}) grid.SetCellColor(row, 1, Qt::cyan);
    const auto coloured = [&] {
        QStringList rows;
        for (int row = 1; row < grid.Rows(); ++row)
            if (grid.model()->index(row - 1, 1).data(Qt::BackgroundRole).isValid())
                rows << grid.TextMatrix(row, 0);
        return rows.join(u' ');
    };
    EXPECT_EQ(coloured(), u"2/0 4/0"_s);
    grid.AddItem(u"x"_s, 1);
    EXPECT_EQ(coloured(), u"2/0 4/0"_s);
    grid.RemoveItem(3);
    EXPECT_EQ(coloured(), u"4/0"_s);
}

TEST_F(GridTest, ARowsStyleBeginsAtItsColumnAndGivesWayToACellsOwn) {
    Fill(4, 3);
    grid.SetRowStyle(3, 1, Qt::yellow, true);
    grid.SetCellColor(3, 2, Qt::cyan);
    const auto looks = [&](int row) {
        QStringList cells;
        for (int col = 0; col < 3; ++col) {
            const QModelIndex cell = grid.model()->index(row - 1, col);
            cells << cell.data(Qt::BackgroundRole).value<QBrush>().color().name() +
                         (cell.data(Qt::FontRole).value<QFont>().bold() ? u"!"_s : u""_s);
        }
        return cells.join(u' ');
    };
    EXPECT_EQ(looks(3), u"#000000 #ffff00! #00ffff"_s);
    grid.AddItem(u"x"_s, 1);
    EXPECT_EQ(looks(4), u"#000000 #ffff00! #00ffff"_s) << "it goes with its row";
    EXPECT_EQ(looks(3), u"#000000 #000000 #000000"_s);
    grid.BeginLoad(4);
    grid.EndLoad();
    EXPECT_EQ(looks(4), u"#000000 #000000 #000000"_s) << "a load drops it";
}

TEST_F(GridTest, HeaderCellsMerge) {
    controls::GridModel model;
    const auto cells = [&](const QStringList& rows, std::vector<bool> hidden = {}) {
        model.SetCols(static_cast<int>(rows[0].split(u' ').size()));
        model.SetFixedRows(static_cast<int>(rows.size()));
        hidden.resize(static_cast<std::size_t>(model.Cols()));
        for (int row = 0; row < rows.size(); ++row)
            for (int col = 0; col < model.Cols(); ++col)
                model.SetText(row, col, rows[row].split(u' ')[col].replace(u"-"_s, QString()));
        QStringList found;
        for (const auto& c : controls::HeaderCells(model, true, hidden))
            found << u"%1%2-%3%4"_s.arg(c.row).arg(c.col).arg(c.lastRow).arg(c.lastCol);
        return found.join(u' ');
    };
    EXPECT_EQ(cells({u"区 名 文 文 重"_s, u"区 名 首 首 首"_s}),
              u"00-10 01-11 02-03 04-04 12-12 13-13 14-14"_s);
    EXPECT_EQ(cells({u"文 文 文 重"_s, u"首 续 首 首"_s}, {false, true, false, false}),
              u"00-02 03-03 10-10 12-12 13-13"_s);
    EXPECT_EQ(cells({u"- - 甲 甲"_s}), u"00-00 01-01 02-03"_s);
    EXPECT_EQ(cells({u"甲 甲"_s, u"甲 甲"_s, u"乙 丙"_s}), u"00-11 20-20 21-21"_s);
}

// ---------------------------------------------------------------- the editor over a cell

class GridEditorTest : public GridTest {
  protected:
    GridEditorTest() {
        Fill(40, 12);
        Open();
        grid.CellEdited = [this](int row, int col, const QString& before) {
            reported << u"%1,%2 %3>%4"_s.arg(row).arg(col).arg(before, grid.TextMatrix(row, col));
        };
    }

    /// Opens an editor over (2, 1) and types a text over what it holds.
    void Edit(const QString& text) {
        reported.clear();
        grid.SetTextMatrix(2, 1, u"旧"_s);
        grid.EditCell(2, 1);
        ASSERT_TRUE(grid.Editor()->hasFocus());
        ASSERT_EQ(grid.Editor()->selectedText(), u"旧"_s);
        QTest::keyClicks(grid.Editor(), text);
    }

    QStringList reported;
};

TEST_F(GridEditorTest, WaysToCommitAndToDrop) {
    const QStringList written{u"2,1 旧>98"_s};
    grid.RowChange = [this] { reported << u"row %1"_s.arg(grid.Row()); };
    struct {
        const char* what;
        std::function<void()> leave;
        QStringList reported;
        const QWidget* focus = nullptr;
    } const ways[] = {
        {"Enter", [&] { QTest::keyClick(grid.Editor(), Qt::Key_Return); }, written, &grid},
        {"Esc", [&] { QTest::keyClick(grid.Editor(), Qt::Key_Escape); }, {}},
        {"another control", [&] { other.setFocus(); }, written},
        {"Tab", [&] { QTest::keyClick(grid.Editor(), Qt::Key_Tab); }, written, &other},
        {"Down", [&] { QTest::keyClick(grid.Editor(), Qt::Key_Down); }, {written[0], u"row 3"_s}, &grid},
        {"a click in the grid", [&] { ClickCell(4, 0); }, {written[0], u"row 4"_s}, &grid},
        {"scrolling down", [&] { grid.verticalScrollBar()->setValue(3); }, written},
        {"scrolling sideways", [&] { grid.horizontalScrollBar()->setValue(9); }, written},
        {"the command", [&] { grid.CommitEditor(); }, written},
        {"another cell", [&] { grid.EditCell(3, 1), grid.CommitEditor(); }, {written[0], u"3,1 3/1>3/1"_s}},
        {"its row goes", [&] { grid.RemoveItem(2), grid.AddItem(u""_s, 2); }, {}},
        {"a menu or a box over the window",
         [&] {
             QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
             QApplication::sendEvent(grid.Editor(), &out);
             EXPECT_TRUE(grid.Editing());
             grid.CommitEditor();
         },
         written},
    };
    for (const auto& way : ways) {
        SCOPED_TRACE(way.what);
        grid.SetTopRow(1);
        grid.SetRow(2);
        Edit(u"98"_s);
        way.leave();
        QApplication::processEvents();
        EXPECT_EQ(reported, way.reported);
        EXPECT_TRUE(way.focus == nullptr || way.focus->hasFocus());
        EXPECT_FALSE(grid.Editing());
        EXPECT_FALSE(grid.Editor()->isVisible());
        EXPECT_EQ(grid.TextMatrix(2, 1) == u"98"_s, !way.reported.isEmpty());
    }
}

TEST_F(GridEditorTest, ForTheFormTheFocusStaysInTheGrid) {
    grid.GotFocus = [this] { reported << u"got"_s; };
    grid.LostFocus = [this] { reported << u"lost"_s; };
    Edit(u"1"_s);
    tests::Settle();
    QTest::keyClick(grid.Editor(), Qt::Key_Return);
    tests::Settle();
    EXPECT_EQ(reported, QStringList{u"2,1 旧>1"_s});
    Edit(u"2"_s);
    other.setFocus();
    tests::Settle();
    EXPECT_EQ(reported.size(), 2);
    EXPECT_TRUE(reported.contains(u"lost"_s));
}

TEST_F(GridEditorTest, IsOnItsCellAndFollows) {
    grid.ShareWidths();
    grid.EditCell(30, 7);  // out of sight: brought into it
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.Editor()->geometry()));
    EXPECT_EQ(grid.Editor()->geometry(), grid.CellRect(30, 7));
    window.resize(900, window.height());
    QApplication::processEvents();
    EXPECT_TRUE(grid.Editing());
    EXPECT_EQ(grid.Editor()->geometry(), grid.CellRect(30, 7));
    grid.SetRow(30);
    window.resize(900, 260);  // its row would be out of sight
    QApplication::processEvents();
    EXPECT_TRUE(grid.Editing()) << "only the operator's own scrolling commits";
    EXPECT_EQ(grid.Editor()->geometry(), grid.CellRect(30, 7));
    EXPECT_TRUE(grid.viewport()->rect().contains(grid.Editor()->geometry()));
    grid.SetTopRow(40);
    grid.SetRow(40);
    grid.EditCell(40, 7);
    window.resize(900, 500);  // there would be an empty strip under the last row
    QApplication::processEvents();
    EXPECT_TRUE(grid.Editing());
    EXPECT_EQ(grid.Editor()->geometry(), grid.CellRect(40, 7));
    grid.AddItem(u"x"_s);  // at the end: the editor is not touched
    EXPECT_TRUE(grid.Editing());
}

TEST_F(GridEditorTest, ACharacterOpensItAndAKeyGoesOn) {
    grid.KeyPressed = [this](controls::KeyPress& key) {
        grid.EditByKey(key, controls::EditStart::Characters,
                       [this] { grid.EditCell(grid.Row(), grid.Col()); });
    };
    bool taken = false;
    grid.CellLeft = [&](controls::CellMove& move) {
        reported << QString::number(static_cast<int>(move.step));
        move.taken = taken;
    };
    grid.SetFocus();
    grid.SetRow(2);
    QTest::keyClicks(&grid, u"x"_s);
    ASSERT_TRUE(grid.Editing());
    EXPECT_EQ(grid.Editor()->text(), u"x"_s) << "in place of the cell's text";
    QTest::keyClick(grid.Editor(), Qt::Key_Escape);
    EXPECT_EQ(grid.TextMatrix(2, 0), u"2/0"_s);
    QTest::keyClick(&grid, Qt::Key_F2);
    EXPECT_EQ(grid.Editor()->selectedText(), u"2/0"_s);
    QTest::keyClick(grid.Editor(), Qt::Key_Up);
    EXPECT_EQ(grid.Row(), 1) << "the grid's own move where no form takes it";
    EXPECT_EQ(reported, (QStringList{u"2,0 2/0>2/0"_s, u"3"_s}));
    taken = true;
    QTest::keyClick(&grid, Qt::Key_Return);
    QTest::keyClick(grid.Editor(), Qt::Key_Tab);
    EXPECT_TRUE(grid.hasFocus());
}

TEST_F(GridEditorTest, ACompositionIsCommittedWithTheCell) {
    const std::function<void()> ways[] = {
        [this] { grid.SetTopRow(5); },
        [this] {
            const QPoint cell = grid.CellRect(4, 0).center();
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                              grid.viewport()->mapTo(&window, cell));
        },
    };
    for (const auto& leave : ways) {
        grid.SetTopRow(1);
        Edit(u"8"_s);
        QInputMethodEvent composing(u"yuan"_s, {});
        QCoreApplication::sendEvent(grid.Editor(), &composing);
        const QPoint inside = grid.Editor()->mapTo(&window, QPoint(grid.Editor()->width() - 2, 8));
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, inside);
        EXPECT_EQ(grid.Editor()->text(), u"8"_s) << "still being composed";
        QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, inside);
        leave();
        tests::Settle();
        EXPECT_EQ(grid.TextMatrix(2, 1), u"8yuan"_s);
    }
}

TEST_F(GridEditorTest, AClickMeansTheRowUnderItEvenWhereTheCommitRemovesAnother) {
    grid.CellEdited = [this](int row, int, const QString&) { grid.RemoveItem(row); };
    const auto doubleClick = [this](int row) {
        QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, grid.CellRect(row, 0).center());
    };
    for (const bool twice : {false, true}) {
        Edit(u"0"_s);
        const QString clicked = grid.TextMatrix(5, 0);
        twice ? doubleClick(5) : ClickCell(5, 0);
        EXPECT_EQ(grid.TextMatrix(grid.Row(), 0), clicked);
        EXPECT_EQ(grid.Row(), 4);
    }
    Edit(u"0"_s);
    const int row = grid.Row();
    ClickCell(2, 0);
    EXPECT_EQ(grid.Row(), row) << "the row under it has gone itself";
}

TEST_F(GridEditorTest, TypingGoesOnAfterScrolling) {
    grid.KeyPressed = [this](controls::KeyPress& key) {
        grid.EditByKey(key, controls::EditStart::Characters, [this] { grid.EditCell(2, grid.Col()); });
    };
    grid.CellEdited = [this](int row, int col, const QString&) { grid.SetTextMatrix(row, col, u"9"_s); };
    const struct {
        const char* what;
        std::function<void()> between;
        QString text;
    } rows[] = {
        {"nothing", [] {}, u"1250"_s},
        {"Backspace", [&] { QTest::keyClick(&grid, Qt::Key_Backspace); }, u"150"_s},
        {"Delete", [&] { QTest::keyClick(&grid, Qt::Key_Delete); }, u"50"_s},
        {"Esc", [&] { QTest::keyClick(&grid, Qt::Key_Escape); }, u"50"_s},
        {"the next cell", [&] { grid.EditCell(2, 2), grid.DropEditor(); }, u"50"_s},
        {"a move and back", [&] { grid.SetRow(3), grid.SetRow(2); }, u"50"_s},
        {"another control", [&] { other.setFocus(), grid.setFocus(); }, u"50"_s},
        {"the row goes", [&] { grid.RemoveItem(2), grid.AddItem(u""_s, 2); }, u"50"_s},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        grid.SetTopRow(1);
        grid.SetRow(2);
        grid.SetCol(1);
        Edit(u"12"_s);
        grid.SetTopRow(5);
        EXPECT_EQ(grid.TextMatrix(2, 1), u"9"_s) << "committed, whatever the form made of it";
        row.between();
        for (const char digit : {'5', '0'})
            QTest::keyClick(grid.Editing() ? static_cast<QWidget*>(grid.Editor()) : &grid, digit);
        EXPECT_EQ(grid.Editor()->text(), row.text);
        grid.DropEditor();
    }
}

TEST_F(GridEditorTest, AComboOfTheFormIsAnEditorToo) {
    auto* combo = new controls::ComboBox(&window);
    for (const auto& item : {u"甲"_s, u"乙"_s}) combo->AddItem(item);
    grid.EditCell(2, 1, combo);
    EXPECT_EQ(combo->Text(), u"2/1"_s);
    EXPECT_EQ(combo->lineEdit()->selectedText(), u"2/1"_s);
    EXPECT_EQ(combo->geometry(), grid.CellRect(2, 1));
    QTest::keyClicks(combo, u"z"_s);
    QTest::keyClick(combo, Qt::Key_Return);
    EXPECT_FALSE(combo->isVisible());
    grid.EditCell(3, 1, combo);
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(combo->view()->isVisible());
    EXPECT_TRUE(grid.Editing());
    QTest::keyClick(combo->view(), Qt::Key_Down);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    EXPECT_FALSE(combo->view()->isVisible());
    ASSERT_TRUE(grid.Editing()) << "choosing an item leaves the editor open";
    QTest::keyClick(combo, Qt::Key_Down);
    EXPECT_EQ(reported, (QStringList{u"2,1 2/1>z"_s, u"3,1 3/1>乙"_s}));
    EXPECT_EQ(grid.Row(), 2) << "Down leaves the combo and moves in the grid";
    grid.EditCell(4, 1, combo);
    grid.EditCell(5, 1);
    EXPECT_FALSE(combo->isVisible());
    EXPECT_TRUE(grid.Editor()->isVisible());
}

TEST_F(GridTest, ALoadReplacesTheRowsAndKeepsTheHeader) {
    Open();
    grid.SetTextMatrix(0, 0, u"头"_s);
    Fill(9);
    grid.SetCellColor(3, 1, Qt::cyan);
    grid.SetRow(5);
    changes.clear();
    grid.BeginLoad(4);
    grid.LoadCell(0, 0, u"甲"_s);
    EXPECT_EQ(grid.model()->rowCount(), 0) << "nothing half filled is ever painted";
    grid.SetRow(4);
    grid.SetTextMatrix(2, 0, u"乙"_s);
    QApplication::processEvents();
    grid.SetRows(3);  // a load that was broken off
    grid.EndLoad();
    EXPECT_EQ(Column(0), u"头|甲|乙"_s);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(Highlighted(), u"1"_s);
    EXPECT_TRUE(changes.empty());
    grid.BeginLoad(0);
    grid.EndLoad();
    EXPECT_EQ(Column(0), u"头|"_s);
    EXPECT_FALSE(grid.model()->index(0, 1).data(Qt::BackgroundRole).isValid());
}

}  // namespace
