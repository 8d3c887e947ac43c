// The steps that the computations give along with their amounts: that they add up to the amount, whatever the
// tariff, and come back from the file as they were.
#include "platform/text/numbers.h"
#include "tests/support/company.h"
#include "waybills/customer_charge.h"
#include "waybills/shipping_cost.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>

using namespace Qt::StringLiterals;
using namespace waybills;

namespace tests {
namespace {

/// The figures of one part, in the order of the steps.
std::vector<double> Figures(const Steps& steps, Part part) {
    std::vector<double> figures;
    for (const Step& step : steps)
        if (step.part == part) figures.push_back(step.figure);
    return figures;
}

double OnlyFigure(const Steps& steps, Part part) {
    const std::vector<double> figures = Figures(steps, part);
    EXPECT_LE(figures.size(), 1U);
    return figures.empty() ? 0 : figures.front();
}

double Carriage(const Steps& steps) {
    const std::vector<double> figures = Figures(steps, Part::Carriage);
    EXPECT_TRUE(figures.size() == 1 || figures.size() == 2);
    return figures.size() == 2 ? figures[0] + figures[1] : figures[0];
}

/// The three shapes of a cost add their parts in an order of their own.
double CostOf(const Priced& priced) {
    const double carriage = Carriage(priced.steps);
    const double fee = OnlyFigure(priced.steps, Part::Fee);
    const double factor = OnlyFigure(priced.steps, Part::Factor);
    const double other = OnlyFigure(priced.steps, Part::NotMultiplied);
    const Step* first = priced.Find(StepKind::FirstWeight);
    const Step* steps = priced.Find(StepKind::Steps);
    if (first && first->note == StepNote::WithinFirst) return other + fee * factor + factor * carriage;
    if (steps && steps->note != StepNote::NotRounded) return fee * factor + factor * carriage;
    return other + factor * (fee + carriage);
}

bool InOrder(const Steps& steps) {
    return std::ranges::is_sorted(steps, [](const Step& a, const Step& b) { return a.kind < b.kind; });
}

class RandomTariff {
  public:
    explicit RandomTariff(unsigned seed) : random_(seed) {}
    int Below(int end) { return std::uniform_int_distribution(0, end - 1)(random_); }
    /// A price or weight with up to two decimals; now and then 0 or null.
    QString Number(int end) {
        const int kind = Below(12);
        if (kind == 0) return u"null"_s;
        if (kind == 1) return u"0"_s;
        return QString::number(Below(end * 100) / 100.0, 'g', 12);
    }
    QString Numbers(int count, int end) {
        QStringList all;
        for (int i = 0; i < count; ++i) all += Number(end);
        return all.join(u',');
    }
    QString Rising(int count) {
        QStringList all;
        double bound = 5 + Below(20);
        for (int i = 0; i < count; ++i, bound += Below(30)) all += QString::number(bound);
        return all.join(u',');
    }
    QString Flags(int count) {
        QStringList all;
        for (int i = 0; i < count; ++i) all += QStringList{u"True"_s, u"False"_s, u"null"_s}[Below(3)];
        return all.join(u',');
    }
    QString Weight() { return QString::number((1 + Below(Below(2) ? 300 : 8000)) / 100.0, 'g', 12); }
    QString Service() { return Below(2) ? u"D"_s : u"S"_s; }

