#include "app/about.h"

#include "app/dressing.h"
#include "app/product.h"
#include "platform/controls/box.h"
#include "platform/system/seams.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

AboutUS::AboutUS(QWidget* over) : ModalForm(u"AboutUS"_s, u"关于本系统"_s, over) {
    auto* back = new controls::Button(u"返回系统"_s, this);
    auto* mail = new controls::Button(u"发送邮件"_s, this);
    auto* site = new controls::Button(u"访问网站"_s, this);
    back->setObjectName(u"Cmd"_s);
    mail->setObjectName(u"CmdMail"_s);
    site->setObjectName(u"CmdSite"_s);
    back->Click = [this] { Unload(); };
    mail->Click = [] { sys::seams().openAddress(product::kMail); };
    site->Click = [] { sys::seams().openAddress(product::kSite); };

    auto* notice = new QLabel(u"版权所有  "_s + product::kMaker);
    auto* body = new QVBoxLayout;
    body->setContentsMargins(24, 18, 24, 18);
    auto* purpose = new QLabel(u"计价、开单、帐款与报表，一套系统完成。"_s);
    body->setSpacing(10);
    body->addWidget(purpose);
    body->addLayout(dressing::ButtonRow({mail, site, back}));
    dressing::Stack(*this, *dressing::ProductHead(notice), body);
    setTabOrder(back, mail);
    setTabOrder(mail, site);
    back->setDefault(true);
    back->setFocus(Qt::OtherFocusReason);
    setFixedWidth(420);
}
