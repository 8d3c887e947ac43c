#include "app/command_palette.h"

#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/keys.h"
#include "platform/controls/look.h"
#include "platform/controls/paint.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QPainter>
#include <QShortcut>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTimer>
#include <QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kWidth = 560;
constexpr int kTop = 120;    // below the menu bar's top
constexpr int kShadow = 12;  // around it, part of the widget
constexpr int kShadowDown = 2;
constexpr int kRadius = 4;
constexpr int kRow = 32;
constexpr int kMostRows = 10;
constexpr int kMargin = 14;
constexpr int kGap = 6;
constexpr int kMostTyped = 60;

/// While the operator logs in: reading the captions takes 0.1 s.
constexpr auto kReadCaptionsAfter = 1s;

/// What the focus returns to. The menu bar gives it back first, as for Escape.
QWidget* FocusToKeep() {
    if (auto* bar = qobject_cast<QMenuBar*>(QApplication::focusWidget())) {
        QKeyEvent leave(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &leave);
    }
    return QApplication::focusWidget();
}

bool Usable(const QWidget* widget) {
    return widget && widget->isVisible() && widget->isEnabled();
}

}  // namespace

/// Leaves the keys that move in the list and those that choose to the palette.
class CommandPalette::Box : public controls::LineBox {
  public:
    explicit Box(CommandPalette& palette) : palette_(palette) {
        Change = [this] { palette_.ShowHits(); };
    }
    /// What the operator sees in it: composed text counts before it is confirmed.
    QString Typed() const { return text().insert(cursorPosition(), preedit_); }
    void Empty() {
        preedit_.clear();
        clear();
    }

  protected:
    bool event(QEvent* event) override {
        // No shortcut of a form is meant while the box has the focus.
        const bool keeps = event->type() == QEvent::ShortcutOverride && palette_.IsOpen();
        if (keeps) event->accept();
        return keeps || LineBox::event(event);
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (palette_.OnKey(event->key(), event->isAutoRepeat())) return event->accept();
        if (event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_K) return selectAll();
        LineBox::keyPressEvent(event);
        event->accept();
    }
    void inputMethodEvent(QInputMethodEvent* event) override {
        preedit_ = event->preeditString();
        LineBox::inputMethodEvent(event);
        palette_.ShowHits();
    }
    bool focusNextPrevChild(bool) override { return true; }  // Tab leads nowhere

  private:
    CommandPalette& palette_;
    QString preedit_;
};

/// A row: the caption, its initials or the short name, and at the right the menu that holds it. What the
/// typed text means is bold.
class CommandPalette::RowDelegate : public QStyledItemDelegate {
  public:
    explicit RowDelegate(CommandPalette& palette) : QStyledItemDelegate(&palette), palette_(palette) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {10, kRow}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto& hit = palette_.hits_.at(static_cast<std::size_t>(index.row()));
        const PaletteEntry& entry = palette_.entries_.at(static_cast<std::size_t>(hit.entry));
        const QRect row = option.rect;
        if (option.state & QStyle::State_Selected) {
            painter->fillRect(row, controls::paint::kSelection);
            painter->fillRect(QRect(row.left(), row.top(), 3, row.height()), controls::paint::kAccent);
        }
        QRectF at = QRectF(row).adjusted(kMargin, 0, -kMargin, 0);
        Words(*painter, option.font, at, entry.caption, hit.caption, 13, controls::paint::kText);
        at.adjust(kMargin, 0, 0, 0);
        const bool byName = hit.shortName.length > 0;
        Words(*painter, option.font, at, byName ? entry.shortName : palette_.Search().Initials(hit.entry),
              byName ? hit.shortName : hit.caption, 12, controls::paint::kMuted);
        QFont small(option.font);
        small.setPixelSize(12);
        painter->setFont(small);
        painter->setPen(controls::paint::kMuted);
        painter->drawText(QRectF(row).adjusted(0, 0, -kMargin, 0), Qt::AlignRight | Qt::AlignVCenter,
                          entry.place);
    }

  private:
    /// Draws from the left edge of the place and moves that edge behind what it has drawn.
    static void Words(QPainter& painter, QFont font, QRectF& at, const QString& text, const TextPiece& bold,
                      int pixels, const QColor& ink) {
        font.setPixelSize(pixels);
        const int end = bold.from + bold.length;
        const std::pair<QString, bool> parts[] = {
            {text.left(bold.from), false}, {text.mid(bold.from, bold.length), true}, {text.mid(end), false}};
        for (const auto& [part, isBold] : parts) {
            const QString shown = QString(part).remove(u' ');
            font.setBold(isBold);
            painter.setFont(font);
            painter.setPen(isBold ? controls::paint::kAccentDeep : ink);
            painter.drawText(at, Qt::AlignLeft | Qt::AlignVCenter, shown);
            at.setLeft(at.left() + QFontMetricsF(font).horizontalAdvance(shown));
        }
    }

    CommandPalette& palette_;
};

