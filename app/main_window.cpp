#include "app/main_window.h"

#include "app/command_palette.h"
#include "app/data_access.h"
#include "app/main_menu.h"
#include "app/product.h"
#include "app/session.h"
#include "app/wallpaper.h"
#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/keys.h"
#include "platform/controls/look.h"
#include "platform/errors.h"
#include "platform/system/guard.h"
#include "platform/system/seams.h"
#include "platform/text/dates.h"
#include "platform/text/numbers.h"
#include "schema/names.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QRegularExpression>
#include <QStackedWidget>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>
#include <map>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

MForm* theFrame = nullptr;

constexpr QSize kSmallest(960, 600);                     // the least that the card of a waybill can live with
constexpr std::array<int, 4> kPanelEighths{3, 1, 1, 3};  // of the width

/// The first control of a page's tab order; the page itself if there is none.
QWidget* FirstInTabOrder(QWidget* page) {
    for (QWidget* w = page->nextInFocusChain(); w && w != page; w = w->nextInFocusChain()) {
        const bool stop = (w->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
        if (stop && page->isAncestorOf(w) && w->isVisibleTo(page) && w->isEnabled()) return w;
    }
    return page;
}

/// A page that comes to the front goes on where it was left.
void FocusPage(ChildForm* page) {
    const auto usable = [page](const QWidget* w) { return w && w->isVisibleTo(page) && w->isEnabled(); };
    // Else a price would be computed over what was typed, and a customer that was typed would count as known.
    if (page->InEdit() && usable(page->focusWidget()))
        return controls::FocusTracker::Get().Resume(page->focusWidget());
    for (QWidget* wanted : {page->focusWidget(), page->FirstFocus()})
        if (usable(wanted)) return controls::MoveFocus(wanted);
    controls::MoveFocus(FirstInTabOrder(page));
}

/// "&1.出货渠道计价标准" without its key.
QString PlainCaption(QStringView caption) {
    static const QRegularExpression key(u"^&.\\."_s);
    return caption.toString().remove(key).remove(u'&');
}

QString TodayText() {
    return text::DateText(sys::Today());
}

}  // namespace

struct MForm::State {
    State(MForm& window, const Registry& forms) : frame(window), registry(forms) {}

    void BuildMenus();
    void AddRow(const MenuRow& row, QMenu*& under);
    void BuildPages();
    void BuildTools();
    void BuildStatus();
    void BuildPalette();
    PaletteEntry EntryOf(const MenuRow& row, const MenuRow* top) const;
    QAction* MakeAction(const MenuRow& row);

    bool IsImplemented(const MenuRow& row) const;
    bool IsOffered(const QString& item, const QString& right) const;
    void Run(const MenuRow& row);
    void Press(const ToolRow& row);

    ChildForm* Find(const QString& form) const;
    ChildForm& Show(const QString& form, const MenuRow* row);
    ChildForm* Make(const QString& form);
    void RemovePage(ChildForm& form);
    void RemoveChild(ChildForm& form);
    void ShowFront();

    MForm& frame;
    const Registry registry;
    QStackedWidget* bars = nullptr;
    QMenuBar* bar = nullptr;
    QStackedWidget* pages = nullptr;
    Wallpaper* wall = nullptr;
    QToolBar* tools = nullptr;
    QStatusBar* status = nullptr;
    std::array<QLabel*, 4> panels{};
    std::map<QString, QAction*> items;
    std::vector<ChildForm*> open;  ///< in the order of their showing; the last is in front
};

// ------------------------------------------------------------------------------------------------ building

void MForm::State::BuildMenus() {
    bars = new QStackedWidget;
    bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    bars->addWidget(bar);
    QMenu* under = nullptr;
    for (const MenuRow& row : MenuRows()) AddRow(row, under);
    frame.setMenuWidget(bars);
}

void MForm::State::AddRow(const MenuRow& row, QMenu*& under) {
    const QString name = row.name.toString();
    const QString caption = row.caption.toString();
    QAction* item = nullptr;
    if (row.top && row.opens == Opens::Nothing) {
        under = controls::AddMenu(bar, name, caption);
        item = under->menuAction();
    } else if (row.top) {
        item = controls::AddCommand(bar, name, caption, [this, &row] { Run(row); });
    } else if (row.caption == u"-") {
        item = under->addSeparator();
    } else {
        item = controls::AddCommand(under, name, caption, [this, &row] { Run(row); });
    }
    item->setObjectName(name);
    item->setEnabled(IsImplemented(row));
    items[name] = item;
}

