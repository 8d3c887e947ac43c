#include "tests/app/frame_run.h"

#include "app/main_menu.h"
#include "app/rights.h"
#include "platform/controls/box.h"
#include "platform/controls/keys.h"

#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tests {

LogForm::LogForm(const QString& name, QStringList& log, bool withBar) : ChildForm(name, name), log_(log) {
    auto* box = new controls::LineBox(this);
    box->setObjectName(name + u".Txt"_s);
    (new QVBoxLayout(this))->addWidget(box);
    if (!withBar) return;
    MenuBar()->setObjectName(name + u".bar"_s);
    controls::AddCommand(MenuBar(), u"Menu_Add"_s, u"&A.增加"_s,
                         [this] { log_ += objectName() + u" add"_s; });
    controls::AddCommand(MenuBar(), u"Menu_Return"_s, u"&R.返回"_s, [this] { Unload(); });
}

void LogForm::Load() {
    log_ += u"load %1%2"_s.arg(objectName(), LB == 0 ? QString() : u" %1"_s.arg(LB));
    if (whenLoading) whenLoading();
}

void LogForm::Activated() {
    log_ += u"front %1 %2"_s.arg(objectName(), windowTitle());
}

FrameRun::FrameRun(bool forms, bool withBars) {
    company.EnterSession();
    MsgTitle = u"提示"_s;
    LangFlag = 1;
    EditInProgress = false;
    if (!forms) return;
    for (const MenuRow& row : MenuRows()) {
        const QString target = row.target.toString();
        if (row.opens == Opens::Child)
            registry.children[target] = [=, this] {
                return std::make_unique<LogForm>(target, log, withBars);
            };
        if (row.opens == Opens::Modal)
            registry.modals[target] = [=, this](QWidget*) { log += u"modal "_s + target; };
        if (row.opens == Opens::Command)
            registry.commands[target] = [=, this] { log += u"command "_s + target; };
    }
}

FrameRun::~FrameRun() {
    EditInProgress = false;
    LangFlag = 0;
    frame_.reset();
    Settle();
}

void FrameRun::Open() {
    frame_ = std::make_unique<MForm>(registry);
    SetTheFrame(frame_.get());
    frame_->resize(1366, 768);
    frame_->Load();
    Show(*frame_);
}

void FrameRun::AddOperator(const QString& code, const QString& name, const QString& password,
                           const QStringList& rights) {
    QStringList fields{u"F1"_s, u"F2"_s, u"F3"_s};
    QStringList values{u"'%1'"_s.arg(code), u"'%1'"_s.arg(name), u"'%1'"_s.arg(password)};
    for (const QString& right : rights) {
        fields += right;
        values += u"1"_s;
    }
    company.Run(u"insert into TE1 (%1) VALUES (%2)"_s.arg(fields.join(u','), values.join(u',')));
}

void FrameRun::BecomeOperator(const QString& code) {
    OperatorCode = code;
    ApplyRights();
}

LogForm& FrameRun::Form(const QString& name) {
    return *qobject_cast<LogForm*>(frame_->Child(name));
}

void FrameRun::PressTool(const QString& key) {
    auto& tools = Find<QToolBar>(*frame_, u"TB"_s);
    auto* button = qobject_cast<QToolButton*>(tools.widgetForAction(&Find<QAction>(tools, key)));
    ASSERT_NE(button, nullptr);
    button->click();
    Settle();
}

QString FrameRun::BarInFront() {
    for (const QMenuBar* bar : frame_->findChildren<QMenuBar*>())
        if (bar->isVisible()) return bar->objectName();
    return u"none"_s;
}

}  // namespace tests
