// The database layer beside the bare engine: the same work, in the same run, on the same encrypted file.
// What counts is the ratio within a pair; at most 1.5 for the list, 2 for the save and the chain.
#include "platform/dao/database.h"
#include "platform/dao/dialect/translate.h"
#include "schema/data_files.h"
#include "schema/engine.h"
#include "schema/names.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWaybills = 100'000;
constexpr int kChain = 10'000;

/// A company of some years, made once; both sides open it in turn.
const QString& File() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString made = folder.filePath(schema::kDatabaseFile.toString());
        schema::MakeDatabase(made);
        const auto engine = schema::OpenEngine(made, schema::kPassword);
        schema::InTransaction(engine.get(), [&] {
            for (int i = 0; i < 50; ++i) {
                const QByteArray n = QByteArray::number(i);
                schema::Run(engine.get(), "insert into M03 (F1,F2) values ('K" + n + "','客户" + n + "')");
                schema::Run(engine.get(), "insert into M01 (F1,F2) values ('Q" + n + "','渠道" + n + "')");
            }
            const QByteArray count = "with recursive n(i) as (select 0 union all select i+1 from n where i<";
            schema::Run(
                engine.get(),
                count + QByteArray::number(kWaybills - 1) +
                    ") insert into B01 (F1,F101,F2031,F301,F401,F501,F602,F604,F103,F202,F603) select "
                    "'KT'||(1000000+i),date('2023-01-01','+'||(i/300)||' "
                    "days'),'目的地'||(i%90),'D',i%9,'月结',"
                    "'取件员'||(i%20),'管理员','易碎品，小心轻放','Q'||(i%50),'K'||(i%50) from n");
            schema::Run(engine.get(),
                        count + QByteArray::number(kChain - 1) +
                            ") insert into TB1 (SN,LB,F1,F2,F3,YF,F6) select 31+2*i,-9,'YS'||i,"
                            "date('2023-01-01','+'||(i/30)||' days'),'客户1',i%100+0.5,'管理员' from n");
        });
        return made;
    }();
    return path;
}

schema::Engine Bare() {
    auto engine = schema::OpenEngine(File(), schema::kPassword);
    for (const char* pragma :
         {"pragma journal_mode=wal", "pragma synchronous=full", "pragma cache_size=-65536"})
        schema::Run(engine.get(), pragma);
    return engine;
}

std::unique_ptr<dao::Database> Ours() {
    return dao::Database::Open(File(), schema::kConnect.toString());
}

class Prepared {
  public:
    Prepared(const schema::Engine& engine, const std::string& sql) {
        if (sqlite3_prepare_v2(engine.get(), sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK)
            std::abort();
    }
    ~Prepared() { sqlite3_finalize(statement_); }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;
    operator sqlite3_stmt*() const { return statement_; }

  private:
    sqlite3_stmt* statement_ = nullptr;
};

const char* const kList =
    "select B01.F1,B01.F101,B01.F2031,B01.F301,B01.F401,B01.F501,M01.F2,M03.F2,B01.F602,B01.F604,B01.F103 "
    "FROM (B01 LEFT JOIN M03 ON B01.F603=M03.F1)  left join M01 on M01.f1=B01.f202    ORDER BY B01.F101 ";

/// Into plain strings of the toolkit, which is what a grid keeps.
void ListBare(benchmark::State& state) {
    const auto engine = Bare();
    for (auto _ : state) {
        std::vector<QString> cells;
        const Prepared rows(engine, std::string(kList) + ",B01.rowid");
        while (sqlite3_step(rows) == SQLITE_ROW) {
            for (int i = 0; i < 11; ++i) {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(rows, i));
                cells.push_back(text ? QString::fromUtf8(text, sqlite3_column_bytes(rows, i)) : QString());
            }
        }
        if (cells.size() != 11 * kWaybills) std::abort();
    }
}

void ListOurs(benchmark::State& state) {
    const auto db = Ours();
    for (auto _ : state) {
        std::vector<QString> cells;
        auto rows = db->OpenRecordset(QString::fromLatin1(kList));
        for (; !rows.Eof(); rows.MoveNext())
            for (int i = 0; i < 11; ++i) cells.push_back(rows.Fields(i).Text());
        if (cells.size() != 11 * kWaybills) std::abort();
    }
}

