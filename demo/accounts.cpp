#include "demo/accounts.h"

#include "app/main_window.h"
#include "app/session.h"
#include "demo/day_entries.h"
#include "demo/reports.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QString kChain = u"select F1,QC,QM from TB1 where F3='"_s + kCustomer + u"' order by SN"_s;

void ExpectForm(Operator& op, const QString& form, const QString& caption) {
    op.Expect(u"窗体 "_s + caption, [form, caption] {
        const ChildForm* front = TheFrame().Front();
        return front && front->objectName() == form && front->windowTitle() == caption;
    });
}

/// Into the cells as Enter reaches them.
void TypeCells(Operator& op, const QStringList& cells) {
    for (const QString& cell : cells) {
        op.TypeOver(cell);
        op.Press(Qt::Key_Return);
    }
}

void Save(Operator& op) {
    op.Command(u"S"_s);
    op.Expect(u"已保存"_s, [] { return !EditInProgress; });
}

void PlayCharges(Operator& op) {
    op.Command(u"D2"_s);
    ExpectForm(op, u"zhLst"_s, u"增加应收款"_s);
    op.Command(u"A"_s);
    op.Expect(u"单据编码"_s, [] {
        const auto* editor = TheFrame().Front()->findChild<QLineEdit*>(u"TxtEnter"_s);
        return editor && editor->isVisible() && editor->text() == u"YS241125091500";
    });
    TypeCells(op, {u"YSCZ1125"_s, u"2024-11-25"_s});
    op.Press(Qt::Key_F4);
    op.Picture(u"charge-entry"_s, u"增加应收款：选择关系单位"_s);
    op.Press(Qt::Key_Escape);
    TypeCells(op, {kCustomer, u"260"_s, u"郑秋生"_s, u"十一月仓租"_s});
    TypeCells(op, {u"YSBZ1125"_s, u""_s, u"样例电子"_s});
    op.Type(u"85.5"_s);
    op.Picture(u"charge-entry-text"_s, u"增加应收款：录入金额"_s);
    op.Press(Qt::Key_Return);
    op.Press(Qt::Key_Return);
    op.Type(u"包装材料"_s);
    Save(op);
    op.ExpectRows(u"select F1,LB,F2,YF,S1,F5,F10 from TB1 where F1 like 'YS?Z1125' order by SN"_s,
                  {u"YSCZ1125|-9|2024-11-25|260|郑秋生|管理员|十一月仓租"_s,
                   u"YSBZ1125|-9|2024-11-25|85.5||管理员|包装材料"_s});
    op.Command(u"R"_s);
}

/// Dated on Saturday: what was sent on Monday opens with less.
void PlayPayment(Operator& op) {
    op.Command(u"D4"_s);
    ExpectForm(op, u"PayLst"_s, u"收款"_s);
    op.Command(u"A"_s);
    op.Press(Qt::Key_Return);
    TypeCells(op, {u"2024-11-23"_s, kCustomer, u"100"_s, u""_s});
    op.Type(u"补录"_s);
    op.Picture(u"payment-entry"_s, u"收款：补录星期六的一笔"_s);
    Save(op);
    op.ExpectRows(kChain, {u"YSKV2411230005|0|185.49"_s, u"SK241125091500|185.49|85.49"_s,
                           u"YSKV2411250001|85.49|382.27"_s, u"YSKV2411250002|382.27|1035.68"_s,
                           u"YSKV2411250003|1035.68|4003.52"_s, u"YSKV2411250004|4003.52|11334.5"_s,
                           u"YSCZ1125|11334.5|11594.5"_s});
    op.Command(u"R"_s);
}

void PlayLedgers(Operator& op, const QString& folder) {
    op.Command(u"D8"_s);
    ExpectForm(op, u"KuanMx"_s, u"应收帐款明细"_s);
    op.Picture(u"ledger-detail"_s, u"应收帐款明细：所有关系单位"_s);
    op.TabTo(u"Cmb"_s);
    op.TypeOver(kCustomer);
    op.EnterTo(u"Cmd"_s);
    op.Press(Qt::Key_Return);
    op.ExpectStatus(u"进出流水帐：共 7 条记录 当前为第 1 条"_s);
    op.Picture(u"ledger-detail-one"_s, u"应收帐款明细：一个关系单位"_s);
    op.Command(u"P"_s);
    SavePaper(op, folder + u"/应收帐款明细.pdf"_s, u"ledger-detail-one"_s, u"应收款明细帐"_s);
    op.Command(u"R"_s);
    op.Command(u"D7"_s);
    ExpectForm(op, u"KuanHz"_s, u"应收帐款总帐"_s);
    op.Picture(u"ledger-summary"_s, u"应收帐款总帐"_s);
    op.Command(u"P"_s);
    SavePaper(op, folder + u"/应收帐款总帐.pdf"_s, u"ledger-summary"_s, u"应收货款总帐"_s);
    op.Command(u"R"_s);
    op.Command(u"D6"_s);
    op.Picture(u"ledger-payable"_s, u"应付帐款明细"_s);
    op.Command(u"R"_s);
}

/// The balances behind a deleted row are stale until the refresh.
void PlayRefresh(Operator& op) {
    op.Command(u"D4"_s);
    op.Press(Qt::Key_End);
    op.Command(u"D"_s);
    op.ExpectBox(u"真的要删除[SK241125091500]吗？"_s, u"提示"_s, u"payment-delete"_s);
    op.ExpectRows(u"select QC from TB1 where F1='YSKV2411250001'"_s, {u"85.49"_s});
    op.Command(u"R"_s);
    RefreshBalances(op, u"ledger-refresh"_s);
    op.ExpectRows(kChain, {u"YSKV2411230005|0|185.49"_s, u"YSKV2411250001|185.49|482.27"_s,
                           u"YSKV2411250002|482.27|1135.68"_s, u"YSKV2411250003|1135.68|4103.52"_s,
                           u"YSKV2411250004|4103.52|11434.5"_s, u"YSCZ1125|11434.5|11694.5"_s});
}

}  // namespace

void RefreshBalances(Operator& op, const QString& picture) {
    op.Command(u"D8S"_s);
    op.Press(Qt::Key_Return);  // two commands have the key S
    op.ExpectWindow(u"ReKuanFrm"_s);
    op.ExpectFocus(u"Cmb"_s);
    op.Type(kCustomer);
    if (!picture.isEmpty()) op.Picture(picture, u"刷新明细帐"_s);
    op.EnterTo(u"Command1"_s);
    op.Press(Qt::Key_Return);
    op.ExpectBox(u"刷新完成！"_s, {});
    op.TabTo(u"Command2"_s);
    op.Press(Qt::Key_Return);
    op.ExpectWindow(u"MForm"_s);
    op.Command(u"R"_s);
}

void PlayAccounts(Operator& op, const QString& folder) {
    PlayCharges(op);
    PlayPayment(op);
    PlayLedgers(op, folder);
    PlayRefresh(op);
}

}  // namespace demo
