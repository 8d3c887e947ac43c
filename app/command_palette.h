// The command palette, Ctrl+K: a text box and the list of every form and command that the operator may open
// now, laid over the main window.
//
// Always holds: while it is open its text box has the focus, for the window's forms nothing changes (no
// GotFocus, no LostFocus), and when it closes the focus is where it was. Every key typed behind Ctrl+K gets
// into its box, since it is no window of its own and has the focus at once.
#pragma once

#include "app/command_search.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

class QAction;
class QLabel;
class QListView;
class QStandardItemModel;

struct PaletteEntry {
    QAction* action = nullptr;  ///< outlives the palette
    QString caption;
    QString shortName;
    QString place;                  ///< the menu that holds it; empty for what the palette alone opens
    std::function<bool()> offered;  ///< whether the operator may open it now
};

class CommandPalette : public QWidget {
    Q_OBJECT
  public:
    CommandPalette(QWidget& frame, std::vector<PaletteEntry> entries);
    ~CommandPalette() override;

    /// Opens it, with nothing typed. When it is open already, its text is ready to be typed over.
    void Open();
    /// Gives the focus back.
    void Close();
    bool IsOpen() const { return !isHidden(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Box;
    class RowDelegate;

    void Build();
    void DressControls();
    QWidget* Foot();
    void Place();
    CommandSearch& Search();
    void ShowHits();
    void Move(int rows);
    void Choose(int row);
    /// A key of the text box; false leaves it to the box.
    bool OnKey(int key, bool repeats);
    void OnFocusMoved(QWidget* now);

    QWidget& frame_;
    const std::vector<PaletteEntry> entries_;
    std::optional<CommandSearch> search_;  ///< made at first use
    std::vector<CommandSearch::Hit> hits_;
    QPointer<QWidget> before_;  ///< had the focus
    Box* box_;
    QLabel* count_;
    QListView* list_;
    QStandardItemModel* rows_;
    QLabel* nothing_;
};
