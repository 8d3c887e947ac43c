#include "app/command_search.h"

#include "platform/text/pinyin.h"

#include <algorithm>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

enum Rank { Whole, Beginning, Inside };

/// Full-width letters, as an input method may leave them, count as letters. Marks between the words of a
/// caption are not compared; where nothing else is typed, they find nothing.
QString Needle(const QString& typed) {
    QString needle, marks;
    for (const QChar c : typed.normalized(QString::NormalizationForm_KC))
        if (!c.isSpace()) (c.isPunct() ? marks : needle) += c.toLower();
    return needle.isEmpty() ? marks : needle;
}

/// Where the text ends in the caption that is typed as the needle from `at` on; nothing if it is another one.
std::optional<std::size_t> EndOf(QStringView needle, const std::vector<QStringList>& pieces, std::size_t at) {
    if (needle.isEmpty()) return at;
    if (at == pieces.size()) return std::nullopt;
    if (pieces[at].isEmpty()) return EndOf(needle, pieces, at + 1);
    for (const QString& piece : pieces[at]) {
        if (QStringView(piece).startsWith(needle)) return at + 1;
        if (!needle.startsWith(piece)) continue;
        if (const auto end = EndOf(needle.sliced(piece.size()), pieces, at + 1)) return end;
    }
    return std::nullopt;
}

Rank RankOf(const TextPiece& piece, qsizetype size) {
    if (piece.from > 0) return Inside;
    return piece.length == size ? Whole : Beginning;
}

struct Found {
    CommandSearch::Hit hit;
    Rank rank = Inside;
};

std::optional<Found> InShortName(QStringView needle, const QString& shortName) {
    const qsizetype at = shortName.indexOf(needle, 0, Qt::CaseInsensitive);
    if (at < 0) return std::nullopt;
    const TextPiece piece{static_cast<int>(at), static_cast<int>(needle.size())};
    return Found{{.shortName = piece}, RankOf(piece, shortName.size())};
}

std::optional<Found> InCaption(QStringView needle, const std::vector<QStringList>& pieces) {
    for (std::size_t from = 0; from < pieces.size(); ++from) {
        if (pieces[from].isEmpty()) continue;
        const auto end = EndOf(needle, pieces, from);
        if (!end) continue;
        const TextPiece piece{static_cast<int>(from), static_cast<int>(*end - from)};
        return Found{{.caption = piece}, RankOf(piece, static_cast<qsizetype>(pieces.size()))};
    }
    return std::nullopt;
}

}  // namespace

CommandSearch::CommandSearch(std::vector<Entry> entries) {
    for (Entry& entry : entries) {
        ReadEntry read{.entry = std::move(entry)};
        const auto readings = text::Readings(read.entry.caption);
        for (std::size_t i = 0; i < readings.size(); ++i) {
            const QChar character = read.entry.caption[static_cast<qsizetype>(i)];
            QStringList pieces;
            if (!readings[i].isEmpty()) pieces += character.toLower();
            for (const QString& syllable : readings[i]) {
                pieces += syllable;
                if (syllable.contains(u'v')) pieces += QString(syllable).replace(u'v', u'u');
            }
            // A whole syllable before its initial, so that as much as possible of the needle means one
            // character.
            for (const QString& syllable : readings[i]) pieces += syllable.first(1);
            pieces.removeDuplicates();
            read.initials += readings[i].isEmpty() ? u' ' : readings[i].front().front();
            read.pieces.push_back(pieces);
        }
        read_.push_back(std::move(read));
    }
}

std::vector<CommandSearch::Hit> CommandSearch::Find(const QString& typed,
                                                    const std::function<bool(int entry)>& offered) const {
    const QString needle = Needle(typed);
    std::vector<Found> found;
    for (int i = 0; i < static_cast<int>(read_.size()); ++i) {
        if (!offered(i)) continue;
        const ReadEntry& read = read_[static_cast<std::size_t>(i)];
        std::optional<Found> best = Found{};
        if (!needle.isEmpty()) {
            best = InCaption(needle, read.pieces);
            const auto byName = InShortName(needle, read.entry.shortName);
            if (byName && (!best || byName->rank < best->rank)) best = byName;
        }
        if (!best) continue;
        best->hit.entry = i;
        found.push_back(*best);
    }
    std::ranges::stable_sort(found, {},
                             [this](const Found& f) { return std::tuple(f.rank, UseRank(f.hit.entry)); });
    std::vector<Hit> hits;
    for (const Found& f : found) hits.push_back(f.hit);
    return hits;
}

void CommandSearch::Used(int entry) {
    std::erase(used_, entry);
    used_.push_back(entry);
}

/// 0 for what was used last.
int CommandSearch::UseRank(int entry) const {
    return static_cast<int>(std::find(used_.rbegin(), used_.rend(), entry) - used_.rbegin());
}
