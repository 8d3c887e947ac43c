#include "platform/controls/card.h"

#include "platform/controls/box.h"
#include "platform/controls/paint.h"

#include <QApplication>
#include <QEvent>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

// The layout grammar, in device-independent pixels.
struct Measures {
    int margin;        // left and right
    int firstCaption;  // first caption of a half; it holds the group's title too
    int caption;       // second and third caption
    int columnGap;     // box to the next caption
    int halfGap;
};
constexpr Measures kFull{.margin = 16, .firstCaption = 122, .caption = 60, .columnGap = 14, .halfGap = 28};
constexpr Measures kTight{.margin = 8, .firstCaption = 115, .caption = 50, .columnGap = 8, .halfGap = 14};
constexpr int kMarginV = 12;    // top and bottom
constexpr int kCaptionGap = 6;  // caption to its box, padding of the caption in the sheet
constexpr int kBoxShare[] = {19, 10, 10};
constexpr int kBoxMinimum[] = {92, 76, 78};  // eight digits: beside a combo's button, plain, bold
constexpr int kBandMin = 13;                 // height of the band that holds a rule
constexpr int kBandMax = 33;
constexpr int kColumns = 13;
constexpr int kRightHalf = 7;  // its first column
constexpr int kHalfColumns = 6;

constexpr const char* kHalfProperty = "halfColumns";  // first columns of the halves that a layout holds

int HalfWidth(const Measures& measures) {
    int width = measures.firstCaption + kCaptionGap + kBoxMinimum[0];
    for (const int pair : {1, 2})
        width += measures.columnGap + measures.caption + kCaptionGap + kBoxMinimum[pair];
    return width;
}

/// What the columns of a card take at least.
int LeastWidth(const Measures& measures) {
    return 2 * measures.margin + measures.halfGap + 2 * HalfWidth(measures);
}

void ApplyToHalf(QGridLayout& grid, int first, const Measures& measures) {
    for (int pair = 0; pair < 3; ++pair) {
        const int caption = pair == 0 ? measures.firstCaption : measures.columnGap + measures.caption;
        grid.setColumnMinimumWidth(first + 2 * pair, caption + kCaptionGap);
        grid.setColumnMinimumWidth(first + 2 * pair + 1, kBoxMinimum[pair]);
    }
}

void ApplyToCard(QGridLayout& grid, const Measures& measures) {
    grid.setContentsMargins(measures.margin, kMarginV, measures.margin, kMarginV);
    grid.setColumnMinimumWidth(kRightHalf - 1, measures.halfGap);
}

QLabel* MakeTitle(const QString& text, QWidget* parent) {
    auto* title = new QLabel(text, parent);
    title->setProperty("role", u"group"_s);
    title->setIndent(0);
    title->setFixedHeight(kBoxHeight);
    return title;
}

/// The columns decide how wide a control is, never its content.
void PrepareBox(QWidget* box) {
    if (qobject_cast<QCheckBox*>(box) || qobject_cast<QPushButton*>(box) || qobject_cast<QLabel*>(box))
        return;
    box->setSizePolicy(QSizePolicy::Ignored, box->sizePolicy().verticalPolicy());
}

Qt::Alignment PlaceOf(QWidget* box) {
    if (qobject_cast<RowsBox*>(box)) return Qt::AlignTop;  // keeps the height of its rows
    if (qobject_cast<QCheckBox*>(box) || qobject_cast<QPushButton*>(box))
        return Qt::AlignLeft | Qt::AlignVCenter;
    return {};
}

void PutCaption(QGridLayout* grid, QLabel* caption, int row, int column) {
    if (!caption) return;
    caption->setFixedHeight(kBoxHeight);
    grid->addWidget(caption, row, column, Qt::AlignTop);
}

bool HiddenOnPurpose(const QWidget* widget) {
    return widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

int FirstColumn(Card::Half half) {
    return half == Card::Half::Left ? 0 : kRightHalf;
}

}  // namespace

void SetHalfColumns(QGridLayout& grid, int first) {
    grid.setProperty(kHalfProperty, grid.property(kHalfProperty).toList() << first);
    for (int pair = 0; pair < 3; ++pair) grid.setColumnStretch(first + 2 * pair + 1, kBoxShare[pair]);
    ApplyToHalf(grid, first, kFull);
}

struct Card::State {
    QGridLayout* grid = nullptr;
    bool tight = false;
    int groupRow = -1;  ///< the layout's row that holds the group's first row
    int last = -1;      ///< the layout's last row in use
    std::vector<QWidget*> bands;
    std::map<QObject*, QWidget*> covered;  ///< cover to box

    int RowOf(int row) const { return groupRow + 2 * row; }
    void Use(int row) {
        for (int r = groupRow; r <= row; ++r)
            grid->setRowMinimumHeight(r, (r - groupRow) % 2 == 0 ? kBoxHeight : kRowGap);
        last = std::max(last, row);
    }
};

Card::Card(QWidget* parent) : QWidget(parent), state_(std::make_unique<State>()) {
    setProperty("role", u"surface"_s);
    setAttribute(Qt::WA_StyledBackground);
    state_->grid = new QGridLayout(this);
    state_->grid->setSpacing(0);
    for (const int half : {0, kRightHalf}) SetHalfColumns(*state_->grid, half);
    ApplyToCard(*state_->grid, kFull);
}

