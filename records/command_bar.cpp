#include "records/command_bar.h"

#include "platform/controls/keys.h"

#include <algorithm>
#include <stdexcept>

void CommandBar::Fill(QMenuBar* bar, std::vector<CommandRow> rows) {
    bar_ = bar;
    rows_ = std::move(rows);
    for (const CommandRow& row : rows_)
        actions_.push_back(row.items.empty() ? controls::AddCommand(bar_, row.name, row.caption, row.handler)
                                             : AddItems(row));
    Show(CommandRow::When::Browsing);
}

QAction* CommandBar::AddItems(const CommandRow& row) const {
    QMenu* menu = controls::AddMenu(bar_, row.name, row.caption);
    menu->menuAction()->setObjectName(row.name);
    for (const CommandRow& item : row.items)
        controls::AddCommand(menu, item.name, item.caption, item.handler);
    return menu->menuAction();
}

void CommandBar::Show(CommandRow::When state) {
    const auto works = [](const CommandRow& command) { return bool(command.handler); };
    const auto fits = [state](const CommandRow& command) {
        return command.when == CommandRow::When::Always || command.when == state;
    };
    std::vector<std::pair<QAction*, bool>> enabled;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const CommandRow& row = rows_[i];
        const bool implemented = works(row) || std::any_of(row.items.begin(), row.items.end(), works);
        enabled.emplace_back(actions_[i], fits(row) && implemented);
        for (std::size_t k = 0; k < row.items.size(); ++k)
            actions_[i]->menu()->actions()[static_cast<qsizetype>(k)]->setEnabled(
                fits(row) && fits(row.items[k]) && works(row.items[k]));
    }
    controls::EnableCommands(bar_, enabled);
}

QAction& CommandBar::Action(const QString& name) const {
    for (QAction* action : actions_)
        if (action->objectName() == name) return *action;
    throw std::out_of_range("no command " + name.toStdString());
}
