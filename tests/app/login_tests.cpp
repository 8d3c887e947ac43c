// The login: how the code gets into the box out of sight, every refusal, and what the rights open.
#include "app/login.h"
#include "platform/controls/box.h"
#include "platform/system/guard.h"
#include "tests/app/frame_run.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class LoginRun : public FrameRun {
  public:
    LoginRun() {
        registry.modals[u"Login"_s] = [](QWidget* over) { Login(over).ShowModal(); };
        OperatorCode.clear();
        OperatorName.clear();
    }

    /// Shows the login from its menu; drive is what the operator does.
    void Show(std::function<void(QWidget& form)> drive) {
        modals.Next(u"Login"_s, std::move(drive));
        Frame().MenuItem(u"Relogin"_s)->trigger();
        Settle();
    }

    /// A whole login, all by keys: leaves the combo with the text, types the password, presses 确定.
    static void Try(const QString& user, const QString& password) {
        GoTo(u"cmbhu"_s);
        TypeOver(user);
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), u"Txt(1)");
        TypeOver(password);
        Press(Qt::Key_Return);
        Press(Qt::Key_Return);
        EXPECT_EQ(FocusName(), u"Cmd(0)");
        Press(Qt::Key_Return);
    }

    static void GoTo(const QString& control) {
        for (int i = 0; i < 6 && FocusName() != control; ++i) Press(Qt::Key_Tab);
        EXPECT_EQ(FocusName(), control);
    }

    void LogIn(const QString& user, const QString& password) {
        Show([&](QWidget&) { Try(user, password); });
    }
};

QString Box(QWidget& form, const QString& name) {
    return Find<controls::LineBox>(form, name).Text();
}

TEST(LoginForm, OpensWithTheDesignTextAndAnEmptyCode) {
    LoginRun run;
    run.AddOperator(u"002 "_s, u" 张敏 "_s, u"abC"_s);
    run.Open();
    run.Show([&](QWidget& form) {
        auto& users = Find<controls::ComboBox>(form, u"cmbhu"_s);
        EXPECT_EQ(users.Text(), u"001.管理员");
        EXPECT_EQ(users.ListCount(), 2);
        EXPECT_EQ(users.List(1), u"002.张敏");
        EXPECT_EQ(Box(form, u"Txt(0)"_s) + Box(form, u"Txt(1)"_s), u"");
        const auto& code = Find<controls::LineBox>(form, u"Txt(0)"_s);
        EXPECT_FALSE(form.rect().intersects(code.geometry()));
        LoginRun::Try(u"001"_s, QString());
    });
}

TEST(LoginForm, RefusesWordForWordAndNeverLocks) {
    LoginRun run;
    run.AddOperator(u"002"_s, u"张敏"_s, u"abC "_s);
    run.Open();
    run.Show([&](QWidget& form) {
        run.script.Box(u"请输入用户名!"_s, u"提示"_s);
        Press(Qt::Key_Return);  // on 确定, the combo never entered
        EXPECT_EQ(FocusName(), u"Txt(0)");

        const struct {
            QString user, password;
            QString refusal;
            QString focus;
        } rows[] = {
            {u""_s, u"abC "_s, u"请输入用户名!"_s, u"Txt(0)"_s},
            {u"."_s, u"abC "_s, u"请输入用户名!"_s, u"Txt(0)"_s},
            {u"009.张敏"_s, u"abC "_s, u"无效的用户名!"_s, u"Txt(0)"_s},
            {u"张敏"_s, u"abC "_s, u"无效的用户名!"_s, u"Txt(0)"_s},
            {u"x' or '1'='1"_s, u""_s, u"无效的用户名!"_s, u"Txt(0)"_s},
            {u"002.张敏"_s, u"abC"_s, u"密码输入错误!"_s, u"Txt(1)"_s},
            {u"002.张敏"_s, u"ABC "_s, u"密码输入错误!"_s, u"Txt(1)"_s},
            {u"002"_s, u""_s, u"密码输入错误!"_s, u"Txt(1)"_s},
        };
        for (const auto& row : rows) {
            run.script.Box(row.refusal, u"提示"_s);
            LoginRun::Try(row.user, row.password);
            EXPECT_TRUE(run.script.Done()) << row.user.toStdString();
            EXPECT_EQ(FocusName(), row.focus) << row.user.toStdString();
            EXPECT_EQ(Box(form, u"Txt(1)"_s), row.focus == u"Txt(1)" ? QString() : row.password);
            EXPECT_TRUE(form.isVisible());
            EXPECT_TRUE(OperatorCode.isEmpty());
        }
        run.script.BoxContaining(u"GetStr执行错误!系统返回如下信息："_s);
        run.script.Box(u"无效的用户名!"_s, u"提示"_s);
        LoginRun::Try(u"0'1"_s, QString());  // breaks the statement that looks for him
        EXPECT_TRUE(run.script.Done());
        LoginRun::Try(u"002.张敏"_s, u"abC "_s);
    });
    EXPECT_EQ(OperatorCode, u"002");
    EXPECT_EQ(OperatorName, u"张敏");
    EXPECT_EQ(run.Frame().Panel(3), u"张敏");
}