Card::~Card() = default;

void Card::Group(const QString& leftTitle, const QString& rightTitle) {
    if (state_->last >= 0) {
        auto* band = new QWidget(this);
        band->setMinimumHeight(kBandMin);
        band->setMaximumHeight(kBandMax);
        band->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        state_->grid->addWidget(band, ++state_->last, 0, 1, kColumns);
        state_->grid->setRowStretch(state_->last, 1);
        state_->bands.push_back(band);
    }
    state_->groupRow = state_->last + 1;
    state_->Use(state_->groupRow);
    if (!leftTitle.isEmpty()) state_->grid->addWidget(MakeTitle(leftTitle, this), state_->groupRow, 0);
    if (!rightTitle.isEmpty())
        state_->grid->addWidget(MakeTitle(rightTitle, this), state_->groupRow, kRightHalf);
}

void Card::Field(Half half, int row, int pair, int span, QLabel* caption, QWidget* box) {
    TallField(half, row, 1, pair, span, caption, box);
}

void Card::TallField(Half half, int row, int rows, int pair, int span, QLabel* caption, QWidget* box) {
    if (state_->groupRow < 0) Group(QString());
    const int column = FirstColumn(half) + 2 * pair;
    const int top = state_->RowOf(row);
    state_->Use(state_->RowOf(row + rows - 1));
    PutCaption(state_->grid, caption, top, column);
    PrepareBox(box);
    state_->grid->addWidget(box, top, column + 1, 2 * rows - 1, 2 * span - 1, PlaceOf(box));
}

void Card::Panel(int row, int rows, QWidget* panel) {
    state_->Use(state_->RowOf(row + rows - 1));
    panel->setSizePolicy(QSizePolicy::Ignored, panel->sizePolicy().verticalPolicy());
    state_->grid->addWidget(panel, state_->RowOf(row), 1, 2 * rows - 1, kColumns - 1);
}

void Card::HalfPanel(Half half, int row, int rows, QWidget* panel) {
    state_->Use(state_->RowOf(row + rows - 1));
    panel->setSizePolicy(QSizePolicy::Ignored, panel->sizePolicy().verticalPolicy());
    state_->grid->addWidget(panel, state_->RowOf(row), FirstColumn(half), 2 * rows - 1, kHalfColumns);
}

void Card::Over(QWidget* box, QWidget* cover) {
    const int index = state_->grid->indexOf(box);
    if (index < 0) return;
    int row = 0, column = 0, rows = 0, columns = 0;
    state_->grid->getItemPosition(index, &row, &column, &rows, &columns);
    PrepareBox(cover);
    state_->grid->addWidget(cover, row, column, rows, columns);
    if (cover->accessibleName().isEmpty()) cover->setAccessibleName(box->accessibleName());
    state_->covered[cover] = box;
    cover->installEventFilter(this);
    box->setVisible(HiddenOnPurpose(cover));
}

bool Card::eventFilter(QObject* watched, QEvent* event) {
    const bool shows = event->type() == QEvent::ShowToParent;
    if (shows || event->type() == QEvent::HideToParent) {
        const auto pair = state_->covered.find(watched);
        if (pair != state_->covered.end()) pair->second->setVisible(!shows);
    }
    return QWidget::eventFilter(watched, event);
}

void Card::Finish() {
    // Until the bands have their full height the foot takes its share with them, then all the rest.
    state_->grid->setRowStretch(++state_->last, state_->bands.empty() ? 100 : 1);
}

void Card::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const QWidget* band : state_->bands) {
        const QRect place = band->geometry();
        const int y = place.top() + place.height() / 2;
        paint::Hairline(painter, paint::kLine, QLineF(place.left(), y, place.right(), y));
    }
}

QSize Card::minimumSizeHint() const {
    QSize least = QWidget::minimumSizeHint();
    if (!state_->tight) least.rwidth() -= LeastWidth(kFull) - LeastWidth(kTight);
    return least;
}

void Card::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool tight = width() < LeastWidth(kFull);
    if (std::exchange(state_->tight, tight) == tight) return;
    const Measures& measures = tight ? kTight : kFull;
    ApplyToCard(*state_->grid, measures);
    // The panels on it have columns of their own.
    for (QGridLayout* grid : findChildren<QGridLayout*>())
        for (const QVariant& first : grid->property(kHalfProperty).toList())
            ApplyToHalf(*grid, first.toInt(), measures);
    state_->grid->activate();
}

CardScroll::CardScroll(Card* card) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(card);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (!now || !widget()->isAncestorOf(now)) return;
        // The whole box; the toolkit's own would be content with its cursor.
        const QRect box(now->mapTo(widget(), QPoint()), now->size());
        ensureVisible(box.center().x(), box.center().y(), box.width() / 2 + kMarginV,
                      box.height() / 2 + kMarginV);
    });
}

CardAtRest::CardAtRest(QWidget& card) : card_(card) {
    card_.setUpdatesEnabled(false);
    card_.layout()->setEnabled(false);
}

CardAtRest::~CardAtRest() {
    card_.layout()->setEnabled(true);
    card_.layout()->activate();
    card_.setUpdatesEnabled(true);
}

}  // namespace controls
