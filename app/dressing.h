// What the small windows of the frame have in common: the product's head, a row of buttons at the right.
#pragma once

#include <QLabel>
#include <QLayout>
#include <QList>
#include <QPushButton>
#include <QWidget>

namespace dressing {

/// The product's mark and name on white, the given line beneath the name.
QWidget* ProductHead(QLabel* subtitle);
QLayout* ButtonRow(const QList<QPushButton*>& buttons);
/// A head, a hairline and what stands beneath.
void Stack(QWidget& window, QWidget& head, QLayout* body);

}  // namespace dressing
