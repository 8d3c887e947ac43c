// The toolkit's real windows behind the seams, and the modal forms.
#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"
#include "platform/controls/wait.h"
#include "platform/controls/windows.h"
#include "platform/errors.h"
#include "tests/support/files.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

namespace {

/// What to do with the next window of the toolkit, from inside its waiting loop.
void OnNext(std::function<void(QWidget&)> drive) {
    QTimer::singleShot(0, qApp, [drive = std::move(drive)] {
        tests::Settle();
        QWidget* shown = QApplication::activeModalWidget();
        if (!shown) {
            ADD_FAILURE() << "no window came";
            return;
        }
        drive(*shown);
        if (shown->isVisible()) QTest::keyClick(shown, Qt::Key_Escape);
    });
}

QMessageBox& AsBox(QWidget& shown) {
    auto* box = qobject_cast<QMessageBox*>(&shown);
    if (!box) throw std::runtime_error("no message box");
    return *box;
}

TEST(MessageBox, ShowsExactlyWhatIsAsked) {
    tests::Script script;
    const QString text = u"<b>[甲]</b>&已经!\r第二行\r\n  第三行"_s;
    const struct {
        sys::BoxIcon icon;
        QMessageBox::Icon shown;
        QString title;
    } cases[] = {{sys::BoxIcon::Information, QMessageBox::Information, u"提示"_s},
                 {sys::BoxIcon::Warning, QMessageBox::Warning, QString()},
                 {sys::BoxIcon::Critical, QMessageBox::Critical, u" x "_s},
                 {sys::BoxIcon::Question, QMessageBox::Question, u"请再次确认"_s}};
    for (const auto& c : cases) {
        OnNext([&](QWidget& shown) {
            QMessageBox& box = AsBox(shown);
            EXPECT_EQ(box.text(), u"<b>[甲]</b>&已经!\n第二行\n  第三行"_s);
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), c.title);
            EXPECT_EQ(box.icon(), c.shown);
            ASSERT_EQ(box.buttons().size(), 1);
            EXPECT_EQ(box.buttons()[0]->text(), u"确定"_s);
            EXPECT_EQ(box.findChild<QPlainTextEdit*>(), nullptr);
        });
        EXPECT_EQ(ShowMessageBox({.text = text, .title = c.title, .icon = c.icon}), sys::BoxAnswer::Ok);
    }
}

TEST(MessageBox, YesAndNo) {
    tests::Script script;
    const struct {
        sys::BoxAnswer byDefault;
        Qt::Key key;
        sys::BoxAnswer answer;
    } cases[] = {{sys::BoxAnswer::Yes, Qt::Key_Return, sys::BoxAnswer::Yes},
                 {sys::BoxAnswer::Yes, Qt::Key_Escape, sys::BoxAnswer::No},
                 {sys::BoxAnswer::No, Qt::Key_Return, sys::BoxAnswer::No},
                 {sys::BoxAnswer::No, Qt::Key_Y, sys::BoxAnswer::Yes},
                 {sys::BoxAnswer::Ok, Qt::Key_Return, sys::BoxAnswer::Yes}};  // nothing said: Yes
    for (const auto& c : cases) {
        OnNext([&](QWidget& shown) {
            QMessageBox& box = AsBox(shown);
            EXPECT_EQ(box.button(QMessageBox::Yes)->text(), u"是(&Y)"_s);
            EXPECT_EQ(box.button(QMessageBox::No)->text(), u"否(&N)"_s);
            const auto fill = [&](QMessageBox::StandardButton button) {
                return box.button(button)->grab().toImage().pixelColor(8, 6).name();
            };
            const bool no = c.byDefault == sys::BoxAnswer::No;
            EXPECT_EQ(fill(QMessageBox::Yes), no ? u"#ffffff"_s : u"#b3261e"_s) << "red where it destroys";
            EXPECT_EQ(fill(QMessageBox::No), no ? u"#0b6b83"_s : u"#ffffff"_s);
            const bool letter = c.key == Qt::Key_Y;
            QTest::keyClick(QApplication::focusWidget(), c.key, letter ? Qt::AltModifier : Qt::NoModifier);
            EXPECT_TRUE(
                QTest::qWaitFor([&] { return !shown.isVisible(); }));  // a letter shows the press first
        });
        EXPECT_EQ(ShowMessageBox({.text = u"真的要删除吗?"_s,
                                  .buttons = sys::BoxButtons::YesNo,
                                  .defaultButton = c.byDefault,
                                  .detail = {},
                                  .destroys = true}),
                  c.answer);
    }
}

TEST(MessageBox, OkAndCancel) {
    tests::Script script;
    const std::pair<Qt::Key, sys::BoxAnswer> cases[] = {{Qt::Key_Return, sys::BoxAnswer::Ok},
                                                        {Qt::Key_Escape, sys::BoxAnswer::Cancel}};
    for (const auto& [key, answer] : cases) {
        OnNext([&, pressed = key](QWidget& shown) {
            EXPECT_EQ(AsBox(shown).button(QMessageBox::Cancel)->text(), u"取消"_s);
            QTest::keyClick(QApplication::focusWidget(), pressed);
        });
        EXPECT_EQ(ShowMessageBox({.text = u"不保存吗？"_s, .buttons = sys::BoxButtons::OkCancel}), answer);
    }
}

