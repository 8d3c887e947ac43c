// The one top-level window: menu bar, tool bar, status bar and wallpaper; all other forms open from it.
//
// Always holds: the menus are the rows of one table (main_menu.cpp); a row whose form is not in the registry
// is shown and disabled. The visibility of the five top menus is the operator's rights, and the tool bar asks
// the same.
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

    /// The picture, the panels, the date; errors are ignored throughout.
    void Load();

    /// A menu item by its name in the system ("Menu_A04"), top menus included; none if there is no such name.
    /// The two below presume that there is (std::out_of_range).
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

    /// Shows a modal form of the registry over the frame and returns when it has gone. This one and the next
    /// raise RuntimeError for a form that is not in the registry.
    void ShowModal(const QString& form);
    /// Shows the single instance of a child form, made and loaded if it is not there.
    ChildForm& ShowChild(const QString& form);
    /// The instance if it is there.
    ChildForm* Child(const QString& form) const;
    /// The child in front, or none.
    ChildForm* Front() const;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    struct State;
    std::unique_ptr<State> state_;
};

/// While a record is being edited: warns the operator who wants to leave, and says so.
bool WarnOfEdit();

/// The main window of this run. Raises RuntimeError when there is none.
MForm& TheFrame();
/// For start-up and for tests that set a frame up without one.
void SetTheFrame(MForm* frame);
