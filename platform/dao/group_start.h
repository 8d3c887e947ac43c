// What a commit group begins and ends with: statements that run right after its transaction was opened and
// before the write that opened it, and those that run right before the commit.
#pragma once

#include <functional>
#include <memory>

struct sqlite3;

namespace dao {

class GroupStart {
  public:
    virtual ~GroupStart() = default;
    /// Gives the engine's result code. Anything but SQLITE_OK is a failure of the statement that opened the
    /// group, and the group is rolled back. Must not raise.
    virtual int Run() = 0;
    /// The same at the group's end; a failure is one of the commit.
    virtual int End() = 0;
};

/// Makes the one of an open file at its first group; it lives as long as the file is open. Null where the
/// file is not concerned. Without it groups begin with nothing.
using MakeGroupStart = std::function<std::unique_ptr<GroupStart>(sqlite3*)>;
MakeGroupStart& makeGroupStart();

}  // namespace dao
