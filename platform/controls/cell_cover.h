// The editor over a cell of a grid: the grid's own line, or a combo of the form that the grid belongs to.
//
// Always holds: at most one at a time; it covers exactly its cell, also while columns are dragged and the
// window is resized, and scrolling commits it. The editor's text is written into the cell before the form
// hears of it (CellEdited), and the form hears of it once the focus has arrived where it was going.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/grid_model.h"

#include <QPointer>

#include <optional>
#include <utility>

namespace controls {

class CellCover : public QObject {
    Q_OBJECT
  public:
    /// Both outlive it. The grid's own line is made as a child of the grid's viewport.
    CellCover(FlexGrid& grid, GridModel& model);

    QLineEdit* Line() const { return line_; }
    bool Editing() const { return editing_; }

    /// Opens an editor over a cell in sight, with the cell's text, all of it selected; without a combo it is
    /// the grid's own line.
    void Open(int row, int col, ComboBox* combo);
    /// What was being typed over a cell when scrolling committed it.
    struct Typed {
        int row;
        int col;
        QString text;
    };
    /// Nothing if something else has been done since, and at the second call.
    std::optional<Typed> TakeScrolled() { return std::exchange(scrolled_, std::nullopt); }
    /// A key that has opened the editor types over the cell's text, or goes on at the end of what was being
    /// typed over this cell; Delete empties that too.
    void Type(const KeyPress& key, const std::optional<Typed>& scrolled);
    /// Closes the editor; keep writes its text into the cell, and the form hears of that at once.
    void Finish(bool keep);
    /// Rows from this one on go or move: an editor over one of them is dropped.
    void DropFrom(int row);

    /// The cell has moved or has another size.
    void Place();
    /// The operator scrolled the grid under it.
    void Leave();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Edited {
        int row;
        int col;
        QString before;
    };
    void Take(QWidget* editor);
    QLineEdit* TextLine() const;
    bool OnKey(QKeyEvent& key);
    void Step(CellStep step, QKeyEvent& key);
    void OnFocusOut(Qt::FocusReason reason);
    void Write(bool keep);
    void Hide();
    void EmitEdited();

    FlexGrid& grid_;
    GridModel& model_;
    QLineEdit* line_;
    QPointer<QWidget> editor_;  ///< the one opened last: the line or a combo
    int row_ = 0;
    int col_ = 0;
    bool editing_ = false;
    std::optional<Edited> notEmitted_;  ///< written, and its event still to come
    std::optional<Typed> scrolled_;
};

}  // namespace controls
