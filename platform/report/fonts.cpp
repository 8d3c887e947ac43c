#include "platform/report/fonts.h"

#include "platform/errors.h"
#include "platform/report/page.h"

#include <QHash>

#include <array>
#include <fontconfig/fontconfig.h>
#include <hb.h>
#include <map>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr char32_t kFirstOfChinese =
    0x2E80;                         // from here on characters are squares that a line may end behind
constexpr size_t kPlane = 0x10000;  // characters of the first plane are looked up by their number
constexpr QStringView kNoStart = u"，。；：、）】》”！？,.;:)]%";
constexpr QStringView kNoEnd = u"（【《“([";

struct PatternEnd {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternEnd>;

Pattern Wanted(const QString& family, bool bold, char32_t character) {
    Pattern pattern(FcPatternCreate());
    const QByteArray name = family.toUtf8();
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddString(pattern.get(), FC_LANG, reinterpret_cast<const FcChar8*>("zh-cn"));
    if (character != 0) {
        FcCharSet* characters = FcCharSetCreate();
        FcCharSetAddChar(characters, character);
        FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters);
        FcCharSetDestroy(characters);
    }
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

/// Null where the file is none that can be used.
std::unique_ptr<Face> OpenFace(FcPattern* found, bool bold) {
    FcChar8* file = nullptr;
    FcChar8* family = nullptr;
    int index = 0;
    FcPatternGetString(found, FC_FILE, 0, &file);
    FcPatternGetString(found, FC_FAMILY, 0, &family);
    FcPatternGetInteger(found, FC_INDEX, 0, &index);
    if (!file || !family) return nullptr;
    const auto text = [](const FcChar8* t) { return reinterpret_cast<const char*>(t); };
    hb_blob_t* blob = hb_blob_create_from_file(text(file));
    hb_face_t* face = hb_face_create(blob, static_cast<unsigned>(index));
    hb_font_t* font = hb_font_create(face);
    const bool usable = hb_face_get_glyph_count(face) > 0;
    hb_blob_destroy(blob);
    hb_face_destroy(face);
    if (!usable) {
        hb_font_destroy(font);
        return nullptr;
    }
    return std::make_unique<Face>(
        Face{QString::fromUtf8(text(family)), bold, QByteArray(text(file)), index, font});
}

bool IsChinese(char32_t character) {
    return character >= kFirstOfChinese;
}

bool IsOneOf(char32_t character, QStringView marks) {
    return character < kPlane && marks.contains(QChar(static_cast<char16_t>(character)));
}

}  // namespace

char32_t NextCharacter(QStringView text, qsizetype& place) {
    const QChar c = text[place++];
    if (c.isHighSurrogate() && place < text.size() && text[place].isLowSurrogate())
        return QChar::surrogateToUcs4(c, text[place++]);
    if (c.isSurrogate()) return U'\uFFFD';
    return c < u' ' || c == QChar(0x7F) ? U' ' : c.unicode();
}

struct Fonts::State {
    struct Known {
        Glyph glyph{};
        bool known = false;
    };
    struct Weight {
        const Face* main = nullptr;
        std::vector<Known> plane = std::vector<Known>(kPlane);
        QHash<char32_t, Glyph> beyond;
    };

    const Face* Keep(std::unique_ptr<Face> face);
    Glyph Look(char32_t character, bool bold);
    Glyph LookElsewhere(char32_t character, bool bold);

    QString family;
    std::array<Weight, 2> weights;
    std::vector<std::unique_ptr<Face>> faces;
};

const Face* Fonts::State::Keep(std::unique_ptr<Face> face) {
    for (const auto& known : faces)
        if (known->file == face->file && known->index == face->index && known->bold == face->bold) {
            hb_font_destroy(face->font);
            return known.get();
        }
    faces.push_back(std::move(face));
    return faces.back().get();
}

Glyph InFace(const Face& face, char32_t character) {
    hb_codepoint_t id = 0;
    hb_font_get_nominal_glyph(face.font, character, &id);
    const auto unit = static_cast<float>(hb_face_get_upem(hb_font_get_face(face.font)));
    return {id, static_cast<float>(hb_font_get_glyph_h_advance(face.font, id)) / unit, &face};
}

Glyph Fonts::State::LookElsewhere(char32_t character, bool bold) {
    FcResult result = FcResultMatch;
    const Pattern found(FcFontMatch(nullptr, Wanted(family, bold, character).get(), &result));
    if (!found) return {};
    auto face = OpenFace(found.get(), bold);
    if (!face) return {};
    return InFace(*Keep(std::move(face)), character);
}

