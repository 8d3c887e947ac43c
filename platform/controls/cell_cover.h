// What lies over a cell of a grid: the grid's own editor, or a box of the form that the grid stands in.
//
// Always holds: at most one at a time; it stands exactly on its cell. The editor's text is written into the
// cell before the form hears of it (CellEdited), and the form hears of it once the focus has arrived where it
// was going.
#pragma once

#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_model.h"
#include "platform/controls/grid_parts.h"

#include <QPointer>

#include <optional>

namespace controls {

class CellCover {
  public:
    /// Both outlive it. The editor is made as a child of the grid's viewport.
    CellCover(FlexGrid& grid, GridModel& model);

    CellEditor* Editor() const { return editor_; }
    bool Editing() const { return editing_; }

    /// The cover is nobody's any more; hiding it is up to whoever laid it.
    void Forget() { box_ = nullptr; }
    /// The cell has to be in sight.
    void Lay(QWidget* box, int row, int col);
    /// Fills the editor for a cell; Lay has to follow.
    void FillEditor(int row, int col);
    /// The editor lies over its cell: it takes the keys.
    void StartEditing();
    /// Ends editing; keep writes the text into the cell. Without `tell` the editor stays until Tell.
    void Finish(bool keep, bool tell = true);
    /// Rows from this one on go or move: an editor over one of them is dropped.
    void DropFrom(int row);

    /// The cell has moved or has another size.
    void Place();
    /// The grid was scrolled under it.
    void Leave();

  private:
    struct Edited {
        int row;
        int col;
        QString before;
    };
    void Tell();
    void LeftByFocus();

    FlexGrid& grid_;
    GridModel& model_;
    CellEditor* editor_;
    QPointer<QWidget> box_;
    int row_ = 0;
    int col_ = 0;
    bool editing_ = false;
    std::optional<Edited> notEmitted_;  ///< written, and its event still to come
};

}  // namespace controls