TEST(LoginForm, OnlyLeavingTheComboFillsTheCode) {
    LoginRun run;
    run.Open();
    const std::pair<QString, QString> texts[] = {{u"  zhang "_s, u"zhang"_s}, {u"a.b.c"_s, u"a"_s}};
    run.Show([&](QWidget& form) {
        for (const auto& [text, code] : texts) {
            LoginRun::GoTo(u"cmbhu"_s);
            const QString before = Box(form, u"Txt(0)"_s);
            TypeOver(text);
            EXPECT_EQ(Box(form, u"Txt(0)"_s), before) << "while it is being typed";
            Press(Qt::Key_Return);
            EXPECT_EQ(Box(form, u"Txt(0)"_s), code) << text.toStdString();
        }
        LoginRun::Try(u"001"_s, QString());
    });
}

TEST(LoginForm, ControlSIsTheAdministratorWithoutTheCombo) {
    LoginRun run;
    run.company.Run(u"update TE1 set F3='sesam' where F1='001'"_s);
    run.Open();
    run.Show([&](QWidget& form) {
        for (const QString& box : {u"Txt(0)"_s, u"Txt(1)"_s}) {
            run.script.Box(u"密码输入错误!"_s, u"提示"_s);
            LoginRun::GoTo(box);
            Press(Qt::Key_S, Qt::ControlModifier);
            EXPECT_TRUE(run.script.Done());
            EXPECT_EQ(Box(form, u"Txt(0)"_s), u"001");
        }
        Type(u"sesam"_s);  // the letter alone is one
        Press(Qt::Key_S, Qt::ControlModifier);
    });
    EXPECT_EQ(OperatorCode, u"001");
}

TEST(LoginForm, NeitherEscNorClosingGetsPastIt) {
    LoginRun run;
    run.Open();
    run.Show([&](QWidget& form) {
        Press(Qt::Key_Escape);
        form.close();  // what Alt+F4 asks of it
        Settle();
        EXPECT_TRUE(form.isVisible());
        EXPECT_FALSE(form.windowFlags() & Qt::WindowCloseButtonHint);
        LoginRun::Try(u"001"_s, QString());
    });
}

TEST(LoginForm, ItsExitEndsTheProgramEvenInTheMiddleOfAnEdit) {
    LoginRun run;
    run.Open();
    EditInProgress = true;
    run.script.End(0);
    run.Show([&](QWidget&) {
        LoginRun::GoTo(u"Cmd(1)"_s);
        Press(Qt::Key_Return);
    });
    EXPECT_TRUE(sys::HasEnded());
    EXPECT_TRUE(Db) << "the data is not closed on this way out";
}

TEST(LoginForm, WithoutADatabaseItEndsWithAWord) {
    LoginRun run;
    run.Open();
    Db.reset();  // as a backup that could not be written leaves it
    run.script.BoxContaining(u"对象变量或 With 块变量未设置"_s);
    run.script.End(1);
    run.Frame().MenuItem(u"Relogin"_s)->trigger();
    EXPECT_TRUE(sys::HasEnded());
}

// ------------------------------------------------------------------------------------------------ rights

/// Menus in sight and flags that are set, as one text.
QString Granted(MForm& frame) {
    QStringList granted;
    for (const QString& menu :
         {u"Menu_A"_s, u"Menu_b"_s, u"Menu_C"_s, u"Menu_S"_s, u"Menu_wanglai"_s, u"Menu_sl"_s})
        if (frame.MenuVisible(menu)) granted += menu.mid(5);
    if (CanEditReleased) granted += u"released"_s;
    if (CanSeeFigures) granted += u"figures"_s;
    if (CanEditLedger) granted += u"ledger"_s;
    return granted.join(u' ');
}

TEST(Rights, TheAdministratorTakesOverAndTheAccountsMenuStaysAsItWas) {
    LoginRun run;
    run.AddOperator(u"002"_s, u"张敏"_s, QString());
    run.Open();
    run.LogIn(u"001"_s, QString());
    EXPECT_EQ(Granted(run.Frame()), u"A b C S wanglai sl released figures ledger");
    run.LogIn(u"002"_s, QString());
    EXPECT_EQ(Granted(run.Frame()), u"sl");
    run.LogIn(u"001"_s, QString());
    EXPECT_EQ(Granted(run.Frame()), u"A b C S sl released figures ledger");
}

TEST(Rights, TheCaptionGainsTheCompanysName) {
    const std::pair<QString, QString> rows[] = {{u"delete from CompanyInfo"_s, u""_s},
                                                {u"update CompanyInfo set F1=null"_s, u""_s},
                                                {u"update CompanyInfo set F1=''"_s, u""_s},
                                                {u"update CompanyInfo set F1='示例速递'"_s, u"  示例速递"_s}};
    for (const auto& [statement, gained] : rows) {
        LoginRun run;
        run.company.Run(statement);
        run.Open();
        run.LogIn(u"001"_s, QString());
        EXPECT_EQ(run.Frame().windowTitle(), u"Korvane快递业务管理系统"_s + gained);
    }
}

}  // namespace
}  // namespace tests
