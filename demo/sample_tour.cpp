#include "demo/sample_tour.h"

#include "app/main_window.h"
#include "demo/sample_masters.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

void OpenCard(Operator& op) {
    op.TabTo(u"TabS"_s);
    op.Press(Qt::Key_Right);
}

void OpenLastCard(Operator& op) {
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_End);
    OpenCard(op);
}

void TellSampleLogin(Operator& op) {
    op.ExpectWindow(u"Login"_s);
    op.TabTo(u"cmbhu"_s);
    op.EnterTo(u"Txt(1)"_s);
    op.Press(Qt::Key_S, Qt::ControlModifier);  // the administrator of a new company has no password
    op.ExpectWindow(u"MForm"_s);
    op.Expect(u"标题栏有公司名称"_s, [] { return TheFrame().windowTitle().endsWith(sample::kCompany); });
}

void TellZones(Operator& op) {
    op.Command(u"A3"_s);
    op.ExpectStatus(u"共 20 条记录 当前为第 1 条"_s);
    op.Picture(u"sample-zones"_s, u"样例公司：二十个区域"_s);
    OpenLastCard(op);
    op.ExpectText(u"Txt(0)"_s, u"F02-EAST"_s);
    op.Picture(u"sample-zone"_s, u"样例公司：最长的区域编号和名称"_s);
    op.Command(u"R"_s);
}

void TellChannels(Operator& op) {
    op.Command(u"A1"_s);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_Down);
    op.Press(Qt::Key_Down);
    OpenCard(op);
    op.ExpectText(u"Txt(7)"_s, u"10"_s);
    op.Picture(u"sample-channel"_s, u"样例公司：十个计费段的渠道"_s);
    op.Command(u"R"_s);
    op.Command(u"A2"_s);
    op.ExpectStatus(u"共 15 条记录 当前为第 1 条"_s);
    op.Picture(u"sample-cost-zones"_s, u"样例公司：各渠道的区域成本"_s);
    op.TabTo(u"GD"_s);
    for (int row = 1; row < 11; ++row) op.Press(Qt::Key_Down);
    OpenCard(op);
    op.ExpectText(u"Txt(0)"_s, u"Q3-AM"_s);
    op.Picture(u"sample-cost-zone"_s, u"样例公司：十个计费段的区域成本"_s);
    op.Command(u"R"_s);
}

void TellQuotes(Operator& op) {
    op.Command(u"A5"_s);
    op.ExpectStatus(u"客户资料列表：共 12 条记录 当前为第 1 条"_s);
    op.Picture(u"sample-customers"_s, u"样例公司：客户列表"_s);
    OpenLastCard(op);
    op.ExpectText(u"Txt(0)"_s, u"SZ2024-VIP-3"_s);
    op.TabTo(u"CmdUpDown"_s);
    op.Press(Qt::Key_Return);
    op.Picture(u"sample-quotes"_s, u"样例公司：客户的二十个区域报价"_s);
    op.Command(u"R"_s);
}

void TellWaybills(Operator& op) {
    op.Command(u"B"_s);
    op.TabTo(u"GD"_s);
    op.Press(Qt::Key_End);
    op.ExpectStatus(u"速递单：共 600 条记录 当前为第 600 条"_s);
    op.Picture(u"sample-waybills"_s, u"样例公司：两个月的速递单"_s);
    OpenCard(op);
    op.Picture(u"sample-waybill"_s, u"样例公司：最后一张速递单"_s);
    op.Command(u"R"_s);
}

}  // namespace

void TellTour(Operator& op) {
    TellSampleLogin(op);
    TellZones(op);
    TellChannels(op);
    TellQuotes(op);
    TellWaybills(op);
    op.Command(u"H3"_s);
}

}  // namespace demo
