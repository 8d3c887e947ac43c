// What the way of a statement from the system's dialect to the engine's takes, for the longest that there is.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"
#include "platform/dao/dialect/translate.h"

#include <chrono>

namespace benchmarks {
namespace {

QByteArray InsertOfWaybill() {
    QByteArray insert =
        "insert into B01 "
        "(F1,F101,F102,F103,F201,F202,F203,F2031,F2041,F2042,F2051,F2052,F2061,F2062,F2071,F2072,"
        "F208,F301,F302,F303,F401,F402,F403,F404,F405,F501,F502,F503,F504,F601,F602,F603,F604,F505,F507,F506,"
        "F701,F702,F703,F704,F2021,F605,F606,DF,YJ,XJ,F508,F509,F510,F4051,F4052,F4053) VALUES "
        "('ZZ1','2024-03-15','";
    for (int i = 2; i < 19; ++i) insert += "上海市浦东新区某某路一百二十八号','";
    return insert +
           "100',1,2.5,2.5,2.4,'','月结',50.5,0,50.5,'管理员','外务一','K0001','未审核',1.1,30.25,1,'','','',"
           "'','','','',0,50.5,0,0,0,0,10,20,30)";
}

class NoTables : public dao::dialect::Tables {
    const dao::dialect::Table* Find(std::string_view) const override { return nullptr; }
};

}  // namespace

void MeasureTranslation(Bench& bench) {
    const char* const name = "translation of an insert of 2 KB";
    if (!bench.Wanted(name)) return;
    constexpr int Times = 10'000;
    const std::string insert = InsertOfWaybill().toStdString();
    const NoTables tables;
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < Times; ++i) Keep(dao::dialect::Translate(insert, tables));
    const std::chrono::duration<double, std::micro> took = std::chrono::steady_clock::now() - begin;
    bench.State(name, took.count() / Times, "us");
}

}  // namespace benchmarks
