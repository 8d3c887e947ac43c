// The waybill's card: where its boxes are placed, how they are filled, what the operator may see.
#include "app/data_access.h"
#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/errors.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "waybills/customer_charge.h"
#include "waybills/release.h"
#include "waybills/shipping_cost.h"
#include "waybills/waybill_form.h"

using namespace Qt::StringLiterals;
using enum waybills::Box;
using controls::Card;
using waybills::Box;
using waybills::Boxes;
using waybills::BoxesByPosition;
using waybills::BoxRow;
using waybills::ChargeInputOf;
using waybills::ChargeTotal;
using waybills::CodedWord;
using waybills::ComputeCustomerCharge;
using waybills::Computed;
using waybills::ComputeShippingCost;
using waybills::CostInputOf;
using waybills::EmptySteps;
using waybills::IsReleased;
using waybills::Kind;
using waybills::NotShipped;
using waybills::PaymentModes;
using waybills::Priced;
using waybills::ServiceTypes;
using waybills::Side;
using waybills::Steps;

namespace {

constexpr int NumberLimit = 25;  // characters of the two numbers
constexpr int BoxLimit = 49;     // and of every other box

/// Boxes that a combo covers in add and edit state, in the order of the masters.
constexpr Box ComboBoxes[] = {OriginName, IncidentReason, ServiceZoneCode, CustomerCode,    ChannelCode,
                              Courier,    ServiceType,    PaymentMode,     ChannelZoneCode, Destination};

/// The place of a text box or combo: row of its group, first pair of columns, how many pairs.
struct Place {
    Box box;
    Card::Half half;
    int row, pair, span;
};

struct Group {
    QString left;
    QString right;
    std::vector<Place> places;  ///< in the order of Tab
};

const std::vector<Group>& Groups() {
    constexpr auto L = Card::Half::Left;
    constexpr auto R = Card::Half::Right;
    static const std::vector<Group> groups = {
        {u"单据"_s,
         u""_s,
         {{Number, L, 0, 0, 1}, {SendDate, L, 0, 1, 2}, {Forwarding, R, 0, 0, 1}, {Remark, R, 0, 1, 2}}},
        {u"路线"_s,
         u""_s,
         {{OriginName, L, 0, 0, 1},
          {ServiceZoneCode, L, 0, 1, 2},
          {Destination, L, 1, 0, 3},
          {ChannelCode, R, 0, 0, 3},
          {ChannelZoneCode, R, 1, 0, 3}}},
        {u"发件"_s,
         u"收件"_s,
         {{ShipperCompany, L, 0, 0, 3},
          {ShipperCompanyEnglish, L, 1, 0, 3},
          {ShipperAddress, L, 2, 0, 3},
          {ShipperAddressEnglish, L, 3, 0, 3},
          {ConsigneeCompany, R, 0, 0, 1},
          {Telephone, R, 0, 1, 2},
          {ConsigneeCompanyEnglish, R, 1, 0, 3},
          {ConsigneeAddress, R, 2, 0, 3},
          {ConsigneeAddressEnglish, R, 3, 0, 3}}},
        {u"货品"_s,
         u"重量尺寸"_s,
         {{ServiceType, L, 0, 0, 1},
          {Goods, L, 0, 1, 2},
          {DeclaredValue, L, 1, 0, 1},
          {Pieces, L, 1, 1, 1},
          {Volume, L, 1, 2, 1},
          {ReceivedWeight, R, 0, 0, 1},
          {FirstWeighing, R, 0, 1, 1},
          {ShippedWeight, R, 0, 2, 1},
          {Length, R, 1, 0, 1},
          {Width, R, 1, 1, 1},
          {Height, R, 1, 2, 1}}},
        {u"客户费用"_s,
         u"渠道费用"_s,
         {{PaymentMode, L, 0, 0, 1},
          {BasicCharge, L, 0, 1, 1},
          {AdditionalCharge, L, 0, 2, 1},
          {OtherFees, L, 1, 0, 1},
          {FuelRate, L, 1, 1, 1},
          {TotalCharge, L, 1, 2, 1},
          {ShippingCost, R, 0, 0, 1},
          {ChannelAdditionalFees, R, 0, 1, 1},
          {ChannelOtherFees, R, 0, 2, 1},
          {ChannelFuelRate, R, 1, 0, 1}}},
        {u"人员"_s,
         u""_s,
         {{Maker, L, 0, 0, 1}, {Courier, L, 0, 1, 2}, {CustomerCode, R, 0, 0, 1}, {ReleaseMark, R, 0, 1, 1}}},
        {u"事故签收"_s,
         u""_s,
         {{Incident, L, 0, 0, 3},
          {IncidentExplanation, L, 1, 0, 3},
          {IncidentReason, R, 0, 0, 1},
          {IncidentOutcome, R, 0, 1, 2},
          {SignedBy, R, 1, 0, 1},
          {DeliveryTime, R, 1, 1, 2}}},
    };
    return groups;
}

/// The word as the card shows it, or nothing.
template <class Words>
QString Shown(const Words& words, const QString& code) {
    for (const CodedWord& word : words)
        if (code == word.code) return word.shown;
    return {};
}

}  // namespace

