// The words of an explanation, for every branch of both computations, and what it says of the card.
#include "tests/support/company.h"
#include "tests/support/script.h"
#include "tests/waybills/waybill_company.h"
#include "waybills/explanation.h"

#include <gtest/gtest.h>
#include <map>

using namespace Qt::StringLiterals;
using namespace waybills;

namespace tests {
namespace {

class Explanation : public testing::Test {
  protected:
    Explanation() {
        for (const QString& statement : WaybillMasters()) company_.Run(statement);
        card_ = {{CustomerCode, u"C1.华兴"_s},
                 {ServiceZoneCode, u"Z1.北美"_s},
                 {ServiceType, u"S.物品(Parcel)"_s},
                 {ChannelCode, u"H1.环洋"_s},
                 {ChannelZoneCode, u"H1-1.美东"_s}};
    }
    QString Card(Box box) const { return card_.contains(box) ? card_.at(box) : QString(); }
    Priced Now(Side side) {
        return PricedNow(company_.Db(), side, [this](Box box) { return Card(box); });
    }
    ExplainedSide Explained(Side side, const Priced& priced, Origin origin = Origin::Card) {
        return Explain(side, priced, origin, [this](Box box) { return Card(box); });
    }
    /// The rows, in the notation "caption|words|figure"; ! marks a warning, = a sum.
    static QString Rows(const ExplainedSide& side) {
        QStringList rows;
        for (const ExplainedRow& row : side.rows) {
            const QString mark = row.look == ExplainedRow::Look::Warning ? u"!"_s
                                 : row.look == ExplainedRow::Look::Sum   ? u"="_s
                                                                         : QString();
            rows += mark + QStringList{row.caption, row.words, row.figure}.join(u'|');
        }
        return rows.join(u'\n');
    }
    /// Enters weight and service type; the amount boxes then hold what is computed.
    void Enter(Side side, const QString& service, const QString& weight) {
        card_[ServiceType] = service;
        card_[side == Side::Charge ? ReceivedWeight : ShippedWeight] = weight;
        const Box box = side == Side::Charge ? BasicCharge : ShippingCost;
        const auto card = [this](Box b) { return Card(b); };
        card_[box] = side == Side::Charge ? ComputeCustomerCharge(company_.Db(), ChargeInputOf(card)).amount
                                          : ComputeShippingCost(company_.Db(), CostInputOf(card)).amount;
        card_[TotalCharge] =
            ChargeTotal(Card(AdditionalCharge), Card(BasicCharge), Card(FuelRate), Card(OtherFees));
    }

