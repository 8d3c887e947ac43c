// What a grid keeps besides its texts; for the grid's own files only.
#pragma once

#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_header.h"
#include "platform/controls/grid_model.h"
#include "platform/controls/grid_parts.h"

#include <QPointer>

#include <optional>
#include <vector>

namespace controls {

struct FlexGrid::State {
    struct Edited {
        int row;
        int col;
        QString before;
    };

    GridModel* model = nullptr;
    GridHeader* header = nullptr;
    CellEditor* editor = nullptr;

    int row = 1;
    int col = 0;
    int rowSel = 1;
    int colSel = 0;
    std::optional<int> topOnShow;  // TopRow set while hidden
    bool rowOnShow = false;        // Row set while hidden

    bool firing = false;        // inside the handler of RowChange
    bool highlighting = false;  // the selection is changed by us and not from outside
    bool sizing = false;        // column widths are changed by us and not by the operator
    bool shared = false;
    int pressed = -1;  // the row under a mouse button that is down

    std::vector<int> widths;  // fifteenths of a pixel

    QPointer<QWidget> cover;  // the box over a cell
    int coverRow = 0;
    int coverCol = 0;
    bool editing = false;
    std::optional<Edited> untold;  // written, and its event still to come
};

}  // namespace controls
