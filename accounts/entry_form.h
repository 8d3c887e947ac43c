// The entry of charges and payments: a list of journal rows of one kind, in which the same grid is the input
// form. Rows are typed over its cells; nothing reaches the journal before the save.
//
// Always holds: the grid is a copy and not bound to the database. The entry block begins at first_: in add
// state it is all rows from there on, of which the last is blank or being typed, in edit state that one row;
// the cursor does not leave it. EditInProgress is true from EnterEdit to LeaveEdit, unless another form's
// edit ends meanwhile; InEdit says it then. CurRow counts from 1, 0 only after the last row was deleted.
#pragma once

#include "accounts/entry_settings.h"
#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"
#include "records/form_mode.h"
#include "records/query.h"

#include <QLabel>

#include <array>
#include <cstdint>

class EntryForm : public ChildForm, public QueryCaller {
    Q_OBJECT
  public:
    void Load() override;
    bool QueryUnload() override;
    bool InEdit() const override { return FormMode != Browsing; }
    void DataChanged() override;

    std::int16_t FormMode = 0;  ///< one of FormModes
    int CurRow = 1;
    int RecCount = 0;

  protected:
    explicit EntryForm(const accounts::EntrySettings& settings);

  private:
    // Building and the list.
    void SetCommands();
    QWidget* MakeStrip();
    void WireGrid();
    void MakeCombos();
    void FillCombos();
    const accounts::EntrySide& Side() const;
    const accounts::LedgerKindInfo& Kind() const { return accounts::InfoFor(Side().kind); }
    void DressGrid();
    void LoadGrid(const QString& sql);
    void ShowRow();
    void RowChanged();

    // The commands.
    void Menu_Add();
    void Menu_edit();
    void Menu_del();
    void Menu_query();
    void Menu_save();
    void Menu_cancel();
    void Menu_TE();
    bool MayEditLedger() const;
    void EnterEdit();
    void LeaveEdit();
    void LeaveAndReload();

    // Typing over the cells.
    void EnterCell();
    void KeepInBlock();
    void BeginRow();
    void GoTo(int row, int col);
    void OpenEditor(int row, int col);
    void Commit(int row, int col, const QString& before);
    QString AmountText(const QString& typed, const QString& before);
    void CommitKey(int row, QString key, const QString& before);
    void DropRow(int row);
    bool KeyIsTaken(int row, const QString& key) const;
    void GoOn(controls::CellMove& move);
    void GoForward(int col);
    void GoBack(int col);
    void GoToRow(int row);
    void KeyInGrid(controls::KeyPress& key);
    void ShowProgress();

    // The save, and what it begins from.
    bool ReadAgain(int row);
    bool TestBlock() const;
    void SaveBlock();
    void SaveEdited();
    accounts::LedgerEntry EntryAt(int row) const;
    bool IsComplete(int row) const;
    QString NewKey() const;

    const QString& Cell(int row, int col) const { return GD->TextMatrix(row, col); }
    double AmountAt(int row) const;
    int CurRowLimit() const { return GD->Rows() - 1; }
    int BlockEnd() const { return FormMode == Adding ? CurRowLimit() : first_; }

    controls::FlexGrid* GD;
    std::array<controls::ComboBox*, 4> CmbEnter{};  ///< CmbEnter(1) to (4): over the columns 1 to 4
    QLabel* progress_;                              ///< what has been typed so far
    QLabel* badge_;
    CommandBar commands_;

    const accounts::EntrySettings& settings_;
    QString remembered_;  ///< the statement loaded last
    int target_ = 0;      ///< the column that the cell routine goes to
    int first_ = 0;       ///< where the entry block begins
    QString oldKey_;      ///< of the row being edited
    QString oldParty_;
    double oldSequence_ = 0;
    bool refused_ = false;        ///< the amount that was typed last is too large
    bool editedRowGone_ = false;  ///< its key was emptied, and it was removed from the grid
};

/// 应收应付: charges, LB 9 payable and -9 receivable.
class zhLst : public EntryForm {
  public:
    zhLst() : EntryForm(accounts::ChargeEntry) {}
};

/// 付款, 收款: payments, LB 10 made and -10 received.
class PayLst : public EntryForm {
  public:
    PayLst() : EntryForm(accounts::PaymentEntry) {}
};