  private:
    std::mt19937 random_;
};

QString Columns(const QString& letter, int from, int to) {
    QStringList all;
    for (int i = from; i <= to; ++i) all += letter + QString::number(i);
    return all.join(u',');
}

constexpr int Tariffs = 250;
constexpr int WaybillsOfEach = 40;

TEST(Steps, AddUpToTheChargeInTenThousandCases) {
    Company company;
    RandomTariff random(17);
    int fallbacks = 0;
    for (int tariff = 0; tariff < Tariffs; ++tariff) {
        company.Run({u"delete from MS1"_s, u"delete from M031"_s,
                     u"insert into MS1 (%1) values (%2,%3)"_s.arg(Columns(u"F"_s, 1, 19),
                                                                  random.Numbers(4, 3), random.Rising(15)),
                     u"insert into M031 (F0,F1,%1) values ('C1','Z1',%2)"_s.arg(Columns(u"F"_s, 2, 20),
                                                                                random.Numbers(19, 60))});
        for (int i = 0; i < WaybillsOfEach; ++i) {
            const ChargeInput input{u"C1"_s, u"Z1"_s, random.Weight(), random.Service()};
            Priced priced;
            const Computed charge = ComputeCustomerCharge(company.Db(), input, &priced.steps);
            ASSERT_EQ(charge.kind, Computed::Kind::Amount);
            ASSERT_EQ(charge.amount, ComputeCustomerCharge(company.Db(), input).amount);
            ASSERT_EQ(text::GeneralText(Carriage(priced.steps)), charge.amount);
            ASSERT_EQ(text::GeneralText(*priced.Amount()), charge.amount);
            ASSERT_TRUE(InOrder(priced.steps));
            if (priced.Find(StepKind::Fallback)) ++fallbacks;
        }
    }
    EXPECT_GT(fallbacks, 500);
}

TEST(Steps, AddUpToTheCostInTenThousandCases) {
    Company company;
    RandomTariff random(29);
    std::map<StepNote, int> seen;
    for (int tariff = 0; tariff < Tariffs; ++tariff) {
        const int segments = random.Below(11);
        company.Run(
            {u"delete from M01"_s, u"delete from M011"_s,
             u"insert into M01 (F1,D0,D1,S0,S1,JFD,%1) values ('H1',%2,%3,%4)"_s.arg(
                 Columns(u"J"_s, 0, 9), random.Numbers(4, 3), QString::number(segments), random.Rising(10)),
             u"insert into M011 (F1,P101,P102,P201,P202,%1,%2) values ('H1-1',%3,%4)"_s.arg(
                 Columns(u"P"_s, 300, 309), Columns(u"A"_s, 30, 39), random.Numbers(14, 60),
                 random.Flags(10))});
        for (int i = 0; i < WaybillsOfEach; ++i) {
            const auto fee = [&] { return random.Below(2) ? QString() : random.Number(9); };
            const CostInput input{.channel = u"H1"_s,
                                  .zone = u"H1-1"_s,
                                  .weight = random.Weight(),
                                  .serviceType = random.Service(),
                                  .fuelFactor = fee(),
                                  .additionalFees = fee(),
                                  .otherFees = random.Below(9) ? fee() : u"1"_s};
            Priced priced;
            const Computed cost = ComputeShippingCost(company.Db(), input, &priced.steps);
            const Computed plain = ComputeShippingCost(company.Db(), input);
            ASSERT_EQ(cost.kind, plain.kind);
            ASSERT_EQ(cost.amount, plain.amount);
            ASSERT_TRUE(InOrder(priced.steps));
            for (const Step& step : priced.steps) ++seen[step.note];
            if (cost.kind != Computed::Kind::Amount) {
                ASSERT_FALSE(priced.Amount());
                ASSERT_FALSE(priced.steps.back().refusal.isEmpty());
                continue;
            }
            ASSERT_EQ(text::FormatFixed(CostOf(priced), 2), cost.amount)
                << ToText(priced.steps).toStdString();
            ASSERT_EQ(CostOf(priced), *priced.Amount());
        }
    }
    for (const StepNote note : {StepNote::FirstAndRest, StepNote::NoStepWeight, StepNote::NotRounded,
                                StepNote::OtherFeesExclude, StepNote::NoPrice, StepNote::FactorDefaulted})
        EXPECT_GT(seen[note], 5) << static_cast<int>(note);
}

TEST(Steps, ComeBackFromTheirTextExactly) {
    const Steps steps = {
        {.kind = StepKind::Weight, .note = StepNote::Document, .figure = 0.1 + 0.2},
        {.kind = StepKind::Bracket, .note = StepNote::Heavy, .from = 21, .count = 1, .of = 3},
        {.kind = StepKind::Steps, .part = Part::Carriage, .figure = -1e-9, .price = 1.0 / 3},
        {.kind = StepKind::Result}};
    const Steps back = FromText(ToText(steps));
    ASSERT_EQ(back.size(), steps.size());
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_EQ(back[i].kind, steps[i].kind);
        EXPECT_EQ(back[i].part, steps[i].part);
        EXPECT_EQ(back[i].note, steps[i].note);
        for (const auto figure :
             {&Step::figure, &Step::from, &Step::to, &Step::count, &Step::of, &Step::price})
            EXPECT_EQ(back[i].*figure, steps[i].*figure);
    }
    for (const auto& text : {u""_s, u"x"_s, u"1"_s, u"1 0"_s, u"1 0 0 a"_s, u"99 0 0"_s, u"-1 0 0"_s,
                             u"1 0 0;"_s, u"1 0 0 1 2 3 4 5 6 7"_s, u"1 0 0 inf"_s, u"1 0 0 nan"_s})
        EXPECT_TRUE(FromText(text).empty()) << text.toStdString();
}

}  // namespace
}  // namespace tests
