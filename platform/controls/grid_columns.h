// How wide a grid's columns are. Kept in fifteenths of a logical pixel, shown in whole pixels.
//
// Always holds: 0 hides a column; shared widths add up to the width of the viewport exactly and are shared
// out anew whenever that width or the number of shown columns changes. After the operator has drawn a column
// to another width nothing is shared any more, until the grid gets another number of columns.
#pragma once

#include <QHeaderView>
#include <QTableView>

#include <vector>

namespace controls {

class GridColumns : public QObject {
    Q_OBJECT
  public:
    /// Notes what the operator sets at the header, which will be the view's horizontal one.
    GridColumns(QTableView* view, QHeaderView* header);

    /// New columns have the default width. Show has to follow.
    void SetCount(int cols);
    int Width(int col) const { return widths_[col]; }
    /// Any width but 0 ends an equal sharing.
    void SetWidth(int col, int width);
    /// One number for each column, of which its width is in proportion; none for equal widths.
    void Share(std::vector<int> shares = {});
    bool ByHand(int col) const { return byHand_[col]; }
    /// Brings the widths onto the screen.
    void Show();
    /// The viewport has another width.
    void Refit();

  private:
    void ShareOut();
    int ShareOf(int col) const;
    bool Shares() const;
    void Drawn(int col, int width);

    QTableView* view_;
    QHeaderView* header_;
    std::vector<int> widths_;
    std::vector<bool> byHand_;
    bool shared_ = false;
    std::vector<int> shares_;
    bool showing_ = false;  ///< widths are changed by us and not by the operator
};

}  // namespace controls
