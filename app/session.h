// The session's globals, valid for the whole run: the operator, the operator's rights, the one open database.
// Forms read and write them directly; platform/ and the computations do not use them.
#pragma once

#include "platform/dao/database.h"

#include <QString>

#include <cstdint>
#include <memory>

/// The session's database; empty after a backup or restore. Using it while empty raises RuntimeError, so that
/// the session ends with a message and not with a crash.
class SessionDatabase {
  public:
    SessionDatabase& operator=(std::unique_ptr<dao::Database> opened);
    dao::Database* operator->() const { return &**this; }
    dao::Database& operator*() const;
    explicit operator bool() const { return open_ != nullptr; }
    void reset() { open_.reset(); }

  private:
    std::unique_ptr<dao::Database> open_;
};

extern QString NumFormat;      ///< "#0.00", the format of amounts in the ledgers
extern std::int16_t LangFlag;  ///< 0 English or unknown, 1 Simplified, 2 Traditional Chinese
extern QString MsgTitle;       ///< title of message boxes
extern QString AppFolder;      ///< the program's folder, always ending in a separator
extern QString DbFile;         ///< AppFolder + "tessik.dat"
extern SessionDatabase Db;     ///< the one open database; empty after a backup or restore
extern QString OperatorCode;
extern QString OperatorName;
extern bool EditInProgress;   ///< some record form is in add or edit state
extern bool CanEditReleased;  ///< may edit a waybill that is already released
extern bool CanSeeFigures;    ///< sees weights, cost and prices on the waybill
extern bool CanEditLedger;    ///< may edit and delete ledger entries

/// The operator code alone identifies the administrator.
inline bool IsAdministrator() {
    return OperatorCode == u"001";
}