void B01::BuildCard() {
    Card* card = MakeCard();
    for (const BoxRow& row : Boxes()) {
        const bool number = row.box == Number || row.box == Forwarding;
        MakeBox(row.caption, number ? NumberLimit : BoxLimit);
        controls::LineBox* line = &Line(row.box);
        if (row.kind == Kind::Number) line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        if (row.box == TotalCharge) line->setProperty("kind", u"total"_s);
    }
    for (const Box box : ComboBoxes) MakeCombo(box);
    DTP = new controls::DTPicker(Frm);
    DTP->setObjectName(u"DTP"_s);
    DTP->setAccessibleName(Lab[SendDate]->text());
    WireBox(*DTP);
    ChkChuHuo = new controls::CheckBox(u"已出货"_s, Frm);
    ChkChuHuo->setObjectName(u"ChkChuHuo"_s);
    PlaceFields(*card);
    WireCard();
    CloseCard();
}

void B01::MakeCombo(Box box) {
    auto* combo = new controls::ComboBox(Frm);
    combo->setObjectName(u"Cmb("_s + QString::number(box) + u')');
    combo->setAccessibleName(Lab[box]->text());
    WireBox(*combo);
    Cmb[box] = combo;
}

void B01::PlaceFields(Card& card) {
    std::vector<QWidget*> tabOrder;
    for (const Group& group : Groups()) {
        card.Group(group.left, group.right);
        for (const Place& place : group.places) {
            QWidget* box = Txt[place.box]->Widget();
            card.Field(place.half, place.row, place.pair, place.span, Lab[place.box], box);
            tabOrder.push_back(box);
            const auto combo = Cmb.find(place.box);
            if (combo != Cmb.end()) {
                card.Over(box, combo->second);
                tabOrder.push_back(combo->second);
            }
            if (place.box == SendDate) {
                card.Over(box, DTP);
                tabOrder.push_back(DTP);
            }
            if (place.box == ReleaseMark) {
                card.Field(Card::Half::Right, place.row, 2, 1, nullptr, ChkChuHuo);
                tabOrder.push_back(ChkChuHuo);
            }
        }
    }
    card.Finish();
    SetTabOrder(tabOrder);
}

void B01::WireCard() {
    for (int i = ShipperCompany; i <= Telephone; ++i) {
        Txt[i]->GotFocus = [this] {
            if (FormMode < Adding)
                TabS->SetFocus();
            else
                sys::seams().switchInputMethod();
        };
    }
    Txt[Number]->LostFocus = [this] { LeaveNumber(); };
    Combo(ChannelCode).LostFocus = [this] { LeaveChannel(); };
    Combo(ServiceZoneCode).LostFocus = [this] { LeaveServiceZone(); };
    Combo(CustomerCode).GotFocus = [this] { customerAtEntry_ = text::Trim(Combo(CustomerCode).Text()); };
    Combo(CustomerCode).LostFocus = [this] { LeaveCustomer(); };
    Txt[BasicCharge]->GotFocus = [this] { EnterBasicCharge(); };
    Txt[TotalCharge]->GotFocus = [this] { EnterTotal(); };
    Txt[ShippingCost]->GotFocus = [this] { EnterCost(); };
    Txt[ReleaseMark]->Change = [this] { MirrorRelease(); };
    WireExplanation();
    ChkChuHuo->KeyPressed = controls::EnterMovesOn;
    ChkChuHuo->Click = [this] { ClickRelease(); };
}

void B01::ShowCombo(Box box, bool shown) {
    Combo(box).setVisible(shown);
    Txt[box]->Widget()->setVisible(!shown);
}

void B01::OpenCard() {
    CloseExplanation();
    runs_ = {};
    const controls::CardAtRest rest(*Txt[Number]->Widget()->parentWidget());
    // The number is unlocked by the commands themselves; maker and release mark are never typed.
    for (int i = SendDate; i < BoxCount; ++i)
        if (i != Maker && i != ReleaseMark) Txt[i]->SetLocked(false);
    for (const Box box : ComboBoxes) ShowCombo(box, true);
    if (!CanSeeFigures) {
        ShowCombo(ChannelCode, false);
        ShowCombo(ChannelZoneCode, false);
        for (const BoxRow& row : Boxes())
            if (row.figure) Txt[row.box]->SetEnabled(false);
    }
    DTP->show();
    Txt[SendDate]->Widget()->hide();
    ChkChuHuo->LookLocked(false);
}

