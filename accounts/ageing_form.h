// 帐龄分析: what each counterparty of one side has not paid on a day, by age; from it the list of who is
// overdue and a reminder to print. Enter on a counterparty opens its ledger.
//
// Always holds: the grid is a copy, built anew by each 生成报表; the box 只看逾期 narrows down what it shows
// and what is printed. With n lines it has n + 3 rows, the header, the sums and their shares among them, and
// without any one blank row.
#pragma once

#include "accounts/ageing_print.h"
#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

#include <optional>

class Ageing : public ChildForm {
    Q_OBJECT
  public:
    Ageing();
    void Load() override;
    void Activated() override;

  private:
    QWidget* MakeStrip();
    void MakeGrid();
    void SetCommands();
    bool Payable() const;  ///< the chosen side
    void DressGrid();
    bool TakeScope();
    void Generate();
    void Build();
    void ShowLines();
    void LoadLine(int row, const accounts::AgeingLine& line, const QString& unit);
    void LoadShares(int row, const accounts::AgeingLine& sum);
    void ShowStatus();
    /// The line of the current row; null on the sums, the shares and the blank row.
    const accounts::AgeingLine* Current() const;
    accounts::AgeingPrint WhatToPrint() const;
    void OpenLedger();
    void PrintTable();
    void PrintOverdueList();
    void PrintReminderToOne();

    controls::ComboBox* CmbSide;
    controls::ComboBox* Cmb;  ///< the counterparty
    controls::DTPicker* DTP;
    controls::LineBox* Txt;  ///< days after which a charge is overdue
    controls::CheckBox* Chk;
    controls::Button* Cmd = nullptr;
    controls::FlexGrid* GD;
    CommandBar commands_;
    accounts::AgeingScope scope_;              ///< what the lines were built for
    std::vector<accounts::AgeingLine> all_;    ///< of that scope
    std::vector<accounts::AgeingLine> shown_;  ///< those in the grid
    std::optional<accounts::Contacts> contacts_;
    bool activated_ = false;
};
