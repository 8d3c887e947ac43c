// One style sheet and one layout grammar for all forms.
//
// A card has two mirrored halves; a half has six column edges: caption, box, caption, box, caption, box. A
// box starts and ends only at one of these edges; a long field spans pairs, it never gets a width of its own.
#pragma once

#include <QApplication>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QString>
#include <QWidget>

namespace controls {

/// Style, font, pictures, the toolkit's Chinese texts, the real windows behind the seams (boxes, file
/// dialogs, the input method). Once, before the first window.
void DressApplication(QApplication& app);

/// A picture of the look by its name: "app", "receive".
QIcon LookIcon(const QString& name);

/// Lays out a card, top to bottom.
class Card : public QWidget {
    Q_OBJECT
  public:
    enum class Half { Left, Right };
    explicit Card(QWidget* parent = nullptr);

    /// A new group with its title on its first row in the left half, or in both halves; a rule stands above
    /// it unless it is the first.
    void Group(const QString& leftTitle, const QString& rightTitle = {});
    /// Places caption and box in the half's next free pair(s) of the given row of the group (0 the first).
    /// pair 0 to 2 is where it starts, span how many pairs it covers; an empty caption leaves the caption's
    /// place to the box.
    void Field(Half half, int row, int pair, int span, QLabel* caption, QWidget* box);
    /// A second widget on the same place (a combo or a picker over its box).
    void Over(QWidget* box, QWidget* cover);
    /// Rows that a box of several rows takes.
    void TallField(Half half, int row, int rows, int pair, int span, QLabel* caption, QWidget* box);
    /// Spare height goes into the bands between the groups, then to the foot. Call after the last field.
    void Finish();

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct State;
    State* state_;
};

/// A narrow card of one column for small forms: caption left, box right, pitch 32.
class NarrowCard : public QWidget {
    Q_OBJECT
  public:
    explicit NarrowCard(QWidget* parent = nullptr);
    void Field(QLabel* caption, QWidget* box);
    void Finish();

  private:
    QGridLayout* grid_;
    int row_ = 0;
};

}  // namespace controls
