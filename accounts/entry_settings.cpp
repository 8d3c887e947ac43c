#include "accounts/entry_settings.h"

#include "accounts/unit_choice.h"

using namespace Qt::StringLiterals;
using search::Kind;

namespace accounts {
namespace {

/// What is searched: the headers go by column. 相关单据 searches the counterparty; required by the business.
std::vector<SearchField> Fields(const QString& amount) {
    return {
        {Key, u"TB1.F1"_s},
        {Date, u"TB1.F2"_s, Kind::Date},
        {Party, u"TB1.F3"_s},
        {Document, u"TB1.F3"_s},
        {Amount, amount, Kind::Number},
        {Handler, u"S1"_s},
        {Maker, u"F5"_s},
        {Remark, u"F10"_s},
    };
}

const QStringList charge = {u"单据编码"_s, u"发生日期"_s, u"关系单位"_s, u"相关单据"_s, u"摘要"_s,
                            u"欠款金额"_s, u"经手人"_s,   u"制单人"_s,   u"备注"_s};
const QStringList payment = {u"付款凭证"_s, u"付款日期"_s, u"收款单位"_s, u"相关单据"_s, u"付款方式"_s,
                             u"付款金额"_s, u"经手人"_s,   u"制单人"_s,   u"备注"_s};
const QStringList receipt = {u"收款凭证"_s, u"收款日期"_s, u"付款单位"_s, u"相关单据"_s, u"收款方式"_s,
                             u"收款金额"_s, u"经手人"_s,   u"制单人"_s,   u"备注"_s};

}  // namespace

const EntrySettings ChargeEntry = {
    .form = u"zhLst"_s,
    .caption = u"应收应付"_s,
    .load = u"select TOP 1000 TB1.F1,TB1.F2,TB1.F3,'','',TB1.YF,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1  "_s,
    .search = {.base = u"select TB1.F1,TB1.F2,TB1.F3,'','',TB1.YF,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1  "_s,
               .fields = Fields(u"TB1.YF"_s)},
    .payable = {LedgerKind::Payable, kChannelNames, charge},
    .receivable = {LedgerKind::Receivable, kCustomerNames, charge},
};

const EntrySettings PaymentEntry = {
    .form = u"PayLst"_s,
    .caption = u"付款"_s,
    .load = u"select TOP 1000 TB1.F1,TB1.F2,TB1.F3,'','',TB1.FK,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1  "_s,
    .search = {.base = u"select TB1.F1,TB1.F2,TB1.F3,'','',TB1.FK,TB1.S1,TB1.F5,TB1.F10,TB1.SN FROM TB1  "_s,
               .fields = Fields(u"TB1.FK"_s)},
    .payable = {LedgerKind::Payment, kChannelNames, payment},
    .receivable = {LedgerKind::Receipt, kCustomerNames, receipt},
};

}  // namespace accounts
