// The one top-level window: menu bar, tool bar, status bar and wallpaper; all other forms open from it.
//
// Always holds: the menus are the rows of one table (main_menu.cpp); a row whose form is not in the registry
// is shown and disabled. The operator's rights set the visibility of five top menus, and the tool bar checks
// that visibility.
#pragma once

#include "app/child_form.h"
#include "app/registry.h"

#include <QMainWindow>
#include <QString>

#include <memory>

class QAction;

class MForm : public QMainWindow {
    Q_OBJECT
  public:
    explicit MForm(const Registry& registry);
    ~MForm() override;

    /// Loads the picture and fills the panels and the date. Ignores all errors.
    void Load();

    /// The menu item of that name ("Menu_A04"), top menus included; null if there is none. For an unknown
    /// name the next two raise std::out_of_range.
    QAction* MenuItem(const QString& name) const;
    bool MenuVisible(const QString& name) const;
    void SetMenuVisible(const QString& name, bool visible);

    /// The panels of the status bar. The last one shows today's date or the position text of the form in
    /// front.
    enum PanelNumber { NoticePanel = 1, OperatorCaptionPanel, OperatorPanel, PositionPanel };
    QString Panel(int number) const;
    void SetPanel(int number, const QString& text);

    void ShowToolBar(bool shown);
    bool ToolBarShown() const;

    /// Shows a modal form of the registry over the frame and returns after it is closed. This function and
    /// the next raise RuntimeError for a form that is not in the registry.
    void ShowModal(const QString& form);
    /// Shows the single instance of a child form; creates and loads it if it does not exist.
    ChildForm& ShowChild(const QString& form);
    /// The instance; null if it does not exist.
    ChildForm* Child(const QString& form) const;
    /// The child form in front; null if there is none.
    ChildForm* Front() const;
    /// Whether any open child form is in add or edit state.
    bool AnyInEdit() const;
    /// Calls DataChanged of all open forms; the position panel keeps its text.
    void DataChanged();

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// While a record is being edited in any form: shows the operator a warning and returns true. Otherwise
/// returns false.
bool WarnOfEdit();
/// For a form's QueryUnload: the same, but where EditInProgress is not set only the form's own edit counts.
bool WarnOfEdit(const ChildForm& form);
/// Lets the open forms notice that stored records were changed behind their lists. Nothing without a main
/// window.
void StoredDataChanged();

/// The main window of this run. Raises RuntimeError when there is none.
MForm& TheFrame();
/// The name of the modal form or, without one, of the child form in front ("B01"); "" if there is none.
QString FormInFront();
/// For start-up, and for tests that create a frame without start-up.
void SetTheFrame(MForm* frame);
