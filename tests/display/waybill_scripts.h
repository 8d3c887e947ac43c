// Scripts of the waybill's form, and what the file holds of a waybill.
#pragma once

#include "tests/display/program_run.h"

namespace display {

/// From the main window to the list of waybills, and back.
Script OpenWaybills();

/// A new waybill from 增加 to 保存: every box is passed in the order of Tab, and nearly all are typed into.
/// The program computes charge, total and cost; no message box comes up.
Script AddWaybill(const QString& number);
/// The same in pieces.
Script BeginWaybill();                      ///< up to the number
Script FillWaybill(const QString& weight);  ///< behind the number, up to the basic charge
Script FinishWaybill();                     ///< from the basic charge to 保存
/// The same, with F1 in every text box that it explains.
Script FinishExplained();
Step ExpectWaybill(const QString& number);  ///< it is in the file

/// Every column of the waybill's row and of its rows in the journal as "table.column = value", but for those
/// that differ from one waybill to the next: keys, places in the journal, balances, moments.
QStringList Stored(ProgramRun& run, const QString& number);

/// What AddWaybill stores when an unhurried typist types it. The second of two in a row, since a new card
/// keeps some boxes of the waybill before. Typed once, at first use.
const QStringList& Reference();
/// The stored values that differ from the reference, one a line; empty when there are none.
QString DifferenceFromReference(ProgramRun& run, const QString& number);

/// Types one waybill after the other into the same program.
class WaybillTyping {
  public:
    /// Types one; what its stored values differ in from the reference, or why it is not stored. The program
    /// starts anew after a waybill that is not stored.
    QString Differences(const Pace& pace);

  private:
    std::unique_ptr<ProgramRun> run_;
    int typed_ = 0;
};

}  // namespace display
