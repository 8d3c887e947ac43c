#include "app/main_menu.h"

namespace {

constexpr bool kTop = true;
constexpr bool kItem = false;

// Two items of the last menu share the access key 2: pressing it selects them in turn.
constexpr MenuRow kMenus[] = {
    {u"Menu_A", u"&A.基本资料", kTop},
    {u"Menu_A01", u"&1.出货渠道计价标准", kItem, Opens::Child, u"A01"},
    {u"Menu_A011", u"&2.出货渠道区域成本", kItem, Opens::Child, u"A011"},
    {u"Menu_A02", u"&3.本司分区与报价", kItem, Opens::Child, u"A02"},
    {u"Menu_A030", u"&4.业务员资料", kItem, Opens::Child, u"A030"},
    {u"Menu_A03", u"&5.客户资料与报价", kItem, Opens::Child, u"A03"},
    {u"Menu_A04", u"&6.外务员资料", kItem, Opens::Child, u"A04"},
    {u"Menu_A05", u"&7.始发地设置", kItem, Opens::Child, u"A05"},
    {u"Menu_A06", u"&8.事故原因设置", kItem, Opens::Child, u"A06"},
    {u"Menu_b", u"&B.速递单据", kTop, Opens::Child, u"B01"},
    {u"Menu_C", u"&C.统计报表", kTop},
    {u"Menu_C01", u"&1.渠道出货明细表", kItem, Opens::Child, u"C01"},
    {u"Menu_C02", u"&2.客户对帐明细表", kItem, Opens::Child, u"C02"},
    {u"Menu_C03", u"&3.渠道对帐明细表", kItem, Opens::Child, u"C03"},
    {u"Menu_C04", u"&4.月结表", kItem, Opens::Child, u"C04"},
    {u"Menu_C05", u"&5.问题件通知单", kItem, Opens::Child, u"C05"},
    {u"Menu_C06", u"&6.毛利表", kItem, Opens::Child, u"C06"},
    {u"Menu_wanglai", u"&D.帐款往来", kTop},
    {u"Menu_YF", u"&1.增加应付", kItem, Opens::Child, u"zhLst", 9, u"增加应付款"},
    {u"Menu_ys", u"&2.增加应收", kItem, Opens::Child, u"zhLst", -9, u"增加应收款"},
    {u"menu_wll1", u"-"},
    {u"Menu_FK", u"&3.付款", kItem, Opens::Child, u"PayLst", 10, u"付款"},
    {u"Menu_sk", u"&4.收款", kItem, Opens::Child, u"PayLst", -10, u"收款"},
    {u"menu_wll", u"-"},
    {u"Menu_yfz", u"&5.应付款总帐", kItem, Opens::Child, u"KuanHz", 10, u"应付货款总帐"},
    {u"Menu_yfmx", u"&6.应付款明细帐", kItem, Opens::Child, u"KuanMx", 10, u"应付帐款明细"},
    {u"Menu_ysz", u"&7.应收款总帐", kItem, Opens::Child, u"KuanHz", -10, u"应收帐款总帐"},
    {u"Menu_ysmx", u"&8.应收款明细帐", kItem, Opens::Child, u"KuanMx", -10, u"应收帐款明细"},
    {u"Menu_S", u"&S.系统管理", kTop},
    {u"Menu_S01", u"&1.计价标准设置", kItem, Opens::Modal, u"S01"},
    {u"Menu_S02", u"&2.操作员管理", kItem, Opens::Child, u"S02"},
    {u"Menu_S03", u"&3.系统数据初始化", kItem, Opens::Modal, u"S03"},
    {u"Menu_S032", u"&4.系统数据备份", kItem, Opens::Command, u"Backup"},
    {u"Menu_S033", u"&5.系统数据恢复", kItem, Opens::Modal, u"S32"},
    {u"Menu_sl", u"&H.登录退出", kTop},
    {u"Relogin", u"&1.更换登录用户", kItem, Opens::Modal, u"Login"},
    {u"Menu_S2", u"&2.操作员修改密码", kItem, Opens::Modal, u"S2"},
    {u"About", u"&2.关于本系统", kItem, Opens::Modal, u"AboutUS"},
    {u"Quit", u"&3.退出系统", kItem, Opens::Unload},
};

constexpr PaletteRow kPalette[] = {
    {{u"Menu_D2", u"客户付款记录", kItem, Opens::Child, u"D2"}, u"Menu_C"},
    {{u"Menu_D3", u"销售统计报表", kItem, Opens::Child, u"D3"}, u"Menu_C"},
    {{u"Menu_BatchStatements", u"批量对帐单", kItem, Opens::Child, u"BatchStatements"}, u"Menu_C"},
    {{u"Menu_ChannelBill", u"渠道帐单核对", kItem, Opens::Child, u"ChannelBill"}, u"Menu_C"},
    {{u"Menu_Ageing", u"帐龄分析", kItem, Opens::Child, u"Ageing"}, u"Menu_wanglai"},
    // It lists what belongs to the operator's own menus alone.
    {{u"Menu_History", u"操作记录", kItem, Opens::Child, u"History"}, u"Menu_A Menu_b Menu_wanglai Menu_S"},
    {{u"Menu_ScanRelease", u"扫描出货", kItem, Opens::Child, u"ScanRelease"}, u"Menu_b"},
    {{u"Menu_Unreleased", u"未出货、未审核", kItem, Opens::Child, u"Unreleased"}, u"Menu_b"},
};

// d3 has no menu row, so it is refused to every operator, the administrator included.
constexpr ToolRow kTools[] = {
    {u" 客户报价", u"d1", u"Menu_A", u"Menu_A03", u"quote"},
    {u" 业务开单", u"d2", u"Menu_b", u"Menu_b", u"waybill"},
    {u"销售撮要表", u"d3", {}, {}, u"summary"},
    {u" 出货明细", u"d4", u"Menu_C", u"Menu_C01", u"shipment"},
    {u" 付 款", u"fk", u"Menu_wanglai", u"Menu_FK", u"pay", true},
    {u" 收 款", u"sk", u"Menu_wanglai", u"Menu_sk", u"receive"},
    {u"退出系统", u"quit", {}, u"Quit", u"quit", true},
};

}  // namespace

std::span<const MenuRow> MenuRows() {
    return kMenus;
}

std::span<const PaletteRow> PaletteRows() {
    return kPalette;
}

std::span<const ToolRow> ToolRows() {
    return kTools;
}
