#include "schema/upgrade.h"

#include "platform/errors.h"
#include "schema/engine.h"

using namespace Qt::StringLiterals;

namespace schema {
namespace {

void Take(sqlite3* db, const UpgradeStep& step) {
    try {
        for (const QByteArray& statement : step.statements) Run(db, statement);
    } catch (const RuntimeError& error) {
        throw RuntimeError(u"数据文件升级到第 %1 版失败！%2"_s.arg(step.version).arg(error.Text()));
    }
}

}  // namespace

const std::vector<UpgradeStep>& UpgradeSteps() {
    // The first shape is what new files have, so the first change will be the first step:
    // {2, {"alter table B01 add column ..."}}.
    static const std::vector<UpgradeStep> steps;
    return steps;
}

void Upgrade(sqlite3* db, const std::vector<UpgradeStep>& steps, int newest) {
    const int version = Number(db, "pragma user_version");
    if (version == newest) return;
    if (version > newest) {
        throw RuntimeError(
            u"数据文件的版本（%1）比本程序的版本（%2）新，请使用新版程序打开！"_s.arg(version).arg(newest));
    }
    InTransaction(db, [&] {
        for (const UpgradeStep& step : steps) {
            if (step.version > version) Take(db, step);
        }
        Run(db, "pragma user_version = " + QByteArray::number(newest));
    });
}

}  // namespace schema
