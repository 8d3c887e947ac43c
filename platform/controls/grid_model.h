// The text matrix behind a grid: header rows and data rows in one plain vector, row by row. Views see the
// data rows as the model's rows and the header rows as header data.
//
// Always holds: rows count from 0 with the header rows among them; there is at least one data row; while a
// load runs the views see no row at all, so nothing is painted half filled. Callers have checked rows and
// columns.
#pragma once

#include <QAbstractTableModel>
#include <QColor>
#include <QString>

#include <limits>
#include <map>
#include <unordered_map>
#include <vector>

namespace controls {

class GridModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit GridModel(QObject* parent = nullptr);

    int Rows() const { return rows_; }
    int Cols() const { return cols_; }
    int FixedRows() const { return fixed_; }
    bool Loading() const { return loading_; }

    void SetRows(int rows);
    void SetCols(int cols);
    void SetFixedRows(int rows);

    const QString& Text(int row, int col) const { return cells_[At(row, col)]; }
    void SetText(int row, int col, const QString& text);
    /// Texts, colours and bold of every row.
    void Clear();
    void Insert(int row, const QStringList& cells);
    void Remove(int row);

    void SetAlignment(int col, Qt::Alignment alignment);
    Qt::Alignment Alignment(int col) const;
    /// An invalid colour takes it away again.
    void SetBack(int row, int col, const QColor& back);
    void SetBold(int row, int col, bool bold);
    /// For the cells of the row from that column on that have no colour and bold of their own.
    void SetRowStyle(int row, int fromCol, const QColor& back, bool bold);
    void SetWordColor(int col, const QString& word, const QColor& ink);
    /// Rows outside these are muted; first 0: none is. Repainting is up to the caller.
    void SetEntryBlock(int first, int last) { blockFirst_ = first, blockLast_ = last; }
    int BlockFirst() const { return blockFirst_; }
    int BlockLast() const { return blockLast_; }

    void BeginLoad(int dataRows);
    void LoadCell(int row, int col, QString text);
    void EndLoad();

    std::size_t Bytes() const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Takes a colour as Qt::DecorationRole alone: the header draws a square of it in front of the caption.
    bool setHeaderData(int section, Qt::Orientation orientation, const QVariant& value, int role) override;

  private:
    static constexpr int kSpaceForLines = 256;

    struct Mark {
        QColor back;
        bool bold = false;
    };
    /// Texts seen lately in a column, to share equal ones; codes that never repeat turn it off.
    struct Recent {
        std::vector<QString> texts;
        int tries = 0;
        int hits = 0;
    };
    struct RowMarks {
        int row = 0;
        std::map<int, Mark> cells;  // by column
        int styledFrom = std::numeric_limits<int>::max();
        Mark style;
    };

    std::size_t At(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }
    std::size_t Cells(int rows) const { return At(rows, 0); }
    /// With capacity for the lines of a working day, so that the first of them does not move the whole list.
    std::size_t RoomFor(int rows) const { return Cells(rows + kSpaceForLines); }
    const Mark* MarkOf(int row, int col) const;
    /// The marks of the first row from this one on that has any.
    std::vector<RowMarks>::const_iterator MarksFrom(int row) const;
    RowMarks& MarksOf(int row);
    void DropMarksFrom(int row) { marks_.erase(MarksFrom(row), marks_.end()); }
    void ShiftMarks(int from, int by);
    void EmitCellEdited(int row, int col);
    void Share(int col, QString& text);
    QVariant Ink(int row, int col) const;

    std::vector<QString> cells_;
    int rows_ = 2;
    int cols_ = 2;
    int fixed_ = 1;
    bool loading_ = false;
    std::vector<Qt::Alignment> alignments_;
    std::vector<RowMarks> marks_;  // from the top down
    std::unordered_map<int, std::vector<std::pair<QString, QColor>>> words_;
    std::vector<Recent> recent_;
    std::map<int, QColor> headMarks_;  // by column
    int blockFirst_ = 0;
    int blockLast_ = 0;
};

}  // namespace controls
