// The session's data file as a whole: what a command does that has to wait for it, and the copies that are
// kept of it.
#pragma once

/// From now on a command whose first write finds another program writing waits under the wait pointer, and
/// after half a minute asks whether to wait on. Yes waits again. No ends the command: nothing of it is
/// written, and the form goes on with all that was typed.
void AskWhenBusy();

/// Keeps a dated copy of DbFile beside it, before it is replaced or upgraded; of those the last ten stay.
/// False if that was not possible. DbFile must be closed here, and nobody else may be writing to it.
bool KeepDataFile();
