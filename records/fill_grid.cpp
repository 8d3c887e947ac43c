#include "records/fill_grid.h"

void FillGrid(controls::FlexGrid& grid, dao::Recordset& rows, int count, int cols, const CellDresser& dress) {
    grid.BeginLoad(count);
    int row = 0;
    try {
        for (; !rows.Eof(); ++row, rows.MoveNext()) {
            for (int col = 0; col < cols; ++col) {
                QString text = rows.Fields(col).Text();
                if (dress) dress(col, text);
                grid.LoadCell(row, col, std::move(text));
            }
        }
    } catch (...) {
        grid.EndLoad();
        grid.SetRows(row + 2);  // the header, and the row that failed with what it has
        throw;
    }
    grid.EndLoad();
}