// ------------------------------------------------------------------------------------------------ building

CommandPalette::CommandPalette(QWidget& frame, std::vector<PaletteEntry> entries)
    : QWidget(&frame),
      frame_(frame),
      entries_(std::move(entries)),
      box_(new Box(*this)),
      count_(new QLabel),
      list_(new QListView),
      rows_(new QStandardItemModel(this)),
      nothing_(new QLabel(u"没有找到"_s)) {
    setObjectName(u"Palette"_s);
    controls::FocusTracker::Get().LeaveOut(*this);
    hide();
    Build();
    frame.installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusMoved(now); });
    auto* open = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_K), &frame);
    open->setAutoRepeat(false);
    connect(open, &QShortcut::activated, this, [this] { controls::RunCommand([this] { Open(); }); });
    QTimer::singleShot(kReadCaptionsAfter, this, [this] { Search(); });
}

CommandPalette::~CommandPalette() = default;

void CommandPalette::Build() {
    DressControls();
    auto* glass = new QLabel;
    glass->setPixmap(controls::LookIcon(u"search"_s).pixmap(QSize(16, 16), devicePixelRatioF()));
    auto* top = new QHBoxLayout;
    top->setContentsMargins(kMargin - 1, kGap, kMargin - 1, kGap);
    top->setSpacing(2);
    top->addWidget(glass);
    top->addWidget(box_, 1);
    top->addWidget(count_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kShadow + 2, kShadow + 2, kShadow + 2, kShadow + 2);
    column->setSpacing(0);
    column->addLayout(top);
    column->addSpacing(3 + kGap);  // the line below the box
    column->addWidget(list_);
    column->addWidget(nothing_);
    column->addSpacing(kGap);
    column->addWidget(Foot());
}

void CommandPalette::DressControls() {
    box_->setObjectName(u"PaletteText"_s);
    box_->setProperty("kind", u"palette"_s);
    box_->setAccessibleName(u"查找窗体与命令"_s);
    box_->setPlaceholderText(u"输入名称、拼音首字母或编号"_s);
    box_->SetMaxLength(kMostTyped);
    count_->setObjectName(u"PaletteCount"_s);
    count_->setProperty("role", u"form"_s);
    nothing_->setObjectName(u"PaletteNothing"_s);
    nothing_->setProperty("role", u"form"_s);
    nothing_->setFixedHeight(kRow);
    nothing_->setIndent(kMargin);
    list_->setObjectName(u"PaletteList"_s);
    list_->setAccessibleName(u"窗体与命令"_s);
    list_->setProperty("role", u"results"_s);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setUniformItemSizes(true);
    list_->setModel(rows_);
    list_->setItemDelegate(new RowDelegate(*this));
    connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) { Choose(index.row()); });
}

QWidget* CommandPalette::Foot() {
    auto* foot = new QWidget;
    foot->setProperty("role", u"strip"_s);
    foot->setProperty("edge", u"overlay"_s);
    foot->setAttribute(Qt::WA_StyledBackground);
    foot->setFixedHeight(28);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(kMargin, 0, kMargin, 0);
    row->setSpacing(20);
    for (const auto& words : {u"↑ ↓  选择"_s, u"Enter  打开"_s, u"Esc  关闭"_s, u"Ctrl+K"_s}) {
        auto* label = new QLabel(words);
        label->setProperty("role", u"form"_s);
        if (words == u"Ctrl+K") row->addStretch(1);
        row->addWidget(label);
    }
    return foot;
}

