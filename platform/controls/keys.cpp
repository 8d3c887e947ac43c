#include "platform/controls/keys.h"

#include "platform/controls/input_order.h"
#include "platform/system/guard.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcutEvent>

using namespace Qt::StringLiterals;

namespace controls {

void SendKeys(const QString& keys) {
    if (keys != u"{TAB}") return;
    InputOrder::Get().Post([window = QPointer<QWidget>(QApplication::activeWindow())] {
        // A message box that has come up since then is not meant.
        QWidget* target = window ? window->focusWidget() : nullptr;
        if (!target || sys::HasEnded()) return;
        const QPointer<QWidget> alive(target);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
        QCoreApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
        if (alive) QCoreApplication::sendEvent(target, &release);
    });
}

void RunCommand(const std::function<void()>& handler) {
    InputOrder& input = InputOrder::Get();
    if (!handler || input.KeyRepeats()) return;
    input.CommitComposition();
    sys::Guarded(handler);
}

void EnterMovesOn(KeyPress& key) {
    if (!key.IsEnter()) return;
    key.taken = true;
    SendKeys(u"{TAB}"_s);
}

namespace {

/// The toolkit runs the first of two commands with the same key, and minds neither which are disabled. Here
/// the key runs a command that is alone; among several it selects the next, and Enter runs the selected one.
class HotKeys : public QObject {
  public:
    static void Watch(QWidget* commands) {
        const auto name = u"hotKeys"_s;
        if (commands->findChild<QObject*>(name, Qt::FindDirectChildrenOnly)) return;
        auto* keys = new HotKeys(commands);
        keys->setObjectName(name);
        commands->installEventFilter(keys);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool key = event->type() == QEvent::Shortcut || event->type() == QEvent::KeyPress;
        if (key && InputOrder::Get().KeyRepeats() && !SelectsWhileHeld(*event)) return true;
        if (auto* bar = qobject_cast<QMenuBar*>(watched)) {
            if (event->type() == QEvent::Shortcut) return OnBar(*bar, *static_cast<QShortcutEvent*>(event));
            if (event->type() == QEvent::KeyPress) return InBar(*bar, *static_cast<QKeyEvent*>(event));
        } else if (auto* menu = qobject_cast<QMenu*>(watched)) {
            if (event->type() == QEvent::KeyPress) return InMenu(*menu, *static_cast<QKeyEvent*>(event));
        }
        return false;
    }

  private:
    using QObject::QObject;

    /// The command that a key of a bar has run last.
    struct LastKey {
        QPointer<const QMenuBar> bar;
        QKeySequence key;
        QPointer<const QAction> command;
        QElapsedTimer since;  ///< since it was done
    };
    static constexpr qint64 kTwoPresses = 400;  ///< milliseconds
    static inline LastKey last_;

    /// Arrow keys and their like go on while they are held; letters and Enter run something.
    static bool SelectsWhileHeld(const QEvent& event) {
        if (event.type() != QEvent::KeyPress) return false;
        const int key = static_cast<const QKeyEvent&>(event).key();
        return key >= Qt::Key_Home && key <= Qt::Key_PageDown;
    }

    /// The commands of that key; `live` leaves out what does not react.
    static QList<QAction*> Of(const QWidget& commands, const QKeySequence& key, bool live) {
        QList<QAction*> found;
        for (QAction* action : commands.actions()) {
            if (action->isSeparator() || QKeySequence::mnemonic(action->text()) != key) continue;
            if (!live || (action->isVisible() && action->isEnabled())) found << action;
        }
        return found;
    }

    static QAction* After(QAction* active, const QList<QAction*>& candidates) {
        return candidates[(candidates.indexOf(active) + 1) % candidates.size()];
    }

