// The alignment that the whole tariff rests on: one bracket is one field of the standard, one quote, and what
// the charge takes for the weights of that bracket; and the captions of a standard that is not whole.
#include "platform/errors.h"
#include "platform/text/numbers.h"
#include "tariffs/brackets.h"
#include "tests/support/company.h"
#include "waybills/customer_charge.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using tariffs::Standard;

namespace {

const QString Weights = u"10.5,0.25,1,2,21,46,70.5,101,201,301,401,501,601,701,801,901,1001,1101,1201,1.5"_s;

/// The price of a bracket is 100 + its index, so that a charge shows where it was read.
class TheBrackets : public testing::Test {
  protected:
    TheBrackets() {
        company_.Run({u"insert into MS1 VALUES ("_s + Weights + u')',
                      u"insert into M031 (F0,F1) VALUES ('C1','Z1')"_s});
        for (int i = 0; i < tariffs::Brackets; ++i)
            company_.Run(u"update M031 set F%1=%2"_s.arg(i + 2).arg(100 + i));
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

TEST_F(TheBrackets, AreChargedFromTheirBoundToTheNext) {
    const Standard standard = Read();
    // Within the first weight the price itself; one kilogram of a parcel is within it.
    EXPECT_EQ(Charge(u"D"_s, 10.5), 100);
    EXPECT_EQ(Charge(u"D"_s, 10.75), 100 + 101);
    EXPECT_EQ(Charge(u"S"_s, 1), 102);
    // A parcel counts from F2 in steps of F3.
    EXPECT_EQ(Charge(u"S"_s, 1.25), 102 + 103);
    EXPECT_EQ(Charge(u"S"_s, 20.75), 102 + 21 * 103);
    for (int i = tariffs::FirstHeavy; i < tariffs::Brackets; ++i) {
        const double bound = *standard[static_cast<std::size_t>(i)];
        for (const QString& service : {u"D"_s, u"S"_s}) {
            EXPECT_EQ(Charge(service, bound), (100 + i) * bound);
            if (i > tariffs::FirstHeavy) {
                EXPECT_EQ(Charge(service, bound - 0.5), (99 + i) * (bound - 0.5)) << "just below " << bound;
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
