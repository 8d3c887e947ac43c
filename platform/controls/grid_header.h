// Draws the header rows of a grid above its columns; they do not scroll with the data rows.
#pragma once

#include <QHeaderView>

#include <vector>

namespace controls {

class GridModel;

/// A rectangle of header cells drawn as one cell: header rows and columns, ends included.
struct HeaderCell {
    int row;
    int col;
    int lastRow;
    int lastCol;
};

/// The header cells, row by row from left to right. With merging, equal neighbours in a row become one cell,
/// except in the last of several rows. Equal cells above each other become one cell. Blank cells never merge.
/// Hidden columns have no cells.
std::vector<HeaderCell> HeaderCells(const GridModel& model, bool merge, const std::vector<bool>& hidden);

class GridHeader : public QHeaderView {
    Q_OBJECT
  public:
    GridHeader(const GridModel& model, QWidget* parent);

    void SetMerge(bool merge);
    /// Sets the height for the model's header rows: 28 pixels for one, 24 each for several. Hides the header
    /// if there are none.
    void Fit();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const GridModel& model_;
    bool merge_ = false;
};

/// The vertical header. It is never shown and only holds the row heights. It ignores the current row: marking
/// it would measure all rows of a long list whenever a row is added.
class RowHeads : public QHeaderView {
    Q_OBJECT
  public:
    explicit RowHeads(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {}

  protected:
    void currentChanged(const QModelIndex&, const QModelIndex&) override {}
};

}  // namespace controls
