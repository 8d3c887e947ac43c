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

TEST(QuoteRules, StoredPricesAreDressedByColumn) {
    const struct {
        int column;
        QString stored, shown;
    } cases[] = {{0, u"12"_s, u"12"_s},    {1, u"5"_s, u"5"_s},   {2, u"12"_s, u"12.0"_s},
                 {5, u"8.25"_s, u"8.3"_s}, {6, u"12"_s, u"12"_s}, {6, u"8.25"_s, u"8.25"_s},
                 {2, u""_s, u""_s},        {20, u""_s, u""_s}};
    for (const auto& c : cases) EXPECT_EQ(DressedPrice(c.column, c.stored), c.shown) << c.column;
}

TEST(QuoteRules, PercentSaysTheRaise) {
    const std::pair<double, QString> cases[] = {{1.1, u"10"_s},     {1.05, u"5"_s},
                                                {0.9, u"-10"_s},    {2, u"100"_s},
                                                {1.125, u"12.5"_s}, {1.07, u"7.00000000000001"_s}};
    for (const auto& [coefficient, percent] : cases)
        EXPECT_EQ(PercentOf(coefficient), percent) << coefficient;
}

TEST(QuoteRules, TheNameIsNotStored) {
    QStringList cells{u" A1 "_s, u"东亚"_s};
    for (int column = FirstPrice; column <= LastPrice; ++column) cells += QString::number(column) + u".50"_s;
    cells[7] = u""_s;
    cells[20] = u"无"_s;
    EXPECT_EQ(QuoteInsert(u"C1"_s, cells),
              u"insert into M031 (F0,F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15,F16,F17,F18,F19,F20) "
              u"VALUES ('C1','A1',2.5,3.5,4.5,5.5,6.5,0,8.5,9.5,10.5,11.5,12.5,13.5,14.5,15.5,16.5,17.5,18.5,"
              u"19.5,0)"_s);
}

}  // namespace
