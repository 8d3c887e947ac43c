// The alignment that the whole tariff rests on: one bracket is one field of the standard, one list price, one
// quote, one caption on either form, and what the charge takes for the weights of that bracket.
#include "platform/errors.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"
#include "tests/support/company.h"
#include "waybills/customer_charge.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tariffs::Standard;

namespace {

/// Each row is one price. The quote holds 100 + bracket as its price, so that a charge shows where it was
/// read.
struct Bracket {
    int index;
    QString weight;     ///< field of MS1
    QString listPrice;  ///< column of M02
    QString quote;      ///< column of M031
    QString designed;   ///< the list price's caption as designed
    QString listCaption, quoteCaption;
};

const std::vector<Bracket>& PricesInOrder() {
    static const std::vector<Bracket> rows{
        {0, u"F1"_s, u"P101"_s, u"F2"_s, u"文件首0.5Kg"_s, u"文件首10.5Kg"_s, u"首10.5Kg"_s},
        {1, u"F2"_s, u"P102"_s, u"F3"_s, u"文件续0.5Kg"_s, u"文件续0.3Kg"_s, u"续0.3Kg"_s},
        {2, u"F3"_s, u"P201"_s, u"F4"_s, u"小包裹首0.5Kg"_s, u"小包裹首1.0Kg"_s, u"首1.0Kg"_s},
        {3, u"F4"_s, u"P202"_s, u"F5"_s, u"小包裹续0.5Kg"_s, u"小包裹续2.0Kg"_s, u"续2.0Kg"_s},
        {4, u"F5"_s, u"P301"_s, u"F6"_s, {}, u"21Kg~~45Kg"_s, u"21-45Kg"_s},
        {5, u"F6"_s, u"P302"_s, u"F7"_s, {}, u"46Kg~~69.5Kg"_s, u"46-69.5Kg"_s},
        {6, u"F7"_s, u"P303"_s, u"F8"_s, {}, u"70.5Kg~~100Kg"_s, u"70.5-100Kg"_s},
        {7, u"F8"_s, u"P304"_s, u"F9"_s, {}, u"101Kg~~200Kg"_s, u"101-200Kg"_s},
        {8, u"F9"_s, u"P305"_s, u"F10"_s, {}, u"201Kg~~300Kg"_s, u"201-300Kg"_s},
        {9, u"F10"_s, u"P306"_s, u"F11"_s, {}, u"301Kg~~400Kg"_s, u"301-400Kg"_s},
        {10, u"F11"_s, u"P307"_s, u"F12"_s, {}, u"401Kg~~500Kg"_s, u"401-500Kg"_s},
        {11, u"F12"_s, u"P308"_s, u"F13"_s, {}, u"501Kg~~600Kg"_s, u"501-600Kg"_s},
        {12, u"F13"_s, u"P309"_s, u"F14"_s, {}, u"601Kg~~700Kg"_s, u"601-700Kg"_s},
        {13, u"F14"_s, u"P310"_s, u"F15"_s, {}, u"701Kg~~800Kg"_s, u"701-800Kg"_s},
        {14, u"F15"_s, u"P311"_s, u"F16"_s, {}, u"801Kg~~900Kg"_s, u"801-900Kg"_s},
        {15, u"F16"_s, u"P312"_s, u"F17"_s, {}, u"901Kg~~1000Kg"_s, u"901-1000Kg"_s},
        {16, u"F17"_s, u"P313"_s, u"F18"_s, {}, u"1001Kg~~1100Kg"_s, u"1001-1100Kg"_s},
        {17, u"F18"_s, u"P314"_s, u"F19"_s, {}, u"1101Kg~~1200Kg"_s, u"1101-1200Kg"_s},
        {18, u"F19"_s, u"P315"_s, u"F20"_s, {}, u"1201Kg以上"_s, u"1201Kg以上"_s},
    };
    return rows;
}

const QString Weights = u"10.5,0.25,1,2,21,46,70.5,101,201,301,401,501,601,701,801,901,1001,1101,1201,1.5"_s;

class TheBrackets : public testing::Test {
  protected:
    TheBrackets() {
        company_.Run({u"insert into MS1 VALUES ("_s + Weights + u')', u"insert into M02 (F1) VALUES ('Z1')"_s,
                      u"insert into M031 (F0,F1) VALUES ('C1','Z1')"_s});
        for (const Bracket& row : PricesInOrder()) {
            const QString price = QString::number(100 + row.index);
            company_.Run({u"update M02 set "_s + row.listPrice + u'=' + price,
                          u"update M031 set "_s + row.quote + u'=' + price});
        }
    }
    double Charge(const QString& service, double weight) {
        const auto charge = waybills::ComputeCustomerCharge(
            company_.Db(), {u"C1"_s, u"Z1"_s, text::GeneralText(weight), service});
        EXPECT_EQ(charge.kind, waybills::Computed::Kind::Amount) << charge.box.text.toStdString();
        return text::Val(charge.amount);
    }
    Standard Read() { return *tariffs::ReadStandard(company_.Db()); }

