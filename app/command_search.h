// The search of the command palette: which forms and commands a typed text means, and in which order. Without
// a screen; the window is in command_palette.h.
//
// Always holds: blanks and the case of letters do not count; captions are read in pinyin once.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A piece of a text, in UTF-16 units.
struct TextPiece {
    int from = 0;
    int length = 0;
    bool operator==(const TextPiece&) const = default;
};

class CommandSearch {
  public:
    struct Entry {
        QString caption;    ///< 客户资料与报价
        QString shortName;  ///< A03; may be empty
    };
    struct Hit {
        int entry = 0;
        TextPiece caption;    ///< what the typed text means of the caption, and of its initials
        TextPiece shortName;  ///< or of the short name
    };

    explicit CommandSearch(std::vector<Entry> entries);

    /// One for each unit of the caption: a letter, or a blank where the unit has no reading.
    const QString& Initials(int entry) const { return read_.at(static_cast<std::size_t>(entry)).initials; }

    /// The offered entries that a text means: by a part of the caption, in characters, initials or whole
    /// syllables, the last one perhaps typed half, or by the short name. First those that it means whole,
    /// then those that begin with it, then the others; among equals what was used last, then in the given
    /// order. An empty text means all.
    std::vector<Hit> Find(const QString& typed, const std::function<bool(int entry)>& offered) const;

    /// The operator has opened it.
    void Used(int entry);

  private:
    struct ReadEntry {
        Entry entry;
        QString initials;
        /// For each unit of the caption what may be typed for it; nothing if it may be left out.
        std::vector<QStringList> pieces;
    };
    int UseRank(int entry) const;

    std::vector<ReadEntry> read_;
    std::vector<int> used_;  ///< the last is the latest
};
