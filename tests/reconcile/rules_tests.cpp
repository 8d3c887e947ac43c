// Reading amounts, and comparing by forwarding number, where ours may come twice.
#include "reconcile/channel_bill.h"
#include "tests/support/script.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace reconcile {
namespace {

TEST(Decimals, AreReadExactlyOrNotAtAll) {
    const struct {
        QString text, value;
    } rows[] = {{u"12"_s, u"12.00"_s},
                {u" 1,234,567.8 "_s, u"1234567.80"_s},
                {u"￥１，２３４．５０"_s, u"1234.50"_s},
                {u"RMB -3.1元"_s, u"-3.10"_s},
                {u"-¥3.1"_s, u"-3.10"_s},
                {u"（0.05）"_s, u"-0.05"_s},
                {u"\u22125"_s, u"-5.00"_s},
                {u"7.5-"_s, u"-7.50"_s},
                {u"0.125 kg"_s, u"0.125"_s},
                {u".5"_s, u"0.50"_s},
                {u"0.12345"_s, u"0.1235"_s},
                {u"000000000012"_s, u"12.00"_s},
                {u"- 5 元"_s, u"-5.00"_s},
                {u"99999999.99"_s, u"99999999.99"_s}};
    for (const auto& row : rows) {
        const auto value = ReadDecimal(row.text);
        ASSERT_TRUE(value) << row.text.toStdString();
        EXPECT_EQ(DecimalText(*value), row.value) << row.text.toStdString();
    }
    for (const auto& text : {u""_s, u"-"_s, u"."_s, u"1,5"_s, u"1.234,5"_s, u"1,23,456"_s, u"1.2.3"_s,
                             u"1E3"_s, u"(-3)"_s, u"--3"_s, u"12kg3"_s, u"面议"_s, u"#N/A"_s, u"100000000"_s,
                             u"()"_s, u"10\n5"_s, u"12 5"_s, u"12²"_s, u"⑴"_s})
        EXPECT_FALSE(ReadDecimal(text)) << text.toStdString();
}

QStringList Seen(const Reconciliation& result) {
    QStringList lines;
    for (const Line& line : result.lines)
        lines += WordOf(line.outcome) + u'|' + QString::number(line.billRow + 1) + u'|' + line.number + u'|' +
                 line.remark;
    return lines;
}

TEST(Comparison, ByForwardingNumberShowsEveryLineAndWaybillOnce) {
    sheet::Sheet bill;
    bill.rows = {{u"转单号"_s, u"金额"_s}, {u"A1"_s, u"10"_s}, {u"a2"_s, u"10"_s}, {u"A3"_s, u"10"_s},
                 {u"A3"_s, u"5"_s},        {u"A4"_s, u"10"_s}, {u"A5"_s, u"x"_s},  {u"1.2E+12"_s, u"1"_s}};
    bill.notUnderstood = {{7, 0, u"末尾不准"_s}, {0, 9, u"错误值"_s}};
    bill.reports = 3;
    const BillColumns columns = Guess(bill);
    EXPECT_EQ(columns, (BillColumns{.byForwarding = true, .number = 0, .cost = 1, .firstRow = 1}));
    const auto waybill = [](const QString& number, const QString& forwarding, Decimal cost,
                            bool released = true) {
        return Waybill{number, forwarding, u"2024-11-01"_s, {0, cost * 10'000}, released};
    };
    const std::vector<Waybill> ours = {waybill(u"W1"_s, u" A1"_s, 10),       waybill(u"W2"_s, u"A2"_s, 10),
                                       waybill(u"W3"_s, u"A2"_s, 10, false), waybill(u"W4"_s, u"A3"_s, 10),
                                       waybill(u"W5"_s, u"A4"_s, 9, false),  waybill(u"W6"_s, u""_s, 1),
                                       waybill(u"W7"_s, u"A7"_s, 1, false),  waybill(u"W8"_s, u"A5"_s, 1)};
    EXPECT_EQ(
        Seen(Compare(bill, columns, ours)),
        (QStringList{u"一致|2|W1|"_s, u"重复|3|W2|我方有 2 票"_s, u"重复|0|W3|我方有 2 票；我方未出货"_s,
                     u"重复|4|W4|帐单中有 2 行"_s, u"重复|5||帐单中有 2 行"_s,
                     u"有差异|6|W5|费用不符；我方未出货"_s, u"未识别|7|W8|B7 “x”不是数字"_s,
                     u"未识别|8||A8 末尾不准"_s, u"未识别|1||J1 错误值"_s,
                     u"未识别|0||另有 1 个单元格无法读取"_s, u"我方独有|0|W6|没有转单号"_s}));
}

TEST(Comparison, LeavesOutTotalsAndSumsWhatIsKnown) {
    sheet::Sheet bill;
    bill.rows = {{u"单号"_s, u"申报金额"_s, u"金额"_s},
                 {u"ｗ１"_s, u""_s, u"10"_s},
                 {u"W2"_s, u""_s, u"x"_s},
                 {u"1.23457E+11"_s, u""_s, u"1"_s},
                 {u"12345678901234600"_s, u""_s, u"1"_s},
                 {u""_s, u"本页合计"_s, u"13"_s},
                 {u"Grand Total"_s, u""_s, u"13"_s},
                 {u""_s, u"附加费"_s, u"3"_s}};
    bill.reports = 1;  // one that is not kept
    BillColumns columns = Guess(bill);
    EXPECT_EQ(columns, (BillColumns{.number = 0, .cost = 2, .firstRow = 1}));
    const std::vector<Waybill> ours = {{u"W1"_s, {}, {}, {0, 90'000}, true},
                                       {u"W2"_s, {}, {}, {0, 50'000}, true}};
    const Reconciliation result = Compare(bill, columns, ours);
    EXPECT_EQ(Seen(result),
              (QStringList{u"有差异|2|W1|费用不符"_s, u"未识别|3|W2|C3 “x”不是数字"_s,
                           u"未识别|4||A4 单号成了科学计数"_s, u"未识别|5||A5 数字超过 15 位，末尾可能不准"_s,
                           u"未识别|8||没有单号"_s, u"未识别|0||另有 1 个单元格无法读取"_s}));
    EXPECT_EQ(result.passedOver, 2);
    EXPECT_EQ(result.unnumbered, 1);
    const Sums unread = result.SumsOf()[static_cast<std::size_t>(Outcome::NotRead)];
    EXPECT_EQ(unread.theirCost.Value(), Amount(20'000));
    EXPECT_EQ(unread.ourCost.Value(), Amount(50'000));
    EXPECT_EQ(unread.costDifference.Value(), Amount(20'000));
    EXPECT_EQ(unread.theirWeight.Value(), Amount());
}

}  // namespace
}  // namespace reconcile
