// The boxes of a card: text box, combo, date picker, check box. What a form sees of them is the same: a text,
// a locked and an enabled state, and the events of the focus and the keys.
//
// Always holds: what is pasted or dropped goes only into a text box that is not locked and keeps the focus
// when it gets it.
#pragma once

#include "platform/controls/control_events.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QString>

#include <functional>

class QMenu;

namespace controls {

/// A text box of one or several rows. MaxLength counts characters; a pasted tab becomes a blank.
class TextBox : public FocusEvents {
  public:
    virtual QWidget* Widget() = 0;
    virtual QString Text() const = 0;
    virtual void SetText(const QString& text) = 0;  ///< by program; fires Change when the text differs
    virtual bool Locked() const = 0;
    virtual void SetLocked(bool locked) = 0;  ///< read-only and still focusable
    virtual void SetMaxLength(int characters) = 0;
    virtual void SetMasked(bool masked) = 0;  ///< the password character "*"
    void SetEnabled(bool enabled) { Widget()->setEnabled(enabled); }
    void SetFocus() { MoveFocus(Widget()); }

    sys::Event<> Change;
    sys::Event<KeyPress&> KeyPressed;
    /// Adds the form's own entries to the context menu, behind those of the toolkit.
    std::function<void(QMenu&)> ExtendMenu;
};

/// One row.
class LineBox : public QLineEdit, public TextBox {
    Q_OBJECT
  public:
    explicit LineBox(QWidget* parent = nullptr);
    QWidget* Widget() override { return this; }
    QString Text() const override { return text(); }
    void SetText(const QString& text) override;
    bool Locked() const override { return isReadOnly(); }
    void SetLocked(bool locked) override;
    void SetMaxLength(int characters) override { setMaxLength(characters); }
    void SetMasked(bool masked) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void EmitChange();

    QString last_;
};

/// Several rows, wrapped. Enter and Tab move on and insert nothing; there are no line breaks in it unless
/// pasted.
class RowsBox : public QPlainTextEdit, public TextBox {
    Q_OBJECT
  public:
    explicit RowsBox(int rows, QWidget* parent = nullptr);
    QWidget* Widget() override { return this; }
    QString Text() const override;
    void SetText(const QString& text) override;
    bool Locked() const override { return isReadOnly(); }
    void SetLocked(bool locked) override;
    void SetMaxLength(int characters) override { maxLength_ = characters; }
    void SetMasked(bool masked) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    QMimeData* createMimeDataFromSelection() const override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void CutToLength();
    void EmitChange();

    int maxLength_ = 32767;
    bool masked_ = false;
    QString last_;
};

/// A combo that can be typed into: no completion, no insertion of typed text, no wheel. Filling selects
/// nothing. Behind a typed piece an arrow key goes to the first item that begins with it, in any case of the
/// letters. The list is as wide as its longest item.
class ComboBox : public QComboBox, public FocusEvents {
    Q_OBJECT
  public:
    explicit ComboBox(QWidget* parent = nullptr);
    QString Text() const { return currentText(); }
    void SetText(const QString& text);
    /// The items and the text.
    void Clear();
    void AddItem(const QString& item);
    int ListCount() const { return count(); }
    QString List(int index) const { return itemText(index); }
    /// The item equal to the text, or -1.
    int ListIndex() const;
    /// Chooses an item, -1 none; fires Click even when unchanged. Raises for an item that is not there.
    void SetListIndex(int index);
    /// Its items and no other text: nothing can be typed, and a click on the text opens the list.
    void SetItemsOnly();
    void showPopup() override;
    void SetFocus() { MoveFocus(this); }

    sys::Event<> Click;   ///< an item was chosen, by the operator or by SetListIndex
    sys::Event<> Change;  ///< the text was typed into
    sys::Event<KeyPress&> KeyPressed;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void Choose(int index);
    int CurrentItem() const;
    int FirstMatch() const;
    void WidenList();
};

/// A date box with a calendar, yyyy-MM-dd; one place in the tab order. Typed digits fill year, month and day
/// one after the other; "-", "." and "/" end the section that is typed. A pasted or dropped date ("2024-1-5",
/// "2024/01/05", "2024.1.5") replaces the whole date, any other text is ignored.
class DTPicker : public QDateEdit, public FocusEvents {
    Q_OBJECT
  public:
    explicit DTPicker(QWidget* parent = nullptr);
    /// A section that is typed half is finished first, so that a command reads what the operator sees.
    QDate Value();
    /// Fires nothing; an invalid date leaves the value as it is.
    void SetValue(QDate value);
    void SetFocus() { MoveFocus(this); }
    /// As Alt+Down and F4 do.
    void OpenCalendar();

    sys::Event<> Change;  ///< the operator set another date
    sys::Event<KeyPress&> KeyPressed;

  protected:
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void TypeSeparator();
    void TakeText(const QString& text);

    bool advanced_ = false;  ///< the last digit filled its section, and the next one is selected already
    bool begun_ = false;     ///< a digit of the current section was typed or deleted
};

class CheckBox : public QCheckBox, public FocusEvents {
    Q_OBJECT
  public:
    explicit CheckBox(const QString& caption, QWidget* parent = nullptr);
    /// 0 or 1. Setting it by program fires nothing.
    int Value() const { return isChecked() ? 1 : 0; }
    void SetValue(int value) { setChecked(value != 0); }
    /// As the locked boxes around it look; what a click does remains the form's to say.
    void LookLocked(bool locked);
    void SetFocus() { MoveFocus(this); }

    sys::Event<> Click;  ///< the operator's own click, after the mark has changed
    sys::Event<KeyPress&> KeyPressed;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

/// Never an auto-default button; Enter on a focused button presses it. The captions "5" and "6" are drawn as
/// chevrons, up and down.
class Button : public QPushButton, public FocusEvents {
    Q_OBJECT
  public:
    explicit Button(const QString& caption, QWidget* parent = nullptr);
    QString Caption() const { return text(); }
    void SetCaption(const QString& caption);
    void SetFocus() { MoveFocus(this); }

    sys::Event<> Click;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// Lets the style sheet look at the control again, whose state has changed.
void Repolish(QWidget* control);
/// Sets a property that the style sheet asks for, also on a control that is shown already: "state" "error",
/// "kind" "total", "role" "danger", "kind" "inline" for a button in a row of boxes.
void Mark(QWidget* control, const char* property, const QString& value);

/// The caption of a control: muted, right-aligned, buddy and accessible name of it. Its text is the Lab's
/// Caption.
QLabel* MakeCaption(const QString& caption, QWidget* box, QWidget* parent);

}  // namespace controls
