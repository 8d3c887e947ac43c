#include "platform/controls/box.h"
#include "platform/controls/keys.h"
#include "platform/controls/look.h"
#include "platform/controls/modal_form.h"
#include "platform/controls/tab_strip.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

TEST(Boxes, EnterMovesOnThroughTheFormAndUpperCasesWhatIsTyped) {
    tests::Script script;
    QWidget form;
    QVBoxLayout layout(&form);
    LineBox a, b;
    ComboBox combo;
    DTPicker date;
    RowsBox rows(3);
    a.setObjectName(u"a"_s), b.setObjectName(u"b"_s), combo.setObjectName(u"combo"_s),
        date.setObjectName(u"date"_s);
    rows.setObjectName(u"rows"_s);
    for (QWidget* w : {(QWidget*)&a, (QWidget*)&combo, (QWidget*)&date, (QWidget*)&rows, (QWidget*)&b})
        layout.addWidget(w);
    auto enter = [](KeyPress& key) {
        if (key.key == Qt::Key_Return) SendKeys(u"{TAB}"_s);
        key.text = key.text.toUpper();
    };
    a.KeyPressed = enter, combo.KeyPressed = enter, date.KeyPressed = enter, rows.KeyPressed = enter;
    QStringList told;
    a.GotFocus = [&] { told << u"+a"_s; };
    a.LostFocus = [&] { told << u"-a"_s; };
    combo.GotFocus = [&] { told << u"+combo"_s; };
    tests::Show(form);
    a.SetFocus();
    tests::Type(u"kv"_s);
    EXPECT_EQ(a.Text(), u"KV"_s);
    for (const auto& next : {u"combo"_s, u"date"_s, u"rows"_s, u"b"_s}) {
        tests::Press(Qt::Key_Return);
        EXPECT_EQ(tests::FocusName().toStdString(), next.toStdString());
    }
    EXPECT_EQ(told, (QStringList{u"+a"_s, u"-a"_s, u"+combo"_s}));
}
