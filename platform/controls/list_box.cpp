#include "platform/controls/list_box.h"

#include "platform/controls/focus_tracker.h"
#include "platform/controls/key_offer.h"

using namespace Qt::StringLiterals;

namespace controls {
namespace {

bool Moves(int key) {
    return key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_Home || key == Qt::Key_End ||
           key == Qt::Key_PageDown || key == Qt::Key_PageUp;
}

}  // namespace

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    FocusTracker::Get();
    setTextElideMode(Qt::ElideNone);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false);
    // A monospaced font aligns the columns: a Chinese character is as wide as two blanks.
    QFont even = font();
    even.setFamilies({u"Noto Sans Mono CJK SC"_s, even.family()});
    setFont(even);
}

void ListBox::SetLines(const QStringList& lines) {
    clear();
    addItems(lines);
}

int ListBox::ListIndex() const {
    const QList<QListWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? -1 : row(selected.front());
}

void ListBox::SetListIndex(int index) {
    setCurrentRow(index);
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const auto left = OfferKey(this, KeyPressed, *event);
    if (!left) return event->accept();
    // Without a selection the toolkit would move from the first line instead of selecting it.
    if (Moves(left->key()) && ListIndex() < 0 && count() > 0) {
        event->accept();
        return SetListIndex(left->key() == Qt::Key_End ? count() - 1 : 0);
    }
    QListWidget::keyPressEvent(left.get());
    event->setAccepted(left->isAccepted());
}

}  // namespace controls
