// Quotes without a screen: the prices that a coefficient makes, what is stored.
#include "platform/errors.h"
#include "tariffs/quote_rules.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace tariffs;

namespace {

TEST(QuoteRules, ANewPriceKeepsOneDecimal) {
    const struct {
        int column;
        double list, coefficient;
        QString price;
    } cases[] = {
        {2, 12.34, 1, u"12.3"_s}, {2, 12.35, 1, u"12.4"_s},  {5, 12, 1, u"12.0"_s},  {6, 12, 1, u"12"_s},
        {6, 12.34, 1, u"12.3"_s}, {20, 0.15, 1, u"0.2"_s},   {2, 0, 1.1, u"0.0"_s},  {6, 0, 1.1, u"0"_s},
        {6, 0.04, 1, u"0"_s},     {3, 75, 1.05, u"78.8"_s},  {6, 0.05, 1, u"0.1"_s}, {6, 100, 1.1, u"110"_s},
        {2, 10, -1, u"-10.0"_s},  {20, 10.05, 1, u"10.1"_s},
    };
    for (const auto& c : cases)
        EXPECT_EQ(NewPrice(c.column, c.list, c.coefficient), c.price) << c.list << " x " << c.coefficient;
}

TEST(QuoteRules, FloatingReadsWhatTheCellShows) {
    const struct {
        QString cell;
        double coefficient;
        QString price;
    } cases[] = {{u"12.0"_s, 1, u"12"_s},   {u"12.3"_s, 1.1, u"13.5"_s}, {u""_s, 1.1, u"0"_s},
                 {u"abc"_s, 1.1, u"0"_s},   {u"8元"_s, 2, u"16"_s},      {u"100"_s, 1.1, u"110"_s},
                 {u"110"_s, 1.1, u"121"_s}, {u"0.4"_s, 1.1, u"0.4"_s},   {u"-5"_s, 1.1, u"-5.5"_s}};
    for (const auto& c : cases)
        EXPECT_EQ(FloatedPrice(c.cell, c.coefficient), c.price) << c.cell.toStdString();
    // Rounded at each step: two small raises may come to less than one of the same size.
    EXPECT_EQ(FloatedPrice(FloatedPrice(u"1"_s, 1.04), 1.04), u"1"_s);
    EXPECT_THROW(FloatedPrice(u"9E999"_s, 1), RuntimeError);
}

}  // namespace
