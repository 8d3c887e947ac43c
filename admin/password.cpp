#include "admin/password.h"

#include "app/data_access.h"
#include "app/dressing.h"
#include "app/operator_statement.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/system/seams.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> Captions{u"旧密码", u"新密码", u"新密码确认"};

}  // namespace

S2::S2(QWidget* over) : ModalForm(u"S2"_s, u"操作员修改密码"_s, over) {
    auto* rows = new dressing::CaptionRows;
    for (size_t i = 0; i < Txt.size(); ++i) {
        auto* box = new controls::LineBox(this);
        box->setObjectName(u"Txt(%1)"_s.arg(i));
        box->SetMasked(true);
        box->KeyPressed = controls::EnterMovesOn;
        rows->Add(Captions[i].toString(), u"Lab(%1)"_s.arg(i), box);
        Txt[i] = box;
    }
    auto* ok = new controls::Button(u"确 定"_s, this);
    auto* cancel = new controls::Button(u"取 消"_s, this);
    ok->setObjectName(u"Cmd(0)"_s);
    cancel->setObjectName(u"Cmd(1)"_s);
    ok->setDefault(true);
    ok->Click = [this] { Change(); };
    cancel->Click = [this] { Unload(); };

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(8);
    column->addLayout(rows);
    column->addLayout(dressing::ButtonRow({ok, cancel}));
    setFixedWidth(372);
    Txt[Old]->setFocus(Qt::OtherFocusReason);
}

void S2::Change() {
    if (Txt[New]->Text() != Txt[Again]->Text()) {
        sys::Inform(u"新密码两次输入不同，请重新输入!"_s, MsgTitle);
        return Txt[Old]->SetFocus();
    }
    if (GetStr(u"select F3 from TE1 WHERE F1="_s + Quoted(OperatorCode)) != Txt[Old]->Text())
        return sys::Inform(u"旧密码错误，你无权修改该用户密码!"_s, MsgTitle);
    OperatorStatement(u"update TE1 set F3="_s)
        .Secret(Txt[New]->Text())
        .Words(u" WHERE F1="_s)
        .Text(OperatorCode)
        .Execute(*Db);
    sys::Inform(u"密码修改成功!"_s, MsgTitle);
    Unload();
}
