// The command palette over the main window: what opens and closes it, what it offers, where the focus is.
#include "app/command_palette.h"
#include "platform/controls/box.h"
#include "tests/app/frame_run.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tests {
namespace {

class PaletteRun : public FrameRun {
  public:
    explicit PaletteRun(bool withBars = true) : FrameRun(true, withBars) {
        for (const QString& own : {u"D2"_s, u"D3"_s})
            registry.children[own] = [=, this] { return std::make_unique<LogForm>(own, log, withBars); };
    }
    CommandPalette& Palette() { return Find<CommandPalette>(Frame(), u"Palette"_s); }
    QString Last() {
        const QStringList taken = TakeLog();
        return taken.value(taken.size() - 1);
    }
    void Call() { Press(Qt::Key_K, Qt::ControlModifier); }
    /// What it lists for a text.
    QStringList Listed(const QString& typed = {}) {
        if (!Palette().IsOpen()) Call();
        TypeOver(typed);
        QStringList rows;
        const auto& list = Find<QListView>(Frame(), u"PaletteList"_s);
        for (int row = 0; row < list.model()->rowCount(); ++row)
            rows += list.model()->index(row, 0).data().toString();
        return rows;
    }
    QString Chosen() { return Find<QListView>(Frame(), u"PaletteList"_s).currentIndex().data().toString(); }
    void Take(const QString& typed) {
        if (!Palette().IsOpen()) Call();
        Type(typed);
        Press(Qt::Key_Return);
    }
};

TEST(Palette, OpensAFormOrCommandByEnter) {
    PaletteRun run;
    run.Open();
    const struct {
        QString typed, opens;
    } rows[] = {{u"khdz"_s, u"load C02|front C02 C02"_s},
                {u"b01"_s, u"load B01|front B01 B01"_s},
                {u"d2"_s, u"load D2|front D2 D2"_s},
                {u"s32"_s, u"modal S32"_s},
                {u"sjbf"_s, u"command Backup"_s},
                {u"重新登录"_s, {}},
                {u"更换"_s, u"modal Login"_s}};
    for (const auto& row : rows) {
        run.Take(row.typed);
        EXPECT_EQ(run.TakeLog().join(u'|'), row.opens) << row.typed.toStdString();
        EXPECT_EQ(run.Palette().IsOpen(), row.opens.isEmpty()) << "nothing found, nothing chosen";
        Press(Qt::Key_Escape);
        if (run.Frame().Front()) AltKey(u'r');
    }
    run.Call();
    EXPECT_EQ(run.Chosen(), u"更换登录用户"_s) << "what was used last";
    Press(Qt::Key_Escape);
}

TEST(Palette, GivesTheFocusBackAndChangesNothingForTheForm) {
    PaletteRun run;
    run.Open();
    run.Frame().ShowChild(u"A04"_s);
    Settle();
    auto& box = Find<controls::LineBox>(run.Form(u"A04"_s), u"A04.Txt"_s);
    QStringList moves;
    box.GotFocus = [&] { moves += u"got"_s; };
    box.LostFocus = [&] { moves += u"lost"_s; };
    Type(u"abc"_s);
    box.setSelection(1, 1);
    run.Call();
    EXPECT_EQ(FocusName(), u"PaletteText"_s);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Backtab);
    EXPECT_EQ(FocusName(), u"PaletteText"_s);
    Press(Qt::Key_Escape);
    EXPECT_EQ(FocusName(), u"A04.Txt"_s);
    EXPECT_EQ(box.selectedText(), u"b"_s);
    Press(Qt::Key_Alt);
    run.Call();
    Press(Qt::Key_Escape);
    EXPECT_EQ(FocusName(), u"A04.Txt"_s) << "from the menu bar";
    run.Call();
    AltKey(u'a');  // for the bar, as if the palette had not been opened
    EXPECT_EQ(run.Last(), u"A04 add"_s);
    EXPECT_FALSE(run.Palette().IsOpen());
    run.Call();
    Click(box);
    EXPECT_FALSE(run.Palette().IsOpen());
    EXPECT_EQ(FocusName(), u"A04.Txt"_s);
    EXPECT_EQ(moves, QStringList());
    // Chosen, another form is the loss of the box.
    run.Take(u"a05"_s);
    EXPECT_EQ(FocusName(), u"A05.Txt"_s);
    EXPECT_EQ(run.Frame().Front()->objectName(), u"A05"_s);
    EXPECT_TRUE(run.Frame().Child(u"A04"_s));
}

TEST(Palette, OpensFromEveryControlAndOverNoOtherWindow) {
    PaletteRun run;
    run.Open();
    run.Call();
    EXPECT_TRUE(run.Palette().IsOpen()) << "over the wallpaper";
    Press(Qt::Key_Escape);
    run.Frame().ShowChild(u"A04"_s);
    auto& form = run.Form(u"A04"_s);
    QWidget* controls[] = {new controls::LineBox, new controls::RowsBox(2), new controls::ComboBox,
                           new controls::DTPicker, new controls::CheckBox(u"a"_s)};
    for (QWidget* control : controls) {
        form.layout()->addWidget(control);
        Settle();
        control->setFocus();
        run.Call();
        EXPECT_TRUE(run.Palette().IsOpen()) << control->metaObject()->className();
        Press(Qt::Key_Escape);
    }
    QMessageBox message(&run.Frame());
    message.open();
    message.activateWindow();
    run.Call();
    EXPECT_FALSE(run.Palette().IsOpen());
    message.close();
}

