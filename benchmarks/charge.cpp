// The customer charge beside its two questions to the database.
#include "benchmarks/subjects.h"
#include "waybills/customer_charge.h"

#include <benchmark/benchmark.h>

namespace benchmarks {
namespace {

constexpr int Charges = 200;

QString ComboText(const QByteArray& code) {
    return QString::fromUtf8(code) + QStringLiteral(".名称");
}

void Ours(dao::Database& db) {
    for (int i = 0; i < Charges; ++i) {
        const auto charge =
            waybills::ComputeCustomerCharge(db, {.customer = ComboText(CustomerCode(i * 7)),
                                                 .zone = ComboText(ZoneCode(i % Zones)),
                                                 .weight = QString::number(i * 0.3 + 0.1),
                                                 .serviceType = QStringLiteral("S.物品(Parcel)")});
        benchmark::DoNotOptimize(charge.amount.constData());
    }
}

double ReadRow(BareEngine& engine, const QByteArray& select, int from, int to) {
    BareStatement rows(engine.Handle(), select);
    double sum = 0;
    if (rows.Step())
        for (int i = from; i < to; ++i) sum += rows.Number(i);
    return sum;
}

void Bare(BareEngine& engine) {
    for (int i = 0; i < Charges; ++i) {
        const double read =
            ReadRow(engine,
                    "select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888 from MS1",
                    0, 20) +
            ReadRow(engine,
                    "select * FROM M031 WHERE F0='" + CustomerCode(i * 7) + "' and F1='" +
                        ZoneCode(i % Zones) + "'",
                    2, 21);
        benchmark::DoNotOptimize(read);
    }
}

}  // namespace

void MeasureCharge(Bench& bench, MadeCompany& company) {
    bench.Run({.name = "charge: 200 waybills",
               .limit = 1.5,
               .runsInRound = 5,
               .ours = [&] { Ours(company.Db()); },
               .bare = [&] { Bare(company.Bare()); }});
}

}  // namespace benchmarks
