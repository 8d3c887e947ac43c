// The session's data file as a whole: what a command does that has to wait for it, and the copies that are
// kept of it.
#pragma once

#include <QString>

/// From now on a command whose first write finds another program writing waits under the wait pointer, and
/// after half a minute asks whether to wait on. Yes waits again. No ends the command: nothing of it is
/// written, and the form goes on with all that was typed.
void AskWhenBusy();

/// Keeps a dated copy of DbFile beside it, before it is replaced, emptied or upgraded; of those the last ten
/// stay. Gives the system's words where that was not possible, "" else. DbFile must be closed here, and
/// nobody else may be writing to it.
QString KeepDataFile();

/// Whether another program has the open database open too, which is then said: `work` is what cannot be done
/// now ("恢复数据"). Where nobody has, the next call is Db->Close, CloseData or WhileClosed. Without a
/// database nobody can be found.
bool OthersAreAtWork(const QString& work);
/// What the data file is opened with.
QString DataConnect();
/// Leaves the session without a database. Raises DatabaseError where the file could not be brought to rest;
/// there is none then either.
void CloseData();
