// The grid of all lists: a matrix of texts with frozen header rows, held in plain vectors behind a table
// model.
//
// Always holds: rows count from 0 and the header rows are among them; the grid always has at least FixedRows
// + 1 rows. CurRow and RecCount of a form and the grid's Row are three values. RowChange fires for the
// operator's moves and for an assignment that changes Row; never during a load (BeginLoad to EndLoad),
// AddItem, RemoveItem, Clear, nor inside its own handler. A row or column out of range raises RuntimeError.
// Row 0 is legal. Widths are fifteenths of a logical pixel.
#pragma once

#include "platform/controls/box.h"

#include <QColor>
#include <QTableView>

#include <memory>
#include <vector>

namespace controls {

class GridModel;
class GridHeader;

class FlexGrid : public QTableView, public FocusEvents {
    Q_OBJECT
  public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    int Rows() const;
    void SetRows(int rows);  ///< new rows are blank; too many are cut at the end
    int Cols() const;
    void SetCols(int cols);
    int FixedRows() const;
    void SetFixedRows(int rows);

    int Row() const;
    void SetRow(int row);
    int Col() const;
    void SetCol(int col);
    int RowSel() const;
    void SetRowSel(int row);
    int ColSel() const;
    void SetColSel(int col);
    int TopRow() const;
    void SetTopRow(int row);

    const QString& TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, const QString& text);
    /// Empties every cell, header and data; the counts stay.
    void Clear();
    /// Adds a row at the end (or before `at`) from a text whose cells are parted by tabs; what is too much is
    /// dropped.
    void AddItem(const QString& cells, int at = -1);
    /// Raises for a header row and for the last data row, which cannot be removed.
    void RemoveItem(int row);

    /// Fifteenths of a logical pixel; 0 hides the column.
    int GridColWidth(int col) const;
    void SetGridColWidth(int col, int width);
    /// Every column gets an equal share of the grid's width and keeps it when the grid is resized.
    void ShareWidths();
    void SetColAlignment(int col, Qt::Alignment alignment);
    void SetCellColor(int row, int col, const QColor& back);
    /// Words drawn in a colour of their own wherever a cell of the column holds exactly them.
    void SetWordColor(int col, const QString& word, const QColor& ink);
    /// Equal neighbours in the header rows are drawn as one cell.
    void SetMergeHeader(bool merge);

    /// Fast filling: BeginLoad(rows) sets the number of data rows, LoadCell writes without repainting.
    void BeginLoad(int dataRows);
    void LoadCell(int dataRow, int col, QString text);
    void EndLoad();

    /// Lays an editor over a cell with its text; Enter and leaving commit it, Esc drops it, scrolling commits
    /// it.
    void EditCell(int row, int col);
    bool Editing() const;
    void CommitEditor();

    void SetFocus() { setFocus(Qt::OtherFocusReason); }

    sys::Event<> RowChange;
    sys::Event<> Click;  ///< a click on a data row, after RowChange
    sys::Event<> DoubleClick;
    sys::Event<int, int, QString> CellEdited;  ///< row, col, the text that was there before
    sys::Event<KeyPress&> KeyPressed;

    /// Bytes that the matrix itself takes, the texts' characters included; for the measurements.
    std::size_t MatrixBytes() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace controls
