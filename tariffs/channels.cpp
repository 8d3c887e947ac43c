#include "tariffs/channels.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/numeric.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "tariffs/brackets.h"

#include <QGridLayout>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using controls::Card;
using When = CommandRow::When;

namespace {

enum Box { Code, Name, Remark, DocumentFirst, DocumentStep, ParcelFirst, ParcelStep, SegmentCount };
constexpr int FirstBound = 8;
constexpr int LastBound = 17;
constexpr int MostSegments = LastBound - FirstBound + 1;
constexpr int FirstNumber = DocumentFirst;  // from here on the boxes hold the bracket columns

constexpr double Correction = 2;  // kg above the bound before
constexpr int WordsWidth = 66;    // before the first box of a sentence
constexpr int NumberWidth = 76;
constexpr int TopWidth = 96;
constexpr int BoundColumns = 2;

const QString OpenTop = u"Kg以上"_s;

QGridLayout* SentenceGrid(QWidget* holder) {
    auto* grid = new QGridLayout(holder);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(8);
    return grid;
}

}  // namespace

A01::A01()
    : RecordForm({.form = u"A01"_s,
                  .caption = u"出货渠道计价标准"_s,
                  .listTab = u"出货渠道列表"_s,
                  .cardTab = u"出货渠道计价标准"_s,
                  .tabStripDisabled = true}) {
    SetUsualCommands({
        {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Browsing, [this] { ExportGrid(*GD); }},
    });
    BuildCard();
}

void A01::Load() {
    FormMode = Browsing;
    LoadGrid(u"select F1,F2,F3 from M01 order by F1"_s);
}

QStringList A01::Headers() const {
    return {u"序号"_s, u"出货渠道"_s, u"备注"_s};
}

// ---------------------------------------------------------------- the card

