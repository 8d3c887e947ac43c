#include "reports/invoices/payment_entry.h"

#include "app/data_access.h"
#include "app/dressing.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/controls/numeric.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "reports/invoices/invoice_parts.h"
#include "reports/invoices/payments.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The captions, which also begin the refusals. These end in exclamation marks of both widths.
const QString CustomerCaption = u"客户"_s;
const QString NoteCaption = u"发货单号"_s;
const QString DateCaption = u"付款日期"_s;
const QString AmountCaption = u"付款金额"_s;

constexpr int Width = 372;
constexpr int Margin = 16;
constexpr int Gap = 8;
constexpr int Decimals = 2;

/// What is open on a note, in yuan.
double OpenOn(const QString& note) {
    return GetVal(u"SELECT F9-F91 AS SL FROM TD1 WHERE F1="_s + Quoted(note));
}

QString Shown(double amount) {
    return text::FormatFixed(amount, Decimals);
}

}  // namespace

D201::D201(QWidget* over) : ModalForm(u"D201"_s, u" 付款登记"_s, over) {
    CmbKH = new controls::ComboBox(this);
    CmbKH->setObjectName(u"CmbKH"_s);
    CmbKH->KeyPressed = controls::EnterMovesOn;
    for (std::size_t i = 0; i < Txt.size(); ++i) {
        Txt[i] = new controls::LineBox(this);
        Txt[i]->setObjectName(u"Txt(%1)"_s.arg(i));
        Txt[i]->KeyPressed = controls::EnterMovesOn;
    }
    Txt[Amount]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    controls::SetNumeric(*Txt[Amount]);
    DTP = new controls::DTPicker(this);
    DTP->setObjectName(u"DTP"_s);
    DTP->KeyPressed = controls::EnterMovesOn;
    auto* rows = new dressing::CaptionRows;
    rows->Add(CustomerCaption, u"LabKH"_s, CmbKH);
    rows->Add(NoteCaption, u"Lab(0)"_s, Txt[Note]);
    rows->Add(DateCaption, u"LabRQ"_s, DTP);
    rows->Add(AmountCaption, u"Lab(1)"_s, Txt[Amount]);

    auto* ok = new controls::Button(u"确 定"_s, this);
    auto* cancel = new controls::Button(u"取 消"_s, this);
    ok->setObjectName(u"Command1"_s);
    cancel->setObjectName(u"Command2"_s);
    ok->setDefault(true);
    ok->Click = [this] { Register(); };
    cancel->Click = [this] { Unload(); };
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Gap);
    column->addLayout(rows);
    column->addLayout(dressing::ButtonRow({ok, cancel}));
    setFixedWidth(Width);
    QWidget* before = CmbKH;
    for (QWidget* next : std::initializer_list<QWidget*>{Txt[Note], DTP, Txt[Amount], ok, cancel}) {
        setTabOrder(before, next);
        before = next;
    }
}

void D201::Load() {
    invoices::AddCustomers(*CmbKH);
    DTP->SetValue(sys::Today());
    CmbKH->SetFocus();
}

bool D201::Refuse(const QString& text, QWidget* box) {
    sys::Inform(text, MsgTitle);
    controls::MoveFocus(box);
    return false;
}

bool D201::CheckCustomer(Payment& payment) {
    if (text::Trim(CmbKH->Text()).isEmpty()) return Refuse(CustomerCaption + u"不能为空!"_s, CmbKH);
    payment.customer = CodePart(CmbKH->Text());
    payment.name = NameOf(u"TA2"_s, payment.customer);
    return !payment.name.isEmpty() || Refuse(CustomerCaption + u"编号输入错误!"_s, CmbKH);
}

bool D201::CheckNote(Payment& payment) {
    payment.note = text::Trim(Txt[Note]->Text());
    if (payment.note.isEmpty()) return Refuse(NoteCaption + u"不能为空！"_s, Txt[Note]);
    const QString customer = GetStr(u"select F3 from TD1 WHERE F1="_s + Quoted(payment.note));
    if (customer.isEmpty()) return Refuse(u"无效的"_s + NoteCaption + u"!"_s, Txt[Note]);
    return customer == payment.customer ||
           Refuse(NoteCaption + u"与"_s + CustomerCaption + u"不对应!"_s, Txt[Note]);
}

bool D201::CheckAmount(Payment& payment) {
    payment.amount = text::Val(Txt[Amount]->Text());
    if (payment.amount == 0) return Refuse(AmountCaption + u"不能为0！"_s, Txt[Amount]);
    return OpenOn(payment.note) > 0 ||
           Refuse(u"指定的"_s + NoteCaption + u"已经清结，不需要继续付款!"_s, Txt[Note]);
}

std::optional<D201::Payment> D201::Checked() {
    Payment payment;
    if (!CheckCustomer(payment) || !CheckNote(payment) || !CheckAmount(payment)) return std::nullopt;
    return payment;
}

void D201::Register() {
    if (const auto payment = Checked()) {
        Write(*payment);
        Unload();
    }
}

void D201::Write(const Payment& payment) {
    const QString amount = text::GeneralText(payment.amount), day = text::DateText(DTP->Value());
    Db->Execute(u"update  TD1 SET F91=F91+"_s + amount + u" WHERE F1="_s + Quoted(payment.note));
    const double left = OpenOn(payment.note);
    Db->Execute(u"insert into TD2 (F1,F2,F3,F4,F5) values("_s + Quoted(payment.customer) + u',' +
                Quoted(payment.note) + u',' + Quoted(day) + u',' + amount + u',' + text::GeneralText(left) +
                u')');
    const double whole = GetVal(u"SELECT F9 FROM TD1 WHERE F1="_s + Quoted(payment.note));
    List->AddPayment({payment.customer, payment.name, payment.note, Shown(whole), day, Shown(payment.amount),
                      Shown(left)});
}
