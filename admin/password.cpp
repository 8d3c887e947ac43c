#include "admin/password.h"

#include "app/data_access.h"
#include "app/dressing.h"
#include "app/operator_statement.h"
#include "app/session.h"
#include "platform/system/seams.h"

using namespace Qt::StringLiterals;

S2::S2(QWidget* over) : ModalForm(u"S2"_s, u"操作员修改密码"_s, over) {
    dressing::FillPasswords(*this, {u"旧密码"_s, u"新密码"_s, u"新密码确认"_s}, Txt, [this] { Change(); });
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
