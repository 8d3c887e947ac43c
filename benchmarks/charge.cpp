// The customer charge beside its two questions to the database, in the words in which they reach the engine.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"
#include "waybills/customer_charge.h"

#include <vector>

namespace benchmarks {
namespace {

constexpr int Charges = 200;

/// A waybill to be priced: the card's boxes for us, the codes for the bare loop.
struct Priced {
    waybills::ChargeInput card;
    QByteArray customer;
    QByteArray zone;
};

std::vector<Priced> MakeCards() {
    std::vector<Priced> cards;
    for (int i = 0; i < Charges; ++i) {
        const QByteArray customer = CustomerCode(i * 7);
        const QByteArray zone = ZoneCode(i % Zones);
        cards.push_back({{.customer = QString::fromUtf8(customer + ".名称"),
                          .zone = QString::fromUtf8(zone + ".名称"),
                          .weight = QString::number(i * 0.3 + 0.1),
                          .serviceType = QStringLiteral("S.物品(Parcel)")},
                         customer,
                         zone});
    }
    return cards;
}

void Ours(dao::Database& db, const std::vector<Priced>& cards) {
    for (const Priced& priced : cards) {
        const auto charge = waybills::ComputeCustomerCharge(db, priced.card);
        Keep(charge.amount.constData());
    }
}

void Bare(BareEngine& engine, const std::vector<Priced>& cards) {
    for (const Priced& priced : cards) {
        const double read =
            engine.SumOfRow(
                "select F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,P888 from MS1 "
                "order by MS1.rowid",
                0, 20) +
            engine.SumOfRow("select * FROM M031 WHERE F0='" + priced.customer + "' and F1='" + priced.zone +
                                "' order by M031.rowid",
                            2, 21);
        Keep(read);
    }
}

}  // namespace

void MeasureCharge(Bench& bench, MadeCompany& company) {
    const std::vector<Priced> cards = MakeCards();
    bench.Run({.name = "charge: 200 waybills",
               .limit = 1.5,
               .runsInRound = 5,
               .ours = [&] { Ours(company.Db(), cards); },
               .bare = [&] { Bare(company.Bare(), cards); }});
}

}  // namespace benchmarks
