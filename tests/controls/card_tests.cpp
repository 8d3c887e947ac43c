// The layout grammar: where boxes of a card start and end, and what covers what.
#include "platform/controls/box.h"
#include "platform/controls/card.h"
#include "tests/support/gui.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace controls;

namespace {

constexpr auto L = Card::Half::Left;
constexpr auto R = Card::Half::Right;

struct Placed {
    Card::Half half;
    int row, pair, span;
};

class Cards : public testing::Test {
  protected:
    LineBox* Put(const Placed& at) {
        auto* box = new LineBox(&card);
        card.Field(at.half, at.row, at.pair, at.span, MakeCaption(u"说明"_s, box, &card), box);
        return box;
    }

    Card card;
};

TEST_F(Cards, BelowItsLeastSizeACardScrollsAndShowsTheBoxWithTheFocus) {
    auto* scrolled = new Card;
    auto* first = new LineBox(scrolled);
    auto* last = new LineBox(scrolled);
    scrolled->Field(L, 0, 0, 1, MakeCaption(u"说明"_s, first, scrolled), first);
    scrolled->Field(R, 20, 2, 1, MakeCaption(u"说明"_s, last, scrolled), last);
    scrolled->Finish();
    CardScroll scroll(scrolled);
    scroll.resize(800, 300);
    tests::Show(scroll);
    const auto inSight = [&](QWidget* box) {
        return scroll.viewport()->rect().contains(
            QRect(box->mapTo(scroll.viewport(), QPoint()), box->size()));
    };
    EXPECT_EQ(scrolled->width(), scrolled->minimumSizeHint().width());
    EXPECT_FALSE(inSight(last));
    for (LineBox* box : {last, first}) {
        box->SetFocus();
        tests::Settle();
        EXPECT_TRUE(inSight(box));
    }
    scroll.resize(1366, 800);
    tests::Settle();
    EXPECT_EQ(scrolled->size(), scroll.viewport()->size()) << "nothing to scroll";
}

TEST_F(Cards, ACoveredBoxIsNotInTheTabOrder) {
    card.Group(u"甲"_s);
    LineBox* before = Put({L, 0, 0, 1});
    LineBox* box = Put({L, 0, 1, 1});
    LineBox* after = Put({L, 0, 2, 1});
    auto* combo = new ComboBox(&card);
    card.Over(box, combo);
    ComboBox hiddenFirst(&card), hiddenThen(&card);
    hiddenFirst.hide();
    card.Over(before, &hiddenFirst);
    card.Over(after, &hiddenThen);
    hiddenThen.hide();
    card.Finish();
    card.resize(1366, 600);
    QWidget::setTabOrder(before, box);
    QWidget::setTabOrder(box, combo);
    QWidget::setTabOrder(combo, after);
    tests::Show(card);
    EXPECT_FALSE(box->isVisible());
    EXPECT_TRUE(before->isVisible() && after->isVisible()) << "a cover that is hidden leaves its box";
    EXPECT_EQ(combo->accessibleName(), u"说明"_s);
    before->SetFocus();
    tests::Press(Qt::Key_Tab);
    EXPECT_TRUE(combo->hasFocus());
    tests::Press(Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    const QRect place = combo->geometry();
    combo->hide();
    tests::Settle();
    EXPECT_TRUE(box->isVisible());
    EXPECT_EQ(box->geometry(), place);
    before->SetFocus();
    tests::Press(Qt::Key_Tab);
    EXPECT_TRUE(box->hasFocus());
    combo->show();
    tests::Settle();
    EXPECT_FALSE(box->isVisible());
}

}  // namespace
