#include "program/wiring.h"

#include "accounts/ageing_form.h"
#include "accounts/entry_form.h"
#include "accounts/ledger_form.h"
#include "admin/backup.h"
#include "admin/end_of_day.h"
#include "admin/operators.h"
#include "admin/password.h"
#include "admin/reset.h"
#include "admin/restore.h"
#include "app/about.h"
#include "app/login.h"
#include "history/failed_command.h"
#include "history/history_form.h"
#include "reconcile/channel_bill_form.h"
#include "records/small_master.h"
#include "reports/batch_form.h"
#include "reports/invoices/payments.h"
#include "reports/invoices/sales.h"
#include "reports/printing.h"
#include "reports/problem_notice.h"
#include "reports/report_form.h"
#include "tariffs/channel_zones.h"
#include "tariffs/channels.h"
#include "tariffs/customers.h"
#include "tariffs/service_zones.h"
#include "tariffs/standard.h"
#include "waybills/scan_release.h"
#include "waybills/unreleased.h"
#include "waybills/waybill_form.h"

using namespace Qt::StringLiterals;

namespace {

template <class Form>
std::function<void(QWidget*)> Modal() {
    return [](QWidget* over) { Form(over).ShowModal(); };
}

template <class Form>
std::function<std::unique_ptr<ChildForm>()> Child() {
    return [] { return std::make_unique<Form>(); };
}

Registry FilledRegistry() {
    Registry forms;
    forms.children[u"A02"_s] = Child<A02>();
    forms.children[u"A030"_s] = Child<A030>();
    forms.children[u"A01"_s] = Child<A01>();
    forms.children[u"A011"_s] = Child<A011>();
    forms.children[u"A03"_s] = Child<A03>();
    forms.children[u"A04"_s] = Child<A04>();
    forms.children[u"A05"_s] = Child<A05>();
    forms.children[u"A06"_s] = Child<A06>();
    forms.children[u"Ageing"_s] = Child<Ageing>();
    forms.children[u"B01"_s] = Child<B01>();
    forms.children[u"BatchStatements"_s] = Child<BatchStatements>();
    forms.children[u"C01"_s] = Child<C01>();
    forms.children[u"C02"_s] = Child<C02>();
    forms.children[u"C03"_s] = Child<C03>();
    forms.children[u"C04"_s] = Child<C04>();
    forms.children[u"C05"_s] = Child<C05>();
    forms.children[u"C06"_s] = Child<C06>();
    forms.children[u"ChannelBill"_s] = Child<ChannelBill>();
    forms.children[u"D2"_s] = Child<D2>();
    forms.children[u"D3"_s] = Child<D3>();
    forms.children[u"History"_s] = Child<History>();
    forms.children[u"KuanHz"_s] = Child<KuanHz>();
    forms.children[u"KuanMx"_s] = Child<KuanMx>();
    forms.children[u"PayLst"_s] = Child<PayLst>();
    forms.children[u"ScanRelease"_s] = Child<ScanRelease>();
    forms.children[u"Unreleased"_s] = Child<Unreleased>();
    forms.children[u"zhLst"_s] = Child<zhLst>();
    forms.children[u"S02"_s] = Child<S02>();
    forms.children[u"Prnt"_s] = Child<Prnt>();
    forms.modals[u"Login"_s] = Modal<Login>();
    forms.modals[u"AboutUS"_s] = Modal<AboutUS>();
    forms.modals[u"S01"_s] = Modal<S01>();
    forms.modals[u"S03"_s] = Modal<S03>();
    forms.modals[u"S2"_s] = Modal<S2>();
    forms.modals[u"S32"_s] = Modal<S32>();
    forms.commands[u"Backup"_s] = BackUp;
    const auto endOfDay = std::make_shared<admin::EndOfDay>();
    forms.closing = [endOfDay] { endOfDay->Before(); };
    forms.closed = [endOfDay] { endOfDay->After(); };
    return forms;
}

}  // namespace

StartUpParts Wire(const QString& folder) {
    history::WatchFailures();
    return {.folder = folder,
            .registry = FilledRegistry(),
            .showLogin =
                [](QWidget* over) {
                    Login(over).ShowModal();
                    admin::SessionCopies().Work();
                    history::SayWhatWasLost();
                },
            .showRestore = Modal<S32>(),
            .opened = admin::CatchUpCopies};
}
