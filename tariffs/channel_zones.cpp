#include "tariffs/channel_zones.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using cost_zone::Box;
using cost_zone::Column;
using enum cost_zone::Box;
using enum cost_zone::Column;
using cost_zone::SegmentsCol;

namespace {

// Fields of a channel's row.
constexpr int FirstWeightField = 3;  // D0, D1, S0, S1
constexpr int FirstBoundField = 8;   // J0 to J9
/// "文件首 ", "小包裹首": stays when a channel is read.
constexpr int CaptionHead = 4;

const QString PriceFields = u"P101,P102,P201,P202,P300,P301,P302,P303,P304,P305,P306,P307,P308,P309"_s;
const QString TickFields = u"A30,A31,A32,A33,A34,A35,A36,A37,A38,A39"_s;
const QString ListStatement =
    u"select M01.F2 AS LB,M011.F1,M011.F2,M011.F6,M011.F8,M01.F1,M011.F4,M011.P101,M011.P102,M011.P201,"_s +
    u"M011.P202,M011.P300,M011.P301,M011.P302,M011.P303,M011.P304,M011.P305,M011.P306,M011.P307,M011.P308,"_s +
    u"M011.P309,M011.P3 from M011,M01 WHERE M011.F3=M01.F1 order by M011.F1"_s;

/// Until a channel's captions replace it.
QString SegmentNumber(int box) {
    return QString::number(box - LastPlainPrice);
}

/// Unlike CodePart: the text before a point is taken with its blanks.
QString ChannelCode(const QString& chosen) {
    const qsizetype point = chosen.indexOf(u'.');
    return point < 0 ? text::Trim(chosen) : chosen.left(point);
}

QString ChannelQuestion(const QString& fields, const QString& code) {
    return u"select "_s + fields + u" from M01 where F1="_s + Quoted(code);
}

}  // namespace

A011::A011() : ZoneForm(CostZoneSettings()), TxtD(new controls::LineBox(Frm)) {
    TxtD->setObjectName(u"TxtD"_s);
    TxtD->hide();
    MakeTicks();
    choice_->Click = [this] { ChooseChannel(); };
    choice_->LostFocus = [this] { ProposeCode(); };
    GD->SetColAlignment(DaysCol, Qt::AlignRight);
}

void A011::MakeTicks() {
    for (int box = FirstHeavy; box <= LastPrice; ++box) {
        auto* tick = ticks_[box - FirstHeavy] = new controls::CheckBox({}, Frm);
        tick->setObjectName(u"Chk(%1)"_s.arg(box));
        tick->setProperty("role", u"bare"_s);
        tick->LookLocked(true);
        WireBox(*tick);
        tick->Click = [this, tick] {
            if (FormMode < Adding) tick->SetValue(1 - tick->Value());  // only looked at
        };
        PutBeside(box, tick);
        CaptionPrice(box, SegmentNumber(box));
    }
}

void A011::LookLocked(bool locked) {
    ZoneForm::LookLocked(locked);
    for (auto* tick : ticks_) tick->LookLocked(locked);
}

controls::CheckBox& A011::Chk(int box) const {
    return *ticks_.at(static_cast<std::size_t>(box - FirstHeavy));
}

void A011::Load() {
    FormMode = Browsing;
    FillChannels();
    LoadGridOrReport(ListStatement);
}

