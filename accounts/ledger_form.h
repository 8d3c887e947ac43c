// The ledgers of one side of the journal over a period: line by line with a total for each counterparty
// (KuanMx), or one line for each (KuanHz).
//
// Always holds: the grid is a copy, built anew by each 生成报表 and each entry of the sort and price menus;
// it has as many rows as there are lines, or one blank row.
#pragma once

#include "accounts/ledger_print.h"
#include "accounts/ledger_rows.h"
#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"

#include <array>

/// What sets the two apart.
struct LedgerSettings {
    QString form;
    QString caption;       ///< until the menu gives the one of the side
    bool maintenance;      ///< has 维护, for the administrator
    bool cutsAtPoint;      ///< filters on the name up to its first point
    QString raisedHeader;  ///< without the side's word at its end
    std::vector<int> hidden;
    QString (*statement)(const accounts::LedgerScope& scope);
    void (*build)(dao::Recordset& rows, accounts::LedgerLines& lines);
    void (*print)(const accounts::LedgerPrint& print);
    /// The columns of a total line that have its colour. They are bold too.
    int totalFrom;
};

class LedgerForm : public ChildForm {
    Q_OBJECT
  public:
    void Load() override;
    void Activated() override;
    /// Builds the ledger of one counterparty, its name whole and without wildcards, over a period, and shows
    /// both in the boxes.
    void ShowUnit(const QString& unit, QDate from, QDate to);

  protected:
    explicit LedgerForm(const LedgerSettings& settings);

  private:
    std::vector<CommandRow> Commands();
    std::vector<CommandRow> Family(const QString& name, const QStringList& captions);
    void SetCommands();
    QWidget* MakeStrip();
    void MakePanel();
    void DressGrid();
    void Choose(const QString& name, int index);
    void Generate();
    void BuildUnderPanel();
    void Build();
    void ShowStatus();
    void ShowPosition();
    void Print();
    void Maintain();

    controls::FlexGrid* GD;
    QLabel* LabDW;
    controls::ComboBox* Cmb;
    std::array<controls::DTPicker*, 2> DTP{};  ///< from, to
    controls::Button* Cmd;
    QWidget* cancelfrm;  ///< in the middle of the grid while a build runs
    QString unit_;       ///< the system's Txt: the name that the statement filters on
    CommandBar commands_;
    const LedgerSettings& settings_;
    bool shown_ = false;
};

extern const LedgerSettings DetailLedger;
extern const LedgerSettings SummaryLedger;

/// 应付帐款明细, 应收帐款明细.
class KuanMx : public LedgerForm {
  public:
    KuanMx() : LedgerForm(DetailLedger) {}
};

/// 应付货款总帐, 应收帐款总帐.
class KuanHz : public LedgerForm {
  public:
    KuanHz() : LedgerForm(SummaryLedger) {}
};
