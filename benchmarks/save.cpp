// The writing of one waybill: its row, the counter, both journal rows and one commit. The rows go again in
// the same command, so that the company stays as it was made.
#include "benchmarks/subjects.h"
#include "platform/dao/dialect/translate.h"

#include <QByteArrayList>

#include <benchmark/benchmark.h>
#include <chrono>

namespace benchmarks {
namespace {

QByteArray Waybill() {
    QByteArray insert =
        "insert into B01 "
        "(F1,F101,F102,F103,F201,F202,F203,F2031,F2041,F2042,F2051,F2052,F2061,F2062,F2071,F2072,"
        "F208,F301,F302,F303,F401,F402,F403,F404,F405,F501,F502,F503,F504,F601,F602,F603,F604,F505,F507,F506,"
        "F701,"
        "F702,F703,F704,F2021,F605,F606,DF,YJ,XJ,F508,F509,F510,F4051,F4052,F4053) VALUES "
        "('ZZ1','2024-03-15','";
    for (int i = 2; i < 19; ++i) insert += "上海市浦东新区某某路一百二十八号','";
    return insert +
           "100',1,2.5,2.5,2.4,'','月结',50.5,0,50.5,'管理员','外务一','K0001','未审核',1.1,30.25,1,'','','',"
           "'','',"
           "'','',0,50.5,0,0,0,0,10,20,30)";
}

QByteArray Post(const char* type, const char* key, const char* party, const char* numbers) {
    return QByteArray("insert into TB1 (S2,F1,F3,SN,LB,YF,F2,S1,F5,F6,F10,H8) VALUES('") + type + "','" +
           key + "','" + party + "'," + numbers +
           ",'2024-03-15','','管理员','管理员','','2024-03-15 10:00:00')";
}

const QByteArrayList Statements = {
    "update TE1 set F67=1 where F1='001'",
    Waybill(),
    "update sysinfo set Setval=setval+1 Where ID=100",
    Post("增加应收", "YSZZ1", "客户0002", "9000000,-9,50.5"),
    Post("增加应付", "YFZZ1", "渠道0002", "9000001,9,30.25"),
    "update sysinfo set Setval=setval-1 Where ID=100",
    "DELETE FROM TB1 WHERE F1='YFZZ1' OR F1='YSZZ1'",
    "delete from B01 where F1='ZZ1'",
};

void Ours(dao::Database& db) {
    for (const QByteArray& statement : Statements) db.Execute(QString::fromUtf8(statement));
    db.CloseGroup();
}

void Bare(BareEngine& engine) {
    engine.Run("begin immediate");
    for (const QByteArray& statement : Statements) engine.Run(statement);
    engine.Run("commit");
}

class NoTables : public dao::dialect::Tables {
    const dao::dialect::Table* Find(std::string_view) const override { return nullptr; }
};

/// Microseconds for one translation of the waybill's insert.
double Translation() {
    constexpr int Times = 10'000;
    const std::string insert = Waybill().toStdString();
    const NoTables tables;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < Times; ++i) benchmark::DoNotOptimize(dao::dialect::Translate(insert, tables));
    const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - begin;
    return took.count() / Times;
}

}  // namespace

void MeasureSave(Bench& bench, MadeCompany& company) {
    bench.Run({.name = "writing of a waybill with its journal rows",
               .limit = 2,
               .runsInRound = 20,
               .ours = [&] { Ours(company.Db()); },
               .bare = [&] { Bare(company.Bare()); }});
    const std::string translation = "translation of an insert of 2 KB";
    if (bench.Wanted(translation)) bench.State(translation, Translation(), "us");
}

}  // namespace benchmarks