void A011::FillChannels() {
    auto rows = Db->OpenRecordset(u"select * from M01 order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext())
        choice_->AddItem(text::Trim(rows.Fields(0).Text()) + u'.' + text::Trim(rows.Fields(1).Text()));
    rows.Close();
}

// ------------------------------------------------------------------------------------------ the prices

void A011::CaptionPrice(int box, const QString& caption) {
    Lab[box]->setText(caption);
    Txt[box]->Widget()->setAccessibleName(caption);
    if (box >= FirstHeavy) Chk(box).setAccessibleName(caption + u" 按首重价格+续重价格计算"_s);
}

void A011::ShowPrice(int box, bool shown) {
    Lab[box]->setVisible(shown);
    Txt[box]->Widget()->setVisible(shown);
    if (box >= FirstHeavy) Chk(box).setVisible(shown);
}

/// The event of the combo: an item was chosen. A text that was typed redraws nothing.
void A011::ChooseChannel() {
    if (FormMode < Adding) return;
    const QString code = ChannelCode(choice_->Text());
    const int segments = text::ToInteger16(GetVal(ChannelQuestion(u"JFD"_s, code)));
    const controls::CardAtRest rest(TheCard());
    if (segments > 0) BuildChannelCaptions(code);
    // From the parcels' continuation on, also where the channel has no weight for it.
    const int lastShown = LastPlainPrice + std::clamp(segments, 0, LastPrice - LastPlainPrice);
    for (int box = LastPlainPrice; box <= LastPrice; ++box) ShowPrice(box, box <= lastShown);
    TxtD->SetText(text::GeneralText(segments));
}

void A011::ProposeCode() {
    if (FormMode >= Adding && BoxText(Code).isEmpty()) Txt[Code]->SetText(choice_->Text().left(1));
}

void A011::BuildChannelCaptions(const QString& code) {
    auto row = Db->OpenRecordset(ChannelQuestion(u"*"_s, code));
    if (row.Eof()) return row.Close();
    for (int box = FirstPrice; box <= LastPlainPrice; ++box) {
        const double weight = row.Fields(box - FirstPrice + FirstWeightField).Number();
        ShowPrice(box, weight > 0);
        if (weight > 0) {
            const QString head = Lab[box]->text().left(CaptionHead);
            CaptionPrice(box, head + text::FormatFixed(weight, 1) + u"Kg"_s);
        }
    }
    // Each bound ends the segment before it; a hole among them opens that one's top.
    double bound = row.Fields(FirstBoundField).Number();
    for (int box = FirstHeavy; box <= LastPrice; ++box) {
        QString caption = text::GeneralText(bound) + u"Kg"_s;
        bound = box < LastPrice ? row.Fields(box - FirstHeavy + FirstBoundField + 1).Number() : 0;
        caption += bound == 0 ? u"以上"_s : u'-' + text::GeneralText(bound - 1) + u"Kg"_s;
        CaptionPrice(box, caption);
    }
    row.Close();
}

void A011::ReadTicks() {
    auto row =
        Db->OpenRecordset(u"select "_s + TickFields + u" FROM M011 WHERE F1="_s + Quoted(TrimmedBox(Code)));
    if (!row.Eof())
        for (int box = FirstHeavy; box <= LastPrice; ++box)
            Chk(box).SetValue(row.Fields(box - FirstHeavy).Number() != 0 ? 1 : 0);
    row.Close();
}

void A011::RowToCard() {
    {
        const controls::CardAtRest rest(TheCard());
        if (CurRow == 0) CurRow = 1;
        const struct {
            Box box;
            Column col;
        } texts[] = {{Code, CodeCol},
                     {Name, NameCol},
                     {EnglishName, EnglishCol},
                     {Days, DaysCol},
                     {Remark, RemarkCol}};
        for (const auto& [box, col] : texts) Txt[box]->SetText(CurrentCell(col));
        choice_->SetText(CurrentCell(ChannelCol) + u'.' + CurrentCell(ChannelNameCol));
        Txt[ChannelName]->SetText(choice_->Text());
        TxtD->SetText(CurrentCell(SegmentsCol));
        const double segments = text::Val(TxtD->Text());
        for (int box = FirstPrice; box <= LastPrice; ++box) {
            Txt[box]->SetText(CurrentCell(box - FirstPrice + FirstPriceCol));
            if (box >= FirstHeavy) ShowPrice(box, box - FirstHeavy < segments);
        }
        BuildChannelCaptions(CurrentCell(ChannelCol));
        ReadTicks();
    }
    LoadAreas();
}

// ------------------------------------------------------------------------------------------ the commands

void A011::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetLocked(false);
    Txt[Code]->SetText({});
    if (choice_->ListCount() > 0) choice_->SetListIndex(0);
    choice_->SetFocus();
    ClearAreas();
    // The first channel's captions give way to plain numbers until the operator chooses one; the ticks stay
    // as the zone before had them.
    for (int box = FirstHeavy; box <= LastPrice; ++box) {
        Txt[box]->SetText({});
        CaptionPrice(box, SegmentNumber(box));
    }
}

bool A011::RequireChoice() {
    const QString caption = Lab[ChannelName]->text();
    if (text::Trim(choice_->Text()).isEmpty()) {
        sys::Inform(caption + LangText(u"不能为空!"_s), MsgTitle);
        return false;
    }
    const QString code = ChannelCode(choice_->Text());
    channelName_ = GetStr(ChannelQuestion(u"F2"_s, code));
    if (channelName_.isEmpty()) {
        sys::Inform(caption + u"编号输入错误!"_s, MsgTitle);
        return false;
    }
    Txt[ChannelName]->SetText(code + u'.' + channelName_);
    return true;
}

QString A011::InsertStatement() const {
    QStringList values{
        Quoted(TrimmedBox(Code)),        Quoted(TrimmedBox(Name)), Quoted(ChannelCode(choice_->Text())),
        Quoted(TrimmedBox(EnglishName)), NumberBox(Days),          Quoted(TrimmedBox(Remark))};
    for (int box = FirstPrice; box <= LastPrice; ++box) values += NumberBox(box);
    values += text::GeneralText(text::Val(TxtD->Text()));
    for (const controls::CheckBox* tick : ticks_) values += tick->Value() == 1 ? u"True"_s : u"False"_s;
    return u"insert into M011 (F1,F2,F3,F4,F6,F8,"_s + PriceFields + u",P3,"_s + TickFields +
           u") VALUES ("_s + values.join(u',') + u")"_s;
}

QStringList A011::SavedLine() const {
    QStringList cells{channelName_,        BoxText(Code),   BoxText(Name),
                      NumberBox(Days),     BoxText(Remark), ChannelCode(choice_->Text()),
                      BoxText(EnglishName)};
    for (int box = FirstPrice; box <= LastPrice; ++box) cells += BoxText(box);
    cells += TxtD->Text();
    return cells;
}