void A01::MakeBoxes() {
    struct BoxRow {
        QString caption, name, text;
    };
    const BoxRow rows[] = {
        {u"渠道序号"_s, u"渠道序号"_s, {}},
        {u"渠道名称"_s, u"渠道名称"_s, {}},
        {u"备注信息"_s, u"备注信息"_s, {}},
        {u"Kg起计价，续"_s, u"文件资料起计重量"_s, u"0.5"_s},
        {u"Kg加价；"_s, u"文件资料续加重量"_s, u"0.5"_s},
        {u"Kg起计价，续"_s, u"小包裹起计重量"_s, u"0.5"_s},
        {u"Kg加价；"_s, u"小包裹续加重量"_s, u"0.5"_s},
        {u"重包裹分"_s, u"重包裹计费段数"_s, u"5"_s},
    };
    for (const BoxRow& row : rows) MakeNamedBox(row.caption, row.name, row.text);
    for (int segment = 1; segment <= MostSegments; ++segment)
        MakeNamedBox(OpenTop, u"重包裹第%1段起点"_s.arg(segment), u"0"_s);
    for (int box = FirstNumber; box <= LastBound; ++box) {
        controls::LineBox* line = &Line(box);
        line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        line->setFixedWidth(NumberWidth);
        controls::SetNumeric(*line);
        Lab[box]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
    Txt[SegmentCount]->Widget()->setToolTip(u"0-10之间的整数"_s);
}

/// The caption is behind the box and is no name of it.
void A01::MakeNamedBox(const QString& caption, const QString& name, const QString& text) {
    controls::TextBox& box = MakeBox(caption, NoLimit);
    box.SetText(text);
    box.Widget()->setAccessibleName(name);
}

void A01::BuildCard() {
    MakeBoxes();
    Card* card = MakeCard();
    card->Group(u"渠道"_s);
    card->Field(Card::Half::Left, 0, 0, 1, Lab[Code], Txt[Code]->Widget());
    card->Field(Card::Half::Left, 0, 1, 2, Lab[Name], Txt[Name]->Widget());
    card->Field(Card::Half::Right, 0, 0, 3, Lab[Remark], Txt[Remark]->Widget());
    card->Group(u"计价标准"_s, u"重包裹"_s);
    card->TallField(Card::Half::Left, 0, 3, 0, 3, nullptr, Sentences());
    card->TallField(Card::Half::Right, 0, 5, 0, 3, nullptr, Segments());
    card->Finish();
    WireCard();
    std::vector<QWidget*> tabOrder;
    for (auto* box : Txt) tabOrder.push_back(box->Widget());
    SetTabOrder(tabOrder);
}

/// Documents, small parcels, and into how many segments heavy parcels are cut.
QWidget* A01::Sentences() {
    auto* holder = new QWidget;
    auto* grid = SentenceGrid(holder);
    grid->setColumnMinimumWidth(0, WordsWidth);
    grid->setColumnStretch(5, 1);
    const QString words[] = {u"文件资料："_s, u"小包裹："_s, u"个计费段："_s};
    for (int i = 0; i < 3; ++i) {
        Lab2[i] = controls::MakeCaption(words[i], nullptr, holder);
        Lab2[i]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        Lab2[i]->setObjectName(u"Lab2(%1)"_s.arg(i));
    }
    for (int line = 0; line < 2; ++line) {
        const int box = DocumentFirst + 2 * line;
        grid->addWidget(Lab2[line], line, 0);
        grid->addWidget(Txt[box]->Widget(), line, 1);
        grid->addWidget(Lab[box], line, 2);
        grid->addWidget(Txt[box + 1]->Widget(), line, 3);
        grid->addWidget(Lab[box + 1], line, 4);
    }
    grid->addWidget(Lab[SegmentCount], 2, 0);
    grid->addWidget(Txt[SegmentCount]->Widget(), 2, 1);
    grid->addWidget(Lab2[2], 2, 2);
    return holder;
}

/// The bounds in two columns, each with the top of its segment behind it.
QWidget* A01::Segments() {
    auto* holder = new QWidget;
    auto* grid = SentenceGrid(holder);
    for (int column = 0; column < BoundColumns; ++column) {
        grid->setColumnMinimumWidth(2 * column, NumberWidth);
        grid->setColumnMinimumWidth(2 * column + 1, TopWidth);
    }
    grid->setColumnStretch(2 * BoundColumns, 1);
    for (int box = FirstBound; box <= LastBound; ++box) {
        const int nth = box - FirstBound;
        const int row = nth / BoundColumns;
        const int column = 2 * (nth % BoundColumns);
        grid->setRowMinimumHeight(row, controls::kBoxHeight);  // hidden bounds keep their place
        grid->addWidget(Txt[box]->Widget(), row, column);
        grid->addWidget(Lab[box], row, column + 1);
    }
    grid->setRowStretch(MostSegments / BoundColumns, 1);
    return holder;
}

void A01::WireCard() {
    for (int box = Code; box <= LastBound; ++box)
        Txt[box]->GotFocus = [this, box] {
            if (FormMode < Adding)
                TabS->SetFocus();
            else
                Line(box).selectAll();
        };
    Txt[SegmentCount]->LostFocus = [this] { LeaveCount(); };
    for (int box = FirstBound + 1; box <= LastBound; ++box)
        Txt[box]->LostFocus = [this, box] { LeaveBound(box); };
}

double A01::Number(int box) const {
    return text::Val(BoxText(box));
}

void A01::ShowBound(int box, bool shown) {
    Txt[box]->Widget()->setVisible(shown);
    Lab[box]->setVisible(shown);
}

void A01::CaptionTop(int box) {
    Lab[box - 1]->setText(u"Kg-"_s + text::GeneralText(Number(box) - 1) + u"Kg"_s);
}

void A01::RowToCard() {
    if (CurRow == 0) CurRow = 1;
    for (int i = Code; i <= Remark; ++i) Txt[i]->SetText(CurrentCell(i));
    const QString code = text::Trim(BoxText(Code));
    if (code.isEmpty()) return;
    auto row = Db->OpenRecordset(u"select "_s + tariffs::ChannelBracketColumns + u" FROM M01 WHERE F1="_s +
                                 Quoted(code));
    if (!row.Eof()) FillBounds(row);
    row.Close();
}

void A01::FillBounds(const dao::Recordset& row) {
    const auto take = [&](int box) {
        const double value = row.Fields(box - FirstNumber).Number();
        const QString shown = box < SegmentCount ? text::FormatFixed(value, 1) : text::GeneralText(value);
        Txt[box]->SetText(shown);
    };
    for (int box = FirstNumber; box <= FirstBound; ++box) take(box);
    if (Number(SegmentCount) == 0) {
        for (int box = FirstBound; box <= LastBound; ++box) ShowBound(box, false);
        return;
    }
    ShowBound(FirstBound, true);
    // Each bound is looked at by itself, so a hole among them hides one box between others.
    for (int box = FirstBound + 1; box <= LastBound; ++box) {
        take(box);
        const bool filled = Number(box) != 0;
        ShowBound(box, filled);
        if (filled)
            CaptionTop(box);
        else
            Lab[box - 1]->setText(OpenTop);
    }
}

void A01::OpenCard() {
    for (std::size_t i = Name; i < Txt.size(); ++i) {
        Txt[i]->SetLocked(false);
        if (FormMode == Adding) Txt[i]->SetText({});
    }
}

void A01::CloseCard() {
    for (auto* box : Txt) box->SetLocked(true);
}

void A01::LeaveCount() {
    if (FormMode < Adding) return;
    const double count = std::clamp(std::trunc(Number(SegmentCount)), 0.0, double(MostSegments));
    Txt[SegmentCount]->SetText(text::GeneralText(count));
    for (int box = FirstBound; box <= LastBound; ++box) ShowBound(box, box - FirstBound < count);
    if (count > 0) Txt[FirstBound]->SetFocus();
}

void A01::LeaveBound(int box) {
    if (FormMode < Adding) return;
    const double before = Number(box - 1);
    if (before >= Number(box)) Txt[box]->SetText(text::GeneralText(before + Correction));
    CaptionTop(box);
}

// ---------------------------------------------------------------- the commands

void A01::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetLocked(false);
    Txt[Code]->SetText({});
    Txt[Code]->SetFocus();
    for (int box = FirstBound; box <= LastBound; ++box) {
        Lab[box]->setText(OpenTop);
        ShowBound(box, false);
    }
}

