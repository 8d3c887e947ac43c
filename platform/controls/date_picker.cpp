#include "platform/controls/box.h"
#include "platform/controls/focus_tracker.h"
#include "platform/controls/key_offer.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QLocale>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>

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

}  // namespace

DTPicker::DTPicker(QWidget* parent) : QDateEdit(parent) {
    FocusTracker::Get();
    setLocale(QLocale(QLocale::Chinese, QLocale::China));
    setDisplayFormat(u"yyyy-MM-dd"_s);
    setCalendarPopup(true);
    calendarWidget()->setLocale(locale());
    DressCalendar(calendarWidget());
    connect(this, &QDateEdit::dateChanged, this, [this] { Change(); });
}

void DTPicker::SetValue(QDate value) {
    const QSignalBlocker quiet(this);
    setDate(value);
}

void DTPicker::OpenCalendar() {
    // The toolkit opens it for a press on the arrow and for nothing else.
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

/// Past the toolkit's own walk through year, month and day.
bool DTPicker::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next);
}

void DTPicker::focusInEvent(QFocusEvent* event) {
    QDateEdit::focusInEvent(event);
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason)
        setSelectedSection(QDateTimeEdit::YearSection);
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
    QDateEdit::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

void DTPicker::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace controls
