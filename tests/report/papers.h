// The papers with rows in their work tables, for the tests of the layouts and of the preview.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tests {

struct Paper {
    QString layout;        ///< "prntc023.rpt"
    QStringList formulas;  ///< as a form hands them over
};

/// All of them, in the order of their names.
const QList<Paper>& Papers();
/// Empties the work table of a layout and fills it with so many rows, each with texts and amounts of its own.
void FillWorkTable(const QString& layout, int rows, const std::function<void(const QString&)>& execute);

}  // namespace tests
