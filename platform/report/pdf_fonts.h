// The fonts of a PDF: of each face the glyphs that were used, with the characters that they show.
#pragma once

#include "platform/report/fonts.h"
#include "platform/report/pdf_file.h"

#include <map>
#include <optional>
#include <vector>

namespace report {

class PdfFonts {
  public:
    /// The number of a face's font in the file.
    int NumberOf(const Face& face);
    struct Code {
        std::uint32_t code;  ///< of the glyph in the file
        bool says;  ///< false: the glyph is mapped to another character already; the text has to be said
                    ///< beside it
    };
    /// Notes that a glyph is used.
    Code Use(const Face& face, std::uint32_t glyph, char32_t character);
    /// Writes the fonts; gives the dictionary of them. Raises RuntimeError for a font that can't be used in a
    /// file.
    QByteArray Write(PdfFile& file) const;

    /// What is known of one face.
    struct Used {
        int number = 0;
        std::map<std::uint32_t, char32_t> glyphs = {};
        std::optional<std::vector<std::uint16_t>> ids = {};  ///< CIDs by glyph; none: the glyphs' own numbers

        std::uint32_t CodeOf(std::uint32_t glyph) const {
            return ids && glyph < ids->size() ? (*ids)[glyph] : glyph;
        }
    };

  private:
    Used& UsedOf(const Face& face);
    std::map<const Face*, Used> used_;
};

}  // namespace report
