#include "app/session.h"

QString NumFormat;
std::int16_t LangFlag = 0;
QString MsgTitle;
QString AppFolder;
QString DbFile;
std::unique_ptr<dao::Database> Db;
QString OperatorCode;
QString OperatorName;
bool EditInProgress = false;
bool CanEditReleased = false;
bool CanSeeFigures = false;
bool CanEditLedger = false;