Glyph Fonts::State::Look(char32_t character, bool bold) {
    const Face& main = *weights[bold].main;
    const Glyph glyph = InFace(main, character);
    if (glyph.id != 0) return glyph;
    const Glyph other = LookElsewhere(character, bold);
    return other.face && other.id != 0 ? other : glyph;  // the family's sign for what is missing
}

Fonts::Fonts(const QString& family) : state_(std::make_unique<State>()) {
    state_->family = family;
    for (const bool bold : {false, true}) {
        FcResult result = FcResultMatch;
        const Pattern found(FcFontMatch(nullptr, Wanted(family, bold, 0).get(), &result));
        auto face = found ? OpenFace(found.get(), bold) : nullptr;
        if (!face) throw RuntimeError(u"没有可用的字体“%1”！"_s.arg(family));
        state_->weights[bold].main = state_->Keep(std::move(face));
    }
}

Fonts::~Fonts() = default;

const Fonts& Fonts::Of(const QString& family) {
    // Never destroyed: what draws a page keeps the faces.
    static auto& made = *new std::map<QString, std::unique_ptr<Fonts>>;
    auto& fonts = made[family];
    if (!fonts) fonts.reset(new Fonts(family));
    return *fonts;
}

const Glyph& Fonts::GlyphOf(char32_t character, bool bold) const {
    State::Weight& weight = state_->weights[bold];
    if (character < kPlane) {
        State::Known& known = weight.plane[character];
        if (!known.known) known = {state_->Look(character, bold), true};
        return known.glyph;
    }
    auto found = weight.beyond.find(character);
    if (found == weight.beyond.end()) found = weight.beyond.insert(character, state_->Look(character, bold));
    return *found;
}

double Fonts::Width(QStringView text, double size, bool bold) const {
    double width = 0;
    for (qsizetype at = 0; at < text.size();) width += GlyphOf(NextCharacter(text, at), bold).advance;
    return width * size * kPoint;
}

namespace {

/// The pieces of one paragraph that no line break may divide, as the places where they end.
std::vector<qsizetype> PieceEnds(QStringView text) {
    std::vector<qsizetype> ends;
    char32_t before = 0;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype start = at;
        const char32_t c = NextCharacter(text, at);
        const bool mayBreak = before == U' ' || IsChinese(before) || IsChinese(c);
        if (start > 0 && mayBreak && !IsOneOf(c, kNoStart) && !IsOneOf(before, kNoEnd) && c != U' ')
            ends.push_back(start);
        before = c;
    }
    ends.push_back(text.size());
    return ends;
}

QStringView WithoutBlanksAtEnd(QStringView line) {
    while (line.endsWith(u' ')) line.chop(1);
    return line;
}

}  // namespace

QStringList Fonts::Wrap(const QString& text, double available, double size, bool bold) const {
    if (!text.contains(u'\n') && Width(text, size, bold) <= available) return {text};
    const double most = available / (size * kPoint) + 1e-9;
    QStringList lines;
    for (const QStringView paragraph : QStringView(text).split(u'\n')) {
        qsizetype lineStart = 0, pieceStart = 0;
        double width = 0;  // of the line, blanks at its end included
        const auto endLine = [&](qsizetype end) {
            lines += WithoutBlanksAtEnd(paragraph.sliced(lineStart, end - lineStart)).toString();
            lineStart = end;
            width = 0;
        };
        for (const qsizetype end : PieceEnds(paragraph)) {
            const QStringView piece = paragraph.sliced(pieceStart, end - pieceStart);
            double visible = 0;
            for (qsizetype at = 0; at < piece.size();)
                visible += GlyphOf(NextCharacter(piece, at), bold).advance;
            const double whole = visible;
            const QStringView dark = WithoutBlanksAtEnd(piece);
            visible -= GlyphOf(U' ', bold).advance * static_cast<double>(piece.size() - dark.size());
            if (width + visible > most && pieceStart > lineStart) endLine(pieceStart);
            if (visible <= most) {
                width += whole;
            } else {  // longer than a line: it breaks anywhere
                for (qsizetype at = 0; at < piece.size();) {
                    const qsizetype start = at;
                    const double advance = GlyphOf(NextCharacter(piece, at), bold).advance;
                    if (width + advance > most && pieceStart + start > lineStart) endLine(pieceStart + start);
                    width += advance;
                }
            }
            pieceStart = end;
        }
        endLine(paragraph.size());
    }
    return lines;
}

}  // namespace report
