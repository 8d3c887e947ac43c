#include "platform/controls/tab_strip.h"

#include "platform/controls/focus_tracker.h"
#include "platform/controls/key_offer.h"

#include <QWheelEvent>

namespace controls {

TabStrip::TabStrip(const QStringList& captions, QWidget* parent) : QTabBar(parent) {
    FocusTracker::Get();
    setExpanding(false);
    setDrawBase(false);
    SetInTabOrder(true);
    for (const QString& caption : captions) addTab(caption);
    connect(this, &QTabBar::currentChanged, this, [this] { Click(); });
}

void TabStrip::SelectItem(int item) {
    setCurrentIndex(item - 1);
}

void TabStrip::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    QTabBar::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

void TabStrip::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

}  // namespace controls
