#include "platform/controls/numeric.h"

#include "platform/text/numbers.h"

#include <QVariant>

#include <algorithm>

namespace controls {
namespace {

constexpr char kNumeric[] = "numeric";

}  // namespace

void SetNumeric(QLineEdit& line, bool numeric) {
    line.setProperty(kNumeric, numeric);
}

bool IsNumeric(const QObject& control) {
    return control.property(kNumeric).toBool();
}

QString EditedNumber(const QString& text, const QString& before, qsizetype cursor) {
    const QString narrow = text::NarrowNumber(text);
    const qsizetype common =
        std::mismatch(narrow.begin(), narrow.end(), before.begin(), before.end()).first - narrow.begin();
    // What stays behind the cursor was there before.
    const qsizetype start =
        std::min({common, cursor, std::max<qsizetype>(before.size() - (text.size() - cursor), 0)});
    if (cursor - start < 2) return narrow;
    // The first digits that came in may be equal to those of a text that they replaced.
    const QString whole = narrow.left(cursor);
    const QString plain = text::WithoutGroups(whole);
    if (plain != whole) return plain + narrow.mid(cursor);
    return narrow.left(start) + text::WithoutGroups(whole.mid(start)) + narrow.mid(cursor);
}

}  // namespace controls