    tests::Company company_;
};

TEST_F(TheBrackets, StandInTheOrderOfBothPriceTables) {
    // Price tables are read by place: a quote is the n-th field of the select of the list prices.
    QStringList listed, quoted;
    for (const Bracket& row : PricesInOrder()) {
        listed += row.listPrice;
        quoted += row.quote;
    }
    EXPECT_EQ(company_.Rows(u"select "_s + listed.join(u',') + u" from M02"_s),
              company_.Rows(u"select "_s + quoted.join(u',') + u" from M031"_s));
    auto quote = company_.Db().OpenRecordset(u"select * from M031"_s);
    for (const Bracket& row : PricesInOrder())
        EXPECT_EQ(quote.Fields(row.index + 2).Number(), 100 + row.index) << row.quote.toStdString();
}

TEST_F(TheBrackets, CarryTheirCaptions) {
    const Standard standard = Read();
    const QStringList quotes = tariffs::QuoteCaptions(standard);
    ASSERT_EQ(quotes.size(), tariffs::Brackets);
    for (const Bracket& row : PricesInOrder()) {
        EXPECT_EQ(tariffs::ListPriceCaption(standard, row.index, row.designed), row.listCaption);
        EXPECT_EQ(quotes[row.index], row.quoteCaption);
    }
}

TEST_F(TheBrackets, AreChargedFromTheirBoundToTheNext) {
    const Standard standard = Read();
    // Within the first weight the price itself; one kilogram of a parcel is within it.
    EXPECT_EQ(Charge(u"D"_s, 10.5), 100);
    EXPECT_EQ(Charge(u"D"_s, 10.75), 100 + 101);
    EXPECT_EQ(Charge(u"S"_s, 1), 102);
    // A parcel counts from F2 in steps of F3.
    EXPECT_EQ(Charge(u"S"_s, 1.25), 102 + 103);
    EXPECT_EQ(Charge(u"S"_s, 20.75), 102 + 21 * 103);
    for (const Bracket& row : PricesInOrder()) {
        if (row.index < tariffs::FirstHeavy) continue;
        const double bound = *standard[static_cast<std::size_t>(row.index)];
        for (const QString& service : {u"D"_s, u"S"_s}) {
            EXPECT_EQ(Charge(service, bound), (100 + row.index) * bound) << row.listCaption.toStdString();
            if (row.index > tariffs::FirstHeavy) {
                EXPECT_EQ(Charge(service, bound - 0.5), (99 + row.index) * (bound - 0.5))
                    << "just below " << row.listCaption.toStdString();
            }
        }
    }
}

TEST(BracketCaptions, MakeDoWithAStandardThatIsNotWhole) {
    Standard empty;
    EXPECT_EQ(tariffs::ListPriceCaption(empty, 0, u"文件首0.5Kg"_s), u"文件首0.5Kg");
    EXPECT_EQ(tariffs::ListPriceCaption(empty, 4, {}), u"0Kg~~-1Kg") << "a null bound is 0, on either side";
    EXPECT_EQ(tariffs::QuoteCaptions(empty).join(u' '),
              u"首0.5Kg 续0.5Kg 首0.5Kg 续0.5Kg "_s + u"0--1Kg "_s.repeated(14) + u"0Kg以上"_s);
    const struct {
        double bound, next;
        const char* caption;
        const char* why;
    } rows[] = {
        {20.1, 45.3, "20.1Kg~~44.3Kg", "seven digits of a single, not the double behind it"},
        {0.1, 1.3, "0.1Kg~~0.3Kg", "the difference is a single too: no 0.29999995"},
        {1234567.8, 12345678, "1234568Kg~~1.234568E+07Kg", "general form beyond seven digits"},
        {-5, 0, "-5Kg~~-1Kg", "bounds are taken as they are"},
    };
    for (const auto& row : rows) {
        Standard standard;
        standard[4] = row.bound;
        standard[5] = row.next;
        EXPECT_EQ(tariffs::ListPriceCaption(standard, 4, {}).toStdString(), row.caption) << row.why;
    }
    Standard rounded;
    rounded[0] = 0.35;
    rounded[1] = 0;
    EXPECT_EQ(tariffs::QuoteCaptions(rounded).mid(0, 2), (QStringList{u"首0.4Kg"_s, u"续0.0Kg"_s}))
        << "half away from zero; 0 is not null";
    rounded[2] = 0.25;
    EXPECT_EQ(tariffs::QuoteCaptions(rounded)[2], u"首0.3Kg"_s);
    rounded[18] = 1e39;
    EXPECT_THROW(tariffs::QuoteCaptions(rounded), RuntimeError);
}

}  // namespace
