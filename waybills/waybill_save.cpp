// The save of a waybill: its tests in their order, the row, and the posting to the journal.
//
// The steps begin no transaction; the command's end commits them together. Editing deletes and re-inserts the
// waybill and its ledger rows; the balances of the former counterparty are not recomputed from the
// former place.
#include "accounts/journal.h"
#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "waybills/price_explanation.h"
#include "waybills/stored_steps.h"
#include "waybills/waybill_form.h"

using namespace Qt::StringLiterals;
using enum waybills::Box;
using waybills::BothSides;
using waybills::Box;
using waybills::Boxes;
using waybills::BoxRow;
using waybills::IsCodeOf;
using waybills::Kind;
using waybills::PaymentModes;
using waybills::ServiceTypes;

namespace {

/// "insert into B01 (...) VALUES (": a column for each box, and behind the delivery time the three that take
/// the total by the payment mode.
QString InsertHead() {
    QStringList columns;
    for (const BoxRow& row : Boxes()) {
        columns += row.field;
        if (row.box == DeliveryTime) columns += {u"DF"_s, u"YJ"_s, u"XJ"_s};
    }
    return u"insert into B01 ("_s + columns.join(u',') + u") VALUES ("_s;
}

/// What a test against the masters counts as no answer.
bool Absent(const QString& found) {
    return found.isEmpty() || found == u"NoFound";
}

}  // namespace

QString B01::TakeCode(Box box) {
    Txt[box]->SetText(CodePart(Combo(box).Text()));
    return BoxText(box);
}

bool B01::RequireCode(Box box) {
    if (text::Trim(Combo(box).Text()).isEmpty()) {
        Missing(box);
        return false;
    }
    TakeCode(box);
    return true;
}

void B01::Missing(Box box) const {
    sys::Inform(u"请输入"_s + Lab[box]->text() + u"!"_s, MsgTitle);
}

void B01::Wrong(Box box) const {
    sys::Inform(Lab[box]->text() + u"输入错误！"_s, MsgTitle);
}

bool B01::TakeCombos() {
    for (const Box box : {CustomerCode, Courier, ServiceType, PaymentMode, ServiceZoneCode, OriginName})
        if (!RequireCode(box)) return false;
    // Remembered before any other test, and kept even if the save then fails.
    Db->Execute(u"update TE1 set F67="_s + QString::number(Combo(OriginName).ListIndex()) + u" where F1="_s +
                Quoted(OperatorCode));
    if (!RequireCode(Destination)) return false;
    TakeCode(ChannelCode);
    TakeCode(ChannelZoneCode);
    Txt[IncidentReason]->SetText(Combo(IncidentReason).Text());
    return true;
}

bool B01::TestMasters() const {
    const struct {
        Box box;
        QString test;
    } masters[] = {
        {CustomerCode, u"select F2 from M03 where F1="_s},
        {ChannelCode, u"select F2 from M01 where F1="_s},
        {OriginName, u"select F1 from M05 where F1="_s},
        {ServiceZoneCode, u"select F2 from M02 where F1="_s},
        {Courier, u"select F1 from M04 where F1="_s},
    };
    for (const auto& [box, test] : masters) {
        if (box == ChannelCode && BoxText(box).isEmpty()) continue;  // a waybill may wait for its channel
        if (!Absent(GetStr(test + Quoted(text::Trim(BoxText(box)))))) continue;
        Wrong(box);
        return false;
    }
    if (!IsCodeOf(ServiceTypes, BoxText(ServiceType))) {
        Wrong(ServiceType);
        return false;
    }
    if (!IsCodeOf(PaymentModes, text::Trim(BoxText(PaymentMode)))) {
        Wrong(PaymentMode);
        return false;
    }
    return true;
}

bool B01::TestNumberAndTotal() const {
    for (const Box box : {Number, Destination}) {
        if (!text::Trim(BoxText(box)).isEmpty()) continue;
        Missing(box);
        return false;
    }
    if (text::Val(BoxText(TotalCharge)) != 0) return true;
    Missing(TotalCharge);
    return false;
}

QString B01::NumberRefusal(const QString& found) const {
    return u"["_s + found + u"]已经使用了"_s + BoxText(Number) + u"这个速递单号，请重新设置!"_s;
}

bool B01::CheckNumber() {
    const QString number = text::Trim(BoxText(Number));
    const QString old = text::Trim(OldKey());
    const QString found = GetStr(u"select F1 from B01 where F1="_s + Quoted(number));
    return PrepareSave({.key = number,
                        .old = old,
                        .found = Absent(found) ? QString() : found,
                        .refusal = NumberRefusal(found),
                        .deleteOld = [&] {
                            accounts::DeleteWaybillEntries(*Db, old);
                            Db->Execute(u"delete from B01 where F1="_s + Quoted(old));
                        }});
}

