#include "platform/workbook/code_page.h"

#include "platform/errors.h"

#include <array>
#include <glib.h>

using namespace Qt::StringLiterals;

namespace workbook {
namespace {

constexpr uchar kOutside = '?';
constexpr int kAscii = 0x80;

// The ranges of the first and second byte of a character.
constexpr int kFirstLead = 0x81;
constexpr int kLastLead = 0xFE;
constexpr int kFirstTrail = 0x40;
constexpr int kLastTrail = 0xFE;

/// The two bytes of every character beyond ASCII, lead byte high; 0 if the page does not have the character.
/// The single byte 0x80, which later became the euro sign, is omitted: programs of those formats do not
/// handle it.
using Table = std::array<quint16, 0x10000>;

Table ReadTable() {
    const GIConv converter = g_iconv_open("UTF-16LE", "CP936");
    if (converter == reinterpret_cast<GIConv>(-1)) throw RuntimeError(u"系统不支持代码页936！"_s);
    Table table{};
    for (int lead = kFirstLead; lead <= kLastLead; ++lead) {
        for (int trail = kFirstTrail; trail <= kLastTrail; ++trail) {
            char in[] = {static_cast<char>(lead), static_cast<char>(trail)};
            char out[4];
            char* from = in;
            char* to = out;
            gsize left = sizeof in;
            gsize outLeft = sizeof out;
            g_iconv(converter, nullptr, nullptr, nullptr, nullptr);
            const bool known = g_iconv(converter, &from, &left, &to, &outLeft) != static_cast<gsize>(-1);
            if (!known || outLeft != sizeof out - 2) continue;
            table[qFromLittleEndian<quint16>(out)] = static_cast<quint16>(lead << 8 | trail);
        }
    }
    g_iconv_close(converter);
    return table;
}

}  // namespace

void PutInCodePage(Bytes& bytes, QStringView text) {
    static const Table table = ReadTable();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < kAscii) {
            bytes.push_back(static_cast<uchar>(unit));
        } else if (const quint16 pair = table[unit]) {
            bytes.push_back(static_cast<uchar>(pair >> 8));
            bytes.push_back(static_cast<uchar>(pair & 0xFF));
        } else {
            bytes.push_back(kOutside);
            if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) ++i;
        }
    }
}

}  // namespace workbook
