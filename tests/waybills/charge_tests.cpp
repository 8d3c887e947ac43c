#include "platform/errors.h"
#include "tests/support/company.h"
#include "waybills/customer_charge.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using waybills::Computed;

namespace {

const QString EvenStandard = u"0.5,0.5,0.5,0.5,21,46"_s + u",1000"_s.repeated(13);

class Charge : public testing::Test {
  protected:
    /// F1 to F19 of the standard, as the list of an insert; a list that is too short leaves the rest null.
    void SetStandard(const QString& values) {
        QStringList fields;
        for (int i = 1; i <= values.count(u',') + 1; ++i) fields << u'F' + QString::number(i);
        company_.Run({u"delete from MS1"_s,
                      u"insert into MS1 ("_s + fields.join(u',') + u") VALUES ("_s + values + u')'});
    }

    /// F2 onward of the quote of customer 101 for zone 亚1; the rest stays null.
    void SetQuote(const QString& values) {
        QStringList fields{u"F0"_s, u"F1"_s};
        for (int i = 2; i <= values.count(u',') + 2; ++i) fields << u'F' + QString::number(i);
        company_.Run({u"delete from M031"_s, u"insert into M031 ("_s + fields.join(u',') +
                                                 u") VALUES ('101','亚1',"_s + values + u')'});
    }

    Computed Compute(const QString& service, const QString& weight) {
        return waybills::ComputeCustomerCharge(company_.Db(), {.customer = u" 101.永泰贸易.上海 "_s,
                                                               .zone = u"亚1.亚洲一区"_s,
                                                               .weight = weight,
                                                               .serviceType = service});
    }

    std::string Amount(const QString& service, const QString& weight) {
        const Computed charge = Compute(service, weight);
        EXPECT_EQ(charge.kind, Computed::Kind::Amount) << charge.box.text.toStdString();
        return charge.amount.toStdString();
    }

