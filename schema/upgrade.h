// Bringing a file of an earlier release to the shape that this one works with.
//
// Always holds: all steps of a file run in one transaction, right after opening and before anything else,
// while nobody else has the file open; a file that is up to date is only read.
#pragma once

#include "schema/definition.h"

#include <QByteArrayList>

#include <vector>

struct sqlite3;

namespace schema {

/// Leads from the shape before to the shape of that version. Statements are the engine's own, one each.
struct UpgradeStep {
    int version = 0;
    QByteArrayList statements;
};

/// In ascending order of version; the last one's is kVersion, once there has been a change at all.
const std::vector<UpgradeStep>& UpgradeSteps();

/// Whether the file is older than this release; then nobody else has it open, and a copy of it can be made
/// once it is closed. Raises RuntimeError for a file of a newer release, and for an older one that another
/// program has open.
bool UpgradeIsDue(sqlite3* db, int newest = kVersion);

/// Runs the steps above the file's version and stamps it with the newest. A file without a version counts as
/// older than all. Raises RuntimeError like UpgradeIsDue and for a step that fails; the file is then as it
/// was.
void Upgrade(sqlite3* db, const std::vector<UpgradeStep>& steps = UpgradeSteps(), int newest = kVersion);

}  // namespace schema
