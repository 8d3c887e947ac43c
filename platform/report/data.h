// The rows of a report, read once from the database, and the binding of a layout to them: names of fields
// become columns, formulas and lookups become constants.
#pragma once

#include "platform/dao/database.h"
#include "platform/report/layout.h"

#include <QString>

#include <map>
#include <vector>

namespace report {

/// Values of the named formulas, by their names in lower case.
using Formulas = std::map<QString, QString>;

/// Reads a formula as a caller hands it over: "name='value'". What lies between the first apostrophe and the
/// last is the value, apostrophes included.
std::pair<QString, QString> ReadFormula(const QString& text);

struct Data {
    int columns = 0;
    int rows = 0;
    std::vector<QString> cells;  ///< row by row

    const QString& Cell(int row, int column) const {
        return cells[static_cast<size_t>(row) * static_cast<size_t>(columns) + static_cast<size_t>(column)];
    }
};

/// Runs the layout's statements and binds all its templates. Rows that the layout passes over are left out,
/// so is the row that it takes as the total. Raises DatabaseError, and RuntimeError with file, line and
/// reason for a name that the statements don't give.
Data ReadData(Layout& layout, dao::Database& db, const Formulas& formulas);

}  // namespace report
