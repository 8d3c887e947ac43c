// Every command that writes, and how an operator gives it by keys: one row each. A company in which each of
// them has something to do.
//
// In every master table 甲 is used by a waybill and 乙 by none. W1 is released and W2 is not; both are in the
// journal; the steps of a charge are stored for W1 and for the waybill that uses 甲. What is before the key
// that writes may be set by the program: lines are chosen, a waybill's boxes are filled (waybill_entry.h),
// and nothing is computed by that.
#pragma once

#include "tests/support/program.h"

#include <string>
#include <vector>

namespace tests {

struct Command {
    const char* name;
    const char* keys;  ///< open its form from the menu; "" for a dialog
    const char* form;
    std::function<void(Desk&)> prepare;  ///< up to right before the key that is meant
    std::function<void(Desk&)> give;     ///< that key, and the dialog's own
};

const std::vector<Command>& WritingCommands();
/// Fails the test when there is none of that name.
const Command& CommandOf(const std::string& name);
QStringList CommandMasters();

/// Writes by one command what that command of 操作记录 puts back, which it does first by itself: for whoever
/// has to know when that is done.
void WriteBefore(const std::string& command);

/// Opens the form and does all that comes before the key.
void Prepare(Desk& desk, const Command& command);

/// Makes the line with that text in that column the current one. Raises when there is none.
void Select(Desk& desk, const QString& text, int column = 0);
/// In the customers' card, being edited: quotes a zone at a coefficient.
void AddQuote(Desk& desk, const QString& zone, const QString& coefficient);

}  // namespace tests
