// One layout grammar for all cards.
//
// A card has two mirrored halves; a half has six column edges: caption, box, caption, box, caption, box. A
// box starts and ends only at one of these edges; a long field spans pairs, it never gets a width of its own.
// Rows and pairs count from 0. A place that is taken already is not refused: the two lie over each other.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QString>
#include <QWidget>

#include <memory>

namespace controls {

// Device-independent pixels.
inline constexpr int kBoxHeight = 24;  ///< of a box of one row, and of the caption beside it
inline constexpr int kRowGap = 8;      ///< between two rows of boxes

/// Gives a layout the six columns of a card's half, the first of them at that column of the layout. On a card
/// they follow the card's measures.
void SetHalfColumns(QGridLayout& grid, int first = 0);

/// Lays out a card, top to bottom; a half has three pairs of caption and box. Where it gets too narrow for
/// the full measures, captions and gaps are smaller; every box still shows eight digits.
class Card : public QWidget {
    Q_OBJECT
  public:
    enum class Half { Left, Right };
    explicit Card(QWidget* parent = nullptr);
    ~Card() override;

    /// A new group with its title on its first row in the left half, or in both halves; a rule is drawn
    /// above it unless it is the first.
    void Group(const QString& leftTitle, const QString& rightTitle = {});
    /// Places caption and box in the half's pair(s) of the given row of the group (0 the first). pair 0 to 2
    /// is where it starts, span how many pairs it covers. Without a caption the caption's place stays free,
    /// so that the box is under the others.
    void Field(Half half, int row, int pair, int span, QLabel* caption, QWidget* box);
    /// A second widget on the same place (a combo or a picker over its box). While the cover is shown the box
    /// is hidden and out of the tab order; hiding the cover shows the box.
    void Over(QWidget* box, QWidget* cover);
    /// The same for a control that takes several rows of the card; the caption is on the first.
    void TallField(Half half, int row, int rows, int pair, int span, QLabel* caption, QWidget* box);
    /// A panel with columns of its own over several rows, from the first box's edge to the right edge of the
    /// card.
    void Panel(int row, int rows, QWidget* panel);
    /// A panel over several rows of a half, its first caption included; its own layout takes the half's
    /// columns from SetHalfColumns.
    void HalfPanel(Half half, int row, int rows, QWidget* panel);
    /// Spare height goes into the bands between the groups, then to the foot. Call after the last field.
    void Finish();
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// Holds a card and scrolls it where the form is smaller than the card's least size; the control that gets
/// the focus is scrolled into sight.
class CardScroll : public QScrollArea {
    Q_OBJECT
  public:
    explicit CardScroll(Card* card);
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

/// While it lives the card (or a whole form) places and paints nothing, however many of its widgets are
/// shown, hidden or locked; at its end it does both once. Without it each of them would place them all.
class CardAtRest {
  public:
    explicit CardAtRest(QWidget& card);
    ~CardAtRest();
    CardAtRest(const CardAtRest&) = delete;
    CardAtRest& operator=(const CardAtRest&) = delete;

  private:
    QWidget& card_;
};

}  // namespace controls
