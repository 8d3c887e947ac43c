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

/// As many groups and rows as the largest card of the program has.
class Cards : public testing::Test {
  protected:
    LineBox* Put(const Placed& at) {
        auto* box = new LineBox(&card);
        card.Field(at.half, at.row, at.pair, at.span, MakeCaption(u"说明"_s, box, &card), box);
        return box;
    }

    void Fill() {
        for (const int rows : {1, 2, 4, 2, 2, 1, 2}) {
            card.Group(u"左"_s, u"右"_s);
            for (int row = 0; row < rows; ++row)
                for (const auto half : {L, R})
                    for (int pair = 0; pair < 3; ++pair) boxes.push_back(Put({half, row, pair, 1}));
        }
        card.Finish();
    }

    Card card;
    std::vector<LineBox*> boxes;
};

TEST_F(Cards, TheLargestCardFitsTheSmallestScreens) {
    Fill();
    // Less frame, menu bar, tabs and status bar: 1366x768, 1280x720, which is a 1920x1080 screen at 150 %,
    // and 1024x700.
    for (const QSize page : {QSize(1366, 645), QSize(1280, 597), QSize(1022, 587)}) {
        card.resize(page);
        tests::Show(card);
        EXPECT_LE(card.minimumSizeHint().height(), page.height());
        EXPECT_LE(card.minimumSizeHint().width(), page.width());
        for (const LineBox* box : boxes) {
            EXPECT_EQ(box->height(), 24);
            EXPECT_GE(box->width(), 74);
            EXPECT_TRUE(card.rect().contains(box->geometry()));
        }
        card.hide();
    }
}

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

TEST_F(Cards, BoxesShareTheirEdgesAndAreBlindToTheirContent) {
    card.Group(u"甲"_s);
    LineBox* one = Put({L, 0, 0, 1});
    LineBox* two = Put({L, 0, 1, 1});
    LineBox* three = Put({L, 0, 2, 1});
    LineBox* wide = Put({L, 1, 1, 2});
    LineBox* whole = Put({L, 2, 0, 3});
    LineBox* mirror = Put({R, 0, 0, 1});
    auto* alone = new LineBox(&card);
    card.Field(R, 1, 0, 1, nullptr, alone);
    card.Finish();
    card.resize(1366, 600);
    tests::Show(card);
    EXPECT_EQ(one->x(), 16 + 128);
    EXPECT_EQ(wide->x(), two->x());
    EXPECT_EQ(wide->geometry().right(), three->geometry().right());
    EXPECT_EQ(whole->x(), one->x());
    EXPECT_EQ(whole->geometry().right(), three->geometry().right());
    EXPECT_EQ(mirror->width(), one->width());
    EXPECT_EQ(alone->x(), mirror->x()) << "without a caption it is under the others";
    EXPECT_EQ(wide->y() - one->y(), 32);
    const QRect before = one->geometry();
    one->SetText(QString(500, u'宽'));
    tests::Settle();
    EXPECT_EQ(one->geometry(), before);
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
