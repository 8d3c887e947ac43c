// A running program for the tests: a fresh company's file, the main window, an operator logged in, a script
// that answers for him. Forms are driven by keys and looked at by their controls' names.
#pragma once

#include "app/main_window.h"
#include "app/session.h"
#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/controls/tab_strip.h"
#include "tests/support/company.h"
#include "tests/support/gui.h"
#include "tests/support/script.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace tests {

using namespace Qt::StringLiterals;

/// What most boxes of the forms are titled.
inline const QString Title = u"提示"_s;

/// What an operator sees and does at the main window.
class Desk {
  public:
    MForm& Frame() { return TheFrame(); }
    /// Opens a child form by its menu's keys ("A6", "B").
    ChildForm& Open(const QString& keys, const QString& form);

    /// Below the child in front.
    template <class T>
    T& At(const QString& name) {
        return Find<T>(*Frame().Front(), name);
    }
    controls::TextBox& TextBoxAt(int index);
    controls::ComboBox& ComboAt(int index);
    QString Box(int index);                       ///< text of Txt(index)
    void SetBox(int index, const QString& text);  ///< goes there and types over its text
    QString Combo(int index);
    void SetCombo(int index, const QString& text);
    /// Presses Enter until that control has the focus.
    void GoTo(const QString& control);
    QString Boxes(int first, int last);  ///< their texts joined by "|"
    QString Caption(int box) { return At<QLabel>(u"Lab(%1)"_s.arg(box)).text(); }
    bool Shown(const QString& control) { return At<QWidget>(control).isVisible(); }
    /// Brings the focus to a control, as a click on it does.
    void Enter(const QString& control);
    /// Goes to a button and presses it by Enter.
    void Push(const QString& button);
    controls::FlexGrid& Grid() { return At<controls::FlexGrid>(u"GD"_s); }
    controls::TabStrip& Tabs() { return At<controls::TabStrip>(u"TabS"_s); }
    /// Selects a data row of the list by the list's keys.
    void GoToRow(int row);
    /// The card of a row of the list.
    void ShowCard(int row = 1);
    /// The data lines of the grid, cells joined by "|".
    QStringList Lines();
    bool Enabled(const QString& command);
    QString Status() { return Frame().Panel(4); }

    /// All rows of a statement, fields joined by "|", null as "<null>".
    QStringList Rows(const QString& sql);
    void Execute(const QString& sql);
};

class Program : public Desk {
  public:
    /// Statements put the masters in place; then the operator (an existing row of TE1) is logged in.
    explicit Program(const QStringList& masters = {}, const QString& operatorCode = u"001"_s,
                     const OpenWith& with = {});
    ~Program();

    Script script;

    /// Saves, gets this refusal and goes on editing.
    void RefusesToSave(const QString& message);
    /// The next statement that fails has this in its report; the program ends with status 1.
    void EndsWith(const QString& report);
    /// The data file.
    QString File() const { return company_.File(); }

  private:
    void LogIn(const QString& operatorCode);

    Company company_;
    std::unique_ptr<MForm> frame_;
};

/// Starts the real program on a folder and logs the administrator in by keys; null when it did not start.
std::unique_ptr<MForm> StartAndLogIn(const QString& folder);

}  // namespace tests
