#include "demo/sample_clerk.h"

#include "app/main_window.h"
#include "app/rights.h"
#include "app/session.h"
#include "demo/keyboard.h"
#include "demo/rows.h"
#include "demo/sample_invoices.h"
#include "demo/sample_masters.h"
#include "demo/sample_payments.h"
#include "demo/sample_waybills.h"
#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/modal_form.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "program/wiring.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace sample {
namespace {

/// The seams as they were, when this goes.
class SeamsRestorer {
  public:
    SeamsRestorer() : seams_(sys::seams()), driver_(controls::ModalForm::Driver()) {}
    ~SeamsRestorer() {
        sys::seams() = seams_;
        controls::ModalForm::Driver() = driver_;
    }
    SeamsRestorer(const SeamsRestorer&) = delete;
    SeamsRestorer& operator=(const SeamsRestorer&) = delete;

  private:
    sys::Seams seams_;
    std::function<void(controls::ModalForm&)> driver_;
};

class Clerk {
  public:
    explicit Clerk(const QString& folder);
    ~Clerk();
    Clerk(const Clerk&) = delete;
    Clerk& operator=(const Clerk&) = delete;

    void EnterMasters();
    void EnterWaybills();
    void EnterInvoices();

  private:
    void TakeSeams();
    void Check() const;
    static void Settle();
    void LogIn(const QString& code);
    void Open(const QString& form);
    void Close();
    template <class Control>
    Control& At(QWidget& root, const QString& name) const;
    template <class Control>
    Control& At(const QString& name) const {
        return At<Control>(*frame_->Front(), name);
    }
    void Press(const QString& command);
    void Visit(const QString& control);
    void Fill(const QString& control, const QString& text);
    void FillBoxes(int first, const QStringList& texts);
    void AddPlaces(const std::vector<Place>& places);

    void EnterStandard();
    void EnterSmallTable(const SmallTable& table);
    void EnterZone(const Zone& zone);
    void EnterChannel(const Channel& channel);
    void EnterCostZone(const CostZone& zone);
    void EnterCustomer(const Customer& customer);
    void Quote(const QString& prefix, const QString& coefficient);
    void EnterWaybill(const Waybill& waybill);
    void EnterPayments(QDate day);
    void EnterPaid(const QString& item, const std::vector<Payment>& payments);
    static void Type(const QString& text);
    static QString Part(const Payment& payment);
    void TickRelease();

