// What the tests of both forms of zones ask and press: the card's boxes and captions, the places, the
// buttons.
#pragma once

#include "tests/support/program.h"

namespace tests {

class ZoneProgram : public Program {
  public:
    using Program::Program;
    void ShowCard(int row = 1) {
        auto& tabs = At<controls::TabStrip>(u"TabS"_s);
        tabs.SelectItem(1);
        Grid().SetRow(row);
        tabs.SelectItem(2);
        Settle();
    }
    QString Caption(int box) { return At<QLabel>(u"Lab(%1)"_s.arg(box)).text(); }
    QString Boxes(int first, int last) {
        QStringList texts;
        for (int i = first; i <= last; ++i) texts += Box(i);
        return texts.join(u'|');
    }
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
    bool Shown(const QString& control) { return At<QWidget>(control).isVisible(); }
    void Push(const QString& button) {
        At<controls::Button>(button).SetFocus();
        Settle();
        Press(Qt::Key_Return);
    }
    void AddPlace(const QString& name) {
        SetBox(6, name);
        Push(u"Cmd(0)"_s);
    }
};

}  // namespace tests
