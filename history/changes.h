// What has happened to a record since one of its changes: the changes in between, up to the record of today.
#pragma once

#include "history/entries.h"

namespace history {

/// The chosen change and all later ones of the same record, the oldest first; never empty. The last one gives
/// row and key of the record of today, unless it is a deletion. A record that 操作记录 has put back is the
/// same record. A deletion that is chosen is alone.
class Changes {
  public:
    Changes(dao::Database& db, const Entry& chosen);

    const std::vector<Entry>& All() const { return all_; }
    const Entry& Chosen() const { return all_.front(); }
    const Entry& Last() const { return all_.back(); }
    int Later() const { return static_cast<int>(all_.size()) - 1; }
    /// The first change that has deleted the record's rows and those that go with it, which an overwrite in
    /// place leaves as they are. Null where there is none.
    const Entry* Replacing() const;

  private:
    std::vector<Entry> all_;
};

}  // namespace history