void B01::CloseCard() {
    CloseExplanation();
    ShowNumberRefusal({});
    runs_ = {};
    const controls::CardAtRest rest(*Txt[Number]->Widget()->parentWidget());
    for (auto* box : Txt)
        if (!box->Locked()) box->SetLocked(true);
    for (const Box box : ComboBoxes) ShowCombo(box, false);
    DTP->hide();
    Txt[SendDate]->Widget()->show();
    ChkChuHuo->LookLocked(true);
}

void B01::MaskFigures() {
    for (const BoxRow& row : Boxes())
        if (row.figure) Txt[row.box]->SetMasked(true);
    ShowCombo(ChannelCode, false);
    ShowCombo(ChannelZoneCode, false);
}

void B01::FillCombos() {
    FillCombo(OriginName, u"select F1 from M05 order by F1"_s, false);
    FillCombo(IncidentReason, u"select F1 from M06 order by F1"_s, false);
    FillCombo(ServiceZoneCode, u"select F1,F2 from M02 order by F1"_s, true);
    FillCombo(CustomerCode, u"select F1,F2 from M03 order by F1"_s, true);
    FillCombo(ChannelCode, u"select F1,F2 from M01 order by F1"_s, true);
    FillCombo(Courier, u"select F1,F2 from M04 order by F1"_s, false);
    for (const CodedWord& word : ServiceTypes) Combo(ServiceType).AddItem(word.shown);
    for (const CodedWord& word : PaymentModes) Combo(PaymentMode).AddItem(word.shown);
}

void B01::FillCombo(Box box, const QString& sql, bool withName) {
    auto rows = Db->OpenRecordset(sql);
    for (; !rows.Eof(); rows.MoveNext()) {
        QString item = text::Trim(rows.Fields(0).Text());
        if (withName) item += u'.' + text::Trim(rows.Fields(1).Text());
        Combo(box).AddItem(item);
    }
    rows.Close();
}

void B01::EmptyBoxes(int first, int last) {
    for (int i = first; i <= last; ++i) Txt[i]->SetText({});
}

void B01::CombosTakeBoxes() {
    for (const Box box : ComboBoxes) Combo(box).SetText(BoxText(box));
}

void B01::RowToCard() {
    CloseExplanation();
    if (CurRow == 0) CurRow = 1;
    auto row = Db->OpenRecordset(u"select * from B01 where F1="_s + Quoted(text::Trim(CurrentCell(0))));
    if (row.Eof()) {
        // Kept on purpose: the other fees show those of the waybill seen before.
        EmptyBoxes(Number, DeliveryTime);
        EmptyBoxes(Length, Height);
        row.Close();
        return;
    }
    for (int i = 0; i < BoxesByPosition; ++i) Txt[i]->SetText(row.Fields(i).Text());
    for (int i = BoxesByPosition; i < BoxCount; ++i) Txt[i]->SetText(row.Fields(Boxes()[i].field).Text());
    row.Close();
    DressBoxes();
}

void B01::DressBoxes() {
    const struct {
        Box box;
        QString master;
    } coded[] = {{CustomerCode, u"M03"_s},
                 {ChannelCode, u"M01"_s},
                 {ServiceZoneCode, u"M02"_s},
                 {ChannelZoneCode, u"M011"_s},
                 {Courier, u"M04"_s}};
    for (const auto& [box, master] : coded) {
        // A code whose row is gone shows as code and point; an empty one as the point alone.
        const QString code = BoxText(box);
        Txt[box]->SetText(code + u'.' + NameOf(master, code));
    }
    const QString service = Shown(ServiceTypes, BoxText(ServiceType));
    Txt[ServiceType]->SetText(service.isEmpty() ? ServiceTypes[1].shown : service);
    const QString mode = Shown(PaymentModes, BoxText(PaymentMode));
    if (!mode.isEmpty()) Txt[PaymentMode]->SetText(mode);
}

void B01::LeaveNumber() {
    if (FormMode < Adding) return;
    const QString number = text::Trim(BoxText(Number));
    QString found;
    try {
        // An edit may keep its number.
        if (number != text::Trim(OldKey())) found = waybills::StoredNumber(*Db, number);
    } catch (const DatabaseError& error) {
        if (error.GroupLost()) throw;
    }
    ShowNumberRefusal(found.isEmpty() ? QString() : NumberRefusal(found));
}

