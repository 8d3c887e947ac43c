#include "history/new_password.h"

#include "app/dressing.h"
#include "app/session.h"
#include "history/put_back.h"
#include "platform/controls/keys.h"
#include "platform/system/seams.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NewPassword::NewPassword(QWidget* over) : ModalForm(u"NewPassword"_s, u"操作员新密码"_s, over) {
    const QString captions[] = {u"新密码"_s, u"新密码确认"_s};
    auto* rows = new dressing::CaptionRows;
    for (std::size_t i = 0; i < Txt.size(); ++i) {
        Txt[i] = new controls::LineBox(this);
        Txt[i]->setObjectName(u"Txt(%1)"_s.arg(i));
        Txt[i]->SetMasked(true);
        Txt[i]->KeyPressed = controls::EnterMovesOn;
        rows->Add(captions[i], u"Lab(%1)"_s.arg(i), Txt[i]);
    }
    auto* ok = new controls::Button(u"确 定"_s, this);
    auto* cancel = new controls::Button(u"取 消"_s, this);
    ok->setObjectName(u"Cmd(0)"_s);
    cancel->setObjectName(u"Cmd(1)"_s);
    ok->setDefault(true);
    ok->Click = [this] { Take(); };
    cancel->Click = [this] { Unload(); };
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(8);
    column->addLayout(rows);
    column->addLayout(dressing::ButtonRow({ok, cancel}));
    setFixedWidth(372);
    SetClosedByEsc(true);
    Txt[0]->setFocus(Qt::OtherFocusReason);
}

void NewPassword::Take() {
    if (Txt[0]->Text() != Txt[1]->Text()) {
        sys::Inform(u"新密码两次输入不同，请重新输入!"_s, MsgTitle);
        return Txt[0]->SetFocus();
    }
    if (const QString why = history::PasswordRefusal(Txt[0]->Text()); !why.isEmpty()) {
        sys::Inform(why, MsgTitle);
        return Txt[0]->SetFocus();
    }
    Entered = Txt[0]->Text();
    Unload();
}