QString B01::InsertStatement() const {
    const QString mode = text::Trim(BoxText(PaymentMode));
    // The total's text as it is goes into the column of the payment mode.
    const QString total = text::Trim(BoxText(TotalCharge));
    const auto share = [&](QStringView column) { return mode == column ? total : u"0"_s; };
    QStringList values;
    for (const BoxRow& row : Boxes()) {
        const QString typed = BoxText(row.box);
        values += row.kind == Kind::Text ? Quoted(text::Trim(typed)) : text::GeneralText(text::Val(typed));
        if (row.box == DeliveryTime) values += {share(u"到付"), share(u"月结"), share(u"现金")};
    }
    static const QString head = InsertHead();
    return head + values.join(u',') + u')';
}

void B01::AppendSavedLine() {
    const QString channel = NameOf(u"M01"_s, BoxText(ChannelCode));
    Txt[ChannelCode]->SetText(BoxText(ChannelCode) + u'.' + channel);
    Txt[CustomerCode]->SetText(BoxText(CustomerCode) + u'.' + NameOf(u"M03"_s, BoxText(CustomerCode)));
    // Until the list is loaded again the new line shows the customer as code and name.
    AppendLine({BoxText(Number), BoxText(SendDate), BoxText(Destination), BoxText(ServiceType),
                BoxText(Pieces), BoxText(PaymentMode), channel, BoxText(CustomerCode), BoxText(Courier),
                BoxText(ReleaseMark), BoxText(Remark)});
}

void B01::Post() {
    // Without the blanks around it, as the waybill's own row holds it: an edit finds the rows again by that
    // text.
    const QString number = text::Trim(BoxText(Number));
    const auto nameOf = [this](Box box, const QString& master) {
        QString typed = Combo(box).Text();
        return CodeToName(typed, master);
    };
    accounts::LedgerEntry entry;
    entry.kind = accounts::LedgerKind::Receivable;
    entry.sequence =
        accounts::AllocateSequence(*Db, DTP->Value(), number, accounts::CounterReading::AlsoAfterFirstStep);
    entry.key = accounts::InfoFor(entry.kind).keyPrefix + number;
    entry.date = text::DateText(DTP->Value());
    entry.counterparty = nameOf(CustomerCode, u"M03"_s);
    entry.amount = text::Val(BoxText(TotalCharge));
    entry.handler = nameOf(Courier, u"M04"_s);
    entry.maker = OperatorName;
    accounts::PostEntry(*Db, entry);
    if (ChkChuHuo->Value() == 0) return;
    // The counter does not move for the payable: the number after the receivable's is free on the newest day.
    // On an older one it may lie behind rows of the next.
    entry.kind = accounts::LedgerKind::Payable;
    entry.sequence += accounts::PayableAfterReceivable;
    entry.key = accounts::InfoFor(entry.kind).keyPrefix + number;
    entry.counterparty = nameOf(ChannelCode, u"M01"_s);
    entry.amount = text::Val(BoxText(ShippingCost));
    accounts::PostEntry(*Db, entry);
}

waybills::BothSides B01::StepsToStore(const QString& old) const {
    // An amount that this edit did not compute anew keeps the steps that it was computed by.
    const BothSides& runs = explanation_->Runs();
    BothSides steps = old.isEmpty() ? BothSides{} : waybills::ReadSteps(*Db, old);
    for (std::size_t side = 0; side < steps.size(); ++side)
        if (runs[side]) steps[side] = runs[side];
    return steps;
}

void B01::Menu_save() {
    explanation_->Close();
    const QString old = text::Trim(OldKey());
    for (const Box box : {Length, Width, Height})
        Txt[box]->SetText(text::GeneralText(text::Val(BoxText(box))));
    Txt[SendDate]->SetText(text::DateText(DTP->Value()));
    if (!TakeCombos() || !TestMasters() || !TestNumberAndTotal() || !CheckNumber()) return;
    Db->Execute(InsertStatement());
    AppendSavedLine();
    Post();
    const BothSides steps = StepsToStore(old);
    const QString number = text::Trim(BoxText(Number));
    if (!old.isEmpty() && old != number) waybills::DeleteSteps(*Db, old);
    waybills::StoreSteps(*Db, number, steps);
    FinishSave();
}
