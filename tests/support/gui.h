// Driving forms as an operator does: keys to whatever has the focus, controls found by their names.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <stdexcept>

namespace tests {

/// Lets everything that is posted happen, the focus tracker included.
void Settle();

/// The control or command of that name below a form or window, or the root itself; fails the test when it is
/// not there.
template <class T>
T& Find(QWidget& root, const QString& name) {
    if (auto* self = qobject_cast<T*>(&root); self && root.objectName() == name) return *self;
    if (auto* found = root.findChild<T*>(name)) return *found;
    throw std::runtime_error("no control " + name.toStdString() + " of that kind in " +
                             root.objectName().toStdString());
}

/// Shows a window and makes it the active one.
void Show(QWidget& window);

/// A key to the control that has the focus; then everything posted happens.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Types a text into the control that has the focus, character by character.
void Type(const QString& text);
/// The same in place of what is there.
void TypeOver(const QString& text);
/// Alt and a letter: the command of a menu bar; in an open menu the letter alone.
void AltKey(char16_t letter);
/// The name of the control that has the focus (an editor inside a combo counts as the combo); "" if none.
QString FocusName();

/// A click with the left button into the middle of a control; then everything posted happens.
void Click(QWidget& control);
/// At a place inside it.
void ClickAt(QWidget& control, QPoint place);

/// What the operator does with the next modal form of that name. An unexpected one fails the test; so does
/// one that never came. Steps are taken in order.
class ModalScript {
  public:
    ModalScript();
    ~ModalScript();
    void Next(const QString& formName, std::function<void(QWidget& form)> drive);

  private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace tests