TEST(MessageBox, ShowsTheFailingStatementSelectable) {
    tests::Script script;
    const QString statement = u"insert into M04 (F1,F2) VALUES ('张三','it's')"_s;
    OnNext([&](QWidget& shown) {
        auto& detail = tests::Find<QPlainTextEdit>(shown, u"detail"_s);
        EXPECT_EQ(detail.toPlainText(), statement);
        EXPECT_TRUE(detail.isReadOnly());
        EXPECT_TRUE(detail.isVisible());
        EXPECT_TRUE(detail.textInteractionFlags() & Qt::TextSelectableByKeyboard);
        const auto* button = AsBox(shown).buttons().front();
        EXPECT_LT(detail.mapTo(&shown, detail.rect().bottomLeft()).y(), button->mapTo(&shown, QPoint()).y());
        EXPECT_TRUE(button->hasFocus());
    });
    ShowMessageBox({.text = u"语法错误"_s, .icon = sys::BoxIcon::Critical, .detail = statement});
}

TEST(MessageBox, KeepsItsButtonsOnTheScreen) {
    tests::Script script;
    for (const QString& text : {QString(10000, u'长'), QString(200, u'\r') + u"完"_s}) {
        OnNext([&](QWidget& shown) {
            EXPECT_LT(shown.height(), 600);
            EXPECT_LT(shown.width(), 1000);
            EXPECT_EQ(AsBox(shown).text().size(), text.size());
        });
        ShowMessageBox({.text = text, .detail = u"select"_s});
    }
}

TEST(MessageBox, HasTheOrdinaryPointerDuringLongWork) {
    tests::Script script;
    {
        const WaitPointer wait;
        OnNext([](QWidget&) { EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor); });
        ShowMessageBox({.text = u"好"_s});
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(FileDialog, GivesThePathOrNothing) {
    tests::Script script;
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"备份.dat"_s);
    tests::Write(path, {});
    for (const auto kind : {sys::FileRequest::Kind::Open, sys::FileRequest::Kind::Save}) {
        const sys::FileRequest request{
            .kind = kind, .title = u"数据备份"_s, .proposed = path, .pattern = u"*.dat"_s};
        OnNext([&](QWidget& shown) {
            EXPECT_EQ(shown.windowTitle(), u"数据备份"_s);
            auto& name = tests::Find<QLineEdit>(shown, u"fileNameEdit"_s);
            EXPECT_EQ(name.text(), u"备份.dat"_s);
            QTest::keyClick(&name, Qt::Key_Return);
        });
        EXPECT_EQ(ShowFileDialog(request), path) << "a file that is there is the form's own question";
        OnNext([](QWidget&) {});
        EXPECT_EQ(ShowFileDialog(request), QString());
    }
}

class Modal : public testing::Test {
  protected:
    struct Form : ModalForm {
        using ModalForm::ModalForm;
        std::function<void()> load;
        void Load() override {
            if (load) load();
        }
    };

    Modal() { tests::Show(under); }
    /// Shows the form and does this in it.
    void Run(std::function<void(QWidget& shown)> drive) {
        operators.Next(u"S03"_s, std::move(drive));
        form.ShowModal();
    }

    tests::Script script;
    QWidget under;
    Form form{u"S03"_s, u"密码修改"_s, &under};
    tests::ModalScript operators;
};

TEST_F(Modal, EnterPressesTheFocusedButtonAndNoOther) {
    QVBoxLayout layout(&form);
    LineBox line;
    Button ok(u"确  定"_s), cancel(u"取  消"_s);
    for (QWidget* w :
         {static_cast<QWidget*>(&line), static_cast<QWidget*>(&ok), static_cast<QWidget*>(&cancel)})
        layout.addWidget(w);
    int confirmed = 0;
    ok.setDefault(true);
    ok.Click = [&] { ++confirmed; };
    cancel.Click = [&] { form.Unload(); };
    Run([&](QWidget& shown) {
        EXPECT_EQ(shown.windowTitle(), u"密码修改"_s);
        EXPECT_TRUE(line.hasFocus());
        tests::Press(Qt::Key_Return);
        EXPECT_EQ(confirmed, 0);
        tests::Press(Qt::Key_Tab);
        tests::Press(Qt::Key_Return);
        EXPECT_EQ(confirmed, 1);
        tests::Press(Qt::Key_Tab);
        tests::Press(Qt::Key_Return);
        EXPECT_FALSE(shown.isVisible());
    });
    tests::Settle();
    EXPECT_EQ(QApplication::activeWindow(), &under);
}

TEST_F(Modal, EscAndTheCloseBoxOnlyWhereTheyAreRequired) {
    const struct {
        bool esc, closeBox;
    } cases[] = {{false, false}, {true, false}, {false, true}, {true, true}};
    for (const auto& c : cases) {
        form.SetClosedByEsc(c.esc);
        form.SetCloseBox(c.closeBox);
        Run([&](QWidget& shown) {
            QTest::keyClick(&shown, Qt::Key_Escape);
            EXPECT_EQ(shown.isVisible(), !c.esc);
            if (shown.isVisible()) shown.close();
            EXPECT_EQ(shown.isVisible(), !c.esc && !c.closeBox);
            form.Unload();
        });
    }
}

TEST_F(Modal, CommitsBeforeItWaits) {
    int commits = 0;
    const int hook = sys::AddCommandEndHook([&] { ++commits; });
    form.load = [&] { EXPECT_EQ(commits, 0); };
    Run([&](QWidget&) {
        EXPECT_EQ(commits, 1);
        form.Unload();
    });
    sys::RemoveCommandEndHook(hook);
}

TEST_F(Modal, NothingRunsBehindAFormThatEndedTheProgram) {
    QVBoxLayout layout(&form);
    Button quit(u"退 出"_s);
    layout.addWidget(&quit);
    quit.Click = [] { sys::EndProgram(0); };
    script.End(0);
    bool behind = false;
    sys::Guarded([&] {
        Run([&](QWidget&) { tests::Press(Qt::Key_Return); });
        behind = true;
    });
    EXPECT_FALSE(behind);
    EXPECT_TRUE(sys::HasEnded());
    EXPECT_FALSE(form.isVisible());
}

}  // namespace
