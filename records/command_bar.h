// The menu bar of a form as a table: what its entries do and in which state of the form they are enabled.
//
// Always holds: an entry without a handler is shown and stays disabled.
#pragma once

#include <QAction>
#include <QMenuBar>
#include <QString>

#include <functional>
#include <vector>

/// One entry.
struct CommandRow {
    enum class When { Browsing, Editing, Always };
    QString name;     ///< "Menu_save"
    QString caption;  ///< "&S.保存"
    When when;        ///< the state in which it is enabled
    /// What it does. Without one the entry is not implemented yet.
    std::function<void()> handler = {};
    /// With items it is a menu, open to the operator when one of them has a handler.
    std::vector<CommandRow> items = {};
};

class CommandBar {
  public:
    /// Fills the bar. Begins in browsing state.
    void Fill(QMenuBar* bar, std::vector<CommandRow> rows);
    void Show(CommandRow::When state);
    /// Raises std::out_of_range for an entry that is not there; a menu's items are not looked through.
    QAction& Action(const QString& name) const;

  private:
    QAction* AddItems(const CommandRow& menu) const;

    QMenuBar* bar_ = nullptr;
    std::vector<CommandRow> rows_;
    std::vector<QAction*> actions_;  ///< one for each of rows_
};
