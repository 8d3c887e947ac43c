// The list reports on waybills: a list built for a customer or channel and a day or period, the sums in a row
// below it, its export and its print.
//
// Always holds: the grid is a copy, built anew by each 刷新数据; with n rows it has n + 2, the header and the
// sums among them, and without any one blank row. What is printed are the rows of the grid under the name of
// the customer or channel that they were built for, and the dates that the pickers show.
#pragma once

#include "app/child_form.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "records/command_bar.h"
#include "reports/report_settings.h"

class ReportForm : public ChildForm {
    Q_OBJECT
  public:
    void Load() override;
    void Activated() override;
    QWidget* FirstFocus() const override;

  protected:
    explicit ReportForm(const reports::Settings& settings);

  private:
    QWidget* MakeStrip();
    void SetCommands();
    void FillChoice();
    void DressGrid();
    /// "" after a message when there is none.
    QString ChosenCode() const;
    reports::Scope Scope() const;
    void Refresh();
    void Fill(dao::Recordset& rows, int count);
    void ShowStatus() const;
    void PrintList(const reports::Print& print);

    const reports::Settings& settings_;
    controls::FlexGrid* GD;
    controls::ComboBox* Cmb = nullptr;     ///< null in a report over all waybills
    std::vector<controls::DTPicker*> DTP;  ///< from, to; or the day
    QString code_;                         ///< of what the rows were built for
    int RecCount = 0;                      ///< rows without that of the sums
    CommandBar commands_;
};

/// 渠道出货明细表: what went out through a channel on one day.
class C01 : public ReportForm {
  public:
    C01() : ReportForm(reports::ManifestReport) {}
};

/// 客户对帐明细表: a customer's waybills on monthly account with their charges.
class C02 : public ReportForm {
  public:
    C02() : ReportForm(reports::CustomerStatementReport) {}
};

/// 渠道对帐明细表: what went out through a channel with its cost.
class C03 : public ReportForm {
  public:
    C03() : ReportForm(reports::ChannelStatementReport) {}
};

/// 月结表: every waybill with what it earned and cost.
class C04 : public ReportForm {
  public:
    C04() : ReportForm(reports::MonthlyReport) {}
};

/// 毛利表: the gross margin by customer.
class C06 : public ReportForm {
  public:
    C06() : ReportForm(reports::MarginReport) {}
};
