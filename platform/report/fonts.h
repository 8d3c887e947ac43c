// The typeface of a report: glyphs, their widths, and where a text breaks.
//
// Always holds: a text is measured without hinting and without a screen, so preview, printer and PDF break
// lines at the same places. Each character has one glyph; a character that the family lacks is taken from
// another installed family that has it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <cstdint>
#include <memory>
#include <vector>

struct hb_font_t;

namespace report {

/// One font file, opened.
struct Face {
    QString family;
    bool bold;
    QByteArray file;
    int index;        ///< of the face inside the file
    hb_font_t* font;  ///< kept for the whole run
};

struct Glyph {
    std::uint32_t id;
    float advance;     ///< in type sizes
    const Face* face;  ///< null for a character without a glyph anywhere
};

/// Regular and bold of one family. Raises RuntimeError where no font is installed at all.
class Fonts {
  public:
    /// The one instance for a family, made at first use; an unknown family gives the one most like it.
    static const Fonts& Of(const QString& family);
    ~Fonts();

    const Glyph& GlyphOf(char32_t character, bool bold) const;
    /// Of a line, in millimetres; the size is in points.
    double Width(QStringView text, double size, bool bold) const;
    /// The lines of a text for an available width in millimetres. A line breaks at a line break, at
    /// blanks and between Chinese characters; a closing mark begins no line, an opening one ends none. A word
    /// that is too long for a line breaks anywhere. Blanks at the end of a line are dropped.
    QStringList Wrap(const QString& text, double available, double size, bool bold) const;

  private:
    explicit Fonts(const QString& family);
    struct State;
    std::unique_ptr<State> state_;
};

/// The next character of a text; moves the place behind it. Half of a pair alone is U+FFFD, what cannot be
/// seen (a tab, a line break) is a blank.
char32_t NextCharacter(QStringView text, qsizetype& place);

}  // namespace report
