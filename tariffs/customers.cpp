#include "tariffs/customers.h"

#include "app/data_access.h"
#include "app/session.h"
#include "platform/controls/wait.h"
#include "platform/text/numbers.h"
#include "records/export.h"
#include "reports/printing.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using controls::Card;
using When = CommandRow::When;

namespace {

/// The boxes, which are also the columns of the list and the first fields of the table.
enum Box {
    Code,
    ShortName,
    ChineseName,
    EnglishName,
    ChineseAddress,
    EnglishAddress,
    Telephone,
    Fax,
    Mail,
    Salesperson,
    Remark,
    Coefficient,
    Paid,
    Owed,
    BoxCount
};

constexpr int CodeLimit = 12;
constexpr int Memos = 4;

struct BoxRow {
    QString header;   ///< in the list
    QString caption;  ///< on the card
};

const std::vector<BoxRow>& Boxes() {
    static const std::vector<BoxRow> boxes = {
        {u"客户编码"_s, u"客户编码"_s}, {u"客户简称"_s, u"客户简称"_s}, {u"中文全称"_s, u"中文名称"_s},
        {u"英文全称"_s, u"英文名称"_s}, {u"中文地址"_s, u"中文地址"_s}, {u"英文地址"_s, u"英文地址"_s},
        {u"电话"_s, u"电    话"_s},     {u"传真"_s, u"传    真"_s},     {u"信箱"_s, u"邮    箱"_s},
        {u"业务员"_s, u"业务员"_s},     {u"备注"_s, u"备    注"_s},     {u"加价系数"_s, u"客户加价系数"_s},
        {u"累计付款"_s, u"累计付款"_s}, {u"累计欠款"_s, u"累计欠款"_s},
    };
    return boxes;
}

/// The place of a text box or combo on the card: half, row, first pair, pairs.
struct Place {
    Box box;
    Card::Half half;
    int row, pair, span;
};

constexpr auto L = Card::Half::Left;
constexpr auto R = Card::Half::Right;
constexpr Place Places[] = {
    {Code, L, 0, 0, 1},           {ShortName, L, 0, 1, 2},
    {ChineseName, L, 1, 0, 3},    {EnglishName, L, 2, 0, 3},
    {ChineseAddress, L, 3, 0, 3}, {EnglishAddress, L, 4, 0, 3},
    {Telephone, L, 5, 0, 1},      {Fax, L, 5, 1, 2},
    {Mail, R, 0, 0, 1},           {Salesperson, R, 0, 1, 2},
    {Remark, R, 1, 0, 3},
};

/// Entering these sends the key of the input method; leaving only the English name sends it once more.
constexpr bool SwitchesInput(int box) {
    return box == ShortName || box == EnglishName || box == EnglishAddress;
}

}  // namespace

A03::A03()
    : RecordForm({.form = u"A03"_s,
                  .caption = u"客户资料与报价"_s,
                  .listTab = u"客户列表"_s,
                  .cardTab = u"客户资料"_s,
                  .tabStripDisabled = true}) {
    SetUsualCommands({
        {u"Menu_ToExcel"_s, u"&T.导出数据"_s, When::Browsing, [this] { ExportGrid(*GD); }},
        {.name = u"Menu_print"_s,
         .caption = u"&P.打印"_s,
         .when = When::Browsing,
         // Both have the same key, which selects the one after the other.
         .items = {{u"Menu_print1"_s, u"&1.打印国际报价表"_s, When::Browsing,
                    [this] { PrintQuotes(InternationalSheet); }},
                   {u"Menu_print2"_s, u"&1.打印国内报价表"_s, When::Browsing,
                    [this] { PrintQuotes(DomesticSheet); }}}},
    });
    BuildCard();
    GD->SetCols(BoxCount);
    for (const Box number : {Coefficient, Paid, Owed}) GD->SetColAlignment(number, Qt::AlignRight);
}

// ---------------------------------------------------------------- the card

