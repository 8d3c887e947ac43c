#include "platform/errors.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "platform/text/stored_key.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(Val, ReadsTheLeadingNumber) {
    const struct {
        QString text;
        double value;
    } rows[] = {
        {u""_s, 0},        {u"12kg"_s, 12},  {u"  -3.5 x"_s, -3.5}, {u"+.5"_s, 0.5}, {u"."_s, 0},
        {u"1.2.3"_s, 1.2}, {u"1e3"_s, 1000}, {u"1e"_s, 1},          {u"1e+"_s, 1},   {u"2E-2a"_s, 0.02},
        {u"１２"_s, 0},    {u"1,000"_s, 1},  {u"- 5"_s, 0},         {u"0x10"_s, 0},  {u"\t5"_s, 0},
        {u"1e-999"_s, 0},  {u"0.1"_s, 0.1},  {u"公斤3"_s, 0},       {u"1 2"_s, 1},   {u"--1"_s, 0},
    };
    for (const auto& row : rows) EXPECT_EQ(text::Val(row.text), row.value) << row.text.toStdString();
    for (const QString& small : {u"0."_s + QString(400, u'0') + u'1', u"5e-99999999999"_s})
        EXPECT_EQ(text::Val(small), 0) << small.toStdString();
    for (const QString& large :
         {u"1e999"_s, u"0.5e999"_s, u".5e999"_s, u"007e400"_s, u"1e99999999999"_s, QString(400, u'9')})
        EXPECT_THROW(text::Val(large), RuntimeError) << large.toStdString();
}

TEST(NarrowNumber, LeavesWhatValReads) {
    EXPECT_EQ(text::NarrowNumber(u"\u3000－１，２３４．５０ｋｇ"_s), u" -1,234.50kg"_s);
    EXPECT_EQ(text::NarrowNumber(u"\u22123。5｡²元"_s), u"-3.5.²元"_s);
    EXPECT_EQ(text::WithoutGroups(u" +1,234,567.5 "_s), u" +1234567.5 "_s);
    for (const QString& other : {u"1,23"_s, u"1234,567"_s, u"1,234.5,6"_s, u"1,234kg"_s, u",123"_s})
        EXPECT_EQ(text::WithoutGroups(other), other);
}

TEST(GeneralText, ShowsAtMostFifteenDigits) {
    const struct {
        double value;
        const char* text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {5, "5"},
        {12.50, "12.5"},
        {0.1 + 0.2, "0.3"},
        {-0.25, "-0.25"},
        {107.75, "107.75"},
        {123456789012345, "123456789012345"},
        {1e15, "1E+15"},
        {1.5e20, "1.5E+20"},
        {1.0 / 3, "0.333333333333333"},
        {0.00001, "0.00001"},
        {1.5e-20, "1.5E-20"},
        {999999999999999.9, "1E+15"},
    };
    for (const auto& row : rows) EXPECT_EQ(text::GeneralText(row.value).toStdString(), row.text);
    EXPECT_EQ(text::GeneralText(0.1F).toStdString(), "0.1");
    EXPECT_EQ(text::GeneralText(16777216.0F).toStdString(), "1.677722E+07");
    EXPECT_THROW(text::GeneralText(std::nan("")), RuntimeError);
}

TEST(FormatFixed, RoundsTheDecimalFormHalfAway) {
    const struct {
        double value;
        int decimals;
        const char* text;
    } rows[] = {
        {0.15, 1, "0.2"},    {0.04, 1, "0.0"},    {0.05, 1, "0.1"},       {-0.05, 1, "-0.1"},
        {-0.04, 1, "0.0"},   {134, 2, "134.00"},  {0.005, 2, "0.01"},     {1.005, 2, "1.01"},
        {9.999, 2, "10.00"}, {99.95, 1, "100.0"}, {-0.004, 2, "0.00"},    {1e15, 2, "1000000000000000.00"},
        {0, 2, "0.00"},      {0.0004, 2, "0.00"}, {2.00005, 4, "2.0001"}, {-0.123455, 5, "-0.12346"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(text::FormatFixed(row.value, row.decimals).toStdString(), row.text);
}

TEST(WholeNumbers, RoundHalfToEvenAndRaise) {
    EXPECT_EQ(text::ToInteger16(2.5), 2);
    EXPECT_EQ(text::ToInteger16(3.5), 4);
    EXPECT_EQ(text::ToInteger16(-2.5), -2);
    EXPECT_EQ(text::ToInteger16(32767.4), 32767);
    EXPECT_THROW(text::ToInteger16(32767.5), RuntimeError);
    EXPECT_THROW(text::ToInteger32(std::nan("")), RuntimeError);
    EXPECT_EQ(text::ToSingle(0.1), 0.1F);
    EXPECT_THROW(text::ToSingle(-3.5e38), RuntimeError);
    EXPECT_THROW(text::ToSingle(std::nan("")), RuntimeError);
}

TEST(PlainNumber, IsNotWhatTheLeadingRuleReads) {
    for (const auto& yes : {u"3"_s, u" -3.50 "_s, u".5"_s, u"5."_s}) EXPECT_TRUE(text::IsPlainNumber(yes));
    for (const auto& no : {u""_s, u"3kg"_s, u"1e3"_s, u"."_s, u"-"_s, u"1.2.3"_s, u"３"_s})
        EXPECT_FALSE(text::IsPlainNumber(no));
}

TEST(Trim, TakesBlanksAndNothingElse) {
    EXPECT_EQ(text::Trim(u"  a b  "_s), u"a b"_s);
    EXPECT_EQ(text::Trim(u"\ta\u3000 "_s), u"\ta\u3000"_s);
    EXPECT_EQ(text::Trim(u"   "_s), u""_s);
}

TEST(StoredKey, FoldsTheLettersThatTheDataFileFolds) {
    EXPECT_EQ(text::StoredKey(u"Ab Z[9É单"_s), u"ab z[9É单"_s);
    EXPECT_TRUE(text::SameAsStored(u"w1A"_s, u"W1a"_s));
    for (const auto& other : {u"é"_s, u"Éx"_s, u"K"_s, u""_s})
        EXPECT_FALSE(text::SameAsStored(u"É"_s, other)) << other.toStdString();
}

TEST(Dates, AreReadLeniently) {
    for (const auto& same : {u"2024-01-05"_s, u"2024-1-5"_s, u"2024/01/05"_s, u" 2024/1/5 9:05"_s}) {
        const auto date = text::ReadDate(same);
        ASSERT_TRUE(date) << same.toStdString();
        EXPECT_EQ(text::DateText(*date), u"2024-01-05"_s);
    }
    for (const auto& no :
         {u""_s, u"2024-02-30"_s, u"24-1-5"_s, u"2024-1/5"_s, u"2024-1-5x"_s, u"2024-1-5 25:00"_s, u"明天"_s})
        EXPECT_FALSE(text::ReadDate(no)) << no.toStdString();
    EXPECT_EQ(text::DateTimeText(*text::ReadDateTime(u"2024-3-1 8:00:09"_s)), u"2024-03-01 08:00:09"_s);
}

}  // namespace
