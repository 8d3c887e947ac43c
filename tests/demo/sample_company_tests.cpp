// What has to hold in the sample company's file, whatever its tables are changed to.
#include "accounts/ledger_rows.h"
#include "accounts/refresh.h"
#include "schema/names.h"
#include "tests/faults/company_state.h"
#include "tests/support/data_file.h"

#include <array>
#include <gtest/gtest.h>
#include <map>
#include <set>

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

/// The movements of each counterparty, added up from the detail ledger's lines; those of its total lines and
/// of the summary as they are.
class Movements : public accounts::LedgerLines {
  public:
    void Cell(int line, int col, QString text) override {
        if (line >= lines.size()) lines.resize(line + 1);
        lines[line][col] = text;
    }
    void Total(int line) override { totals.insert(line); }

    QStringList Of(bool total) const {
        std::map<QString, std::pair<double, double>> sums;
        for (int line = 0; line < lines.size(); ++line) {
            if (totals.contains(line) != total) continue;
            auto& [raised, lowered] = sums[lines[line][accounts::Unit]];
            raised += lines[line][accounts::Raised].toDouble();
            lowered += lines[line][accounts::Lowered].toDouble();
        }
        QStringList rows;
        for (const auto& [unit, sum] : sums)
            rows += u"%1|%2|%3"_s.arg(unit).arg(sum.first, 0, 'f', 2).arg(sum.second, 0, 'f', 2);
        rows.sort();
        return rows;
    }

  private:
    QList<std::array<QString, accounts::LedgerColumns>> lines;
    std::set<int> totals;
};

TEST(SampleCompany, MovesInBothLedgersWhatItsJournalMoves) {
    const QTemporaryDir folder;
    const QString file = tests::CopyAsLeft(
        QStringLiteral(SAMPLE_COMPANY "/") + schema::kDatabaseFile.toString(), folder.path());
    const auto db = dao::Database::Open(file, schema::kConnect.toString());
    for (const int side : {-10, 10}) {
        QStringList journal;
        auto sums = db->OpenRecordset(u"select F3,sum(YF),sum(FK) from TB1 where "_s +
                                      (side < 0 ? u"LB<0"_s : u"LB>0"_s) + u" group by F3"_s);
        for (; !sums.Eof(); sums.MoveNext())
            journal += u"%1|%2|%3"_s.arg(sums.Fields(0).Text())
                           .arg(sums.Fields(1).Number(), 0, 'f', 2)
                           .arg(sums.Fields(2).Number(), 0, 'f', 2);
        journal.sort();
        ASSERT_GT(journal.size(), 2) << side;
        const accounts::LedgerScope scope{
            .LB = side, .from = QDate(2024, 1, 1), .to = QDate(2024, 12, 31), .unit = {}};
        Movements detail, summary;
        auto rows = db->OpenRecordset(accounts::DetailStatement(scope));
        accounts::BuildDetail(rows, detail);
        EXPECT_EQ(detail.Of(false), journal) << side;
        EXPECT_EQ(detail.Of(true), journal) << side;
        auto again = db->OpenRecordset(accounts::SummaryStatement(scope));
        accounts::BuildSummary(again, summary);
        EXPECT_EQ(summary.Of(false), journal) << side;
    }
}

TEST(SampleCompany, AddsUpAgainAfterARefreshOfBothSides) {
    const QTemporaryDir folder;
    const QString file = tests::CopyAsLeft(
        QStringLiteral(SAMPLE_COMPANY "/") + schema::kDatabaseFile.toString(), folder.path());
    const QString others = u"select SN,QC,QM from TB1 where F3='已删'"_s;
    QStringList counterparties, kept, masters;
    {
        tests::Connection company(file);
        counterparties = company.Rows(u"select distinct F3 from TB1"_s);
        company.Run(u"update TB1 set QC=1,QM=null"_s);
        company.Run(
            u"insert into TB1 (SN,LB,F1,F2,F3,FK,QC,QM,F6) values (0.5,-10,'SK1','2024-05-01','已删',5,12,7,'甲')"_s);
        kept = company.Rows(others);
        masters = company.Rows(u"select F2 from M03"_s) + company.Rows(u"select F2 from M01"_s);
    }
    {
        const auto db = dao::Database::Open(file, schema::kConnect.toString());
        accounts::RefreshChains(*db, masters, [](const QString&) {});
        db->CloseGroup();
    }
    const QStringList contradictions = tests::ContradictionsIn(file, counterparties);
    EXPECT_TRUE(contradictions.isEmpty()) << contradictions.join(u'\n').toStdString();
    EXPECT_EQ(tests::Connection(file).Rows(others), kept) << "of a name in no master";
}

}  // namespace