void A03::BuildCard() {
    for (const BoxRow& row : Boxes()) MakeBox(row.caption, Txt.empty() ? CodeLimit : NoLimit);
    // The captions' numbers leave the remark out until the end: the coefficient's is Lab(10).
    Lab[Coefficient]->setObjectName(u"Lab(10)"_s);
    Lab[Remark]->setObjectName(u"Lab(11)"_s);
    Line(Coefficient).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    for (const Box hidden : {Paid, Owed}) {
        Txt[hidden]->Widget()->hide();
        Lab[hidden]->hide();
    }
    for (int i = 0; i < Memos; ++i) TxtMEMO.push_back(MakeMemo(i));
    CmbYWY = new controls::ComboBox(Frm);
    CmbYWY->setObjectName(u"CmbYWY"_s);
    WireBox(*CmbYWY);

    auto* card = new Card;
    card->setObjectName(u"FrmTop"_s);
    auto* column = new QVBoxLayout(Frm);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    auto* scroll = new controls::CardScroll(card);
    column->addWidget(scroll, 1);
    PlaceFields(*card);
    FrmBtm = new QuotePanel(Frm, {.coefficient = Txt[Coefficient],
                                  .coefficientCaption = Lab[Coefficient],
                                  .lastCustomerRow = [this] { return GD->Rows() - 1; },
                                  .unfolded =
                                      [this, column, scroll](bool open) {
                                          column->setStretchFactor(scroll, open ? 0 : 1);
                                          column->setStretchFactor(FrmBtm, open ? 1 : 0);
                                      }});
    column->addWidget(FrmBtm);
    WireCard();
    SetTabOrder(TabOrder());
    CloseCard();
}

controls::LineBox* A03::MakeMemo(int index) {
    auto* memo = new controls::LineBox(Frm);
    memo->setObjectName(u"TxtMEMO("_s + QString::number(index) + u')');
    memo->setAccessibleName(u"备注"_s + QString::number(index + 2));
    WireBox(*memo);
    return memo;
}

void A03::PlaceFields(Card& card) {
    card.Group(u"客户"_s, u"联系"_s);
    for (const Place& place : Places)
        card.Field(place.half, place.row, place.pair, place.span, Lab[place.box], Txt[place.box]->Widget());
    for (int i = 0; i < Memos; ++i) card.Field(R, i + 2, 0, 3, nullptr, TxtMEMO[i]);
    card.Over(Txt[Salesperson]->Widget(), CmbYWY);
    card.Finish();
}

void A03::WireCard() {
    for (int box = Code; box < BoxCount; ++box) Txt[box]->GotFocus = [this, box] { EnterBox(box); };
    Txt[EnglishName]->LostFocus = [this] { LeaveEnglishName(); };
    const auto enter = [this] {
        FrmBtm->CloseDownList();
        if (FormMode < Adding) TabS->SetFocus();
    };
    for (auto* memo : TxtMEMO) memo->GotFocus = enter;
    CmbYWY->GotFocus = enter;
}

std::vector<QWidget*> A03::TabOrder() const {
    std::vector<QWidget*> tabOrder;
    for (const Place& place : Places) {
        tabOrder.push_back(Txt[place.box]->Widget());
        if (place.box == Salesperson) tabOrder.push_back(CmbYWY);
    }
    for (auto* memo : TxtMEMO) tabOrder.push_back(memo);
    for (QWidget* stop : FrmBtm->TabOrder()) tabOrder.push_back(stop);
    return tabOrder;
}

void A03::OpenCard() {
    for (int box = Code; box < BoxCount; ++box) {
        auto& text = *Txt[box];
        text.SetLocked(false);
        text.Widget()->setFocusPolicy(Qt::StrongFocus);
        // A new customer begins with the remarks of the one seen before, these and the four lines below.
        if (FormMode == Adding && box != Remark) text.SetText({});
    }
    for (auto* memo : TxtMEMO) {
        memo->SetLocked(false);
        memo->setFocusPolicy(Qt::StrongFocus);
    }
    CmbYWY->SetText(BoxText(Salesperson));
    CmbYWY->show();
    FrmBtm->OpenEntry();
}

