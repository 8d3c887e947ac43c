// Layout shared by the small windows over the frame: the product's head, rows of a caption and a text box or
// combo, and a row of buttons at the right.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QList>
#include <QPushButton>
#include <QWidget>

namespace dressing {

/// The product's mark and name on white; the given line is below the name.
QWidget* ProductHead(QLabel* subtitle);

/// One row per text box or combo, with its caption at the left. All captions have the width of the widest
/// one.
class CaptionRows : public QGridLayout {
  public:
    CaptionRows();
    /// Creates the caption, whose object name is `name`. The widget `beside` keeps its width.
    void Add(const QString& caption, const QString& name, QWidget* box, QWidget* beside = nullptr);
};

QLayout* ButtonRow(const QList<QPushButton*>& buttons);
/// Lays out the window: the head, a hairline, the body below it.
void Stack(QWidget& window, QWidget& head, QLayout* body);

}  // namespace dressing