    SeamsRestorer kept_;
    QDateTime now_{QDate(2024, 9, 20), QTime(9, 0)};
    QStringList expected_;  ///< texts of boxes that are answered with yes
    QString refused_;       ///< the first box that nobody expected
    std::unique_ptr<MForm> frame_;
};

Clerk::Clerk(const QString& folder) {
    TakeSeams();
    StartUpParts parts = Wire(folder);
    parts.showLogin = [](QWidget*) {};
    sys::Guarded([&] { frame_ = StartUp(parts); });
    Check();
    frame_->setGeometry(0, 0, 1366, 768);
    frame_->activateWindow();
    LogIn(u"001"_s);
}

Clerk::~Clerk() {
    Settle();
    EditInProgress = false;
    frame_.reset();
    SetTheFrame(nullptr);
    Db.reset();
}

void Clerk::TakeSeams() {
    auto& seams = sys::seams();
    seams.now = [this] { return now_; };
    seams.localeName = [] { return u"zh_CN"_s; };
    seams.switchInputMethod = [] {};
    seams.leave = [](int status) { throw sys::ProgramEnded{status}; };
    seams.showBox = [this](const sys::BoxRequest& request) {
        if (!expected_.isEmpty() && expected_.front() == request.text)
            expected_.removeFirst();
        else if (refused_.isEmpty())
            refused_ = request.text + u' ' + request.detail;
        return request.buttons == sys::BoxButtons::YesNo ? sys::BoxAnswer::Yes : sys::BoxAnswer::Ok;
    };
}

void Clerk::Check() const {
    if (!refused_.isEmpty()) throw RuntimeError(u"意外的消息框："_s + refused_);
    if (sys::HasEnded() || !Db) throw RuntimeError(u"程序提前结束"_s);
}

/// What is posted happens, and what that posts.
void Clerk::Settle() {
    for (int round = 0; round < 3; ++round) {
        QCoreApplication::processEvents();
        controls::FocusTracker::Get().Settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void Clerk::LogIn(const QString& code) {
    if (OperatorCode == code) return;
    OperatorCode = code;
    OperatorName = demo::Rows(*Db, u"select F2 from TE1 where F1='"_s + code + u"'"_s).value(0);
    frame_->SetPanel(MForm::OperatorPanel, OperatorName);
    ApplyRights();
}

void Clerk::Open(const QString& form) {
    sys::Guarded([&] { frame_->ShowChild(form); });
    Settle();
    Check();
}

void Clerk::Close() {
    Press(u"Menu_Return"_s);
}

template <class Control>
Control& Clerk::At(QWidget& root, const QString& name) const {
    if (auto* control = root.findChild<Control*>(name)) return *control;
    throw RuntimeError(u"没有控件 "_s + name);
}

void Clerk::Press(const QString& command) {
    auto& action = At<QAction>(*frame_->Front()->MenuBar(), command);
    if (!action.isEnabled()) throw RuntimeError(u"命令不可用："_s + command);
    action.trigger();
    Settle();
    Check();
}

void Clerk::Visit(const QString& control) {
    controls::MoveFocus(&At<QWidget>(control));
    Settle();
    Check();
}

void Clerk::Fill(const QString& control, const QString& text) {
    auto& widget = At<QWidget>(control);
    if (auto* box = dynamic_cast<controls::TextBox*>(&widget))
        box->SetText(text);
    else if (auto* combo = dynamic_cast<controls::ComboBox*>(&widget))
        combo->SetText(text);
    else
        throw RuntimeError(u"控件没有文字："_s + control);
}

void Clerk::FillBoxes(int first, const QStringList& texts) {
    for (const QString& text : texts) Fill(u"Txt(%1)"_s.arg(first++), text);
}

// ------------------------------------------------------------------------------------------------- masters

void Clerk::EnterMasters() {
    for (const QString& statement : OperatorStatements()) Db->Execute(statement);
    Db->CloseGroup();
    EnterStandard();
    for (const SmallTable& table : SmallTables()) EnterSmallTable(table);
    Open(u"A02"_s);
    for (const Zone& zone : Zones()) EnterZone(zone);
    Close();
    Open(u"A01"_s);
    for (const Channel& channel : Channels()) EnterChannel(channel);
    Close();
    Open(u"A011"_s);
    for (const CostZone& zone : CostZones()) EnterCostZone(zone);
    Close();
    Open(u"A03"_s);
    for (const Customer& customer : Customers()) EnterCustomer(customer);
    Close();
}

void Clerk::EnterStandard() {
    expected_ = {u"警告！计价标准不宜经常改变！真的继续吗？"_s, u"保存成功！"_s};
    controls::ModalForm::Driver() = [this](controls::ModalForm& form) {
        for (int box = 0; box < Standard().size(); ++box)
            At<controls::LineBox>(form, u"Txt(%1)"_s.arg(box)).SetText(Standard()[box]);
        At<controls::Button>(form, u"CmdOK"_s).click();
        At<controls::Button>(form, u"CmdCancel"_s).click();
    };
    sys::Guarded([&] { frame_->ShowModal(u"S01"_s); });
    Settle();
    Check();
    if (!expected_.isEmpty()) throw RuntimeError(u"报价标准没有保存"_s);
}

void Clerk::EnterSmallTable(const SmallTable& table) {
    Open(table.form);
    for (const Named& row : table.rows) {
        Press(u"Menu_Add"_s);
        FillBoxes(0, {row.name, row.note});
        Press(u"Menu_save"_s);
    }
    Close();
}

void Clerk::AddPlaces(const std::vector<Place>& places) {
    for (const Place& place : places) {
        FillBoxes(6, {place.name, place.english, QString()});
        At<controls::Button>(u"Cmd(0)"_s).click();
    }
}

void Clerk::EnterZone(const Zone& zone) {
    Press(u"Menu_Add"_s);
    FillBoxes(0, {zone.code, zone.name, zone.english, QString::number(zone.days), u"样例价格，虚构"_s});
    Fill(u"cmbFw"_s, zone.Domestic() ? u"国内"_s : u"国外"_s);
    AddPlaces(zone.places);
    FillBoxes(9, ListPrices(zone));
    Press(u"Menu_save"_s);
}

void Clerk::EnterChannel(const Channel& channel) {
    Press(u"Menu_Add"_s);
    FillBoxes(0, QStringList{channel.code, channel.name, channel.remark} + channel.weights);
    Visit(u"Txt(7)"_s);
    Fill(u"Txt(7)"_s, QString::number(channel.bounds.size()));
    Visit(u"Txt(1)"_s);  // leaving the count shows that many bounds
    FillBoxes(8, channel.bounds);
    Press(u"Menu_save"_s);
}

void Clerk::EnterCostZone(const CostZone& zone) {
    Press(u"Menu_Add"_s);
    auto& channels = At<controls::ComboBox>(u"CmbLB"_s);
    for (int i = 0; i < channels.ListCount(); ++i)
        if (channels.List(i).startsWith(zone.channel + u'.')) channels.SetListIndex(i);
    FillBoxes(0, {zone.code, zone.name});
    FillBoxes(3, {zone.english, QString::number(zone.days), u"样例成本，虚构"_s});
    std::vector<Place> places;
    for (const Zone& served : Zones())
        if (zone.serves.contains(served.code))
            places.insert(places.end(), served.places.begin(), served.places.end());
    AddPlaces(places);
    FillBoxes(9, CostPrices(zone));
    constexpr int segments = 10;
    for (int segment = 0; segment < segments; ++segment)
        At<controls::CheckBox>(u"Chk(%1)"_s.arg(13 + segment)).SetValue(zone.flagged >> segment & 1U);
    Press(u"Menu_save"_s);
}

void Clerk::EnterCustomer(const Customer& customer) {
    Press(u"Menu_Add"_s);
    FillBoxes(0, {customer.code, customer.name, customer.company, customer.english, customer.address,
                  customer.addressEnglish, u"555 0100"_s, u"555 0101"_s,
                  customer.code.left(5).toLower() + u"@example.com"_s});
    Fill(u"CmbYWY"_s, customer.salesperson);
    Fill(u"Txt(10)"_s, u"虚构客户，仅供演示"_s);
    Quote(u"A"_s, customer.domestic);
    Quote({}, customer.abroad);
    Press(u"Menu_save"_s);
}

/// The zones with that prefix that are not quoted yet, as the drop-down adds them.
void Clerk::Quote(const QString& prefix, const QString& coefficient) {
    Fill(u"TxtHPBM"_s, prefix);
    Fill(u"TxtSL"_s, coefficient);
    At<controls::Button>(u"CmdDownList"_s).click();
    At<controls::Button>(u"CmdDel"_s).click();
    Settle();
    Check();
}

// ------------------------------------------------------------------------------------------------ waybills

void Clerk::EnterWaybills() {
    QDate day;
    for (const Waybill& waybill : PlanWaybills()) {
        if (waybill.entered != day) {
            if (day.isValid()) {
                Close();
                EnterPayments(day);
            }
            day = waybill.entered;
            now_ = QDateTime(day, QTime(9, 0));
            LogIn(waybill.operatorCode);
            Open(u"B01"_s);
        }
        now_ = now_.addSecs(17 * 60);
        EnterWaybill(waybill);
    }
    Close();
    EnterPayments(day);
}

void Clerk::EnterWaybill(const Waybill& waybill) {
    Press(u"Menu_Add"_s);
    // Boxes that a new card keeps from the one before.
    for (const auto& box : {u"Txt(41)"_s, u"Txt(42)"_s, u"Cmb(40)"_s}) Fill(box, {});
    Fill(u"Cmb(31)"_s, waybill.customer);
    Visit(u"Cmb(6)"_s);  // leaving the customer fills the shipper's boxes
    Fill(u"Cmb(6)"_s, waybill.zone);
    Visit(u"Cmb(7)"_s);
    Fill(u"Cmb(7)"_s, waybill.place);
    Visit(u"Cmb(5)"_s);
    Fill(u"Cmb(5)"_s, waybill.channel);
    Visit(u"Cmb(40)"_s);  // leaving the channel offers its zones
    Fill(u"Cmb(40)"_s, waybill.channelZone);
    for (const auto& [control, text] : waybill.boxes) Fill(control, text);
    At<controls::DTPicker>(u"DTP"_s).SetValue(waybill.sent);
    Visit(u"Txt(26)"_s);
    Visit(u"Txt(28)"_s);
    Visit(u"Txt(34)"_s);
    if (waybill.release == Release::AtOnce || waybill.release == Release::Unmarked) TickRelease();
    if (waybill.release == Release::Unmarked) TickRelease();
    Press(u"Menu_save"_s);
    if (waybill.release != Release::ByEdit) return;
    Press(u"Menu_edit"_s);
    TickRelease();
    Press(u"Menu_save"_s);
}

// ------------------------------------------------------------------------------------------------ payments

void Clerk::EnterPayments(QDate day) {
    for (const PaymentDay& plan : PlanPayments()) {
        if (plan.day != day) continue;
        LogIn(u"001"_s);
        EnterPaid(u"Menu_sk"_s, plan.received);
        EnterPaid(u"Menu_FK"_s, plan.made);
    }
}

/// Into the cells of the list, key by key. Each row's key is made from the time of day.
void Clerk::EnterPaid(const QString& item, const std::vector<Payment>& payments) {
    frame_->MenuItem(item)->trigger();
    Settle();
    now_ = now_.addSecs(17 * 60);
    Press(u"Menu_Add"_s);
    for (const Payment& payment : payments) {
        if (&payment != &payments.front()) Type({});  // the next row begins
        for (const QString& cell : {QString(), QString(), payment.party, Part(payment), u"孙丽萍"_s}) {
            Type(cell);
            Check();
        }
        for (const QChar c : payment.remark) keyboard::Character(*keyboard::Target(), c);
        now_ = now_.addSecs(95);
    }
    Press(u"Menu_save"_s);
    Close();
}

/// Over what is in the cell, and Enter.
void Clerk::Type(const QString& text) {
    for (const QChar c : text) keyboard::Character(*keyboard::Target(), c);
    keyboard::Press(*keyboard::Target(), Qt::Key_Return);
    Settle();
}

QString Clerk::Part(const Payment& payment) {
    const double owed = text::Val(
        demo::Rows(*Db, u"select top 1 QM from TB1 where F3='"_s + payment.party + u"' order by SN desc"_s)
            .value(0));
    return QString::number(100 * static_cast<int>(owed * payment.percent / 100 / 100));
}

// ------------------------------------------------------------------------------------------------ invoices

void Clerk::EnterInvoices() {
    for (const QString& statement : InvoiceStatements()) Db->Execute(statement);
    Db->CloseGroup();
    LogIn(u"001"_s);
    Open(u"D2"_s);
    for (const InvoicePayment& payment : PlanInvoicePayments()) {
        now_ = QDateTime(payment.day, QTime(16, 0));
        controls::ModalForm::Driver() = [&](controls::ModalForm& form) {
            At<controls::ComboBox>(form, u"CmbKH"_s).SetText(payment.customer);
            At<controls::LineBox>(form, u"Txt(0)"_s).SetText(payment.note);
            At<controls::LineBox>(form, u"Txt(1)"_s).SetText(payment.amount);
            At<controls::Button>(form, u"Command1"_s).click();
        };
        Press(u"Menu_Add"_s);
    }
    Close();
}

void Clerk::TickRelease() {
    At<controls::CheckBox>(u"ChkChuHuo"_s).click();
}

}  // namespace

void MakeSampleCompany(const QString& folder) {
    if (!QDir().mkpath(folder)) throw RuntimeError(u"无法建立文件夹 "_s + folder);
    const QString file = folder + u'/' + schema::kDatabaseFile.toString();
    if (QFile::exists(file)) throw RuntimeError(u"文件夹“%1”中已有数据文件！"_s.arg(folder));
    const QTemporaryDir making(folder + u"/making-XXXXXX"_s);
    if (!making.isValid()) throw RuntimeError(u"无法写入文件夹 "_s + folder);
    schema::MakeDataFiles(making.path(), kCompany);
    {
        Clerk clerk(making.path());
        clerk.EnterMasters();
        clerk.EnterWaybills();
        clerk.EnterInvoices();
    }
    if (!QFile::rename(making.filePath(schema::kDatabaseFile.toString()), file))
        throw RuntimeError(u"无法写入 "_s + file);
}

}  // namespace sample