void B01::ShowNumberRefusal(const QString& refusal) {
    auto& box = Line(Number);
    const QString before = box.toolTip();
    if (before == refusal) return;
    if (before.isEmpty()) panelBeforeRefusal_ = TheFrame().Panel(MForm::PositionPanel);
    controls::Mark(&box, "state", refusal.isEmpty() ? QString() : u"error"_s);
    box.setToolTip(refusal);
    box.setAccessibleDescription(refusal);
    TheFrame().SetPanel(MForm::PositionPanel, refusal.isEmpty() ? panelBeforeRefusal_ : refusal);
}

void B01::LeaveChannel() {
    if (FormMode < Adding || Combo(ChannelCode).Text().isEmpty()) return;
    auto& zones = Combo(ChannelZoneCode);
    zones.Clear();
    FillCombo(ChannelZoneCode,
              u"select F1,F2 FROM M011 WHERE F3="_s + Quoted(CodePart(Combo(ChannelCode).Text())) +
                  u" order by F1"_s,
              true);
    if (zones.ListCount() > 0) zones.SetListIndex(0);
}

void B01::LeaveServiceZone() {
    if (FormMode < Adding || Combo(ServiceZoneCode).Text().isEmpty()) return;
    auto& places = Combo(Destination);
    const QString typed = places.Text();
    places.Clear();
    FillCombo(Destination,
              u"select F1,F2 FROM M021 WHERE F0="_s + Quoted(CodePart(Combo(ServiceZoneCode).Text())), false);
    places.SetText(typed);
}

void B01::LeaveCustomer() {
    const QString customer = text::Trim(Combo(CustomerCode).Text());
    // A customer left as he was keeps the operator's corrections of the shipper's boxes.
    if (FormMode < Adding || customer.isEmpty() || customer == customerAtEntry_) return;
    auto row = Db->OpenRecordset(u"select F301,F302,F401,F402,F1,F2 FROM M03 WHERE F1="_s +
                                 Quoted(CodePart(customer)));
    if (!row.Eof()) {
        for (int i = 0; i < 4; ++i) Txt[ShipperCompany + i]->SetText(text::Trim(row.Fields(i).Text()));
        Combo(CustomerCode).SetText(row.Fields(4).Text() + u'.' + row.Fields(5).Text());
    }
    row.Close();
}

void B01::MirrorRelease() {
    ChkChuHuo->SetValue(IsReleased(BoxText(ReleaseMark)) ? 1 : 0);
}

void B01::ClickRelease() {
    if (FormMode < Adding)
        MirrorRelease();
    else
        Txt[ReleaseMark]->SetText(ChkChuHuo->Value() == 1 ? OperatorName : NotShipped);
}

void B01::Compute(Side side, Box box, const std::function<Computed(Steps&)>& computation) {
    if (FormMode < Adding) {
        TabS->SetFocus();
        return;
    }
    auto& target = *Txt[box];
    target.SetLocked(true);
    const controls::WaitPointer waiting;
    Priced run = EmptySteps(side, ShownText());
    const Computed result = computation(run.steps);
    if (result.fuelFactorDefaulted) Txt[ChannelFuelRate]->SetText(u"1"_s);
    switch (result.kind) {
        case Computed::Kind::Amount:
            runs_[static_cast<std::size_t>(side)] = std::move(run);
            target.SetText(result.amount);
            break;
        case Computed::Kind::Refused:
            sys::MsgBox(result.box);
            break;
        case Computed::Kind::StandardMissing:
            sys::MsgBox(result.box);
            TheFrame().ShowModal(u"S01"_s);  // nothing is computed after it
            break;
        case Computed::Kind::Unchanged:
            break;
    }
    target.SetLocked(false);
}

void B01::EnterBasicCharge() {
    Compute(Side::Charge, BasicCharge,
            [this](Steps& steps) { return ComputeCustomerCharge(*Db, ChargeInputOf(ShownText()), &steps); });
}

void B01::EnterCost() {
    Compute(Side::Cost, ShippingCost,
            [this](Steps& steps) { return ComputeShippingCost(*Db, CostInputOf(ShownText()), &steps); });
}

void B01::EnterTotal() {
    if (FormMode < Adding) {
        TabS->SetFocus();
        return;
    }
    Txt[TotalCharge]->SetText(
        ChargeTotal(BoxText(AdditionalCharge), BoxText(BasicCharge), BoxText(FuelRate), BoxText(OtherFees)));
}
