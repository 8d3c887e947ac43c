// Filling the grid of a list from the rows of a statement.
#pragma once

#include "platform/controls/flex_grid.h"
#include "platform/dao/database.h"

#include <QString>

#include <functional>

/// Changes a cell on its way into the grid.
using CellDresser = std::function<void(int col, QString& text)>;

/// Replaces the grid's data rows by `count` rows of the set, fields 0 to `cols` - 1 of each; null is "".
/// Raises as the set does; the grid then holds what was read before the failure.
void FillGrid(controls::FlexGrid& grid, dao::Recordset& rows, int count, int cols,
              const CellDresser& dress = {});
