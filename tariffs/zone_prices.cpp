#include "tariffs/zone_prices.h"

#include "platform/controls/card.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int Parts = 3;  // caption, box, and what is beside it
constexpr int PlainPrices = 4;
constexpr int CaptionWidth = 95;  // with the gap to its box
constexpr int ColumnGap = 8;
constexpr int BoxWidth = 74;  // eight digits
constexpr int BesideWidth = 26;

}  // namespace

ZonePrices::ZonePrices(const std::vector<Price>& prices, int inARow, const QString& note)
    : grid_(new QGridLayout(this)), inARow_(inARow) {
    setObjectName(u"FrmPrice"_s);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(0);
    grid_->setVerticalSpacing(controls::kRowGap);
    int nth = 0;
    for (const Price& price : prices) Place(price, nth++);
    for (int pair = 0; pair < inARow_; ++pair) {
        grid_->setColumnMinimumWidth(Parts * pair, CaptionWidth + (pair > 0 ? ColumnGap : 0));
        grid_->setColumnStretch(Parts * pair + 1, 1);
    }
    if (!note.isEmpty()) PlaceNote(note);
}

void ZonePrices::Place(const Price& price, int nth) {
    const int heavy = nth - PlainPrices;
    const int row = heavy < 0 ? 0 : 1 + heavy / inARow_;
    const int col = Parts * (heavy < 0 ? nth : heavy % inARow_);
    rows_ = std::max(rows_, row + 1);
    grid_->setRowMinimumHeight(row, controls::kBoxHeight);
    QWidget* box = price.box->Widget();
    box->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    box->setMinimumWidth(BoxWidth);
    price.caption->setFixedHeight(controls::kBoxHeight);
    grid_->addWidget(price.caption, row, col);
    grid_->addWidget(box, row, col + 1);
}

void ZonePrices::PlaceNote(const QString& note) {
    auto* label = controls::MakeCaption(note, nullptr, this);
    label->setObjectName(u"Label1"_s);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    grid_->addWidget(label, rows_++, 1, 1, Parts * inARow_ - 1);
}

void ZonePrices::PutBeside(QWidget* price, QWidget* part) {
    int row = 0, col = 0, rows = 0, cols = 0;
    grid_->getItemPosition(grid_->indexOf(price), &row, &col, &rows, &cols);
    grid_->addWidget(part, row, col + 1, Qt::AlignRight | Qt::AlignVCenter);
    grid_->setColumnMinimumWidth(col + 1, BesideWidth);
    QWidget::setTabOrder(price, part);
}
