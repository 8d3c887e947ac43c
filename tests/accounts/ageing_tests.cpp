// The ageing of the journal: what covers what, which rows count, and that every line adds up whatever the
// journal holds.
#include "accounts/ageing.h"
#include "accounts/journal.h"
#include "accounts/refresh.h"
#include "platform/errors.h"
#include "platform/text/dates.h"
#include "tests/support/company.h"
#include "tests/support/script.h"

#include <QHash>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;
using accounts::AgeingLine;
using accounts::Cents;

namespace {

const QDate Today(2024, 11, 25);

class AgeingOf : public testing::Test {
  protected:
    /// A row so many days old, with its `SN` as its place; "" as the mark makes it not posted.
    void Lay(double sn, int age, const QString& unit, const QString& yf, const QString& fk, const QString& qm,
             int lb = -9, const QString& mark = u"甲"_s, int excluded = 0) {
        company.Run(
            u"insert into TB1 (SN,LB,F1,F2,F3,YF,FK,QM,F6,K) values (%1,%2,'D%1','%3','%4',%5,%6,%7,'%8',%9)"_s
                .arg(QString::number(sn), QString::number(lb), text::DateText(Today.addDays(-age)), unit, yf,
                     fk, qm, mark, QString::number(excluded)));
    }
    std::vector<AgeingLine> Lines(const accounts::AgeingScope& scope) {
        return accounts::Age(company.Db(), scope);
    }
    QStringList Texts(int lb = -10, QDate day = Today) {
        QStringList texts;
        for (const AgeingLine& line : Lines({.LB = lb, .day = day})) {
            QStringList cells{line.unit, accounts::CentsText(line.balance)};
            for (const Cents bucket : line.buckets)
                cells += bucket == 0 ? u"-"_s : accounts::CentsText(bucket);
            cells += {accounts::CentsText(line.prepaid), accounts::CentsText(line.difference),
                      accounts::CentsText(line.overdue), text::DateText(line.oldest)};
            texts += cells.join(u' ');
        }
        return texts;
    }
    void ExpectThatLinesAddUp(int lb, QDate day, bool explained) {
        for (const AgeingLine& line : Lines({.LB = lb, .day = day})) {
            EXPECT_EQ(line.Open() + line.prepaid + line.difference, line.balance) << line.unit.toStdString();
            EXPECT_TRUE(line.prepaid <= 0 && (line.prepaid == 0 || line.Open() == 0));
            for (const Cents bucket : line.buckets) EXPECT_GE(bucket, 0);
            EXPECT_LE(line.overdue, line.Open());
            if (explained) {
                EXPECT_EQ(line.difference, 0) << line.unit.toStdString() << text::DateText(day).toStdString();
            }
            Cents open = 0;
            for (const auto& charge :
                 accounts::AgeUnit(company.Db(), {.LB = lb, .day = day}, line.unit).charges) {
                EXPECT_TRUE(charge.open > 0 && charge.age >= 0);
                open += charge.open;
            }
            EXPECT_EQ(open, line.Open()) << line.unit.toStdString();
        }
    }

