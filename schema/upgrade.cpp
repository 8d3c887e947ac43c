#include "schema/upgrade.h"

#include "platform/dao/engine.h"
#include "platform/errors.h"
#include "schema/history.h"

using namespace Qt::StringLiterals;

namespace schema {
namespace {

void Take(sqlite3* db, const UpgradeStep& step) {
    try {
        for (const QByteArray& statement : step.statements) dao::Run(db, statement);
    } catch (const RuntimeError& error) {
        throw RuntimeError(u"数据文件升级到第 %1 版失败！%2"_s.arg(step.version).arg(error.Text()));
    }
}

/// Which columns of a channel's bill are compared.
QByteArrayList ChannelBillTables() {
    return {
        "create table M012 (F1 TEXT COLLATE NOCASE, F2 INTEGER check(typeof(F2) not in ('text', "
        "'blob')), F3 INTEGER check(typeof(F3) not in ('text', 'blob')), F4 INTEGER "
        "check(typeof(F4) not in ('text', 'blob')), F5 INTEGER check(typeof(F5) not in ('text', "
        "'blob')), F6 INTEGER check(typeof(F6) not in ('text', 'blob')), F7 DOUBLE "
        "check(typeof(F7) not in ('text', 'blob')), F8 DOUBLE check(typeof(F8) not in ('text', "
        "'blob')), F9 TEXT COLLATE NOCASE, F10 TEXT COLLATE NOCASE, F11 TEXT COLLATE NOCASE)",
        "create index M012_F1 on M012 (F1)"};
}

/// The times of groups, and the mirror of B011, which follows from that table.
QByteArrayList HistoryOfVersion4() {
    return {HClockSql()};
}

}  // namespace

const std::vector<UpgradeStep>& UpgradeSteps() {
    static const std::vector<UpgradeStep> steps = {
        {2,
         {"create table B011 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE, F3 TEXT COLLATE NOCASE, "
          "F4 TEXT COLLATE NOCASE, F5 TEXT COLLATE NOCASE, F6 TEXT COLLATE NOCASE, F7 TEXT COLLATE NOCASE, "
          "F8 TEXT COLLATE NOCASE, F9 TEXT COLLATE NOCASE)",
          "create index B011_F1 on B011 (F1)",
          "create table PRNTB01 (F1 TEXT COLLATE NOCASE, F2 TEXT COLLATE NOCASE, F3 TEXT COLLATE NOCASE, "
          "F4 TEXT COLLATE NOCASE)"}},
        // The history's other tables follow from the tables that they mirror (history.h).
        {3, {HNowSql()}},
        {4, ChannelBillTables() + HistoryOfVersion4()},
    };
    return steps;
}

bool UpgradeIsDue(sqlite3* db, int newest) {
    const int version = dao::Number(db, "pragma user_version");
    if (version == newest) return false;
    if (version > newest) {
        throw RuntimeError(
            u"数据文件的版本（%1）比本程序的版本（%2）新，请使用新版程序打开！"_s.arg(version).arg(newest));
    }
    if (!dao::GiveUpLog(db))
        throw RuntimeError(u"数据文件需要升级，但另一个程序正在使用它！请先退出该程序，再重新启动。"_s);
    return true;
}

void Upgrade(sqlite3* db, const std::vector<UpgradeStep>& steps, int newest) {
    if (!UpgradeIsDue(db, newest)) return;
    // Nobody can open the file meanwhile. Whoever was quicker to do so has upgraded it.
    dao::InTransaction(db, "begin exclusive", [&] {
        const int version = dao::Number(db, "pragma user_version");
        for (const UpgradeStep& step : steps) {
            if (step.version > version) Take(db, step);
        }
        CompleteHistory(db);
        if (version < newest) dao::Run(db, "pragma user_version = " + QByteArray::number(newest));
    });
}

}  // namespace schema
