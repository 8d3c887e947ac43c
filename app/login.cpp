#include "app/login.h"

#include "app/data_access.h"
#include "app/dressing.h"
#include "app/main_window.h"
#include "app/rights.h"
#include "app/session.h"
#include "platform/controls/keys.h"
#include "platform/system/seams.h"
#include "platform/text/numbers.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBoxWidth = 264;
constexpr int kOutOfSight = -4000;
const QString kShownAtFirst = u"001.管理员"_s;

}  // namespace

Login::Login(QWidget* over)
    : ModalForm(u"Login"_s, u"用户登录"_s, over),
      cmbhu_(new controls::ComboBox(this)),
      code_(new controls::LineBox(this)),
      password_(new controls::LineBox(this)),
      ok_(new controls::Button(u"确  定"_s, this)),
      quit_(new controls::Button(u"退 出"_s, this)),
      company_(new QLabel(this)) {
    SetCloseBox(false);
    cmbhu_->setObjectName(u"cmbhu"_s);
    code_->setObjectName(u"Txt(0)"_s);
    password_->setObjectName(u"Txt(1)"_s);
    ok_->setObjectName(u"Cmd(0)"_s);
    quit_->setObjectName(u"Cmd(1)"_s);
    code_->SetMasked(true);
    password_->SetMasked(true);
    Build();

    cmbhu_->LostFocus = [this] { TakeCode(); };
    cmbhu_->KeyPressed = controls::EnterMovesOn;
    code_->KeyPressed = [this](controls::KeyPress& key) { KeyInBox(key); };
    password_->KeyPressed = [this](controls::KeyPress& key) { KeyInBox(key); };
    ok_->Click = [this] { TryLogin(); };
    quit_->Click = [] { sys::EndProgram(0); };
}

void Login::Build() {
    ok_->setDefault(true);  // its colour only: Enter moves on
    auto* rows = new dressing::CaptionRows;
    rows->Add(u"用户："_s, u"Label1(0)"_s, cmbhu_);
    rows->Add(u"密码："_s, u"Label1(1)"_s, password_);
    auto* form = new QVBoxLayout;
    form->setContentsMargins(24, 18, 24, 18);
    form->setSpacing(8);
    form->addLayout(rows);
    form->addLayout(dressing::ButtonRow({ok_, quit_}));
    dressing::Stack(*this, *dressing::ProductHead(company_), form);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    cmbhu_->setMinimumWidth(kBoxWidth);

    code_->setAccessibleName(u"操作员帐号"_s);
    code_->setGeometry(kOutOfSight, 0, 100, 24);
    const QList<QWidget*> order{ok_, quit_, cmbhu_, password_, code_};
    for (int i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
    ok_->setFocus(Qt::OtherFocusReason);
}

void Login::Load() {
    FillOperators();
    cmbhu_->SetText(kShownAtFirst);
    code_->SetText(QString());
    password_->SetText(QString());
    company_->setText(GetStrQuiet(u"select F1 from CompanyInfo"_s));
    company_->setVisible(!company_->text().isEmpty());
}

void Login::FillOperators() {
    cmbhu_->Clear();
    auto rows = Db->OpenRecordset(u"select * from TE1 order by F1"_s);
    for (; !rows.Eof(); rows.MoveNext())
        cmbhu_->AddItem(text::Trim(rows.Fields(u"F1").Text()) + u'.' + text::Trim(rows.Fields(u"F2").Text()));
    rows.Close();
}

void Login::TakeCode() {
    code_->SetText(CodePart(cmbhu_->Text()));
}

void Login::KeyInBox(controls::KeyPress& key) {
    if (key.key == Qt::Key_S && key.modifiers == Qt::ControlModifier) {
        key.taken = true;
        code_->SetText(u"001"_s);
        return TryLogin();
    }
    controls::EnterMovesOn(key);
}

void Login::TryLogin() {
    if (code_->Text().isEmpty()) {
        sys::Inform(LangText(u"请输入用户名!"_s), MsgTitle);
        return code_->SetFocus();
    }
    const QString code = text::Trim(code_->Text());
    // The code has to be a row's own: with an apostrophe in it the statement could make up a row.
    if (GetStr(u"select F1 from TE1 where F1="_s + Quoted(code)).compare(code, Qt::CaseInsensitive) != 0 ||
        code.isEmpty()) {
        sys::Inform(LangText(u"无效的用户名!"_s), MsgTitle);
        return code_->SetFocus();
    }
    if (GetStr(u"select F3 from TE1 where F1="_s + Quoted(code)) != password_->Text()) {
        sys::Inform(LangText(u"密码输入错误!"_s), MsgTitle);
        password_->SetFocus();
        return password_->SetText(QString());
    }
    Enter(code);
}

void Login::Enter(const QString& code) {
    OperatorCode = code;
    MForm& frame = TheFrame();
    frame.SetPanel(MForm::OperatorPanel, GetStr(u"select F2 from TE1 where F1="_s + Quoted(OperatorCode)));
    OperatorName = frame.Panel(MForm::OperatorPanel);
    ApplyRights();
    Unload();
}
