// What the small windows over the frame have in common: the product's head, rows of caption and box, a row of
// buttons at the right.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QList>
#include <QPushButton>
#include <QWidget>

namespace dressing {

/// The product's mark and name on white, the given line beneath the name.
QWidget* ProductHead(QLabel* subtitle);

/// A row for each box, its caption at the left; the captions are as wide as the widest of them.
class CaptionRows : public QGridLayout {
  public:
    CaptionRows();
    /// Makes the caption, with a control's name of its own. What stands beside the box keeps its width.
    void Add(const QString& caption, const QString& name, QWidget* box, QWidget* beside = nullptr);
};

QLayout* ButtonRow(const QList<QPushButton*>& buttons);
/// A head, a hairline and what stands beneath.
void Stack(QWidget& window, QWidget& head, QLayout* body);

}  // namespace dressing
