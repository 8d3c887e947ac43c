// A long script of back-dated entries, edits and deletes over several counterparties, typed into the entry
// forms, against what a second implementation of the journal says (script/reference.py); and the refresh of a
// large journal that nobody keeps in order.
#include "accounts/refresh.h"
#include "demo/keyboard.h"
#include "tests/support/program.h"

#include <QApplication>
#include <QFile>
#include <QRadioButton>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <numeric>
#include <random>

namespace tests {
namespace {

const QStringList Customers{u"华兴"_s, u"恒.南"_s, u"百川"_s};
const QStringList Channels{u"环洋"_s, u"华兴"_s};

QStringList Masters() {
    QStringList rows;
    for (const auto& name : Customers) rows += u"insert into M03 (F1,F2) VALUES ('%1','%1')"_s.arg(name);
    for (const auto& name : Channels) rows += u"insert into M01 (F1,F2) VALUES ('%1','%1')"_s.arg(name);
    return rows;
}

QStringList LinesOf(const QString& name) {
    QFile file(QStringLiteral(SCRIPT_FOLDER) + u'/' + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

class Clerk {
  public:
    void Take(const QString& step) {
        const QStringList words = step.split(u' ');
        OpenFor(words[1]);
        if (words[0] == u"add") {
            AltKey(u'A');
            EnterRow(words.mid(2));
        } else if (words[0] == u"edit") {
            Select(words[2]);
            AltKey(u'E');
            EnterRow(words.mid(3));
        } else {
            Select(words[2]);
            desk.script.Question(u"真的要删除["_s + words[2] + u"]吗？"_s, Title, true);
            AltKey(u'D');
        }
    }

    QStringList Journal() { return desk.Rows(u"select SN,LB,F1,F2,F3,YF,FK,QC,QM from TB1 order by SN"_s); }

    /// Of the side whose ledger these keys open.
    void Refresh(const QString& keys) {
        if (desk.Frame().Front()) AltKey(u'R');
        desk.Open(keys, u"KuanMx"_s);
        ModalScript modals;
        modals.Next(u"ReKuanFrm"_s, [&](QWidget& form) {
            Find<QRadioButton>(form, u"Opt(0)"_s).setChecked(true);
            desk.script.Box(u"刷新完成！"_s, {});
            Click(Find<controls::Button>(form, u"Command1"_s));
            Click(Find<controls::Button>(form, u"Command2"_s));
        });
        AltKey(u'S');
        Press(Qt::Key_Return);
    }

    Program desk{Masters()};

  private:
    void OpenFor(const QString& kind) {
        if (kind == open_) return;
        if (!open_.isEmpty()) AltKey(u'R');
        const bool charge = kind.startsWith(u'Y');
        const std::map<QString, QString> keys{
            {u"YF"_s, u"D1"_s}, {u"YS"_s, u"D2"_s}, {u"FK"_s, u"D3"_s}, {u"SK"_s, u"D4"_s}};
        desk.Open(keys.at(kind), charge ? u"zhLst"_s : u"PayLst"_s);
        open_ = kind;
    }

    static void EnterRow(const QStringList& cells) {
        for (const QString& cell : cells) {
            for (const QChar c : cell) keyboard::Character(*QApplication::focusWidget(), c);
            Press(Qt::Key_Return);
        }
        AltKey(u'S');
    }

    void Select(const QString& key) {
        auto& grid = desk.Grid();
        for (int row = 1; row < grid.Rows(); ++row)
            if (grid.TextMatrix(row, 0) == key) return grid.SetRow(row);
        ADD_FAILURE() << "not in the list: " << key.toStdString();
    }

    QString open_;
};

TEST(JournalScript, ComesOutAsTheSecondImplementationSays) {
    Clerk clerk;
    for (const QString& step : LinesOf(u"steps.txt"_s)) {
        SCOPED_TRACE(step.toStdString());
        clerk.Take(step);
        ASSERT_FALSE(EditInProgress);
    }
    EXPECT_EQ(clerk.Journal(), LinesOf(u"before.txt"_s));
    clerk.Refresh(u"D8"_s);
    clerk.Refresh(u"D6"_s);
    EXPECT_EQ(clerk.Journal(), LinesOf(u"after.txt"_s));
}

/// 10,000 rows in no order with balances that are wrong; a few are not posted, and some names are in no
/// master. No two have one `SN`.
void FillAtRandom(dao::Database& db, const QStringList& names) {
    std::mt19937 random(17);
    std::vector<int> places(10'000);
    std::iota(places.begin(), places.end(), 1);
    std::shuffle(places.begin(), places.end(), random);
    const auto under = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (const int place : places) {
        const bool charge = under(3) > 0;
        const QString amount = QString::number(under(100'000) / 100.0);
        db.Execute(
            u"insert into TB1 (SN,LB,F1,F2,F3,%1,QC,QM,F6) values (%2,%3,'K%4','2024-03-0%5','%6',%7,7,7,'%8')"_s
                .arg(charge ? u"YF"_s : u"FK"_s, QString::number(place / 8.0), charge ? u"-9"_s : u"-10"_s,
                     QString::number(place), QString::number(1 + under(9)),
                     names[under(static_cast<int>(names.size()))], amount,
                     under(50) == 0 ? QString() : u"甲"_s));
    }
    db.CloseGroup();
}

TEST(Refresh, ClosesTheChainOfEveryNameInTheMastersAndNoOther) {
    Company company;
    const QStringList masters = Customers + QStringList{u"环洋"_s};
    const QStringList others{u"恒"_s, u"已删"_s};  // 恒.南 cut at its point; of a deleted master
    FillAtRandom(company.Db(), masters + others);
    QStringList reported;
    accounts::RefreshChains(company.Db(), masters, [&](const QString& name) { reported += name; });
    EXPECT_EQ(reported, masters);
    auto rows = company.Db().OpenRecordset(u"select F3,QC,YF,FK,QM from TB1 order by F3,SN"_s);
    QString name;
    double balance = 0;
    int broken = 0;
    int seen = 0;
    for (; !rows.Eof(); rows.MoveNext(), ++seen) {
        const QString next = rows.Fields(0).Text();
        if (std::exchange(name, next) != next) balance = 0;
        const double opening = rows.Fields(1).Number();
        const double closing = rows.Fields(4).Number();
        const bool kept = others.contains(name);
        const double moved = opening + rows.Fields(2).Number() - rows.Fields(3).Number();
        broken += kept ? opening != 7 || closing != 7 : opening != balance || closing != moved;
        balance = moved;
    }
    rows.Close();
    EXPECT_EQ(seen, 10'000);
    EXPECT_EQ(broken, 0);
}

}  // namespace
}  // namespace tests
