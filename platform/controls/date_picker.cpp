#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/key_offer.h"
#include "platform/text/dates.h"

#include <QAction>
#include <QCalendarWidget>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDropEvent>
#include <QGuiApplication>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>

#include <utility>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

/// The calendar's own size hint cuts the last week.
constexpr QSize kCalendar(330, 232);

void DressCalendar(QCalendarWidget* calendar) {
    QTextCharFormat plain;
    plain.setForeground(QColor(u"#52606D"_s));
    calendar->setWeekdayTextFormat(Qt::Saturday, plain);
    calendar->setWeekdayTextFormat(Qt::Sunday, plain);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setMinimumSize(kCalendar);
}

bool IsSeparator(const QKeyEvent& key) {
    const bool chord = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !chord && (key.text() == u"-" || key.text() == u"." || key.text() == u"/");
}

}  // namespace

DTPicker::DTPicker(QWidget* parent) : QDateEdit(parent) {
    FocusTracker::Get();
    setFocusPolicy(Qt::StrongFocus);  // not by the wheel
    setLocale(QLocale(QLocale::Chinese, QLocale::China));
    setDisplayFormat(u"yyyy-MM-dd"_s);
    setCalendarPopup(true);
    calendarWidget()->setLocale(locale());
    DressCalendar(calendarWidget());
    lineEdit()->installEventFilter(this);
    connect(this, &QDateEdit::dateChanged, this, [this] { Change(); });
}

void DTPicker::SetValue(QDate value) {
    const QSignalBlocker quiet(this);
    setDate(value);
}

QDate DTPicker::Value() {
    interpretText();
    return date();
}

void DTPicker::OpenCalendar() {
    // The toolkit opens it for a press on the drop-down button and for nothing else.
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QPointF at =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this).center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent mouse(type, at, mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &mouse);
    }
}

/// Leaves the control at once; the toolkit's own Tab moves through year, month and day first.
bool DTPicker::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);
}

void DTPicker::focusInEvent(QFocusEvent* event) {
    QDateEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason)
        setSelectedSection(QDateTimeEdit::YearSection);
    advanced_ = begun_ = false;
}

/// Behind a digit that has filled its section the operator is where the separator leads.
void DTPicker::TypeSeparator() {
    const Section typed = currentSection();
    begun_ = false;
    if (std::exchange(advanced_, false)) return;
    interpretText();
    setSelectedSection(typed == YearSection ? MonthSection : DaySection);
}

void DTPicker::TakeText(const QString& text) {
    QString date = text.simplified();  // a cell of a spreadsheet brings its line break
    if (const auto read = text::ReadDate(date.replace(u'.', u'-'))) setDate(*read);
    advanced_ = begun_ = false;
}

void DTPicker::keyPressEvent(QKeyEvent* event) {
    if (IsEnter(*event)) interpretText();  // the form reads the finished date
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    const bool opens = (left->key() == Qt::Key_F4 && left->modifiers() == Qt::NoModifier) ||
                       (left->key() == Qt::Key_Down && left->modifiers() & Qt::AltModifier);
    if (opens) {
        event->accept();
        return OpenCalendar();
    }
    if (left->matches(QKeySequence::Paste)) {
        event->accept();
        return TakeText(QGuiApplication::clipboard()->text());
    }
    if (IsSeparator(*left)) {
        event->accept();
        return TypeSeparator();
    }
    const Section before = currentSection();
    const bool digit = left->text().size() == 1 && left->text()[0].isDigit();
    // Where the operator has clicked into a section the toolkit would insert the digit between the old ones.
    if (digit && !begun_ && !lineEdit()->hasSelectedText()) setSelectedSection(before);
    QDateEdit::keyPressEvent(left.get());
    advanced_ = digit && currentSection() != before;
    const bool deletes = left->key() == Qt::Key_Backspace || left->key() == Qt::Key_Delete;
    begun_ = (digit || deletes) && !advanced_;
    event->setAccepted(left->isAccepted());
}

void DTPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

/// The line's own menu, its paste being ours.
void DTPicker::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (!KeepsFocus(this)) return;
    const QPointer<QMenu> menu = lineEdit()->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (auto* paste = menu->findChild<QAction*>(u"edit-paste"_s)) {
        paste->disconnect(lineEdit());
        connect(paste, &QAction::triggered, this, [this] { TakeText(QGuiApplication::clipboard()->text()); });
    }
    menu->popup(event->globalPos());
}

/// What the mouse brings into the line: the middle button's selection, or a text that is dropped.
bool DTPicker::eventFilter(QObject* watched, QEvent* event) {
    if (watched != lineEdit()) return QDateEdit::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::MiddleButton) {
        const QClipboard* board = QGuiApplication::clipboard();
        if (KeepsFocus(this) && board->supportsSelection()) TakeText(board->text(QClipboard::Selection));
        return true;
    }
    if (event->type() == QEvent::Drop) {
        if (KeepsFocus(this)) TakeText(static_cast<QDropEvent*>(event)->mimeData()->text());
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress) advanced_ = begun_ = false;
    return QDateEdit::eventFilter(watched, event);
}

}  // namespace controls
