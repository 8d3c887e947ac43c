// Changing one's own password: what is refused, what is stored.
#include "admin/password.h"
#include "platform/controls/box.h"
#include "platform/dao/engine.h"
#include "schema/names.h"
#include "tests/app/frame_run.h"

#include <gtest/gtest.h>

namespace tests {
namespace {

class PasswordRun : public FrameRun {
  public:
    explicit PasswordRun(const QString& password) {
        registry.modals[u"S2"_s] = [](QWidget* over) { S2(over).ShowModal(); };
        company.Run(u"insert into TE1 (F1,F2,F3) VALUES ('002','张敏',%1)"_s.arg(password));
        Open();
        OperatorCode = u"002"_s;
    }

    void Show(std::function<void(QWidget& form)> drive) {
        modals.Next(u"S2"_s, std::move(drive));
        AltKey(u'h');
        AltKey(u'2');
        Press(Qt::Key_Return);
    }

    /// Fills the three boxes from the first on and presses 确定, by keys alone.
    static void Fill(QWidget& form, const QStringList& texts) {
        Find<controls::LineBox>(form, u"Txt(0)"_s).SetFocus();
        for (const QString& text : texts) {
            TypeOver(text);
            Press(Qt::Key_Return);
        }
        EXPECT_EQ(FocusName(), u"Cmd(0)");
        Press(Qt::Key_Return);
    }

    QString Stored() { return company.Answer(u"select F3 from TE1 where F1='002'"_s); }
};

TEST(OwnPassword, RefusalsLeaveTheFormAndThePasswordAsTheyWere) {
    PasswordRun run(u"'old'"_s);
    run.Show([&](QWidget& form) {
        EXPECT_EQ(FocusName(), u"Txt(0)");
        const struct {
            QStringList typed;
            QString refusal;
            QString focus;
        } rows[] = {
            // Both wrong: the new ones are compared first.
            {{u"bad"_s, u"a"_s, u"b"_s}, u"新密码两次输入不同，请重新输入!"_s, u"Txt(0)"_s},
            {{u"old"_s, u"a"_s, u"A"_s}, u"新密码两次输入不同，请重新输入!"_s, u"Txt(0)"_s},
            {{u"old"_s, u"a"_s, u"a "_s}, u"新密码两次输入不同，请重新输入!"_s, u"Txt(0)"_s},
            {{u"Old"_s, u"a"_s, u"a"_s}, u"旧密码错误，你无权修改该用户密码!"_s, u"Cmd(0)"_s},
            {{u""_s, u"a"_s, u"a"_s}, u"旧密码错误，你无权修改该用户密码!"_s, u"Cmd(0)"_s},
        };
        for (const auto& row : rows) {
            run.script.Box(row.refusal, u"提示"_s);
            PasswordRun::Fill(form, row.typed);
            EXPECT_TRUE(run.script.Done()) << row.refusal.toStdString();
            EXPECT_EQ(FocusName(), row.focus);
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(Find<controls::LineBox>(form, u"Txt(%1)"_s.arg(i)).Text(), row.typed[i]);
        }
        Press(Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible()) << "Esc is not among its keys";
        Find<controls::Button>(form, u"Cmd(1)"_s).click();
    });
    EXPECT_EQ(run.Stored(), u"old");
}

TEST(OwnPassword, IsStoredAsTyped) {
    const struct {
        QString stored, typedOld, fresh;
    } rows[] = {{u"'old'"_s, u"old"_s, u" aB1"_s},
                {u"null"_s, u""_s, u"x"_s},
                {u"''"_s, u""_s, u"密码"_s},
                {u"'old'"_s, u"old"_s, u""_s}};
    for (const auto& row : rows) {
        PasswordRun run(row.stored);
        run.script.Box(u"密码修改成功!"_s, u"提示"_s);
        run.Show([&](QWidget& form) { PasswordRun::Fill(form, {row.typedOld, row.fresh, row.fresh}); });
        EXPECT_EQ(run.Stored(), row.fresh);
        EXPECT_EQ(run.company.Answer(u"select F3 from TE1 where F1='001'"_s), u"") << "only his own";
    }
}

TEST(OwnPassword, AnApostropheFailsWholeAndIsNotShown) {
    for (const QString& fresh : {u"x',F65=1,F3='x"_s, u"a''b"_s, u"o'k"_s, u"'"_s}) {
        PasswordRun run(u"'old'"_s);
        run.script.BoxContaining(u"单引号"_s);
        run.script.End(1);
        run.Show([&](QWidget& form) { PasswordRun::Fill(form, {u"old"_s, fresh, fresh}); });
        EXPECT_TRUE(run.script.Done()) << fresh.toStdString();
        EXPECT_EQ(run.script.LastBox().detail, u"update TE1 set F3='******' WHERE F1='002'");
        EXPECT_EQ(run.company.Answer(u"select F3,F65 from TE1 where F1='002'"_s), u"old|<null>");
    }
}

TEST(OwnPassword, IsNotShownWhenTheFileFails) {
    PasswordRun run(u"'old'"_s);
    Db->CloseGroup();
    dao::Run(dao::OpenEngine(DbFile, schema::kPassword).get(),
             "create trigger refusing before update on TE1 begin select raise(abort, 'no'); end");
    run.script.BoxContaining(u"no"_s);
    run.script.End(1);
    run.Show([&](QWidget& form) { PasswordRun::Fill(form, {u"old"_s, u"secret"_s, u"secret"_s}); });
    EXPECT_EQ(run.script.LastBox().detail, u"update TE1 set F3='******' WHERE F1='002'");
    EXPECT_EQ(run.Stored(), u"old");
}

}  // namespace
}  // namespace tests
