// What has to hold in the sample company's file, whatever its tables are changed to.
#include "demo/rows.h"
#include "platform/text/numbers.h"
#include "schema/names.h"
#include "waybills/customer_charge.h"
#include "waybills/shipping_cost.h"
#include "waybills/waybill_fields.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <map>
#include <set>

using namespace Qt::StringLiterals;
using waybills::Computed;

namespace {

constexpr int Segments = 15;

class SampleCompany : public testing::Test {
  protected:
    /// All tests look at one copy, so that the made file stays as it is.
    static void SetUpTestSuite() {
        folder_ = std::make_unique<QTemporaryDir>();
        const QString name = schema::kDatabaseFile.toString();
        const QString copy = folder_->filePath(name);
        ASSERT_TRUE(QFile::copy(QStringLiteral(SAMPLE_COMPANY "/") + name, copy));
        db_ = dao::Database::Open(copy, schema::kConnect.toString());
    }
    static void TearDownTestSuite() {
        db_.reset();
        folder_.reset();
    }
    static QList<QStringList> Rows(const QString& select) {
        QList<QStringList> rows;
        for (const QString& row : demo::Rows(*db_, select)) rows += row.split(u'|');
        return rows;
    }
    static QString One(const QString& select) { return demo::Rows(*db_, select).join(u' '); }