    /// The key of a letter without Alt, as it counts in a menu that is open.
    static QKeySequence Letter(const QKeyEvent& event) {
        const bool plain = !(event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
        const QString text = event.text();
        if (!plain || text.size() != 1 || !text[0].isLetterOrNumber()) return {};
        return QKeySequence::mnemonic(u'&' + text);
    }

    /// Alt and a letter.
    static bool OnBar(QMenuBar& bar, const QShortcutEvent& event) {
        const QList<QAction*> candidates = Of(bar, event.key(), true);
        if (candidates.isEmpty()) return true;
        if (candidates.size() > 1) return SelectNext(bar, candidates);
        if (IsSecondOfTwo(bar, event.key(), candidates.front())) return true;
        Run(bar, candidates.front());
        last_.since.start();
        return true;
    }

    /// The second of two quick presses of a key that meets another command of the bar than the first has run:
    /// the state has changed between them, and the command that the key has now was not meant.
    static bool IsSecondOfTwo(const QMenuBar& bar, const QKeySequence& key, const QAction* command) {
        const bool second = last_.bar == &bar && last_.key == key && last_.command != command &&
                            last_.since.isValid() && !last_.since.hasExpired(kTwoPresses);
        if (!second) last_ = {&bar, key, command, {}};
        return second;
    }

    /// A letter or Enter while the bar has the focus.
    static bool InBar(QMenuBar& bar, const QKeyEvent& event) {
        const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
        if (enter && bar.activeAction() && !bar.activeAction()->menu()) {
            // The toolkit leaves the bar after the command, when a modal form has made it forget where to.
            Run(bar, bar.activeAction());
            return true;
        }
        const QKeySequence key = Letter(event);
        if (key.isEmpty() || Of(bar, key, false).isEmpty()) return false;
        const QList<QAction*> candidates = Of(bar, key, true);
        if (candidates.size() > 1) return SelectNext(bar, candidates);
        if (candidates.size() == 1) Run(bar, candidates.front());
        return true;
    }

    static bool InMenu(QMenu& menu, const QKeyEvent& event) {
        const QKeySequence key = Letter(event);
        if (key.isEmpty() || Of(menu, key, false).size() < 2) return false;
        const QList<QAction*> candidates = Of(menu, key, true);
        if (candidates.isEmpty()) return true;
        menu.setActiveAction(After(menu.activeAction(), candidates));
        if (candidates.size() == 1) Press(menu, Qt::Key_Return);
        return true;
    }

    static void Press(QWidget& target, Qt::Key key) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&target, &press);
    }

    static void Run(QMenuBar& bar, QAction* command) {
        if (QMenu* menu = command->menu()) {
            bar.setActiveAction(command);
            return Press(*menu, Qt::Key_Down);  // to its first item
        }
        if (bar.hasFocus()) Press(bar, Qt::Key_Escape);
        command->trigger();
    }

    static bool SelectNext(QMenuBar& bar, const QList<QAction*>& candidates) {
        QAction* next = After(bar.activeAction(), candidates);
        if (!bar.hasFocus()) EnterByAlt(bar);
        // By arrow key, since a command that is made active by name opens its menu.
        for (int step = 0; step < bar.actions().size() && bar.activeAction() != next; ++step)
            Press(bar, Qt::Key_Right);
        return true;
    }

    /// The operator's own way into the bar: Alt pressed and released. Leaving it gives the focus back. (An
    /// event of the key Alt itself adds Alt to its modifiers.)
    static void EnterByAlt(QMenuBar& bar) {
        QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(bar.window(), &press);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(bar.window(), &release);
    }
};

/// Keeps from a bar that its commands change.
class ActionChangeBlocker : public QObject {
  public:
    explicit ActionChangeBlocker(QMenuBar& bar) { bar.installEventFilter(this); }

  protected:
    bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::ActionChanged; }
};

void ConnectCommand(QAction* action, const QString& name, std::function<void()> handler) {
    action->setObjectName(name);
    QObject::connect(action, &QAction::triggered, action,
                     [handler = std::move(handler)] { RunCommand(handler); });
}

}  // namespace

QAction* AddCommand(QMenuBar* bar, const QString& name, const QString& caption,
                    std::function<void()> handler) {
    QAction* action = bar->addAction(caption);
    HotKeys::Watch(bar);
    ConnectCommand(action, name, std::move(handler));
    return action;
}

QAction* AddCommand(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler) {
    QAction* action = menu->addAction(caption);
    HotKeys::Watch(menu);
    ConnectCommand(action, name, std::move(handler));
    return action;
}

void EnableCommands(QMenuBar* bar, const std::vector<std::pair<QAction*, bool>>& commands) {
    auto changed = commands;
    std::erase_if(changed, [](const auto& command) { return command.first->isEnabled() == command.second; });
    if (changed.empty()) return;
    const auto [last, lastEnabled] = changed.back();
    changed.pop_back();
    {
        const ActionChangeBlocker curtain(*bar);
        for (const auto& [command, enabled] : changed) command->setEnabled(enabled);
    }
    last->setEnabled(lastEnabled);
}

QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& caption) {
    QMenu* menu = bar->addMenu(caption);
    menu->setObjectName(name);
    HotKeys::Watch(bar);
    HotKeys::Watch(menu);
    return menu;
}

}  // namespace controls