void A03::CloseCard() {
    // While browsing Tab goes straight to the quotes; the boxes would only send it back.
    for (auto* text : Txt) {
        text->SetLocked(true);
        text->Widget()->setFocusPolicy(Qt::ClickFocus);
    }
    for (auto* memo : TxtMEMO) {
        memo->SetLocked(true);
        memo->setFocusPolicy(Qt::ClickFocus);
    }
    CmbYWY->hide();
    FrmBtm->CloseEntry();
}

void A03::RowToCard() {
    const controls::WaitPointer wait;
    if (CurRow == 0) CurRow = 1;
    for (int box = Code; box < BoxCount; ++box) Txt[box]->SetText(CurrentCell(box));
    auto memos = Db->OpenRecordset(u"select F91,F92,F93,F94 from M03 where F1="_s + Quoted(BoxText(Code)));
    if (!memos.Eof())
        for (int i = 0; i < Memos; ++i) TxtMEMO[i]->SetText(memos.Fields(i).Text());
    memos.Close();
    FrmBtm->LoadQuotes(BoxText(Code));
}

void A03::EnterBox(int box) {
    FrmBtm->CloseDownList();
    if (FormMode < Adding) {
        TabS->SetFocus();
        return;
    }
    if (box == ChineseName && text::Trim(BoxText(ChineseName)).isEmpty())
        Txt[ChineseName]->SetText(BoxText(ShortName));
    Line(box).selectAll();
    if (!SwitchesInput(box)) return;
    sys::seams().switchInputMethod();
    if (box == EnglishName) inputSwitched_ = true;
}

void A03::LeaveEnglishName() {
    if (std::exchange(inputSwitched_, false)) sys::seams().switchInputMethod();
}

// ---------------------------------------------------------------- the list

void A03::Load() {
    FormMode = Browsing;
    LoadGridOrReport(u"select M03.* FROM M03 ORDER BY M03.F1"_s);
    FillSalespersons();
}

void A03::FillSalespersons() {
    auto rows = Db->OpenRecordset(u"select * from M030 "_s);
    if (rows.Eof()) CmbYWY->AddItem(u"请先建立业务员档案"_s);
    for (; !rows.Eof(); rows.MoveNext()) CmbYWY->AddItem(text::Trim(rows.Fields(0).Text()));
    rows.Close();
}

QStringList A03::Headers() const {
    QStringList headers;
    for (const BoxRow& row : Boxes()) headers += row.header;
    return headers;
}

bool A03::NoCustomer() const {
    return text::Trim(GD->TextMatrix(1, Code)).isEmpty();
}

QString A03::StatusText() const {
    if (GD->Rows() == 2 && NoCustomer()) return u"无客户资料"_s;
    return u"客户资料列表：共 "_s + QString::number(RecCount) + u" 条记录 当前为第 "_s +
           QString::number(CurRow) + u" 条"_s;
}

// ---------------------------------------------------------------- the commands

bool A03::IsUsed(const QString& code) {
    return !GetStr(u"select F603 FROM B01 WHERE F603="_s + Quoted(code)).isEmpty();
}

void A03::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetFocus();
    FrmBtm->BuildQuoteGrid();
    Txt[Coefficient]->SetText(u"1"_s);
}

void A03::Menu_edit() {
    if (NoCustomer()) {
        sys::Inform(u"没有客户资料可修改!"_s, MsgTitle);
        return;
    }
    FormMode = Editing;
    EnterEdit();
    Txt[Code]->SetLocked(IsUsed(text::Trim(CurrentCell(Code))));
    Txt[Code]->SetFocus();
}