    static std::unique_ptr<QTemporaryDir> folder_;
    static std::unique_ptr<dao::Database> db_;
};
std::unique_ptr<QTemporaryDir> SampleCompany::folder_;
std::unique_ptr<dao::Database> SampleCompany::db_;

/// Numbers as the forms read and show them.
std::string Shown(double value) {
    return text::GeneralText(value).toStdString();
}
std::string Shown(const QString& number) {
    return Shown(text::Val(number));
}

/// A balance to the cent: a chain of sums and differences carries the rounding of doubles.
std::string Cents(double value) {
    return text::FormatFixed(value, 2).toStdString();
}

TEST_F(SampleCompany, HasWhatItIsShownFor) {
    const struct {
        QString what;
        QString number;
    } counts[] = {
        {u"count(*) from M02"_s, u"20"_s},
        {u"count(*) from M01"_s, u"4"_s},
        {u"count(*) from M03"_s, u"12"_s},
        {u"count(*) from M031"_s, u"240"_s},
        {u"count(*) from B01"_s, u"600"_s},
        {u"count(*) from TE1"_s, u"5"_s},
        {u"count(*) from MS1"_s, u"1"_s},
        {u"count(*) from (select distinct F2 from TB1 where LB=-10)"_s, u"4"_s},
        {u"count(*) from (select distinct F3 from TB1 where LB=10)"_s, u"4"_s},
        {u"count(*) from TB1 where LB in (-10,10) and (YF<>0 or FK<=0)"_s, u"0"_s},
        {u"count(*) from M02 where F1 not in (select F0 from M021)"_s, u"0"_s},
        {u"count(*) from M011 where F1 not in (select F0 from M0111)"_s, u"0"_s},
        {u"count(*) from M01 where F1 not in (select F3 from M011)"_s, u"0"_s},
        // One first price for each of the coefficients; no two customers have the same quotes.
        {u"count(*) from (select distinct F2,F4 from M031 where F1='D01')"_s, u"12"_s},
        {u"count(*) from (select distinct F501 from B01)"_s, u"3"_s},
        {u"count(*) from (select distinct F203 from B01)"_s, u"20"_s},
        {u"count(*) from (select distinct F603 from B01)"_s, u"12"_s},
        {u"count(*) from (select distinct F702 from B01 where F701<>'')"_s, u"5"_s},
        {u"count(*) from TA2"_s, u"12"_s},
        {u"count(*) from (select distinct F3 from TD1)"_s, u"8"_s},
        {u"count(*) from TD1 where F9-F91=0"_s, u"12"_s},
        {u"count(*) from TD1 where F91=0"_s, u"12"_s},
        {u"count(*) from TD1 where F91<>(select sum(F4) from TD2 where TD2.F2=TD1.F1)"_s, u"0"_s},
        {u"count(*) from TD2,TD1 where TD2.F2=TD1.F1 and (TD2.F1<>TD1.F3 or TD2.F5+TD1.F91-TD1.F9 not between -0.001 and 0.001)"_s,
         u"0"_s},
        // Made up, and said so.
        {u"count(*) from TA2 where F2 not like '*样例*'"_s, u"0"_s},
        {u"count(*) from CompanyInfo where F1 like '*虚构*'"_s, u"1"_s},
        {u"count(*) from M03 where F9 not like '*虚构*'"_s, u"0"_s},
        {u"count(*) from M02 where F8 not like '*虚构*'"_s, u"0"_s},
        {u"count(*) from M011 where F8 not like '*虚构*'"_s, u"0"_s},
        {u"count(*) from M01 where F3 not like '*虚构*'"_s, u"0"_s},
        {u"count(*) from M04 where F2 not like '*虚构*'"_s, u"0"_s},
    };
    for (const auto& [what, number] : counts)
        EXPECT_EQ(One(u"select "_s + what).toStdString(), number.toStdString()) << what.toStdString();
    for (const QString& mark : {u"未审核"_s, u"未出货"_s})
        EXPECT_NE(One(u"select count(*) from B01 where F604='"_s + mark + u"'"_s), u"0"_s);
    // A number begins with the day of its entry.
    int late = 0;
    for (const QStringList& row : Rows(u"select F1,F101 from B01"_s))
        late += row[0].mid(2, 6) != row[1].mid(2).remove(u'-');
    EXPECT_GT(late, 10);
    for (const QString& table : {u"M04"_s, u"M05"_s})
        for (const QStringList& row : Rows(u"select F1 from "_s + table))
            EXPECT_LE(row[0].size(), 4) << row[0].toStdString();
}

TEST_F(SampleCompany, PricesPerKgFallWithTheWeight) {
    for (const QString& table : {u"M02"_s, u"M011"_s}) {
        const bool selling = table == u"M02"_s;
        QStringList fields;
        for (int segment = 1; segment <= Segments; ++segment)
            fields += selling         ? u"P%1"_s.arg(300 + segment)
                      : segment <= 10 ? u"P%1"_s.arg(299 + segment)
                                      : u"0"_s;
        for (const QStringList& row : Rows(u"select F1,"_s + fields.join(u',') + u" from "_s + table))
            for (int segment = 1; segment < Segments; ++segment) {
                const double here = text::Val(row[segment]), next = text::Val(row[segment + 1]);
                EXPECT_TRUE(next < here || (next == 0 && !selling)) << row.join(u' ').toStdString();
            }
    }
}

TEST_F(SampleCompany, EveryAmountIsWhatTheTariffsGive) {
    const QStringList standard = Rows(u"select * from MS1"_s).value(0);
    std::set<QString> brackets;
    for (
        const QStringList& row : Rows(
            u"select F1,F603,F203,F402,F301,F502,F503,F505,F508,F504,F202,F2021,F404,F506,F510,F509,F507 from B01"_s)) {
        const std::string which = row[0].toStdString();
        const Computed charge = waybills::ComputeCustomerCharge(
            *db_, {.customer = row[1], .zone = row[2], .weight = row[3], .serviceType = row[4]});
        ASSERT_EQ(charge.kind, Computed::Kind::Amount) << which;
        EXPECT_EQ(Shown(charge.amount), Shown(row[5])) << which;
        EXPECT_EQ(Shown(waybills::ChargeTotal(row[6], row[5], row[7], row[8])), Shown(row[9])) << which;
        const Computed cost = waybills::ComputeShippingCost(*db_, {.channel = row[10],
                                                                   .zone = row[11],
                                                                   .weight = row[12],
                                                                   .serviceType = row[4],
                                                                   .fuelFactor = row[13],
                                                                   .additionalFees = row[14],
                                                                   .otherFees = row[15]});
        EXPECT_EQ(cost.kind, row[10].isEmpty() ? Computed::Kind::Unchanged : Computed::Kind::Amount) << which;
        EXPECT_EQ(Shown(cost.amount), Shown(row[16])) << which;

        const double weight = text::Val(row[3]);
        int segment = 0;
        while (segment < Segments && text::Val(standard[4 + segment]) <= weight) ++segment;
        const bool first = weight <= text::Val(standard[row[4] == u"D" ? 0 : 2]);
        brackets.insert(segment > 0 ? QString::number(segment) : row[4] + (first ? u"first"_s : u"more"_s));
    }
    EXPECT_EQ(brackets.size(), 4U + Segments);
}

TEST_F(SampleCompany, AReleasedWaybillHasBothJournalRowsAndNoOtherHas) {
    std::map<QString, QString> journal;
    for (const QStringList& row : Rows(u"select F1,LB,F2,F3,YF,FK from TB1 where FK=0"_s))
        EXPECT_TRUE(journal.emplace(row[0], row.mid(1).join(u'|')).second) << row[0].toStdString();
    std::size_t expected = 0;
    for (
        const QStringList& row : Rows(
            u"select B01.F1,B01.F101,M03.F2,B01.F504,B01.F604,M01.F2,B01.F507 from (B01 left join M03 on "_s +
            u"B01.F603=M03.F1) left join M01 on M01.F1=B01.F202"_s)) {
        const auto line = [&](const QString& kind, int name, int amount) {
            return QStringList{kind, row[1], row[name], row[amount], u"0"_s}.join(u'|').toStdString();
        };
        EXPECT_EQ(journal[u"YS"_s + row[0]].toStdString(), line(u"-9"_s, 2, 3));
        ++expected;
        if (!waybills::IsReleased(row[4])) continue;
        EXPECT_EQ(journal[u"YF"_s + row[0]].toStdString(), line(u"9"_s, 5, 6));
        ++expected;
    }
    EXPECT_EQ(journal.size(), expected);
}

TEST_F(SampleCompany, EveryChainOpensWithWhatItClosedWith) {
    std::map<QString, double> balance;
    std::set<QString> places;
    QString day;
    for (const QStringList& row : Rows(u"select F3,SN,F2,QC,YF,FK,QM,F1 from TB1 order by SN"_s)) {
        const std::string which = row[7].toStdString();
        EXPECT_TRUE(places.insert(row[1]).second) << which << " shares its place";
        EXPECT_GE(row[2], day) << which << " is behind a later day";
        day = row[2];
        double& before = balance[row[0]];
        EXPECT_EQ(Cents(text::Val(row[3])), Cents(before)) << which;
        before = text::Val(row[3]) + text::Val(row[4]) - text::Val(row[5]);
        EXPECT_EQ(Cents(text::Val(row[6])), Cents(before)) << which;
    }
    EXPECT_EQ(balance.size(), 16U);  // customers and channels
}

}  // namespace
