// What a grid keeps besides its texts; for the grid's own files only.
#pragma once

#include "platform/controls/cell_cover.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_columns.h"
#include "platform/controls/grid_header.h"
#include "platform/controls/grid_model.h"

#include <optional>

namespace controls {

struct FlexGrid::State {
    explicit State(FlexGrid& grid);

    GridModel* model;
    GridHeader* header;
    GridColumns* columns;
    CellCover cover;

    int row = 1;
    int col = 0;
    int rowSel = 1;
    int colSel = 0;
    std::optional<int> topOnShow;  // TopRow set while hidden
    bool rowOnShow = false;        // Row set while hidden

    bool cellFramed = false;
    bool fitting = false;       // scrolled because the grid or its columns were resized
    bool firing = false;        // inside the handler of RowChange
    bool highlighting = false;  // the selection is changed by us and not from outside
    int pressed = -1;           // the row under a mouse button that is down
};

}  // namespace controls
