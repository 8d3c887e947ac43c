#include "admin/operators.h"

#include "app/data_access.h"
#include "app/operator_statement.h"
#include "app/session.h"
#include "platform/controls/card.h"
#include "platform/text/numbers.h"

#include <cmath>

using namespace Qt::StringLiterals;
using controls::Card;
using When = CommandRow::When;

namespace {

enum Box { Code, Name, Password };

constexpr QStringView Captions[] = {u"操作员帐号", u"操作员姓名", u"操作员密码"};
constexpr int Limits[] = {4, 49, 49};  // characters

/// The check boxes, in their order, and the fields that they show.
constexpr struct {
    QStringView field;
    QStringView caption;
} RightRows[] = {
    {u"F60", u"基本资料"},         {u"F61", u"速递单据"},       {u"F62", u"统计报表"},
    {u"F63", u"系统管理"},         {u"F64", u"修改已出货运单"}, {u"F65", u"速递单中的出重、成本价、客户价"},
    {u"F66", u"修改删除帐款记录"}, {u"F67", u"帐款往来"},
};

/// "F60,F61,...,F67".
QString RightFields() {
    QStringList fields;
    for (const auto& row : RightRows) fields += row.field.toString();
    return fields.join(u',');
}

void TypeInUpperCase(controls::KeyPress& key) {
    for (QChar& c : key.text) c = c.toUpper();
    controls::EnterMovesOn(key);
}

void DeleteOperator(const QString& head, const QString& code) {
    OperatorStatement(head).Text(code).Execute(*Db);
}

}  // namespace

S02::S02()
    : RecordForm({.form = u"S02"_s,
                  .caption = u"系统操作员管理"_s,
                  .listTab = u"操作员列表"_s,
                  .cardTab = u"操作员资料"_s,
                  .tabStripDisabled = false}) {
    SetCommands({
        {u"Menu_Add"_s, u"&A.增加"_s, When::Browsing, [this] { Menu_Add(); }},
        {u"Menu_edit"_s, u"&E.修改"_s, When::Browsing, [this] { Menu_edit(); }},
        {u"Menu_del"_s, u"&D.删除"_s, When::Browsing, [this] { Menu_del(); }},
        {u"Menu_save"_s, u"&S.保存"_s, When::Editing, [this] { Menu_save(); }},
        {u"Menu_cancel"_s, u"&C.取消"_s, When::Editing, [this] { Menu_cancel(); }},
        {u"Menu_Return"_s, u"&R.返回"_s, When::Always, [this] { Menu_Return(); }},
    });
    BuildCard();
}

void S02::BuildCard() {
    Card* card = MakeCard();
    card->Group(u"操作员"_s, u"权限"_s);
    std::vector<QWidget*> tabOrder;
    for (int box = Code; box <= Password; ++box) {
        controls::TextBox& made = MakeBox(Captions[box].toString(), Limits[box]);
        made.KeyPressed = TypeInUpperCase;
        card->Field(Card::Half::Left, box, 0, 3, Lab[box], made.Widget());
        tabOrder.push_back(made.Widget());
    }
    MakeRights();
    for (int i = 0; i < Rights; ++i) {
        card->Field(Card::Half::Right, i, 0, 3, nullptr, Chk[i]);
        tabOrder.push_back(Chk[i]);
    }
    card->Finish();
    SetTabOrder(tabOrder);
}

void S02::MakeRights() {
    for (int i = 0; i < Rights; ++i) {
        Chk[i] = new controls::CheckBox(RightRows[i].caption.toString(), Frm);
        Chk[i]->setObjectName(u"Chk(%1)"_s.arg(i));
        Chk[i]->KeyPressed = controls::EnterMovesOn;
    }
    EnableRights(false);
}

void S02::EnableRights(bool enabled) {
    for (controls::CheckBox* right : Chk) right->setEnabled(enabled);
}

void S02::Load() {
    FormMode = Browsing;
    LoadGrid(u"select * from TE1 order by F1"_s);
}

QStringList S02::Headers() const {
    return {u"帐号"_s, u"姓名"_s, u"密码"_s};
}

// ---------------------------------------------------------------- the card

void S02::RowToCard() {
    if (CurRow == 0) CurRow = 1;
    for (int box = Code; box <= Password; ++box) Txt[box]->SetText(CurrentCell(box));
    ShowRights();
    if (FormMode == Browsing) EnableRights(false);
}

/// Of the stored row: the list does not have them. Null is no right; any other number than 0 is one.
void S02::ShowRights() {
    auto row = Db->OpenRecordset(u"select "_s + RightFields() + u" FROM TE1 WHERE F1="_s +
                                 Quoted(text::Trim(BoxText(Code))));
    for (int i = 0; i < Rights; ++i)
        Chk[i]->SetValue(!row.Eof() && row.Fields(RightRows[i].field).Number() != 0 ? 1 : 0);
    row.Close();
}

/// The ticks stay: a new operator begins with those of the operator seen before.
void S02::OpenCard() {
    for (controls::TextBox* box : Txt) {
        box->SetLocked(false);
        if (FormMode == Adding) box->SetText({});
    }
    EnableRights(true);
}

void S02::CloseCard() {
    for (controls::TextBox* box : Txt) box->SetLocked(true);
    EnableRights(false);
}

// ---------------------------------------------------------------- the commands

void S02::Menu_Add() {
    FormMode = Adding;
    EnterEdit();
    Txt[Code]->SetFocus();
}

/// Any code can be changed, the administrator's too: there is no in-use test here.
void S02::Menu_edit() {
    FormMode = Editing;
    EnterEdit();
    Txt[Code]->SetFocus();
}

void S02::Menu_del() {
    const QString code = text::Trim(CurrentCell(Code));
    if (code == u"001") return sys::Inform(u"001是管理员帐号，不能删除!"_s, MsgTitle);
    if (RecCount == 0) return;
    if (!sys::AskToDestroy(u"真的要删除"_s + CurrentCell(Name) + u"的资料吗?"_s, MsgTitle)) return;
    DeleteOperator(u"delete from TE1 WHERE F1="_s, code);
    RemoveCurrentRecord(CurRowLimit::Records);
}

/// A stored operator without a name does not count as a duplicate: it is the name that is asked for.
bool S02::CheckCode() {
    const QString code = text::Trim(BoxText(Code));
    const QString old = OldKey();
    return PrepareSave({.key = code,
                        .old = old,
                        .found = GetStr(u"select F2 from TE1 where F1="_s + Quoted(code)),
                        .refusal = u"["_s + BoxText(Code) + u"]已经使用了这个编号，请重新设置编号!"_s,
                        .deleteOld = [&] { DeleteOperator(u"delete from TE1 where F1="_s, old); }});
}

void S02::Insert() const {
    QString ticks;
    for (const controls::CheckBox* right : Chk) ticks += u',' + QString::number(right->Value());
    OperatorStatement(u"insert into TE1 (F1,F2,F3,"_s + RightFields() + u") VALUES ("_s)
        .Text(text::Trim(BoxText(Code)))
        .Words(u","_s)
        .Text(text::Trim(BoxText(Name)))
        .Words(u","_s)
        .Secret(text::Trim(BoxText(Password)))
        .Words(ticks + u')')
        .Execute(*Db);
}

void S02::Menu_save() {
    if (!RequireFilled(Password) || !CheckCode()) return;
    Insert();
    AppendLine({text::Trim(BoxText(Code)), text::Trim(BoxText(Name)), text::Trim(BoxText(Password))});
    FinishSave();
}
