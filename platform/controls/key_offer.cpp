#include "platform/controls/key_offer.h"

#include "platform/controls/focus_tracker.h"
#include "platform/controls/numeric.h"
#include "platform/text/numbers.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace controls {
namespace {

/// The text as the control takes it.
QString Taken(const QObject& control, const QString& text) {
    return IsNumeric(control) ? text::NarrowNumber(text) : text;
}

/// A key's code follows its character.
int KeyOf(const QKeyEvent& key, const QString& taken) {
    return taken != key.text() && taken.size() == 1 ? taken[0].toUpper().unicode() : key.key();
}

}  // namespace

std::unique_ptr<QKeyEvent> OfferKey(QObject* control, const sys::Event<KeyPress&>& event,
                                    const QKeyEvent& key) {
    const QString taken = Taken(*control, key.text());
    KeyPress press{KeyOf(key, taken), key.modifiers(), taken, key.isAutoRepeat()};
    const QPointer<QObject> alive(control);
    event(press);
    if (!alive || press.taken || sys::HasEnded()) return nullptr;
    if (press.text.isEmpty() && !key.text().isEmpty()) return nullptr;
    return std::make_unique<QKeyEvent>(QEvent::KeyPress, press.key, press.modifiers, press.text,
                                       key.isAutoRepeat(), static_cast<quint16>(key.count()));
}

std::optional<QString> OfferText(QObject* control, const sys::Event<KeyPress&>& event, const QString& text) {
    KeyPress press{.text = Taken(*control, text)};
    const QPointer<QObject> alive(control);
    event(press);
    if (!alive || sys::HasEnded()) return std::nullopt;
    return press.taken ? QString() : press.text;
}

bool SelectsAll(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason || reason == Qt::OtherFocusReason;
}

bool KeepsFocus(QWidget* control) {
    const QPointer<QWidget> alive(control);
    if (!control->hasFocus()) control->setFocus(Qt::OtherFocusReason);
    FocusTracker::Get().Settle();
    return alive && control->hasFocus();
}

QString WholeCharacters(QString text) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair)
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

QString OneRow(const QString& text) {
    QString row = WholeCharacters(text);
    row.replace(u"\r\n"_s, u" "_s);
    for (QChar& c : row)
        if (c < u' ' || c == QChar::LineSeparator || c == QChar::ParagraphSeparator) c = u' ';
    return row;
}

void TidyLine(QLineEdit* line, const QString& before) {
    QString row = line->text();
    // The length limit may have cut a surrogate pair in two.
    if (!row.isEmpty() && row.back().isHighSurrogate()) row.chop(1);
    row = OneRow(row);
    if (IsNumeric(*line)) row = EditedNumber(row, before, line->cursorPosition());
    if (row == line->text()) return;
    const int fromEnd = static_cast<int>(line->text().size()) - line->cursorPosition();
    line->setText(row);
    line->setCursorPosition(qMax(0, static_cast<int>(row.size()) - fromEnd));
}

}  // namespace controls