    Script script_;
    Company company_;
    std::map<Box, QString> card_;
};

const QString Parcel = u"S.物品(Parcel)"_s;
const QString Document = u"D.文件(File)"_s;

TEST_F(Explanation, SaysInWordsHowTheChargeWasComputed) {
    card_[FuelRate] = u"1.1"_s;
    card_[AdditionalCharge] = u"5"_s;
    card_[OtherFees] = u"2"_s;
    // Between the weight and the total.
    const struct {
        QString change, service, weight, rows;
    } cases[] = {
        {u""_s, Document, u"0.5"_s,
         u"计费段|文件，不超过首重 0.5 公斤：首重价格|\n首重|首重以内|30.00\n=基本费用|首重价格|30.00"_s},
        {u""_s, Document, u"1.2"_s,
         u"计费段|文件，超过首重 0.5 公斤：首重 + 续重|\n首重|首 0.5 公斤|30.00\n"
         u"续重|(1.2 − 0.5) ÷ 0.5 = 1.4，不足一步进一步：2 × 10.00|20.00\n=基本费用|首重 + 续重|50.00"_s},
        {u""_s, Parcel, u"30"_s,
         u"计费段|重包裹 21-45Kg，第 1 段：全部重量 × 单价|\n单价|30 × 12.00|360.00\n"
         u"=基本费用|全部重量 × 单价|360.00"_s},
        {u""_s, Parcel, u"50"_s,
         u"计费段|重包裹 46-999Kg，第 2 段：全部重量 × 单价|\n单价|这一段没有报价|0\n"
         u"!改按|单价为 0，改用小包裹的首重加续重，仍按全部重量|\n首重|首 0.5 公斤|40.00\n"
         u"续重|(50 − 0.5) ÷ 0.5 = 99，不足一步进一步：99 × 15.00|1485.00\n=基本费用|首重 + 续重|1525.00"_s},
        {u"update M031 set F6=0,F20=1.125"_s, Parcel, u"1000"_s,
         u"计费段|重包裹 1000Kg以上，第 15 段：全部重量 × 单价|\n单价|1000 × 1.125|1125.00\n"
         u"=基本费用|全部重量 × 单价|1125.00"_s},
        {u"update MS1 set F1=3,F2=1,F5=0"_s, Document, u"0.5"_s,
         u"计费段|重包裹 0-45Kg，第 1 段：全部重量 × 单价|\n单价|这一段没有报价|0\n"
         u"!改按|单价为 0，改用文件的首重加续重，仍按全部重量|\n首重|首 3 公斤|30.00\n"
         u"续重|重量低于首重，所差的整步也计：2 × 10.00|20.00\n=基本费用|首重 + 续重|50.00"_s},
    };
    for (const auto& each : cases) {
        if (!each.change.isEmpty()) company_.Run(each.change);
        Enter(Side::Charge, each.service, each.weight);
        EXPECT_EQ(Rows(Explained(Side::Charge, Now(Side::Charge))).section(u'\n', 1, -2).toStdString(),
                  each.rows.toStdString());
    }
    const QString last = Rows(Explained(Side::Charge, Now(Side::Charge)));
    EXPECT_TRUE(last.startsWith(u"收重|0.5 公斤，D.文件(File)|0.5\n"_s));
    EXPECT_TRUE(last.endsWith(u"\n总计费用|(50.00 + 附加 5.00) × 燃油费率 1.1 + 其它 2.00|62.50"_s));
}

TEST_F(Explanation, SaysInWordsHowTheCostWasComputed) {
    const QString fees = u"附加费用|与运费一起乘燃油费率|3.00\n"_s;
    const QString heavy = u"计费段|21-44Kg，第 1 段，这个渠道共 2 段|\n算法|全部重量 × 单价|\n"_s;
    const QString document = u"计费段|文件，超过首重 0.5 公斤：首重 + 续重|\n首重|首 0.5 公斤|20.00\n"_s;
    // From the weight on.
    const struct {
        QString change, service, weight, factor, otherFees, rows;
    } cases[] = {
        {u""_s, Document, u"0.4"_s, u""_s, u""_s,
         u"计费段|文件，不超过首重 0.5 公斤：首重价格|\n首重|首重以内|20.00\n"_s + fees +
             u"其它费用|不乘燃油费率|0.00\n=出货成本|(20.00 + 3.00) × 燃油费率 1（未填） + 0.00|23.00"_s},
        {u""_s, Document, u"1.3"_s, u"1"_s, u""_s,
         document + u"续重|(1.3 − 0.5) ÷ 0.5 = 1.6，不足一步进一步：2 × 8.00|16.00\n"_s + fees +
             u"=出货成本|(20.00 + 16.00 + 3.00) × 燃油费率 1|39.00"_s},
        {u""_s, Document, u"1.3"_s, u"1.5"_s, u"2"_s,
         document + u"续重|其它费用不为 0，续重不计|0.00\n"_s + fees +
             u"其它费用|这一段不加其它费用|2.00\n=出货成本|(20.00 + 0.00 + 3.00) × 燃油费率 1.5|34.50"_s},
        {u""_s, Parcel, u"25"_s, u"2"_s, u"5"_s,
         heavy + u"单价|25 × 9.00|225.00\n"_s + fees +
             u"其它费用|不乘燃油费率|5.00\n=出货成本|(225.00 + 3.00) × 燃油费率 2 + 5.00|461.00"_s},
        {u""_s, Document, u"50"_s, u"1"_s, u""_s,
         u"计费段|45Kg以上，第 2 段，这个渠道共 2 段|\n算法|这一段已勾选：首重价格 + 续重价格，续重不取整|\n"
         u"首重|首 0.5 公斤，用小包裹的首重价格|30.00\n续重|(50 − 0.5) × 7.00|346.50\n"_s +
             fees +
             u"其它费用|不乘燃油费率|0.00\n=出货成本|(30.00 + 346.50 + 3.00) × 燃油费率 1 + 0.00|379.50"_s},
        {u"update M011 set P102=null"_s, Document, u"1.3"_s, u"1"_s, u""_s,
         document + u"续重|续重没有成本价，不计|0.00\n"_s + fees +
             u"=出货成本|(20.00 + 0.00 + 3.00) × 燃油费率 1|23.00"_s},
        {u"update M011 set P300=0"_s, Parcel, u"25"_s, u"1"_s, u"-3"_s,
         heavy +
             u"单价|这一段没有成本价|0\n!改按|这一段算出为 0，改用小包裹的首重加续重，仍按全部重量|\n"
             u"首重|首 0.5 公斤|30.00\n续重|其它费用不为 0，续重不计|0.00\n"_s +
             fees +
             u"其它费用|这一段不加其它费用|-3.00\n=出货成本|(30.00 + 0.00 + 3.00) × 燃油费率 1|33.00"_s},
        {u"update M01 set S0=0"_s, Parcel, u"25"_s, u"1"_s, u"-3"_s,
         heavy + u"单价|这一段没有成本价|0\n!改按|这一段算出为 0，小包裹的续重步长也是 0，成本仍为 0|\n"_s +
             fees + u"其它费用|不乘燃油费率|-3.00\n=出货成本|(0.00 + 3.00) × 燃油费率 1 + -3.00|0.00"_s},
        {u"update M01 set D1=30,S0=1"_s, Parcel, u"10.5"_s, u"1"_s, u""_s,
         u"计费段|小包裹，超过首重 1 公斤：首重 + 续重|\n首重|首 30 公斤|30.00\n"
         u"续重|重量低于首重，所差的整步减去：-19 × 12.00|-228.00\n"_s +
             fees + u"=出货成本|(30.00 + -228.00 + 3.00) × 燃油费率 1|-195.00"_s},
    };
    card_[ChannelAdditionalFees] = u"3"_s;
    for (const auto& each : cases) {
        if (!each.change.isEmpty()) company_.Run(each.change);
        card_[ChannelFuelRate] = each.factor;
        card_[ChannelOtherFees] = each.otherFees;
        Enter(Side::Cost, each.service, each.weight);
        EXPECT_EQ(Rows(Explained(Side::Cost, Now(Side::Cost))).section(u'\n', 1).toStdString(),
                  each.rows.toStdString());
    }
}

TEST_F(Explanation, EndsAtTheStepThatRefusedInItsWords) {
    Enter(Side::Charge, Parcel, u"3"_s);
    Enter(Side::Cost, Parcel, u"3"_s);
    const auto card = card_;
    const struct {
        Side side;
        std::map<Box, QString> changed;
        const char* begins;
    } cases[] = {
        {Side::Charge, {{CustomerCode, u""_s}}, "!报价|未输入发件客户，系统无法根据报价计算发件费用！|"},
        {Side::Charge, {{ReceivedWeight, u""_s}}, "!收重|未输入收货重量，系统无法计算发件费用！|"},
        {Side::Charge,
         {{ServiceZoneCode, u"Z9"_s}},
         "收重|3 公斤，S.物品(Parcel)|3\n计费段|小包裹，超过首重 0.5 公斤：首重 + 续重|\n"
         "!单价|指定的发件客户编码无效，或是指定的区域编码无效！ 无法计算发件费用|"},
        {Side::Charge,
         {{CustomerCode, u"O'Hara"_s}},
         "收重|3 公斤，S.物品(Parcel)|3\n计费段|小包裹，超过首重 0.5 公"},
        {Side::Cost, {{ChannelCode, u"."_s}}, "!渠道|没有出货渠道，不计算成本|"},
        {Side::Cost, {{ShippedWeight, u"x"_s}}, "!出重|未输入出货重量，系统无法计算出货成本！|"},
        {Side::Cost,
         {{ChannelCode, u"H9"_s}},
         "出重|3 公斤，S.物品(Parcel)|3\n"
         "!计费段|本公司报价标准设定您填写的出货渠道编码无效,请从下拉列表中选择！|"},
        {Side::Cost,
         {{ChannelZoneCode, u"H9"_s}},
         "出重|3 公斤，S.物品(Parcel)|3\n计费段|小包裹，超过首重 1 公斤：首重 + 续重|\n"
         "!单价|指定的区域编码无效！ 无法计算出货成本|"},
    };
    for (const auto& each : cases) {
        card_ = card;
        for (const auto& [box, text] : each.changed) card_[box] = text;
        const ExplainedSide explained = Explained(each.side, Now(each.side));
        EXPECT_TRUE(Rows(explained).startsWith(QString::fromUtf8(each.begins)))
            << Rows(explained).toStdString();
        EXPECT_EQ(explained.result, u""_s);
        EXPECT_TRUE(Rows(explained).contains(u"，由操作员填写|"_s))
            << "the amount in the text box has no steps";
    }
    card_ = card;
    company_.Run(u"delete from MS1"_s);
    EXPECT_TRUE(
        Rows(Explained(Side::Charge, Now(Side::Charge))).contains(u"!计费段|本公司报价标准设定数据丢失！"_s));
}

TEST_F(Explanation, SaysWhatTheTextBoxHoldsInsteadAndWhatHasChangedSince) {
    card_[FuelRate] = u"1"_s;
    Enter(Side::Charge, Parcel, u"3"_s);
    const Priced charge = Now(Side::Charge);
    const auto last = [&](Origin origin) {
        return Rows(Explained(Side::Charge, charge, origin)).section(u'\n', 6);
    };
    EXPECT_EQ(last(Origin::Card), u""_s);
    card_[BasicCharge] = u"130.2"_s;
    EXPECT_EQ(last(Origin::Card),
              u"!基本费用|框中为 130.2，由操作员填写|+15.20\n!总计费用|框中为 115.00，由操作员填写|−15.20"_s);
    card_[TotalCharge] = u"130.20"_s;
    EXPECT_EQ(last(Origin::Stored), u"!基本费用|框中为 130.2，由操作员填写|+15.20"_s);
    EXPECT_EQ(last(Origin::Today), u"!基本费用|框中为 130.2，与今日资料算出的不同|+15.20"_s);
    card_[BasicCharge] = u"115"_s;
    card_[TotalCharge] = u"115.00"_s;
    card_[ReceivedWeight] = u"30"_s;
    EXPECT_EQ(last(Origin::Card), u"!单据|算出之后，单据的内容有改动|"_s);
    const QList<ExplainedRow> printed = ForCustomer(charge, [this](Box box) { return Card(box); });
    EXPECT_EQ(printed[printed.size() - 2].words, u"另行议定"_s) << "the steps are of another weight";
    card_[ReceivedWeight] = u"3"_s;
    card_[CustomerCode] = u"C2.恒丰"_s;
    EXPECT_EQ(last(Origin::Card), u"!单据|算出之后，单据的内容有改动|"_s);
    EXPECT_EQ(Explained(Side::Charge, charge).source, u"客户报价  C1 / Z1.北美"_s);
    card_[CustomerCode] = u"C1.华兴"_s;
    EXPECT_EQ(Explained(Side::Charge, charge, Origin::Stored).foot,
              u"按 2024-03-15 的资料算出，随单据保存；只作说明，不改动单据。"_s);
    EXPECT_TRUE(Explained(Side::Charge, charge, Origin::Today).foot.contains(u"按今日资料计算"_s));

    Enter(Side::Cost, Parcel, u"25"_s);
    const Priced cost = Now(Side::Cost);
    EXPECT_FALSE(Rows(Explained(Side::Cost, cost)).contains(u'!')) << "an empty factor counts as 1";
    card_[ChannelFuelRate] = u"1"_s;
    EXPECT_FALSE(Rows(Explained(Side::Cost, cost)).contains(u'!'));
    card_[ChannelOtherFees] = u"4"_s;
    EXPECT_TRUE(Rows(Explained(Side::Cost, cost)).endsWith(u"!单据|算出之后，单据的内容有改动|"_s));
    card_[ShippingCost].clear();
    EXPECT_TRUE(Rows(Explained(Side::Cost, cost)).endsWith(u"!出货成本|框中没有金额|"_s));
}

}  // namespace
}  // namespace tests
