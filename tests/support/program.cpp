#include "tests/support/program.h"

#include "app/history_groups.h"
#include "app/rights.h"
#include "app/start_up.h"
#include "demo/rows.h"
#include "platform/system/guard.h"
#include "program/wiring.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace tests {
namespace {

/// As before the first group of a new run.
const OpenWith& Begun(const OpenWith& with) {
    NoteGroups();
    OperatorName.clear();
    return with;
}

}  // namespace

Program::Program(const QStringList& masters, const QString& operatorCode, const OpenWith& with)
    : company_(Begun(with)) {
    company_.EnterSession();
    for (const QString& statement : masters) ::Db->Execute(statement);
    ::Db->CloseGroup();
    MsgTitle = u"提示"_s;
    NumFormat = u"#0.00"_s;
    EditInProgress = false;
    CanSeeFigures = true;
    frame_ = std::make_unique<MForm>(Wire(company_.Folder()).registry);
    sys::onFailure() = {};  // for the tests of what a failed command leaves; those of the offer turn it on
    SetTheFrame(frame_.get());
    frame_->resize(1366, 768);
    frame_->Load();
    frame_->show();
    frame_->activateWindow();
    LogIn(operatorCode);
    Settle();
}

Program::~Program() {
    Settle();
    EditInProgress = false;
    frame_.reset();
    SetTheFrame(nullptr);
}

void Program::LogIn(const QString& operatorCode) {
    OperatorCode = operatorCode;
    const QStringList name = Rows(u"select F2 from TE1 where F1='"_s + operatorCode + u"'"_s);
    ASSERT_EQ(name.size(), 1) << operatorCode.toStdString();
    frame_->SetPanel(3, name.front());
    OperatorName = name.front();
    ApplyRights();
}

ChildForm& Desk::Open(const QString& keys, const QString& form) {
    for (const QChar key : keys) AltKey(key.unicode());
    ChildForm* child = Frame().Front();
    EXPECT_TRUE(child && child->objectName() == form) << form.toStdString();
    return child ? *child : Frame().ShowChild(form);
}

controls::TextBox& Desk::TextBoxAt(int index) {
    auto* box = dynamic_cast<controls::TextBox*>(&At<QWidget>(u"Txt(%1)"_s.arg(index)));
    if (!box) throw std::runtime_error("no text box of that index");
    return *box;
}

controls::ComboBox& Desk::ComboAt(int index) {
    return At<controls::ComboBox>(u"Cmb(%1)"_s.arg(index));
}

QString Desk::Box(int index) {
    return TextBoxAt(index).Text();
}

QString Desk::Combo(int index) {
    return ComboAt(index).Text();
}

void Desk::SetBox(int index, const QString& text) {
    TextBoxAt(index).SetFocus();
    Settle();
    TypeOver(text);
}

void Desk::SetCombo(int index, const QString& text) {
    ComboAt(index).SetFocus();
    Settle();
    TypeOver(text);
}

void Desk::GoTo(const QString& control) {
    for (int i = 0; i < 80 && FocusName() != control; ++i) Press(Qt::Key_Return);
    EXPECT_EQ(FocusName().toStdString(), control.toStdString());
}

QString Desk::Boxes(int first, int last) {
    QStringList texts;
    for (int i = first; i <= last; ++i) texts += Box(i);
    return texts.join(u'|');
}

void Desk::Enter(const QString& control) {
    controls::MoveFocus(&At<QWidget>(control));
    Settle();
}

void Desk::Push(const QString& button) {
    Enter(button);
    Press(Qt::Key_Return);
}

void Desk::GoToRow(int row) {
    Tabs().SelectItem(1);
    Enter(u"GD"_s);
    Press(Qt::Key_Home);
    for (int i = 1; i < row; ++i) Press(Qt::Key_Down);
}

void Desk::ShowCard(int row) {
    GoToRow(row);
    Tabs().SelectItem(2);
    Settle();
}

void Program::RefusesToSave(const QString& message) {
    script.Box(message, Title);
    AltKey(u'S');
    EXPECT_TRUE(script.Done()) << message.toStdString();
    EXPECT_TRUE(EditInProgress) << message.toStdString();
}

void Program::EndsWith(const QString& report) {
    script.BoxContaining(report);
    script.End(1);
}

QStringList Desk::Lines() {
    QStringList lines;
    const auto& grid = Grid();
    for (int row = 1; row < grid.Rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < grid.Cols(); ++col) cells += grid.TextMatrix(row, col);
        lines += cells.join(u'|');
    }
    return lines;
}

bool Desk::Enabled(const QString& command) {
    const auto* action = Frame().Front()->MenuBar()->findChild<QAction*>(command);
    EXPECT_NE(action, nullptr) << command.toStdString();
    return action && action->isEnabled();
}

QStringList Desk::Rows(const QString& sql) {
    return demo::Rows(*::Db, sql);
}

void Desk::Execute(const QString& sql) {
    ::Db->Execute(sql);
    ::Db->CloseGroup();
}

std::unique_ptr<MForm> StartAndLogIn(const QString& folder) {
    ModalScript modals;
    modals.Next(u"Login"_s, [](QWidget& login) {
        Find<controls::LineBox>(login, u"Txt(1)"_s).SetFocus();
        Press(Qt::Key_S, Qt::ControlModifier);
    });
    std::unique_ptr<MForm> frame;
    sys::Guarded([&] { frame = StartUp(Wire(folder)); });
    if (frame) frame->activateWindow();
    return frame;
}

}  // namespace tests
