// The numbers by which a PDF calls the glyphs of a font with CFF outlines.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

namespace report {

/// Of a CFF table whose glyphs have numbers of their own (CIDs): these, by glyph. Nothing for one without
/// them, and for one that can't be read.
std::optional<std::vector<std::uint16_t>> CharacterIds(const QByteArray& cff, unsigned glyphs);

}  // namespace report
