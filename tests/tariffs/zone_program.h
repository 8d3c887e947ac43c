// What the tests of both forms of zones ask and press beyond the card: the places.
#pragma once

#include "tests/support/program.h"

namespace tests {

class ZoneProgram : public Program {
  public:
    using Program::Program;
    controls::FlexGrid& Areas() { return At<controls::FlexGrid>(u"GDdq"_s); }
    QStringList AreaLines() {
        QStringList lines;
        for (int row = 1; row < Areas().Rows(); ++row) {
            QStringList cells;
            for (int col = 0; col < Areas().Cols(); ++col) cells += Areas().TextMatrix(row, col);
            lines += cells.join(u'|');
        }
        return lines;
    }
    void AddPlace(const QString& name) {
        SetBox(6, name);
        Push(u"Cmd(0)"_s);
    }
};

}  // namespace tests
