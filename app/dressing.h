// Layout shared by the small windows over the frame: the product's head, rows of a caption and a text box or
// combo, and a row of buttons at the right.
#pragma once

#include "platform/controls/box.h"
#include "platform/controls/modal_form.h"

#include <QGridLayout>
#include <QLabel>
#include <QLayout>
#include <QList>
#include <QPushButton>
#include <QWidget>

#include <functional>
#include <span>

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
/// Fills a small window in which passwords are typed: a masked text box Txt(i) with its caption Lab(i), one
/// for each of `boxes`, which get them; 确定 is Cmd(0) and calls `ok`, 取消 is Cmd(1) and closes the window.
/// The first text box has the focus.
void FillPasswords(controls::ModalForm& window, const QStringList& captions,
                   std::span<controls::LineBox*> boxes, std::function<void()> ok);
/// Lays out the window: the head, a hairline, the body below it.
void Stack(QWidget& window, QWidget& head, QLayout* body);

}  // namespace dressing
