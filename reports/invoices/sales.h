// The delivery notes of a period with what is paid and what is open on them, and their two papers: the whole
// list, and the statement of one customer.
//
// Always holds: the grid is a copy, built anew by each 生成报表. Behind the notes of a customer a line sums
// them up; its first four columns are blank. The last line is the total of all and is on no paper. Without a
// note there is one blank line. Amounts are in yuan. The papers name the period of the list.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

#include <QStringList>

#include <array>
#include <vector>

/// 销售统计报表.
class D3 : public ChildForm {
    Q_OBJECT
  public:
    D3();
    void Load() override;
    void Activated() override;

  private:
    void SetCommands();
    QWidget* MakeStrip();
    void DressGrid();
    void Generate();
    void Build(const QString& condition);
    void ShowLines(const std::vector<QStringList>& lines);
    void ShowStatus();

    /// A line of a note, not of a sum.
    bool IsNote(int row) const;
    int CountNotes(int lastRow) const;
    /// The line that names the customer of the current one: a sum belongs to the note above it.
    int CustomerRow() const;

    void Menu_print();
    void Menu_print2();
    QString InsertOf(int row) const;
    QString Period() const;

    controls::FlexGrid* GD;
    controls::ComboBox* CmbKH;
    std::array<controls::DTPicker*, 2> DTP{};  ///< from, to
    controls::Button* Cmd;
    CommandBar commands_;
    std::array<QString, 2> period_;  ///< of the list
    std::vector<bool> notes_;        ///< for each line whether it is a note
    bool shown_ = false;
};
