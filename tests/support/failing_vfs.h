// A storage layer for the engine, named "failing": it hands everything to the engine's own and counts what
// changes a file (writes, truncations, syncs and removals) or, when reading is to fail, what reads one, and
// on demand one of these fails.
//
// Used as Database::Open(path, connect, u"failing"). One plan at a time, for all files; a FailingStorage puts
// everything back at its end.
#pragma once

namespace tests {

enum class StorageFault { DiskFull, IoError, ReadError };

class FailingStorage {
  public:
    /// Registers the layer; nothing fails yet.
    FailingStorage();
    ~FailingStorage();
    FailingStorage(const FailingStorage&) = delete;
    FailingStorage& operator=(const FailingStorage&) = delete;

    /// The n-th change from now on (1 is the next one) fails, and every later one too when andAllAfter is
    /// set. With ReadError it is the n-th reading.
    void FailAt(int n, StorageFault fault, bool andAllAfter = false);
    /// From now on files open read-only, as on a write-protected medium.
    void RefuseWriting();
    /// The storage works again; the count goes on.
    void Heal();

    /// Did a planned failure come?
    bool HasFailed() const;
};

}  // namespace tests
