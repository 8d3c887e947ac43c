#include "history/new_password.h"

#include "app/dressing.h"
#include "app/session.h"
#include "history/put_back.h"
#include "platform/system/seams.h"

using namespace Qt::StringLiterals;

NewPassword::NewPassword(QWidget* over) : ModalForm(u"NewPassword"_s, u"操作员新密码"_s, over) {
    dressing::FillPasswords(*this, {u"新密码"_s, u"新密码确认"_s}, Txt, [this] { Take(); });
    SetClosedByEsc(true);
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
