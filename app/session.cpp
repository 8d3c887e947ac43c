#include "app/session.h"

#include "platform/errors.h"

#include <utility>

using namespace Qt::StringLiterals;

QString NumFormat;
std::int16_t LangFlag = 0;
QString MsgTitle;
QString AppFolder;
QString DbFile;
SessionDatabase Db;
QString OperatorCode;
QString OperatorName;
bool EditInProgress = false;
bool CanEditReleased = false;
bool CanSeeFigures = false;
bool CanEditLedger = false;

SessionDatabase& SessionDatabase::operator=(std::unique_ptr<dao::Database> opened) {
    open_ = std::move(opened);
    return *this;
}

dao::Database& SessionDatabase::operator*() const {
    if (!open_) throw RuntimeError(u"对象变量或 With 块变量未设置"_s);
    return *open_;
}
