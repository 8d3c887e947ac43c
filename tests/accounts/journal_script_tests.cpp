// A long script of back-dated entries, edits and deletes over several counterparties, typed into the entry
// forms, against what a second implementation of the journal says (script/reference.py).
#include "demo/keyboard.h"
#include "tests/support/program.h"

#include <QApplication>
#include <QFile>
#include <QRadioButton>

#include <gtest/gtest.h>
#include <map>

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

}  // namespace
}  // namespace tests