    tests::Script script;
    tests::Company company;
};

TEST_F(AgeingOf, ChargesIsOldestFirstWithEachDayInItsBucket) {
    // 甲: at the edge of each bucket; 1000 covers the 400 of 181 days, the 300 of 180 and 300 of 91.
    double sn = 0, balance = 0;
    for (const auto& [age, amount] : {std::pair{181, 400},
                                      {180, 300},
                                      {91, 350},
                                      {90, 40},
                                      {61, 50},
                                      {60, 6},
                                      {31, 7},
                                      {30, 0},
                                      {0, 9}}) {
        balance += amount;
        Lay(++sn, age, u"甲"_s, QString::number(amount), u"0"_s, QString::number(balance));
    }
    Lay(++sn, 0, u"甲"_s, u"0"_s, u"1000"_s, u"162"_s, -10);
    Lay(20, 40, u"乙"_s, u"0"_s, u"50.5"_s, u"-50.5"_s, -10);  // paid before it was charged
    Lay(21, 30, u"丙"_s, u"10"_s, u"0"_s, u"10"_s);            // paid in full
    Lay(22, 29, u"丙"_s, u"0"_s, u"10"_s, u"0"_s, -10);
    Lay(23, 50, u"丁"_s, u"-20"_s, u"-80"_s, u"60"_s, -10);  // negative ones work the other way
    Lay(24, -1, u"甲"_s, u"7000"_s, u"0"_s, u"7162"_s);      // tomorrow's
    Lay(25, 10, u"船"_s, u"33"_s, u"0"_s, u"33"_s, 9);       // the other side
    EXPECT_EQ(Texts(), (QStringList{u"甲 162.00 9.00 13.00 90.00 50.00 - 0.00 0.00 153.00 2024-08-26"_s,
                                    u"丁 60.00 - 60.00 - - - 0.00 0.00 60.00 2024-10-06"_s,
                                    u"乙 -50.50 - - - - - -50.50 0.00 0.00 "_s}));
    EXPECT_EQ(Texts(10), QStringList{u"船 33.00 33.00 - - - - 0.00 0.00 0.00 2024-11-15"_s});
    const auto charges = accounts::AgeUnit(company.Db(), {.LB = -10, .day = Today}, u"甲"_s).charges;
    ASSERT_EQ(charges.size(), 6U);
    EXPECT_EQ(charges.front().voucher, u"D3"_s);
    EXPECT_EQ(charges.front().amount, 35000);
    EXPECT_EQ(charges.front().open, 5000);
}

TEST_F(AgeingOf, WhatMovementsDoNotExplainIsTheDifference) {
    Lay(1, 5, u"甲"_s, u"100"_s, u"0"_s, u"130"_s);  // 30 of a row that is not posted
    Lay(2, 5, u"甲"_s, u"30"_s, u"0"_s, u"30"_s, -9, {});
    Lay(3, 5, u"乙"_s, u"100"_s, u"0"_s, u"60"_s);    // 40 of the other side
    Lay(4, 6, u"丙"_s, u"100"_s, u"0"_s, u"null"_s);  // never refreshed
    Lay(5, 6, u"丁"_s, u"null"_s, u"null"_s, u"-5"_s);
    Lay(6, 6, u"戊"_s, u"8"_s, u"0"_s, u"0"_s, -9, u"甲"_s, 1);  // excluded
    Lay(7, 5, u"Ab"_s, u"1"_s, u"0"_s, u"1"_s);                  // one chain, whatever the case
    Lay(8, 4, u"aB"_s, u"2"_s, u"0"_s, u"3"_s);
    Lay(9, 9, {}, u"0.004"_s, u"0"_s, u"0.004"_s);  // sums are rounded, not their parts
    Lay(10, 9, {}, u"0.004"_s, u"0"_s, u"0.008"_s);
    EXPECT_EQ(Texts(), (QStringList{u"甲 130.00 100.00 - - - - 0.00 30.00 0.00 2024-11-20"_s,
                                    u"乙 60.00 100.00 - - - - 0.00 -40.00 0.00 2024-11-20"_s,
                                    u"Ab 3.00 3.00 - - - - 0.00 0.00 0.00 2024-11-20"_s,
                                    u" 0.01 0.01 - - - - 0.00 0.00 0.00 2024-11-16"_s,
                                    u"丙 0.00 100.00 - - - - 0.00 -100.00 0.00 2024-11-19"_s,
                                    u"丁 -5.00 - - - - - 0.00 -5.00 0.00 "_s}));
    Lay(11, 1, u"己"_s, u"1e14"_s, u"0"_s, u"1e14"_s);
    EXPECT_THROW(Lines({.LB = -10, .day = Today}), RuntimeError);
}

/// Ten thousand rows of forty one-sided names over three hundred days, entered in any order of their dates.
TEST_F(AgeingOf, ARandomJournalAddsUpOnEveryDayAndIsExplainedOnceRefreshed) {
    std::mt19937 random(7);
    const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    company.Run(
        {u"delete from SysInfo where ID=100"_s, u"insert into SysInfo (ID,SetVal) values (100,100)"_s});
    QStringList names;
    for (int i = 0; i < 40; ++i) names += u"单位%1"_s.arg(i);
    constexpr int rows = 10'000, days = 300;
    for (int i = 0; i < rows; ++i) {
        const int name = below(40);
        const bool receivable = name % 2 == 0, charge = below(3) > 0;
        const QDate date = Today.addDays(-below(days));
        // In cents, with some of a tenth of them and some that are negative.
        const double amount =
            (1 + below(900'000) - (below(20) == 0 ? 800'000 : 0)) / (below(9) ? 100.0 : 1000.0);
        accounts::LedgerEntry entry{
            .kind = receivable ? (charge ? accounts::LedgerKind::Receivable : accounts::LedgerKind::Receipt)
                               : (charge ? accounts::LedgerKind::Payable : accounts::LedgerKind::Payment),
            .key = u"K%1"_s.arg(i),
            .date = text::DateText(date),
            .counterparty = names[name],
            .amount = amount,
            .maker = u"甲"_s};
        entry.sequence = accounts::AllocateSequence(company.Db(), date, entry.key);
        // As PostEntry does, but for the chains, which are rolled once below.
        company.Run(u"insert into TB1 (SN,LB,F1,F2,F3,%1,F6) values (%2,%3,'%4','%5','%6',%7,'甲')"_s.arg(
            accounts::InfoFor(entry.kind).amountField, QString::number(entry.sequence, 'g', 15),
            QString::number(static_cast<int>(entry.kind)), entry.key, entry.date, entry.counterparty,
            QString::number(amount, 'g', 15)));
    }
    for (const int age : {0, 150}) {
        ExpectThatLinesAddUp(-10, Today.addDays(-age), false);
        ExpectThatLinesAddUp(10, Today.addDays(-age), false);
    }
    accounts::RefreshChains(company.Db(), names, [](const QString&) {});
    for (int age = 0; age < days; ++age)
        for (const int lb : {-10, 10})
            for (const AgeingLine& line : Lines({.LB = lb, .day = Today.addDays(-age)})) {
                ASSERT_EQ(line.difference, 0) << line.unit.toStdString() << ' ' << age;
                ASSERT_EQ(line.Open() + line.prepaid, line.balance);
            }
    // Rows leave the ledger and chains go stale.
    company.Run(
        {u"update TB1 set F6='' where F1 like 'K#7'"_s, u"update TB1 set K=1 where F1 like 'K#3'"_s,
         u"update TB1 set QM=null where F1 like 'K*55'"_s, u"update TB1 set FK=null where F1 like 'K*1'"_s,
         u"update TB1 set LB=-LB where F1 like 'K*2'"_s, u"delete from TB1 where F1 like 'K*4'"_s,
         u"update TB1 set YF=1.005,FK=-0.015 where F1 like 'K*8'"_s, u"update TB1 set SN=0 where SN>4000"_s,
         u"update TB1 set F2='2024-06-05 23:59:59' where F1 like 'K*60'"_s});
    for (int age = 0; age < days; age += 60) {
        ExpectThatLinesAddUp(-10, Today.addDays(-age), false);
        ExpectThatLinesAddUp(10, Today.addDays(-age), false);
    }
}

}  // namespace
