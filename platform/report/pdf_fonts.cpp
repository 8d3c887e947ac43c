#include "platform/report/pdf_fonts.h"

#include "platform/errors.h"
#include "platform/report/cff.h"

#include <hb-subset.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace report {
namespace {

using Used = PdfFonts::Used;

constexpr int kMapBlock = 100;  // entries that a block of a character map may have
constexpr hb_tag_t kCff = HB_TAG('C', 'F', 'F', ' ');

struct FaceEnd {
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
};
using HeldFace = std::unique_ptr<hb_face_t, FaceEnd>;

QByteArray BytesOf(hb_blob_t* blob) {
    unsigned length = 0;
    const char* data = hb_blob_get_data(blob, &length);
    QByteArray bytes(data, static_cast<qsizetype>(length));
    hb_blob_destroy(blob);
    return bytes;
}

/// The face with the glyphs that were used alone. Where a glyph has no other number than its place it keeps
/// that.
HeldFace Subset(const Face& face, const Used& used) {
    hb_subset_input_t* input = hb_subset_input_create_or_fail();
    if (!input) return nullptr;
    const unsigned keep = used.ids ? HB_SUBSET_FLAGS_DEFAULT : HB_SUBSET_FLAGS_RETAIN_GIDS;
    hb_subset_input_set_flags(input, keep | HB_SUBSET_FLAGS_NO_HINTING);
    for (const auto& [glyph, character] : used.glyphs) hb_set_add(hb_subset_input_glyph_set(input), glyph);
    hb_set_t* dropped = hb_subset_input_set(input, HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* table : {"GSUB", "GPOS", "GDEF", "BASE", "VORG", "vhea", "vmtx", "name", "DSIG", "post"})
        hb_set_add(dropped, hb_tag_from_string(table, -1));
    HeldFace subset(hb_subset_or_fail(hb_font_get_face(face.font), input));
    hb_subset_input_destroy(input);
    return subset;
}

QByteArray Hex(std::uint32_t number) {
    return QByteArray::number(number, 16).rightJustified(4, '0');
}

QByteArray Utf16Hex(char32_t character) {
    QByteArray hex;
    for (const QChar c : QString::fromUcs4(&character, 1)) hex += Hex(c.unicode());
    return hex;
}

/// What a reader takes for the text of each glyph.
QByteArray CharacterMap(const Used& used) {
    QByteArray map =
        "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo <</Registry(Adobe)/Ordering(UCS)/Supplement 0>> def\n"
        "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
        "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
    QByteArray block;
    int count = 0;
    const auto endBlock = [&] {
        if (count > 0) map += QByteArray::number(count) + " beginbfchar\n" + block + "endbfchar\n";
        block.clear();
        count = 0;
    };
    for (const auto& [glyph, character] : used.glyphs) {
        block += '<' + Hex(used.CodeOf(glyph)) + "> <" + Utf16Hex(character) + ">\n";
        if (++count == kMapBlock) endBlock();
    }
    endBlock();
    return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

/// Advances, in thousandths of the type size.
QByteArray Widths(const Face& face, const Used& used) {
    const double unit = hb_face_get_upem(hb_font_get_face(face.font));
    QByteArray widths = "[";
    for (const auto& [glyph, character] : used.glyphs) {
        const double advance = hb_font_get_glyph_h_advance(face.font, glyph) * 1000 / unit;
        widths += QByteArray::number(used.CodeOf(glyph)) + '[' + PdfFile::Number(advance) + ']';
    }
    return widths + ']';
}

QByteArray Descriptor(const Face& face, const QByteArray& name, const QByteArray& program) {
    const double scale = 1000.0 / hb_face_get_upem(hb_font_get_face(face.font));
    hb_font_extents_t extents{};
    hb_font_get_h_extents(face.font, &extents);
    const QByteArray ascent = PdfFile::Number(extents.ascender * scale);
    const QByteArray descent = PdfFile::Number(extents.descender * scale);
    return "<</Type/FontDescriptor/FontName/" + name + "/Flags 4/FontBBox[-1000 " + descent + " 3000 " +
           ascent + "]/ItalicAngle 0/Ascent " + ascent + "/Descent " + descent + "/CapHeight " + ascent +
           "/StemV " + (face.bold ? "140" : "80") + program + ">>";
}

/// Letters and digits alone, behind the six letters that mark a part of a font.
QByteArray NameOf(const Face& face, int number) {
    QByteArray name = "AAAAA" + QByteArray(1, static_cast<char>('A' + number % 26)) + '+';
    for (const QChar c : face.family)
        if (c.unicode() < 0x80 && c.isLetterOrNumber()) name += static_cast<char>(c.unicode());
    return name + (face.bold ? "-Bold" : "-Regular");
}

int WriteFont(PdfFile& file, const Face& face, const Used& used) {
    const HeldFace subset = Subset(face, used);
    if (!subset) throw RuntimeError(u"字体“%1”不能写入 PDF！"_s.arg(face.family));
    const QByteArray outlines = BytesOf(hb_face_reference_table(subset.get(), kCff));
    const bool cff = !outlines.isEmpty();
    int program = 0;
    if (cff) {
        program = file.WriteStream("/Subtype/CIDFontType0C", outlines);
    } else {
        const QByteArray whole = BytesOf(hb_face_reference_blob(subset.get()));
        program = file.WriteStream("/Length1 " + QByteArray::number(whole.size()), whole);
    }
    const QByteArray name = NameOf(face, used.number);
    const QByteArray reference = (cff ? "/FontFile3 " : "/FontFile2 ") + PdfFile::Reference(program);
    const int descriptor = file.Write(Descriptor(face, name, reference));
    const int glyphFont = file.Write(
        "<</Type/Font/Subtype/" + QByteArray(cff ? "CIDFontType0" : "CIDFontType2/CIDToGIDMap/Identity") +
        "/BaseFont/" + name +
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
        PdfFile::Reference(descriptor) + "/DW 1000/W" + Widths(face, used) + ">>");
    const int map = file.WriteStream({}, CharacterMap(used));
    return file.Write("<</Type/Font/Subtype/Type0/BaseFont/" + name +
                      "/Encoding/Identity-H/DescendantFonts[" + PdfFile::Reference(glyphFont) +
                      "]/ToUnicode " + PdfFile::Reference(map) + ">>");
}

}  // namespace

PdfFonts::Used& PdfFonts::UsedOf(const Face& face) {
    const auto found = used_.find(&face);
    if (found != used_.end()) return found->second;
    hb_face_t* whole = hb_font_get_face(face.font);
    const QByteArray outlines = BytesOf(hb_face_reference_table(whole, kCff));
    Used& used = used_[&face];
    used.number = static_cast<int>(used_.size()) - 1;
    used.ids = CharacterIds(outlines, hb_face_get_glyph_count(whole));
    return used;
}

int PdfFonts::NumberOf(const Face& face) {
    return UsedOf(face).number;
}

PdfFonts::Code PdfFonts::Use(const Face& face, std::uint32_t glyph, char32_t character) {
    Used& used = UsedOf(face);
    const bool says = used.glyphs.try_emplace(glyph, character).first->second == character;
    return {used.CodeOf(glyph), says};
}

QByteArray PdfFonts::Write(PdfFile& file) const {
    QByteArray fonts = "<<";
    for (const auto& [face, used] : used_)
        fonts +=
            "/F" + QByteArray::number(used.number) + ' ' + PdfFile::Reference(WriteFont(file, *face, used));
    return fonts + ">>";
}

}  // namespace report