void A03::Menu_del() {
    if (NoCustomer()) {
        sys::Inform(u"无客户资料可删除!"_s, MsgTitle);
        return;
    }
    const QString code = text::Trim(CurrentCell(Code));
    const QString name = CurrentCell(ShortName);
    const DeleteAnswer answer =
        AskToDelete(name, IsUsed(code), u"真的要删除客户["_s + name + u"]的资料吗?"_s, sys::BoxAnswer::No);
    if (answer == DeleteAnswer::No) return;
    // The waybills go with the customer; the journal keeps its entries.
    if (answer == DeleteAnswer::RecordAndUses) Db->Execute(u"delete from B01 where F603="_s + Quoted(code));
    Db->Execute(u"delete from M03 WHERE F1="_s + Quoted(code));
    Db->Execute(u"delete from M031 WHERE F0="_s + Quoted(code));
    if (answer == DeleteAnswer::RecordAndUses) DeleteStepsWithoutWaybill();
    RemoveCurrentRecord(CurRowLimit::GridRows);
}

void A03::Menu_query() {
    const QString names[] = {u"F1"_s, u"F2"_s, u"F301"_s, u"F302"_s, u"F401"_s, u"F402"_s,
                             u"F5"_s, u"F6"_s, u"F7"_s,   u"F8"_s,   u"F9"_s};
    SearchTable table{.base = u"select M03.* FROM M03 "_s};
    for (int col = Code; col <= Remark; ++col) table.fields.push_back({col, u"M03."_s + names[col]});
    RunQuery(*this, *GD, table, [this](const QString& sql) { LoadGridOrReport(sql); });
}

bool A03::CheckCode() {
    const QString code = text::Trim(BoxText(Code));
    const QString old = OldKey(Code);
    const QString found = NameOf(u"M03"_s, code);
    return PrepareSave(
        {.key = code,
         .old = old,
         .found = found,
         .refusal = FormMode == Adding  // kept on purpose: the box shows [ twice
                        ? u"["_s + found + u"]已经使用了["_s + BoxText(Code) + u"[这个编码，请重新设置编码!"_s
                        : u"已经存在["_s + BoxText(Code) + u"]这个编号，请重新设置编号!"_s,
         .deleteOld = [&] {
             Db->Execute(u"delete from M031 where F0="_s + Quoted(old));
             Db->Execute(u"delete from M03 where F1="_s + Quoted(old));
         }});
}

QString A03::InsertStatement() const {
    QStringList values;
    for (int box = Code; box <= Remark; ++box) values += Quoted(text::Trim(BoxText(box)));
    values += u"1"_s;  // the coefficient is never stored
    for (const auto* memo : TxtMEMO) values += Quoted(text::Trim(memo->Text()));
    return u"insert into M03 (F1,F2,F301,F302,F401,F402,F5,F6,F7,F8,F9,P888,F91,F92,F93,F94) VALUES ("_s +
           values.join(u',') + u')';
}

void A03::AppendSavedLine() {
    QStringList cells;
    for (const auto* box : Txt) cells += box->Text();
    AppendLine(cells);
    CurRow = GD->Rows() - 1;
    ShowRow();
}

void A03::Menu_save() {
    FrmBtm->FinishCell();
    FrmBtm->Fold();
    Txt[Salesperson]->SetText(CmbYWY->Text());
    constexpr int Required = 2;
    if (!RequireFilled(Required) || !CheckCode()) return;
    Db->Execute(InsertStatement());
    // Before the line is shown: choosing it is an event of its own, which would commit the customer alone.
    FrmBtm->SaveQuotes(text::Trim(BoxText(Code)));
    AppendSavedLine();
    LeaveEdit();
    RowToCard();
}

void A03::PrintQuotes(const QuoteSheet& sheet) {
    if (NoCustomer()) {
        sys::Inform(u"无数据可打印!"_s, MsgTitle);
        return;
    }
    if (TabS->SelectedItem() == ListTab) TabS->SelectItem(CardTab);  // reads the customer's quotes
    const controls::WaitPointer wait;
    if (!LayoutIsThere(sheet.layout, u"丢失!"_s)) return;
    FillQuoteSheet(sheet, FrmBtm->Quotes());
    QStringList remarks{BoxText(Remark)};
    for (const auto* memo : TxtMEMO) remarks += memo->Text();
    RunReport(sheet.layout, QuoteSheetFormulas(BoxText(ShortName), FrmBtm->Quotes(), remarks));
}