/// Its window has no border of its own, so the shadow is painted: it grows fainter outwards.
void CommandPalette::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF body = QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(controls::paint::kShadow);
    for (int out = kShadow - kShadowDown; out > 0; --out)
        painter.drawRoundedRect(body.adjusted(-out, -out, out, out).translated(0, kShadowDown), kRadius + out,
                                kRadius + out);
    painter.setPen(QPen(controls::paint::kBlockLine, 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(body.adjusted(.5, .5, -.5, -.5), kRadius, kRadius);
    const double y = box_->geometry().bottom() + 3 + kGap + .5;
    controls::paint::Hairline(painter, controls::paint::kLine,
                              QLineF(body.left() + kGap / 2., y, body.right() - kGap / 2., y));
}

void CommandPalette::Place() {
    const int width = kWidth + 2 * kShadow;
    layout()->activate();
    setGeometry((frame_.width() - width) / 2, kTop - kShadow, width, sizeHint().height());
}

// ------------------------------------------------------------------------------------------ open and closed

void CommandPalette::Open() {
    if (IsOpen()) return box_->selectAll();
    before_ = FocusToKeep();
    box_->Empty();
    ShowHits();
    show();
    raise();
    box_->setFocus(Qt::PopupFocusReason);
    qApp->installEventFilter(this);
}

void CommandPalette::Close() {
    if (!IsOpen()) return;
    qApp->removeEventFilter(this);
    // Before it is hidden, or the toolkit would choose a control.
    if (Usable(before_) && before_->window() == &frame_)
        before_->setFocus(Qt::PopupFocusReason);
    else
        box_->clearFocus();
    hide();
}

/// The focus has been given to something else.
void CommandPalette::OnFocusMoved(QWidget* now) {
    if (!IsOpen() || !now || now->window() != &frame_ || isAncestorOf(now)) return;
    before_ = now;
    Close();
}

bool CommandPalette::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &frame_ && event->type() == QEvent::Resize && IsOpen()) Place();
    if (!IsOpen()) return false;
    if (event->type() == QEvent::ShortcutOverride && watched == box_) {
        // Alt, alone or with a letter, is for the menu bar, as if the palette had not been opened.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() != Qt::Key_Alt && !(key.modifiers() & Qt::AltModifier)) return false;
        Close();
        event->ignore();
        return true;
    }
    const auto* widget = qobject_cast<QWidget*>(watched);
    const bool outside = widget && widget != this && widget->window() == &frame_ && !isAncestorOf(widget);
    if (event->type() == QEvent::MouseButtonPress && outside) Close();
    return false;
}

void CommandPalette::mousePressEvent(QMouseEvent* event) {
    const QRect body = rect().adjusted(kShadow, kShadow, -kShadow, -kShadow);
    if (!body.contains(event->position().toPoint())) Close();
    event->accept();
}

// ---------------------------------------------------------------------------------------------- the list

CommandSearch& CommandPalette::Search() {
    if (!search_) {
        std::vector<CommandSearch::Entry> read;
        for (const PaletteEntry& entry : entries_) read.push_back({entry.caption, entry.shortName});
        search_.emplace(std::move(read));
    }
    return *search_;
}

void CommandPalette::ShowHits() {
    hits_ = Search().Find(
        box_->Typed(), [this](int entry) { return entries_.at(static_cast<std::size_t>(entry)).offered(); });
    rows_->clear();
    for (const auto& hit : hits_) {
        const PaletteEntry& entry = entries_.at(static_cast<std::size_t>(hit.entry));
        auto* row = new QStandardItem(entry.caption);
        row->setData(entry.action->objectName(), Qt::UserRole);
        row->setData(entry.place.isEmpty() ? entry.caption : entry.caption + u'，' + entry.place,
                     Qt::AccessibleTextRole);
        rows_->appendRow(row);
    }
    list_->setCurrentIndex(rows_->index(0, 0));
    const int rows = static_cast<int>(hits_.size());
    count_->setText(u"%1 项"_s.arg(rows));
    list_->setFixedHeight(kRow * qMin(rows, kMostRows));
    list_->setVisible(rows > 0);
    nothing_->setVisible(rows == 0);
    Place();
}

void CommandPalette::Move(int rows) {
    const int last = rows_->rowCount() - 1;
    if (last >= 0)
        list_->setCurrentIndex(rows_->index(qBound(0, list_->currentIndex().row() + rows, last), 0));
}

void CommandPalette::Choose(int row) {
    if (row < 0 || row >= static_cast<int>(hits_.size())) return;
    const int chosen = hits_[static_cast<std::size_t>(row)].entry;
    const PaletteEntry& entry = entries_.at(static_cast<std::size_t>(chosen));
    Close();
    if (!entry.offered()) return;
    Search().Used(chosen);
    entry.action->trigger();
}

bool CommandPalette::OnKey(int key, bool repeats) {
    switch (key) {
        case Qt::Key_Up:
            Move(-1);
            return true;
        case Qt::Key_Down:
            Move(1);
            return true;
        case Qt::Key_PageUp:
            Move(-kMostRows);
            return true;
        case Qt::Key_PageDown:
            Move(kMostRows);
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (!repeats) Choose(list_->currentIndex().row());
            return true;
        case Qt::Key_Escape:
            Close();
            return true;
        default:
            return false;
    }
}