    tests::Company company_;
};

TEST_F(Charge, FollowsTheBracketsOfTheStandard) {
    SetStandard(EvenStandard);
    SetQuote(u"30,10,40,15,12,0"_s);
    const struct {
        QString service;
        QString weight;
        const char* amount;
        const char* why;
    } rows[] = {
        {u"D.文件(File)"_s, u"0.4"_s, "30", "within the first weight"},
        {u"D.文件(File)"_s, u"0.5"_s, "30", "exactly on the first weight"},
        {u"D"_s, u"0.51"_s, "40", "a started step is a whole one"},
        {u"D"_s, u"1"_s, "40", "exactly one step"},
        {u"D"_s, u"1.2kg"_s, "50", "the weight's leading number"},
        {u"S.物品(Parcel)"_s, u"0.5"_s, "40", "parcel on its first weight"},
        {u"S"_s, u"3"_s, "115", "parcel with continuation"},
        {u"S"_s, u"21"_s, "252", "a bound belongs to its segment"},
        {u"S"_s, u"30"_s, "360", "per kilogram on the whole weight"},
        {u"S"_s, u"50"_s, "1525", "no price there: first weight and continuation"},
        {u"D"_s, u"50"_s, "1020", "no price there, document"},
    };
    for (const auto& row : rows) EXPECT_EQ(Amount(row.service, row.weight), row.amount) << row.why;
}

TEST_F(Charge, ReadsFirstWeightAndStepByPosition) {
    const QString heavy = u",1000"_s.repeated(15);
    SetQuote(u"30,10,40,15"_s);
    const struct {
        QString standard;
        QString service;
        QString weight;
        const char* amount;
        const char* why;
    } rows[] = {
        {u"0.5,1,2,5"_s, u"S"_s, u"2"_s, "40", "a parcel is compared with F3"},
        {u"0.5,1,2,5"_s, u"S"_s, u"3"_s, "55", "but counts from F2 in steps of F3: (3-1)/2"},
        {u"0.5,1,2,5"_s, u"S"_s, u"3.1"_s, "70", "a second step"},
        {u"0.5,1,2,5"_s, u"D"_s, u"3"_s, "60", "a document counts from F1 in steps of F2"},
        {u"0.5,0.1,1,1"_s, u"D"_s, u"0.8"_s, "60", "three steps in single precision, four in double"},
        {u"1,0.5,0.1,1"_s, u"S"_s, u"0.8"_s, "85", "the same for a parcel"},
        {u"null,1,2,5"_s, u"D"_s, u"0.2"_s, "30", "a null first weight: all is above it, counting from 0.5"},
        {u"null,1,2,5"_s, u"D"_s, u"1.6"_s, "50", "null first weight, two steps of 1"},
        {u"0.5,null,2,5"_s, u"D"_s, u"1.5"_s, "50", "a null step is 0.5"},
        {u"0.5,0,2,5"_s, u"D"_s, u"1.5"_s, "50", "so is a step of 0"},
        {u"0.5,1e-60,2,5"_s, u"D"_s, u"1.5"_s, "50", "and one too small for single precision"},
        {u"0.5,null,null,5"_s, u"S"_s, u"1.5"_s, "70", "parcel with nulls in both"},
    };
    for (const auto& row : rows) {
        SetStandard(row.standard + heavy);
        EXPECT_EQ(Amount(row.service, row.weight), row.amount) << row.why;
    }
}

TEST_F(Charge, TheLastSatisfiedBoundWins) {
    const QString prices = u"30,10,40,15,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15"_s;
    const struct {
        QString bounds;
        QString prices;
        QString weight;
        const char* amount;
        const char* why;
    } rows[] = {
        {u"21,46,71,101"_s + u",201"_s.repeated(11), prices, u"201"_s, "3015", "equal bounds: the highest"},
        {u"21,46,71,101"_s + u",201"_s.repeated(11), prices, u"200"_s, "800", "below them"},
        {u"21,46,71,101,201"_s, prices, u"1"_s, "15", "an empty bound takes every weight"},
        {u"21,46,71,101,201"_s, u"30,10,40,15,1"_s, u"1"_s, "55", "and without a price there falls back"},
        {u"21,46,10,1000"_s + u",1000"_s.repeated(11), prices, u"22"_s, "66", "out of order: the last one"},
        {u"21,0"_s + u",1000"_s.repeated(13), prices, u"22"_s, "44", "a bound of 0 is always reached"},
        {u"-5"_s + u",1000"_s.repeated(14), u"30,10,40,15,0"_s, u"0.3"_s, "40",
         "fallback below first weight"},
    };
    for (const auto& row : rows) {
        SetStandard(u"0.5,0.5,0.5,0.5,"_s + row.bounds);
        SetQuote(row.prices);
        EXPECT_EQ(Amount(u"S"_s, row.weight), row.amount) << row.why;
    }
    // Two and a half steps below the first weight count as two steps: the sign is dropped after rounding up.
    // The cost takes them off instead.
    SetStandard(u"3,1,0.5,0.5,0"_s + u",1000"_s.repeated(14));
    SetQuote(u"30,10"_s);
    EXPECT_EQ(Amount(u"D"_s, u"0.5"_s), "50");
}

TEST_F(Charge, AmountsAreNotRounded) {
    SetStandard(EvenStandard);
    SetQuote(u"12.5,0.125,null,15,0.333"_s);
    EXPECT_EQ(Amount(u"D"_s, u"0.5"_s), "12.5");
    EXPECT_EQ(Amount(u"D"_s, u"1"_s), "12.625");
    EXPECT_EQ(Amount(u"S"_s, u"0.5"_s), "0") << "a null price is 0";
    EXPECT_EQ(Amount(u"S"_s, u"1"_s), "15");
    EXPECT_EQ(Amount(u"S"_s, u"21.1"_s), "7.0263");
    SetQuote(u"30,10,40,15,-2"_s);
    EXPECT_EQ(Amount(u"S"_s, u"21"_s), "-42") << "a negative price is a price";
}

TEST_F(Charge, RefusesInOrder) {
    SetStandard(EvenStandard);
    SetQuote(u"30,10,40,15"_s);
    const waybills::ChargeInput good{u"101.永泰"_s, u"亚1.亚洲一区"_s, u"1"_s, u"D.文件(File)"_s};
    const QString noCustomer = u"未输入发件客户，系统无法根据报价计算发件费用！"_s;
    const QString noZone = u"未输入目的区域，系统无法根据区域的价格计算发件费用！"_s;
    const QString noWeight = u"未输入收货重量，系统无法计算发件费用！"_s;
    const QString noService = u"未输入服务类型，无法计算发件费用！"_s;
    const QString noQuote = u"指定的发件客户编码无效，或是指定的区域编码无效！\r无法计算发件费用"_s;
    const struct {
        waybills::ChargeInput card;
        QString text;
    } rows[] = {
        {{u""_s, u""_s, u""_s, u""_s}, noCustomer},
        {{u"  "_s, good.zone, good.weight, good.serviceType}, noCustomer},
        {{u"101"_s, u" "_s, u""_s, u""_s}, noZone},
        {{u"101"_s, good.zone, u""_s, u""_s}, noWeight},
        {{u"101"_s, good.zone, u"0"_s, good.serviceType}, noWeight},
        {{u"101"_s, good.zone, u"重1"_s, good.serviceType}, noWeight},
        {{u"101"_s, good.zone, good.weight, u"d"_s}, noService},
        {{u"101"_s, good.zone, good.weight, u" D"_s}, noService},
        {{u"102.别家"_s, good.zone, good.weight, good.serviceType}, noQuote},
        {{good.customer, u"亚2"_s, good.weight, good.serviceType}, noQuote},
        {{u".101"_s, good.zone, good.weight, good.serviceType}, noQuote},
    };
    for (const auto& row : rows) {
        const Computed charge = waybills::ComputeCustomerCharge(company_.Db(), row.card);
        EXPECT_EQ(charge.kind, Computed::Kind::Refused) << row.text.toStdString();
        EXPECT_EQ(charge.box.text.toStdString(), row.text.toStdString());
        EXPECT_EQ(charge.box.title, u"提示");
        EXPECT_EQ(charge.box.icon, sys::BoxIcon::Information);
    }
    auto broken = good;
    broken.customer = u"1'1"_s;
    EXPECT_THROW(waybills::ComputeCustomerCharge(company_.Db(), broken), DatabaseError);
}

TEST(ChargeTotal, MultipliesBasicAndAdditionalByTheFactorAlone) {
    const struct {
        QString additional, basic, factor, other;
        const char* total;
    } rows[] = {
        {u"5"_s, u"115"_s, u"1.1"_s, u"2"_s, "134.00"},
        {u"5"_s, u"115"_s, u""_s, u"2"_s, "2.00"},
        {u""_s, u""_s, u""_s, u""_s, "0.00"},
        {u""_s, u"12.625"_s, u"1"_s, u""_s, "12.63"},
        {u""_s, u"-12.625"_s, u"1"_s, u""_s, "-12.63"},
        {u"1元"_s, u"约2"_s, u"2x"_s, u"0.5"_s, "2.50"},
        {u"10"_s, u"20"_s, u"0"_s, u"-0.001"_s, "0.00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(waybills::ChargeTotal(row.additional, row.basic, row.factor, row.other).toStdString(),
                  row.total);
}

}  // namespace
