// What has to hold in the sample company's file, whatever its tables are changed to.
#include "schema/names.h"
#include "tests/faults/company_state.h"
#include "tests/support/data_file.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(SampleCompany, AgreesWithItselfInWaybillsJournalAndBalances) {
    const QTemporaryDir folder;  // the made file stays as it is
    const QString file = tests::CopyAsLeft(
        QStringLiteral(SAMPLE_COMPANY "/") + schema::kDatabaseFile.toString(), folder.path());
    tests::Connection company(file);
    EXPECT_EQ(company.Rows(u"select F1 from B01 where F604 not in ('未审核','未出货') and not exists"
                           "(select 1 from TB1 where TB1.F1='YF'||B01.F1)"_s),
              QStringList())
        << "released at its entry, and so in the journal";
    const QStringList counterparties = company.Rows(u"select distinct F3 from TB1"_s);
    EXPECT_EQ(counterparties.size(), 16) << "customers and channels";
    EXPECT_EQ(company.Rows(
                  u"select F1 from TD1 where F91<>(select ifnull(sum(F4),0) from TD2 where TD2.F2=TD1.F1)"_s),
              QStringList());
    const QStringList contradictions = tests::ContradictionsIn(file, counterparties);
    EXPECT_TRUE(contradictions.isEmpty()) << contradictions.join(u'\n').toStdString();
}

}  // namespace
