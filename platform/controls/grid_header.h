// Draws the header rows of a grid over its columns; they stay while the data rows scroll.
#pragma once

#include <QHeaderView>

#include <vector>

namespace controls {

class GridModel;

/// A rectangle of header cells that is drawn as one, in header rows and columns, ends included.
struct HeaderCell {
    int row;
    int col;
    int lastRow;
    int lastCol;
};

/// The header cells left to right, row by row. With merging, equal neighbours of every row but the last of
/// several become one cell, and so do equal cells above each other; blank cells never merge. Hidden columns
/// are left out.
std::vector<HeaderCell> HeaderCells(const GridModel& model, bool merge, const std::vector<bool>& hidden);

class GridHeader : public QHeaderView {
    Q_OBJECT
  public:
    GridHeader(const GridModel& model, QWidget* parent);

    void SetMerge(bool merge);
    /// Takes the height that the model's header rows need: 28 for one, 24 each for more.
    void Fit();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const GridModel& model_;
    bool merge_ = false;
};

/// The rows' heads, never shown: they only know the rows' heights. A current row is nothing to them; marking
/// it would have them measure all rows of a long list whenever a line was added.
class RowHeads : public QHeaderView {
    Q_OBJECT
  public:
    explicit RowHeads(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {}

  protected:
    void currentChanged(const QModelIndex&, const QModelIndex&) override {}
};

}  // namespace controls
