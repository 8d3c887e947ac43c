// How Chinese text is read, for searching by what a hand types: syllables without tones.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace text {

/// For each UTF-16 unit of the text the syllables that it may be read as, in lower case, the usual one first;
/// ü is v. A letter or digit is read as itself; other characters have no reading. The first call takes 0.1 s,
/// the time in which the readings are loaded.
std::vector<QStringList> Readings(const QString& text);

}  // namespace text