void A01::Menu_edit() {
    FormMode = Editing;
    EnterEdit();
    Txt[Code]->SetLocked(IsUsed(text::Trim(CurrentCell(Code))));
    Txt[Code]->SetFocus();
}

/// The first question goes by a field that now holds a range of zones, so in practice the waybills decide.
bool A01::IsUsed(const QString& code) {
    if (!GetStr(u"select F3 FROM M02 WHERE F3="_s + Quoted(code)).isEmpty()) return true;
    return !GetStr(u"select F202 FROM B01 WHERE F202="_s + Quoted(code)).isEmpty();
}

void A01::Menu_del() {
    if (text::Trim(GD->TextMatrix(1, Code)).isEmpty()) return;
    const QString code = text::Trim(CurrentCell(Code));
    const bool used = IsUsed(code);
    const QString name = CurrentCell(Name);
    const DeleteAnswer answer =
        AskToDelete(name, used, u"真的要删除"_s + name + u"吗?"_s, sys::BoxAnswer::No);
    if (answer == DeleteAnswer::No) return;
    if (answer == DeleteAnswer::RecordAndUses) {
        // From a time when a zone belonged to a channel. They match nothing unless a channel's number is the
        // very name of a range, and then they take all its zones with their quotes. The cost zones stay.
        Db->Execute(u"delete from M031 where F1 in (select F1 from M02 where F3="_s + Quoted(code) + u")"_s);
        Db->Execute(u"delete from M021 where F0 in (select F1 from M02 where F3="_s + Quoted(code) + u")"_s);
        Db->Execute(u"delete from M02 where F3="_s + Quoted(code));
        Db->Execute(u"delete from B01 where F202="_s + Quoted(code));
    }
    Db->Execute(u"delete from M01 WHERE F1="_s + Quoted(code));
    if (answer == DeleteAnswer::RecordAndUses) DeleteStepsWithoutWaybill();
    RemoveCurrentRecord(CurRowLimit::GridRows);
}

bool A01::BoundsFilled() const {
    for (int box = FirstBound; box <= LastBound; ++box) {
        if (Txt[box]->Widget()->isHidden() || Number(box) != 0) continue;
        sys::Inform(u"请输入第"_s + QString::number(box - FirstBound + 1) + u"个计费段数值!"_s, MsgTitle);
        return false;
    }
    return true;
}

bool A01::CheckCode() {
    const QString code = text::Trim(BoxText(Code));
    const QString old = OldKey(Code);
    const QString found = NameOf(u"M01"_s, code);
    return PrepareSave(
        {.key = code,
         .old = old,
         .found = found,
         .refusal = u"["_s + found + u"]已经使用了"_s + BoxText(Code) + u"这个序号，请重新设置序号!"_s,
         .deleteOld = [&] { Db->Execute(u"delete from M01 where F1="_s + Quoted(old)); }});
}

QString A01::InsertStatement() const {
    QStringList values;
    for (int i = Code; i <= LastBound; ++i) {
        const QString typed = BoxText(i);
        values += i < FirstNumber ? Quoted(text::Trim(typed)) : text::GeneralText(text::Val(typed));
    }
    return u"insert into M01 (F1,F2,F3,"_s + tariffs::ChannelBracketColumns + u") VALUES ("_s +
           values.join(u',') + u')';
}

void A01::Menu_query() {
    const SearchTable table{.base = u"Select M01.* from M01 "_s,
                            .fields = {{Code, u"M01.F1"_s}, {Name, u"M01.F2"_s}}};
    RunQuery(*this, *GD, table, [this](const QString& sql) { LoadGrid(sql); });
}

void A01::Menu_save() {
    // From within the box, by the command's key or through the menu: more segments than there are bounds must
    // not be stored.
    if (controls::FocusTracker::Get().Current() == Txt[SegmentCount]->Widget()) LeaveCount();
    if (!RequireFilled(2) || !BoundsFilled() || !CheckCode()) return;
    Db->Execute(InsertStatement());
    QStringList cells;
    for (int i = Code; i <= Remark; ++i) cells += text::Trim(BoxText(i));
    AppendLine(cells);
    FinishSave();
}
