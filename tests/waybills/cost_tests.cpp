// The shipping cost on a real file: the worked channel, every shape on both sides of its boundaries, every
// refusal.
#include "platform/errors.h"
#include "tests/support/company.h"
#include "tests/support/script.h"
#include "waybills/shipping_cost.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using waybills::Computed;
using waybills::CostInput;

namespace {

class ShippingCost : public testing::Test {
  protected:
    ShippingCost() {
        company_.Run(
            {u"insert into M01 (F1,F2,D0,D1,S0,S1,JFD,J0,J1) VALUES ('H1','环洋',0.5,0.5,1,1,2,21,45)"_s,
             u"insert into M011 (F1,F2,F3,P101,P102,P201,P202,P300,P301,A30,A31) VALUES "_s +
                 u"('H1-1','美东','H1',20,8,30,12,9,7,False,True)"_s});
    }
    Computed Cost(const CostInput& input) { return waybills::ComputeShippingCost(company_.Db(), input); }
    static CostInput Card(const QString& service, const QString& weight) {
        return {.channel = u"H1.环洋"_s,
                .zone = u"H1-1.美东"_s,
                .weight = weight,
                .serviceType = service,
                .fuelFactor = {},
                .additionalFees = u"3"_s,
                .otherFees = u"0"_s};
    }

