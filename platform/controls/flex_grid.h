// The grid of all lists: a matrix of texts with frozen header rows, held in plain vectors behind a table
// model.
//
// Always holds: rows count from 0 and the header rows are among them; the grid always has at least FixedRows
// + 1 rows. CurRow and RecCount of a form and the grid's Row are three values. RowChange fires for the
// operator's moves and for an assignment that changes Row; never during a load (BeginLoad to EndLoad),
// AddItem, RemoveItem, Clear, nor inside its own handler. A row or column out of range raises RuntimeError
// (下标越界). Row 0 is legal: then no row is highlighted. Widths are fifteenths of a logical pixel.
//
// Where rows come or go, Row keeps its number, limited to the last row: after RemoveItem(Row) the row that
// followed is the current one. After a load Row is the first data row and is at the top.
#pragma once

#include "platform/controls/control_events.h"

#include <QColor>
#include <QLineEdit>
#include <QTableView>

#include <functional>
#include <memory>
#include <vector>

namespace controls {

class ComboBox;

/// The key by which the operator left an editor over a cell.
enum class CellStep { Enter, Next, Previous, Up, Down };

/// A form that goes to another cell sets `taken`. Else Enter leaves the focus in the grid, and the other keys
/// act on the grid.
struct CellMove {
    CellStep step;
    bool taken = false;
};

/// Which characters open an editor over the current cell; Enter and F2 always do. A point and a minus count
/// as digits. With all characters Delete and Backspace open it too, emptied.
enum class EditStart { Digits, Characters };

class FlexGrid : public QTableView, public FocusEvents {
    Q_OBJECT
  public:
    static constexpr int UnitsPerPixel = 15;  ///< of the widths

    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    int Rows() const;
    /// New rows are blank; too many are cut at the end. Fewer than FixedRows + 1 raises.
    void SetRows(int rows);
    int Cols() const;
    void SetCols(int cols);
    int FixedRows() const;
    /// Rows grows where there would be no data row; a Row that becomes a header row is the first data row
    /// then.
    void SetFixedRows(int rows);

    /// Setting Row scrolls it into view and sets RowSel with it; setting Col sets ColSel.
    int Row() const;
    void SetRow(int row);
    int Col() const;
    void SetCol(int col);
    /// The rows from Row to RowSel are highlighted, always over the whole width.
    int RowSel() const;
    void SetRowSel(int row);
    int ColSel() const;
    void SetColSel(int col);
    /// The first data row in sight; near the end it is lower than what was set. A header row means the first
    /// data row.
    int TopRow() const;
    void SetTopRow(int row);

    const QString& TextMatrix(int row, int col) const;
    /// The data row that has the text in the column: `likely` if it does, else the last one; 0 if none has.
    int RowOf(int col, const QString& text, int likely) const;
    void SetTextMatrix(int row, int col, const QString& text);
    /// Empties every cell, header and data, and takes cell colours and bold away; the counts stay.
    void Clear();
    /// Adds a row at the end (or before `at`) from a text whose cells are parted by tabs; what is too much is
    /// dropped.
    void AddItem(const QString& cells, int at = -1);
    /// Raises for a header row and for the last data row, which cannot be removed.
    void RemoveItem(int row);

    /// Fifteenths of a logical pixel; 0 hides the column. Any other width ends an equal sharing.
    int GridColWidth(int col) const;
    void SetGridColWidth(int col, int width);
    /// The operator has drawn this column to its width, which stays as long as the grid lives.
    bool ColWidthByHand(int col) const;
    /// Pixels, frame included, that show the headers and so many rows of data.
    int HeightOf(int dataRows) const;
    /// Every column that is not hidden gets an equal share of the grid's width, without a gap at the right,
    /// and keeps it when the grid is resized or a column is hidden. Once the operator has drawn a column to
    /// another width, all columns keep theirs. With a number for each column the shares are in proportion to
    /// these.
    void ShareWidths(const std::vector<int>& shares = {});
    void SetColAlignment(int col, Qt::Alignment alignment);
    /// An invalid colour takes it away again.
    void SetCellColor(int row, int col, const QColor& back);
    void SetCellBold(int row, int col, bool bold);
    /// Colour and bold of a whole row from that column on, as a row of totals has them. A cell that has been
    /// given a colour or bold of its own keeps them.
    void SetRowStyle(int row, int fromCol, const QColor& back, bool bold);
    /// Words drawn in a colour of their own wherever a cell of the column holds exactly them.
    void SetWordColor(int col, const QString& word, const QColor& ink);
    /// Equal neighbours in the header rows are drawn as one cell.
    void SetMergeHeader(bool merge);
    /// Frames the current cell while the grid has the focus, for a grid that is worked on cell by cell.
    void SetCellFramed(bool framed);
    /// Rows that are being entered: a line above them, a bar at their left, all other rows muted. Row 0 as
    /// the first ends it; rows that come and go do not move it.
    void SetEntryBlock(int first, int last);
    /// A line around the grid, for a grid on a card; without it the grid runs from edge to edge.
    void SetFramed(bool framed);

    /// Fast filling: BeginLoad(rows) drops the data rows and sets their new number (0 leaves one blank row),
    /// LoadCell writes without repainting, data rows counting from 0 here. EndLoad has to follow, after a
    /// failure too; until then nothing of the list is shown.
    void BeginLoad(int dataRows);
    void LoadCell(int dataRow, int col, QString text);
    void EndLoad();

    /// Lays an editor over a data cell with its text, all of it selected: the grid's own line, or a combo of
    /// the form, which becomes a part of the grid. Enter, Tab, Up and Down, leaving and scrolling
    /// commit it, Esc drops it; F4 and Alt+Down open the list of a combo. It is dropped too when its row
    /// goes. A command that may come by its key while an editor is open calls CommitEditor first: a key to
    /// the menu bar does not leave the editor.
    void EditCell(int row, int col, ComboBox* combo = nullptr);
    /// For a form's KeyPressed: runs `open`, which is to call EditCell, for a key that opens an editor; a
    /// character replaces the cell's text in it, or goes on with what was being typed there when the operator
    /// scrolled.
    void EditByKey(KeyPress& key, EditStart start, const std::function<void()>& open);
    bool Editing() const;
    void CommitEditor();
    void DropEditor();  ///< closes it and leaves the cell as it was
    /// The grid's own line, for its name and its length limit.
    QLineEdit* Editor() const;

    /// The place of a cell in the viewport.
    QRect CellRect(int row, int col) const;

    void SetFocus() { MoveFocus(this); }

    sys::Event<> RowChange;
    sys::Event<> Click;  ///< a click on a data row, after RowChange
    sys::Event<> DoubleClick;
    /// Row, col, the text that was there before; after the new text was written, changed or not.
    sys::Event<int, int, QString> CellEdited;
    sys::Event<CellMove&> CellLeft;  ///< a key closed the editor; after CellEdited
    sys::Event<KeyPress&> KeyPressed;

    /// Bytes that the matrix itself takes, the texts' characters included; for the measurements.
    std::size_t MatrixBytes() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    void CheckRow(int row, int first) const;
    void CheckCol(int col) const;
    void Move(int row, int col);
    bool MoveByKey(int key);
    int ColBeside(int step) const;
    int RowsInSight() const;
    void Change(int fromRow, const std::function<void()>& change);
    void Highlight();
    void ShowRow(int row);
    void ShowCol(int col);
    void BeginWithWholeRow();
    void PaintEntryBlock(QPainter& painter) const;
    void ShowWidths();
    void CopyRows() const;

    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace controls
