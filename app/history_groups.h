// What each commit group of the session's file notes in HNow: its number, the time, the operator and the form
// that gave the command, from which the triggers of the history take it (schema/history.h), and that it is
// over. It notes steps of the clock and counts age by a clock without them, so that a wrong date of the
// machine does not remove the history. It also removes what is beyond the history's limits, so that each
// command removes as much as the one before it added.
#pragma once

#include <QtGlobal>

struct HistoryLimits {
    qint64 rows = 1'000'000;  ///< in all mirrors; whole groups go, the oldest first
    int years = 3;
    int oldAtOnce = 500;  ///< about how many rows a command removes because of their age
};

/// The ones in use.
HistoryLimits& historyLimits();

/// From now on the groups of a file that is opened note themselves.
void NoteGroups();
