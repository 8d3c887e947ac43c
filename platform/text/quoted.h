// Text values in statements.
#pragma once

#include <QString>

/// A value between apostrophes. Nothing is escaped: an apostrophe in the value breaks the statement, as
/// required.
inline QString Quoted(const QString& value) {
    return u'\'' + value + u'\'';
}