QStringList Save(int n) {
    const QString number = u"ZZ%1"_s.arg(n);
    QString insert =
        u"insert into B01 "
        u"(F1,F101,F102,F103,F201,F202,F203,F2031,F2041,F2042,F2051,F2052,F2061,F2062,F2071,F2072,"
        "F208,F301,F302,F303,F401,F402,F403,F404,F405,F501,F502,F503,F504,F601,F602,F603,F604,F505,F507,F506,"
        "F701,"
        "F702,F703,F704,F2021,F605,F606,DF,YJ,XJ,F508,F509,F510,F4051,F4052,F4053) VALUES ('"_s +
        number + u"','2024-03-15','"_s;
    for (int i = 2; i < 19; ++i) insert += u"上海市浦东新区某某路一百二十八号','"_s;
    insert +=
        u"100',1,2.5,2.5,2.4,'','月结',50.5,0,50.5,'管理员','取件员1','K1','未审核',1.1,30.25,1,'','','','','"
        u"','','',"
        "0,50.5,0,0,0,0,10,20,30)"_s;
    return {u"update TE1 set F67=1 where F1='001'"_s,
            insert,
            u"update sysinfo set Setval=setval+1 Where ID=100"_s,
            u"update sysinfo set Setval=setval+1 Where ID=100"_s,
            u"insert into TB1 (S2,SN,LB,F1,F2,F3,YF,S1,F5,F6,F10,H8) VALUES('增加应收',900000,-9,'YS"_s +
                number + u"','2024-03-15','客户2',50.5,'','管理员','管理员','','2024-03-15 10:00:00')"_s,
            u"insert into TB1 (S2,SN,LB,F1,F2,F3,YF,S1,F5,F6,F10,H8) VALUES('增加应付',900001,9,'YF"_s +
                number + u"','2024-03-15','渠道2',30.25,'','管理员','管理员','','2024-03-15 10:00:00')"_s};
}

void SaveBare(benchmark::State& state) {
    const auto engine = Bare();
    int n = 0;
    for (auto _ : state) {
        schema::InTransaction(engine.get(), [&] {
            for (const QString& statement : Save(++n)) schema::Run(engine.get(), statement.toUtf8());
        });
    }
}

void SaveOurs(benchmark::State& state) {
    const auto db = Ours();
    int n = 1'000'000;
    for (auto _ : state) {
        for (const QString& statement : Save(++n)) db->Execute(statement);
        db->CloseGroup();
    }
}

const char* const kChainRows =
    "select QC,YF,FK,QM from TB1 where SN<>0 AND  SN>=0 and F3='客户1' ORDER BY SN";

void ChainBare(benchmark::State& state) {
    const auto engine = Bare();
    for (auto _ : state) {
        schema::InTransaction(engine.get(), [&] {
            struct Row {
                sqlite3_int64 key;
                double change;
            };
            std::vector<Row> chain;
            const Prepared rows(
                engine, "select YF,FK,rowid from TB1 where SN<>0 and SN>=0 and F3='客户1' order by SN");
            while (sqlite3_step(rows) == SQLITE_ROW)
                chain.push_back({sqlite3_column_int64(rows, 2),
                                 sqlite3_column_double(rows, 0) - sqlite3_column_double(rows, 1)});
            const Prepared write(engine, "update TB1 set QC=?,QM=? where rowid=?");
            double running = 0;
            for (const Row& row : chain) {
                sqlite3_bind_double(write, 1, running);
                sqlite3_bind_double(write, 2, running += row.change);
                sqlite3_bind_int64(write, 3, row.key);
                sqlite3_step(write);
                sqlite3_reset(write);
            }
        });
    }
}

void ChainOurs(benchmark::State& state) {
    const auto db = Ours();
    for (auto _ : state) {
        double running = 0;
        auto rows = db->OpenRecordset(QString::fromUtf8(kChainRows), dao::RecordsetType::Dynaset);
        for (; !rows.Eof(); rows.MoveNext()) {
            rows.Edit();
            rows.SetValue(u"QC", running);
            running += rows.Fields(1).Number() - rows.Fields(2).Number();
            rows.SetValue(u"QM", running);
            rows.Update();
        }
        db->CloseGroup();
    }
}

class NoTables : public dao::dialect::Tables {
    const dao::dialect::Table* Find(std::string_view) const override { return nullptr; }
};

void TranslateInsert(benchmark::State& state) {
    const std::string insert = Save(1)[1].toStdString();
    const NoTables tables;
    for (auto _ : state) benchmark::DoNotOptimize(dao::dialect::Translate(insert, tables));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(insert.size()));
}

BENCHMARK(ListBare)->Unit(benchmark::kMillisecond);
BENCHMARK(ListOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(ChainBare)->Unit(benchmark::kMillisecond);
BENCHMARK(ChainOurs)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveBare)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveOurs)->Unit(benchmark::kMicrosecond);
BENCHMARK(TranslateInsert)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
