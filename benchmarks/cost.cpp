// The shipping cost beside its two questions to the database, in the words in which they reach the engine.
#include "benchmarks/bench.h"
#include "benchmarks/subjects.h"
#include "waybills/shipping_cost.h"

#include <vector>

namespace benchmarks {
namespace {

constexpr int Costs = 200;
constexpr int ChannelFields = 15;
constexpr int ZoneFields = 25;

/// A consignment to be priced: the card's boxes for us, the codes for the bare loop.
struct Priced {
    waybills::CostInput card;
    QByteArray channel;
    QByteArray zone;
};

std::vector<Priced> MakeCards() {
    std::vector<Priced> cards;
    for (int i = 0; i < Costs; ++i) {
        const QByteArray channel = ChannelCode(i % Channels);
        const QByteArray zone = CostZoneCode(i % Channels, i / Channels);
        cards.push_back({{.channel = QString::fromUtf8(channel + ".名称"),
                          .zone = QString::fromUtf8(zone + ".名称"),
                          .weight = QString::number(i * 0.5 + 0.1),
                          .serviceType = QStringLiteral("S.物品(Parcel)"),
                          .fuelFactor = QStringLiteral("1.12"),
                          .additionalFees = QStringLiteral("3"),
                          .otherFees = QStringLiteral("0")},
                         channel,
                         zone});
    }
    return cards;
}

void Ours(dao::Database& db, const std::vector<Priced>& cards) {
    for (const Priced& priced : cards) {
        const auto cost = waybills::ComputeShippingCost(db, priced.card);
        Keep(cost.amount.constData());
    }
}

void Bare(BareEngine& engine, const std::vector<Priced>& cards) {
    for (const Priced& priced : cards) {
        const double read =
            engine.SumOfRow("select D0,D1,S0,S1,JFD,J0,J1,J2,J3,J4,J5,J6,J7,J8,J9 FROM M01 WHERE F1='" +
                                priced.channel + "' order by M01.rowid",
                            0, ChannelFields) +
            engine.SumOfRow(
                "select P101,P102,P201,P202,P3,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309,A30,A31,A32,"
                "A33,A34,A35,A36,A37,A38,A39 FROM M011 WHERE F1='" +
                    priced.zone + "' order by M011.rowid",
                0, ZoneFields);
        Keep(read);
    }
}

}  // namespace

void MeasureCost(Bench& bench, MadeCompany& company) {
    const std::vector<Priced> cards = MakeCards();
    bench.Run({.name = "cost: 200 waybills",
               .limit = 1.5,
               .runsInRound = 5,
               .ours = [&] { Ours(company.Db(), cards); },
               .bare = [&] { Bare(company.Bare(), cards); }});
}

}  // namespace benchmarks
