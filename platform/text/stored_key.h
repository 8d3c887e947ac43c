// Texts compared as the data file compares keys: letters from a to z are the same in either case, all others
// are not.
#pragma once

#include <QString>

#include <algorithm>

namespace text {

/// Of a to z, in either case, the small letter.
inline QChar StoredLetter(QChar c) {
    return c >= u'A' && c <= u'Z' ? QChar(c.unicode() + (u'a' - u'A')) : c;
}

/// One text for all that the data file takes for the same.
inline QString StoredKey(QString key) {
    for (QChar& c : key) c = StoredLetter(c);
    return key;
}

inline bool SameAsStored(const QString& a, const QString& b) {
    return a.size() == b.size() && std::ranges::equal(a, b, {}, StoredLetter, StoredLetter);
}

}  // namespace text