void MForm::State::BuildPages() {
    pages = new QStackedWidget;
    pages->setObjectName(u"Pages"_s);
    wall = new Wallpaper;
    pages->addWidget(wall);
    frame.setCentralWidget(pages);
}

void MForm::State::BuildTools() {
    tools = new QToolBar;
    tools->setObjectName(u"TB"_s);
    tools->setMovable(false);
    tools->setIconSize(QSize(24, 24));
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    for (const ToolRow& row : ToolRows()) {
        if (row.gapBefore) tools->addSeparator();
        const QString caption = row.caption.toString();
        QAction* button = tools->addAction(controls::LookIcon(row.icon.toString()), caption);
        button->setObjectName(row.key.toString());
        button->setIconText(caption);  // the toolkit's own would drop the blanks
        button->setToolTip(text::Trim(caption));
        button->setEnabled(row.item.isEmpty() || items.at(row.item.toString())->isEnabled());
        tools->widgetForAction(button)->setAccessibleName(text::Trim(caption));
        connect(button, &QAction::triggered, &frame,
                [this, &row] { controls::RunCommand([&] { Press(row); }); });
    }
    frame.addToolBar(tools);
}

void MForm::State::BuildStatus() {
    status = new QStatusBar;
    status->setObjectName(u"StB"_s);
    status->setSizeGripEnabled(false);
    // One widget holds the four: the bar would put gaps of its own between single ones, and fixed widths
    // would make the frame wider than the screen.
    auto* holder = new QWidget;
    auto* row = new QHBoxLayout(holder);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (size_t i = 0; i < panels.size(); ++i) {
        auto* panel = new QLabel;
        const QString number = QString::number(i + 1);
        panel->setObjectName(u"StB(%1)"_s.arg(number));
        panel->setTextFormat(Qt::PlainText);
        panel->setProperty("panel", number);
        panel->setAlignment((i == 1 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        panel->setIndent(0);
        panel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        row->addWidget(panel, kPanelEighths[i]);
        panels[i] = panel;
    }
    status->addWidget(holder, 1);
    frame.setStatusBar(status);
}

/// What the menus show, and what the palette alone opens.
void MForm::State::BuildPalette() {
    std::vector<PaletteEntry> entries;
    const MenuRow* top = nullptr;
    for (const MenuRow& row : MenuRows()) {
        if (row.top) top = &row;
        if (row.opens != Opens::Nothing) entries.push_back(EntryOf(row, top));
    }
    for (const PaletteRow& own : PaletteRows()) {
        MakeAction(own.row);
        entries.push_back(EntryOf(own.row, nullptr));
        entries.back().offered = [this, &own] {
            const auto any = [&](QStringView menu) {
                return IsOffered(own.row.name.toString(), menu.toString());
            };
            return std::ranges::any_of(own.rights.split(u' '), any) && (own.whileEditing || !EditInProgress);
        };
    }
    new CommandPalette(frame, std::move(entries));
    wall->SetHint(u"Ctrl+K  查找窗体与命令"_s);
}

PaletteEntry MForm::State::EntryOf(const MenuRow& row, const MenuRow* top) const {
    const QString name = row.name.toString();
    const QString menu = top ? top->name.toString() : QString();
    const bool leavesEdit = row.opens != Opens::Unload;  // that asks about the edit by itself
    const bool isForm = row.opens == Opens::Child || row.opens == Opens::Modal;
    return {.action = items.at(name),
            .caption = PlainCaption(row.caption),
            .shortName = isForm ? row.target.toString() : QString(name).remove(u"Menu_"_s),
            .place = top ? top->caption.toString().remove(u'&') : QString(),
            .offered = [=, this] { return IsOffered(name, menu) && !(leavesEdit && EditInProgress); }};
}

QAction* MForm::State::MakeAction(const MenuRow& row) {
    auto* action = new QAction(row.caption.toString(), &frame);
    action->setObjectName(row.name.toString());
    action->setEnabled(IsImplemented(row));
    connect(action, &QAction::triggered, &frame, [this, &row] { controls::RunCommand([&] { Run(row); }); });
    items[row.name.toString()] = action;
    return action;
}

MForm::MForm(const Registry& registry) : state_(std::make_unique<State>(*this, registry)) {
    setObjectName(u"MForm"_s);
    setWindowTitle(product::kName);
    setWindowIcon(controls::LookIcon(u"app"_s));
    setContextMenuPolicy(Qt::NoContextMenu);  // the toolkit's would let the tool bar be put away
    setMinimumSize(kSmallest);
    state_->BuildMenus();
    state_->BuildPages();
    state_->BuildTools();
    state_->BuildStatus();
    state_->BuildPalette();
}

MForm::~MForm() {
    if (theFrame == this) theFrame = nullptr;
    // The pages first, while the frame that they know is whole.
    for (ChildForm* form : std::exchange(state_->open, {})) delete form;
}

void MForm::Load() {
    if (LangFlag == 2) {
        QFont font = state_->status->font();
        font.setFamily(
            u"Times New Romen"_s);  // spelled so; the toolkit takes a font of its own choice for it
        state_->status->setFont(font);
        for (QAction* button : state_->tools->actions()) {
            button->setText(QString());
            button->setIconText(QString());
        }
    }
    state_->wall->LoadPicture(AppFolder + schema::kPictureFile.toString());
    SetPanel(NoticePanel, product::kNotice);
    SetPanel(OperatorCaptionPanel, LangText(u"操作员："_s));
    SetPanel(PositionPanel, TodayText());
}

// ------------------------------------------------------------------------------------------ menus and tools

bool MForm::State::IsImplemented(const MenuRow& row) const {
    const QString target = row.target.toString();
    switch (row.opens) {
        case Opens::Child:
            return registry.children.contains(target);
        case Opens::Modal:
            return registry.modals.contains(target);
        case Opens::Command:
            return registry.commands.contains(target);
        case Opens::Nothing:
        case Opens::Unload:
            break;
    }
    return true;
}

/// Whether the operator can reach it: as the menus show it, and the menu that its right shows.
bool MForm::State::IsOffered(const QString& item, const QString& right) const {
    const QAction* action = items.at(item);
    return action->isEnabled() && action->isVisible() && (right.isEmpty() || items.at(right)->isVisible());
}

void MForm::State::Run(const MenuRow& row) {
    const QString target = row.target.toString();
    switch (row.opens) {
        case Opens::Child:
            Show(target, &row);
            break;
        case Opens::Modal:
            frame.ShowModal(target);
            break;
        case Opens::Command:
            registry.commands.at(target)();
            break;
        case Opens::Unload:
            frame.close();
            break;
        case Opens::Nothing:
            break;
    }
}

void MForm::State::Press(const ToolRow& row) {
    const bool allowed = row.right.isEmpty() || frame.MenuVisible(row.right.toString());
    if (!allowed || row.item.isEmpty()) return sys::Inform(u"对不起,您没有此权限!"_s, QString());
    const auto rows = MenuRows();
    Run(*std::ranges::find(rows, row.item, &MenuRow::name));
}

QAction* MForm::MenuItem(const QString& name) const {
    const auto found = state_->items.find(name);
    return found == state_->items.end() ? nullptr : found->second;
}

bool MForm::MenuVisible(const QString& name) const {
    return state_->items.at(name)->isVisible();
}

void MForm::SetMenuVisible(const QString& name, bool visible) {
    state_->items.at(name)->setVisible(visible);
}

QString MForm::Panel(int number) const {
    return state_->panels.at(static_cast<size_t>(number - 1))->text();
}

void MForm::SetPanel(int number, const QString& text) {
    state_->panels.at(static_cast<size_t>(number - 1))->setText(text);
}

void MForm::ShowToolBar(bool shown) {
    state_->tools->setVisible(shown);
}

bool MForm::ToolBarShown() const {
    return !state_->tools->isHidden();
}

// ---------------------------------------------------------------------------------------------- child forms

ChildForm* MForm::State::Find(const QString& form) const {
    const auto found = std::ranges::find(open, form, [](const ChildForm* f) { return f->objectName(); });
    return found == open.end() ? nullptr : *found;
}

ChildForm* MForm::State::Make(const QString& form) {
    const auto maker = registry.children.find(form);
    if (maker == registry.children.end()) throw RuntimeError(u"没有窗体“%1”"_s.arg(form));
    ChildForm* made = maker->second().release();
    made->LeaveFrame = [this, made] { RemoveChild(*made); };
    pages->addWidget(made);
    open.push_back(made);
    return made;
}

ChildForm& MForm::State::Show(const QString& name, const MenuRow* row) {
    ChildForm* form = Find(name);
    if (form && row && row->LB != 0 && form->LB != row->LB) {
        // It is made for one kind: its prefix, its names and its list would be those of the other.
        if (form->QueryUnload())
            RemovePage(*std::exchange(form, nullptr));
        else
            row = nullptr;  // in edit state it stays as it is
    }
    tools->hide();
    const bool fresh = !form;
    if (fresh) form = Make(name);
    if (row && row->LB != 0) {
        form->LB = row->LB;
        form->setWindowTitle(row->formCaption.toString());  // its load names controls by it
    }
    if (fresh) {
        try {
            form->Load();
        } catch (...) {
            RemovePage(*form);
            throw;
        }
    }
    if (std::ranges::find(open, form) == open.end()) return *form;  // its load has closed it again
    const bool comes = fresh || open.back() != form;
    std::erase(open, form);
    open.push_back(form);
    ShowFront();
    if (comes) form->Activated();
    return *form;
}

/// Brings the last shown form's page and bar up, or the wallpaper and the frame's own bar.
void MForm::State::ShowFront() {
    ChildForm* front = open.empty() ? nullptr : open.back();
    QMenuBar* itsBar = front && front->HasMenuBar() ? front->MenuBar() : bar;
    if (bars->indexOf(itsBar) < 0) bars->addWidget(itsBar);
    bars->setCurrentWidget(itsBar);
    pages->setCurrentWidget(front ? static_cast<QWidget*>(front) : wall);
    if (!front) return;
    FocusPage(front);
    // Another form's edit may have ended meanwhile, which cleared the flag.
    EditInProgress = EditInProgress || front->InEdit();
}

void MForm::State::RemovePage(ChildForm& form) {
    std::erase(open, &form);
    pages->removeWidget(&form);
    form.hide();
    if (form.HasMenuBar()) {
        bars->removeWidget(form.MenuBar());
        form.MenuBar()->setParent(&form);
    }
    form.deleteLater();
}

void MForm::ShowModal(const QString& form) {
    const auto shower = state_->registry.modals.find(form);
    if (shower == state_->registry.modals.end()) throw RuntimeError(u"没有窗体“%1”"_s.arg(form));
    shower->second(this);
}

ChildForm& MForm::ShowChild(const QString& form) {
    return state_->Show(form, nullptr);
}

ChildForm* MForm::Child(const QString& form) const {
    return state_->Find(form);
}

ChildForm* MForm::Front() const {
    return state_->open.empty() ? nullptr : state_->open.back();
}

bool MForm::AnyInEdit() const {
    return std::ranges::any_of(state_->open, &ChildForm::InEdit);
}

void MForm::DataChanged() {
    const QString position = Panel(PositionPanel);
    for (ChildForm* form : std::vector(state_->open)) form->DataChanged();
    SetPanel(PositionPanel, position);
}

/// When it unloads of itself.
void MForm::State::RemoveChild(ChildForm& form) {
    if (std::ranges::find(open, &form) == open.end()) return;
    const bool wasFront = open.back() == &form;
    RemovePage(form);
    frame.ShowToolBar(true);  // also while another form is still open
    frame.SetPanel(PositionPanel, TodayText());
    ShowFront();
    if (wasFront && !open.empty()) open.back()->Activated();
}

void MForm::closeEvent(QCloseEvent* event) {
    event->ignore();
    sys::Guarded([&] {
        if (WarnOfEdit()) return;
        const Registry& registry = state_->registry;
        if (registry.closing) registry.closing();
        if (Db) Db->Close();
        Db.reset();
        while (!state_->open.empty()) state_->RemovePage(*state_->open.back());
        if (registry.closed) registry.closed();
        event->accept();
    });
}

// ------------------------------------------------------------------------------------------ the one of a run

namespace {

bool WarnIf(bool editing) {
    if (editing) sys::Warn(u"操作员正在编辑数据,请先[保存]数据或[取消]编辑!"_s, u"提示"_s);
    return editing;
}

}  // namespace

/// An edit that ends in one form clears the flag, while another form that was left for it may be in edit.
bool WarnOfEdit() {
    return WarnIf(EditInProgress || (theFrame && theFrame->AnyInEdit()));
}

bool WarnOfEdit(const ChildForm& form) {
    return WarnIf(EditInProgress || form.InEdit());
}

void StoredDataChanged() {
    if (theFrame) theFrame->DataChanged();
}

MForm& TheFrame() {
    if (!theFrame) throw RuntimeError(u"对象变量或 With 块变量未设置"_s);
    return *theFrame;
}

QString FormInFront() {
    const QWidget* const modal = QApplication::activeModalWidget();
    const QWidget* const form = modal || !theFrame ? modal : theFrame->Front();
    return form ? form->objectName() : QString();
}

void SetTheFrame(MForm* frame) {
    theFrame = frame;
}