    tests::Script script_;
    tests::Company company_;
};

TEST_F(ShippingCost, FourShapesOnBothSidesOfTheirBoundaries) {
    const struct {
        QString service, weight, fuel, additional, other;
        const char* cost;
    } rows[] = {
        // document: first weight up to 0.5, then steps of 0.5
        {u"D"_s, u"0.4"_s, u""_s, u"3"_s, u"0"_s, "23.00"},
        {u"D"_s, u"0.5"_s, u"1.1"_s, u"3"_s, u"2"_s, "27.30"},
        {u"D"_s, u"0.51"_s, u"1.1"_s, u"3"_s, u"0"_s, "34.10"},
        {u"D"_s, u"1"_s, u""_s, u"0"_s, u"0"_s, "28.00"},
        // other fees take the continuation out and are not added themselves
        {u"D"_s, u"1.3"_s, u""_s, u"3"_s, u"2"_s, "23.00"},
        {u"D"_s, u"1.3"_s, u""_s, u"3"_s, u"-1"_s, "23.00"},
        // parcel: within the first weight of 1; beyond it first weight 0.5 and step 1, read half an index on
        {u"S"_s, u"1"_s, u"2"_s, u"3"_s, u"5"_s, "71.00"},
        {u"S"_s, u"1.01"_s, u""_s, u"0"_s, u"0"_s, "42.00"},
        {u"S"_s, u"1.51"_s, u""_s, u"0"_s, u"0"_s, "54.00"},
        {u"S.物品(Parcel)"_s, u"20.99"_s, u""_s, u"0"_s, u"0"_s, "282.00"},
        // heavy: per kilogram on the whole weight, other fees outside the factor
        {u"S"_s, u"21"_s, u""_s, u"0"_s, u"0"_s, "189.00"},
        {u"S"_s, u"25"_s, u"2"_s, u"3"_s, u"5"_s, "461.00"},
        {u"D"_s, u"44.99"_s, u""_s, u"0"_s, u"0"_s, "404.91"},
        // heavy with the flag: the parcel's first price, documents too, and the weight above it not rounded
        {u"S"_s, u"50"_s, u""_s, u"3"_s, u"0"_s, "379.50"},
        {u"D"_s, u"45"_s, u""_s, u"0"_s, u"0"_s, "341.50"},
    };
    for (const auto& row : rows) {
        CostInput card = Card(row.service, row.weight);
        card.fuelFactor = row.fuel;
        card.additionalFees = row.additional;
        card.otherFees = row.other;
        const Computed cost = Cost(card);
        ASSERT_EQ(cost.kind, Computed::Kind::Amount) << row.weight.toStdString();
        EXPECT_EQ(cost.amount.toStdString(), row.cost)
            << row.service.toStdString() << row.weight.toStdString();
        EXPECT_EQ(cost.fuelFactorDefaulted, row.fuel.isEmpty());
    }
}

TEST_F(ShippingCost, SegmentsCountByTheChannelsOwnNumber) {
    const struct {
        QString change;
        const char* cost;
    } rows[] = {
        {u"update M01 set JFD=1"_s, "450.00"},  // 50 kg on the first segment
        {u"update M01 set JFD=0"_s, "630.00"},  // continuation: 30 + 50 steps of 12
        {u"update M01 set JFD=-3"_s, "630.00"},
        {u"update M01 set JFD=2,J1=null"_s, "376.50"},      // an empty bound is reached by every weight
        {u"update M011 set P301=0,A31=False"_s, "630.00"},  // costs nothing, so the continuation rule
        {u"update M011 set P301=null,A31=null"_s, "630.00"},
        {u"update M011 set P301=0,A31=True"_s, "30.00"},  // the flag's first price alone
    };
    for (const auto& row : rows) {
        company_.Run({u"update M01 set JFD=2,J1=45"_s, u"update M011 set P301=7,A31=True"_s, row.change});
        CostInput card = Card(u"S"_s, u"50"_s);
        card.additionalFees.clear();
        EXPECT_EQ(Cost(card).amount.toStdString(), row.cost) << row.change.toStdString();
    }
    company_.Run(u"update M01 set JFD=11"_s);
    EXPECT_THROW(Cost(Card(u"S"_s, u"50"_s)), RuntimeError) << "there is no eleventh bound";
}

TEST_F(ShippingCost, StepsBelowTheFirstWeightAreTakenOff) {
    // A parcel is above its own first weight and still below the document's step, from which it counts: two
    // and a half steps below are two steps less. The charge adds them.
    company_.Run(u"update M01 set D1=3,S0=1"_s);
    CostInput card = Card(u"S"_s, u"1.5"_s);
    card.additionalFees.clear();
    EXPECT_EQ(Cost(card).amount, u"18.00"_s) << "30 less one step of 12";
    company_.Run(u"update M01 set D1=3,S0=0.2"_s);
    card.weight = u"0.5"_s;
    EXPECT_EQ(Cost(card).amount, u"-114.00"_s) << "30 less twelve steps of 12";
}

TEST_F(ShippingCost, FeesKeepAHeavySegmentWithoutARate) {
    company_.Run(u"update M011 set P300=0"_s);
    CostInput card = Card(u"S"_s, u"25"_s);
    EXPECT_EQ(Cost(card).amount, u"3.00"_s) << "the fees make it a cost, so nothing falls back";
    card.additionalFees.clear();
    EXPECT_EQ(Cost(card).amount, u"330.00"_s);
    company_.Run(u"update M01 set S0=0"_s);
    EXPECT_EQ(Cost(card).amount, u"0.00"_s) << "no step to fall back on: the segment's nothing stays";
}

TEST_F(ShippingCost, WhatLeavesTheBoxAsItWas) {
    for (const auto& channel : {u""_s, u"  "_s, u"."_s, u" . "_s}) {
        CostInput card = Card(u"S"_s, u"0"_s);
        card.channel = channel;
        EXPECT_EQ(Cost(card).kind, Computed::Kind::Unchanged);
    }
    company_.Run(u"update M01 set D1=0"_s);
    const Computed noStep = Cost(Card(u"D"_s, u"2"_s));
    EXPECT_EQ(noStep.kind, Computed::Kind::Unchanged) << "no step, no count";
    EXPECT_TRUE(noStep.fuelFactorDefaulted);
}

TEST_F(ShippingCost, RefusalsInTheirOrder) {
    CostInput card{.channel = u"H9.x"_s, .zone = u" "_s, .weight = u"-1"_s, .serviceType = u"X"_s};
    const auto refused = [&](const QString& text) {
        const Computed cost = Cost(card);
        EXPECT_EQ(cost.kind, Computed::Kind::Refused);
        EXPECT_EQ(cost.box.text, text);
        EXPECT_EQ(cost.box.title, u"提示"_s);
        EXPECT_FALSE(cost.fuelFactorDefaulted);
    };
    refused(u"未输入出货区域，系统无法根据区域的成本价格计算出货成本！"_s);
    card.zone = u"H9-1"_s;
    refused(u"未输入出货重量，系统无法计算出货成本！"_s);
    card.weight = u"2kg"_s;
    refused(u"未输入服务类型，无法计算出货成本！"_s);
    card.serviceType = u"D"_s;
    refused(u"本公司报价标准设定您填写的出货渠道编码无效,请从下拉列表中选择！"_s);
    card.channel = u"h1"_s;
    refused(u"指定的区域编码无效！\r无法计算出货成本"_s);
    card.zone = u"H1-1"_s;
    EXPECT_EQ(Cost(card).amount, u"44.00"_s);
}

TEST_F(ShippingCost, FeesOfOneAndAnEmptyPriceHaveNoAmount) {
    company_.Run(u"update M011 set P102=null"_s);
    CostInput card = Card(u"D"_s, u"1.3"_s);
    EXPECT_EQ(Cost(card).amount, u"23.00"_s) << "without fees an empty price is no price";
    card.otherFees = u"1"_s;
    const Computed cost = Cost(card);
    EXPECT_EQ(cost.kind, Computed::Kind::Refused);
    EXPECT_EQ(cost.box.title, u"提示"_s);
}

}  // namespace