TEST(Palette, MovesByKeysAndOpensByAClick) {
    PaletteRun run;
    run.Open();
    const QStringList all = run.Listed();
    const struct {
        Qt::Key key;
        qsizetype row;
    } moves[] = {{Qt::Key_Up, 0},
                 {Qt::Key_Down, 1},
                 {Qt::Key_PageDown, 11},
                 {Qt::Key_Up, 10},
                 {Qt::Key_PageUp, 0},
                 {Qt::Key_PageDown, 10},
                 {Qt::Key_PageDown, 20},
                 {Qt::Key_PageDown, 30},
                 {Qt::Key_PageDown, all.size() - 1},
                 {Qt::Key_Down, all.size() - 1}};
    for (const auto& move : moves) {
        Press(move.key);
        EXPECT_EQ(run.Chosen(), all.value(move.row)) << move.key;
    }
    EXPECT_TRUE(run.Listed(u"qqq"_s).isEmpty());
    EXPECT_TRUE(Find<QLabel>(run.Frame(), u"PaletteNothing"_s).isVisible());
    EXPECT_EQ(run.Listed(u"mx"_s).value(2), u"渠道对帐明细表"_s);
    auto& list = Find<QListView>(run.Frame(), u"PaletteList"_s);
    ClickAt(*list.viewport(), list.visualRect(list.model()->index(2, 0)).center());
    EXPECT_EQ(run.Last(), u"front C03 C03"_s);
    EXPECT_FALSE(run.Palette().IsOpen());
}

TEST(Palette, FindsWhatIsBeingComposed) {
    PaletteRun run;
    run.Open();
    run.Call();
    const auto compose = [&](const QString& preedit, const QString& committed) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
        Settle();
        return run.Chosen();
    };
    EXPECT_EQ(compose(u"yue jie"_s, {}), u"月结表"_s);
    EXPECT_EQ(compose({}, u"毛利"_s), u"毛利表"_s);
    Press(Qt::Key_Return);
    EXPECT_EQ(run.Last(), u"front C06 C06"_s);
}

TEST(Palette, OffersNothingThatLeavesAnEdit) {
    PaletteRun run;
    run.Open();
    run.Frame().ShowChild(u"A04"_s);
    for (const QString& front : {u"A04"_s, u"B01"_s}) {
        run.Frame().ShowChild(front);
        EditInProgress = true;
        EXPECT_EQ(run.Listed(), QStringList{u"退出系统"_s}) << "the frame asks by itself";
        Press(Qt::Key_Escape);
        EditInProgress = false;
        EXPECT_GT(run.Listed().size(), 30);
        Press(Qt::Key_Escape);
    }
    // The edit begins behind the open palette.
    run.TakeLog();
    run.Listed(u"a05"_s);
    EditInProgress = true;
    Press(Qt::Key_Return);
    EXPECT_EQ(run.TakeLog(), QStringList());
    EXPECT_FALSE(run.Palette().IsOpen());
}

TEST(Palette, OpensAnotherKindAsTheMenuDoes) {
    PaletteRun run(false);
    run.Open();
    run.Take(u"fuk"_s);
    run.Take(u"shouk"_s);
    EXPECT_EQ(run.Frame().Front()->windowTitle(), u"收款"_s);
    run.Frame().MenuItem(u"Menu_sk"_s)->trigger();  // the kind that it has
    EXPECT_EQ(run.TakeLog().filter(u"load"_s), (QStringList{u"load PayLst 10"_s, u"load PayLst -10"_s}));
    run.Form(u"PayLst"_s).refuses = true;
    run.Take(u"fuk"_s);
    EXPECT_EQ(run.Frame().Front()->LB, -10) << "in edit state it stays as it is";
    run.Form(u"PayLst"_s).refuses = false;
}

TEST(Palette, OffersWhatTheMenusShow) {
    PaletteRun run;
    run.registry.children.erase(u"A05"_s);
    run.Open();
    EXPECT_EQ(run.Listed(u"a05"_s), QStringList()) << "there is no form of that name";
    EXPECT_EQ(run.Listed(u"d2"_s), QStringList{u"客户付款记录"_s});
    run.Frame().SetMenuVisible(u"Menu_C"_s, false);
    EXPECT_EQ(run.Listed(u"d2"_s), QStringList());
    run.Frame().MenuItem(u"Menu_A04"_s)->setEnabled(false);
    EXPECT_EQ(run.Listed(u"a04"_s), QStringList());
    Press(Qt::Key_Escape);
}

}  // namespace
}  // namespace tests
