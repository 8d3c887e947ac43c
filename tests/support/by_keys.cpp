#include "tests/support/by_keys.h"

#include "platform/controls/box.h"
#include "platform/controls/flex_grid.h"
#include "platform/system/guard.h"
#include "tests/support/gui.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tests {
namespace {

constexpr int kLongestTabOrder = 120;

/// Buttons whose own key is another control's, so that they need not be in the tab order.
const QStringList kReachedOtherwise = {u"CmdDownList"_s};  // Down in the text box beside it

QWidget* FocusedControl() {
    for (QWidget* w = QApplication::focusWidget(); w; w = w->parentWidget())
        if (dynamic_cast<controls::FocusEvents*>(w)) return w;
    return QApplication::focusWidget();
}

bool TakesInput(QWidget* control, bool browsing) {
    if (!control->isVisible() || !control->isEnabled()) return false;
    if (kReachedOtherwise.contains(control->objectName())) return false;
    if (dynamic_cast<controls::FlexGrid*>(control) || qobject_cast<QPushButton*>(control)) return true;
    if (browsing) return false;
    if (const auto* box = dynamic_cast<controls::TextBox*>(control)) return !box->Locked();
    // Up and Down go from the chosen one to the others.
    if (const auto* choice = qobject_cast<QRadioButton*>(control)) return choice->isChecked();
    return qobject_cast<QComboBox*>(control) || qobject_cast<QAbstractSpinBox*>(control) ||
           qobject_cast<QAbstractButton*>(control);
}

bool IsPartOfAnother(const QWidget& widget) {
    for (const QWidget* w = widget.parentWidget(); w && !w->isWindow(); w = w->parentWidget())
        if (qobject_cast<const QAbstractItemView*>(w) || qobject_cast<const QComboBox*>(w) ||
            qobject_cast<const QAbstractSpinBox*>(w))
            return true;
    return false;
}

/// What is on the screen to be used; frames, captions and the parts of a control need no name.
bool NeedsName(const QAccessibleInterface& item) {
    const QAccessible::State state = item.state();
    if (state.invisible || item.role() == QAccessible::Separator) return false;
    const auto* widget = qobject_cast<QWidget*>(item.object());
    if (!widget) return item.role() == QAccessible::MenuItem || item.role() == QAccessible::PageTab;
    if (!widget->isVisible() || widget->focusProxy() || IsPartOfAnother(*widget)) return false;
    return widget->isWindow() || widget->focusPolicy() != Qt::NoFocus ||
           qobject_cast<const QAbstractButton*>(widget);
}

void Visit(QAccessibleInterface* item, QStringList& lacking) {
    if (!item || !item->isValid()) return;
    const QAccessible::Role role = item->role();
    if (NeedsName(*item)) {
        const QString object = item->object() ? item->object()->objectName() : QString();
        const QString who = u"%1 (%2)"_s.arg(
            object, QString::fromLatin1(item->object() ? item->object()->metaObject()->className() : ""));
        if (item->text(QAccessible::Name).trimmed().isEmpty()) lacking << who + u" has no name"_s;
        if (role == QAccessible::NoRole || role == QAccessible::Client) lacking << who + u" has no role"_s;
    }
    if (role == QAccessible::Table || role == QAccessible::List) return;  // the cells are texts
    for (int i = 0; i < item->childCount(); ++i) Visit(item->child(i), lacking);
}

char16_t LetterOf(const QAction& command) {
    const auto at = command.text().indexOf(u'&');
    return at < 0 ? u'\0' : command.text().at(at + 1).unicode();
}

/// The letter, as often as it takes for this command's turn to come. In an open menu the first command is
/// active already.
void PressLetter(const QList<QAction*>& among, const QAction& command, bool inMenu) {
    int turn = 0;
    int candidates = 0;
    for (const QAction* other : among) {
        if (!other->isVisible() || !other->isEnabled() || LetterOf(*other) != LetterOf(command)) continue;
        ++candidates;
        if (other == &command) turn = candidates;
    }
    if (inMenu && LetterOf(*among.front()) == LetterOf(command)) --turn;
    for (int i = 0; i < (candidates > 1 ? turn : 1); ++i) AltKey(LetterOf(command));
    if (candidates > 1) Press(Qt::Key_Return);
}

/// For an entry of a menu that has no letter.
void PressDownTo(const QList<QAction*>& among, const QAction& command) {
    for (const QAction* other : among) {
        if (other == &command) break;
        if (other->isVisible() && other->isEnabled() && !other->isSeparator()) Press(Qt::Key_Down);
    }
    Press(Qt::Key_Return);
}

}  // namespace

std::vector<QWidget*> ControlsInTabOrder() {
    std::vector<QWidget*> tabOrder;
    for (int i = 0; i < kLongestTabOrder; ++i) {
        QWidget* stop = FocusedControl();
        if (!stop || std::ranges::find(tabOrder, stop) != tabOrder.end()) break;
        tabOrder.push_back(stop);
        Press(Qt::Key_Tab);
    }
    return tabOrder;
}

QStringList NotReachedByTab(QWidget& form, bool browsing) {
    const auto tabOrder = ControlsInTabOrder();
    QStringList missed;
    for (QWidget* control : form.findChildren<QWidget*>()) {
        if (!TakesInput(control, browsing) || IsPartOfAnother(*control)) continue;
        if (std::ranges::find(tabOrder, control) == tabOrder.end()) missed << control->objectName();
    }
    return missed;
}

QStringList WithoutNameOrRole(QWidget& window) {
    QStringList lacking;
    Visit(QAccessible::queryAccessibleInterface(&window), lacking);
    return lacking;
}

QStringList CommandsOf(const QMenuBar& bar) {
    QStringList names;
    for (const QAction* action : bar.actions()) {
        if (!action->menu()) names << action->objectName();
        if (action->menu())
            for (const QAction* item : action->menu()->actions())
                if (!item->isSeparator()) names << item->objectName();
    }
    return names;
}

bool RunByKeys(QMenuBar& bar, const QString& command) {
    const QPointer<QAction> action = bar.findChild<QAction*>(command);
    if (!action) return false;
    bool ran = false;
    const auto watch = QObject::connect(action, &QAction::triggered, [&ran] { ran = true; });
    const auto tops = bar.actions();
    const auto over = std::ranges::find_if(tops, [&](const QAction* top) {
        return top->menu() && top->menu()->actions().contains(action.data());
    });
    const bool inMenu = over != tops.end();
    if (inMenu) PressLetter(tops, **over, false);
    if (inMenu && LetterOf(*action) == u'\0')
        PressDownTo((*over)->menu()->actions(), *action);
    else
        PressLetter(inMenu ? (*over)->menu()->actions() : tops, *action, inMenu);
    QObject::disconnect(watch);
    return ran;
}

bool LeaveByKeys(QWidget& form) {
    const QPointer<QWidget> there(&form);
    const auto gone = [&there] { return !there || !there->isVisible() || sys::HasEnded(); };
    auto tabOrder = ControlsInTabOrder();
    Press(Qt::Key_Escape);
    std::ranges::reverse(tabOrder);
    for (QWidget* stop : tabOrder) {
        if (gone()) return true;
        if (!qobject_cast<controls::Button*>(stop)) continue;
        for (int i = 0; i < kLongestTabOrder && FocusedControl() != stop; ++i) Press(Qt::Key_Tab);
        Press(Qt::Key_Return);
    }
    return gone();
}

}  // namespace tests
