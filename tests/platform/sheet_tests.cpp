// Reading workbooks and CSV: every kind of cell as the text that an operator sees, what is reported, which
// files are refused and with which words, and what damaged files do.
#include "platform/errors.h"
#include "platform/sheet/sheet.h"
#include "platform/workbook/container.h"
#include "platform/workbook/workbook.h"
#include "tests/support/files.h"
#include "tests/support/script.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtEndian>

#include <cstring>
#include <gsf/gsf-outfile-zip.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>
#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

class Folder {
  public:
    QString Put(const QByteArray& bytes) {
        const QString path = folder_.filePath(QString::number(++files_));
        tests::Write(path, bytes);
        return path;
    }
    QString Path(const QString& name) const { return folder_.filePath(name); }

  private:
    QTemporaryDir folder_;
    int files_ = 0;
};

/// The rows, cells joined by "|", then the cells that are not understood.
QStringList Seen(const QString& path, int which = 0) {
    try {
        const sheet::Sheet read = sheet::Read(path, which);
        QStringList lines;
        for (const QStringList& row : read.rows) lines += row.join(u'|');
        for (const auto& cell : read.notUnderstood)
            lines += sheet::Address(cell.row, cell.column) + u": "_s + cell.reason;
        return lines;
    } catch (const RuntimeError& error) {
        return {u"! "_s + error.Text()};
    }
}

using Parts = std::vector<std::pair<QByteArray, QByteArray>>;

QByteArray Zip(const Parts& parts) {
    gsf_init();
    GsfOutput* const memory = gsf_output_memory_new();
    GsfOutfile* const zip = gsf_outfile_zip_new(memory, nullptr);
    QHash<QByteArray, GsfOutfile*> folders{{"", zip}};
    for (const auto& [path, bytes] : parts) {
        const QByteArray folder = path.contains('/') ? path.left(path.lastIndexOf('/')) : QByteArray();
        QByteArray above;
        for (const QByteArray& name : folder.split('/')) {
            const QByteArray here = above.isEmpty() ? name : above + '/' + name;
            if (!folders.contains(here))
                folders[here] = GSF_OUTFILE(gsf_outfile_new_child(folders[above], name.constData(), TRUE));
            above = here;
        }
        GsfOutput* const part =
            gsf_outfile_new_child(folders[folder], path.mid(path.lastIndexOf('/') + 1).constData(), FALSE);
        gsf_output_write(part, bytes.size(), reinterpret_cast<const guint8*>(bytes.constData()));
        gsf_output_close(part);
        g_object_unref(part);
    }
    for (auto it = folders.begin(); it != folders.end(); ++it)
        if (it.value() != zip) {
            gsf_output_close(GSF_OUTPUT(it.value()));
            g_object_unref(it.value());
        }
    gsf_output_close(GSF_OUTPUT(zip));
    auto* const bytes = GSF_OUTPUT_MEMORY(memory);
    const QByteArray zipped(reinterpret_cast<const char*>(gsf_output_memory_get_bytes(bytes)),
                            gsf_output_size(memory));
    g_object_unref(zip);
    g_object_unref(memory);
    return zipped;
}

const QByteArray kOffice = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";

QByteArray Relations(const QByteArrayList& kindsAndTargets) {
    QByteArray xml = "<Relationships>";
    for (qsizetype i = 0; i < kindsAndTargets.size(); i += 2)
        xml += "<Relationship Id=\"r" + QByteArray::number(i / 2) + "\" Type=\"" + kOffice + '/' +
               kindsAndTargets[i] + "\" Target=\"" + kindsAndTargets[i + 1] + "\"/>";
    return xml + "</Relationships>";
}

/// A hidden sheet, one with these rows, and one more.
Parts Book(const QByteArray& rows, const QByteArray& head = {}, const QByteArray& properties = {}) {
    const auto sheet = [](const QByteArray& data) {
        return "<worksheet><sheetData>" + data + "</sheetData></worksheet>";
    };
    return {
        {"_rels/.rels", Relations({"officeDocument", "xl/book.xml"})},
        {"xl/book.xml", head + "<x:workbook xmlns:x=\"urn:any\" xmlns:r=\"" + kOffice + "\">" + properties +
                            "<x:sheets><x:sheet name=\"旧\" state=\"hidden\" r:id=\"r0\"/>"
                            "<x:sheet name=\"帐单\" r:id=\"r1\"/><x:sheet name=\"明细\" r:id=\"r2\"/>"
                            "</x:sheets></x:workbook>"},
        {"xl/_rels/book.xml.rels",
         Relations({"worksheet", "s/0.xml", "worksheet", "/xl/s/1.xml", "worksheet", "s/2.xml",
                    "sharedStrings", "texts.xml", "styles", "looks.xml"})},
        {"xl/texts.xml",
         "<sst><si><t>运单号</t></si><si><r><t>金</t></r><r><t>额</t></r><rPh><t>jin</t></rPh></si>"
         "<si><t>_x0041_b_x000G_</t></si></sst>"},
        {"xl/looks.xml",
         "<styleSheet><numFmts><numFmt numFmtId=\"170\" formatCode=\"[Red]yyyy&quot;h&quot;m\"/>"
         "<numFmt numFmtId=\"171\" formatCode=\"0000000000\"/></numFmts>"
         "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/>"
         "<xf numFmtId=\"14\"/><xf numFmtId=\"170\"/><xf numFmtId=\"171\"/>"
         "<xf numFmtId=\"22\"/><xf numFmtId=\"20\"/></cellXfs></styleSheet>"},
        {"xl/s/0.xml", sheet("<row><c><v>0</v></c></row>")},
        {"xl/s/1.xml", sheet(rows)},
        {"xl/s/2.xml", sheet("<row><c t=\"inlineStr\"><is><t>另</t></is></c></row>")}};
}

const QByteArray kRows =
    "<row r=\"1\"><c r=\"A1\" t=\"s\"><v>0</v></c><c t=\"s\"><v>1</v></c><c t=\"s\"><v>2</v></c></row>"
    "<row r=\"3\"><c r=\"A3\"><v>1234567890123</v></c><c r=\"B3\"><v>1.2345678901230001E12</v></c>"
    "<c><v>12.300000000000001</v></c><c s=\"3\"><v>12345</v></c><c><v>1E-3</v></c></row>"
    "<row><c s=\"1\"><v>45601</v></c><c s=\"2\"><v>45601</v></c><c s=\"4\"><v>45601.75</v></c>"
    "<c s=\"5\"><v>0.5</v></c><c s=\"1\"><v>59</v></c><c s=\"1\"><v>-1</v></c></row>"
    "<row><c t=\"b\"><v>1</v></c><c t=\"str\"><f>A1</f><v>文</v></c><c t=\"e\"><v>#N/A</v></c>"
    "<c><f>B1</f></c><c t=\"s\"><v>9</v></c><c t=\"zz\"><v>q</v></c><c><v>12345678901234567</v></c>"
    "<c t=\"inlineStr\"><is><r><t>行</t></r><rPh><t>x</t></rPh></is></c><c "
    "t=\"d\"><v>2024-11-05T00:00:00</v></c>"
    "<c r=\"ZZ5\"><v>1</v></c></row>";

TEST(Sheet, AnXlsxGivesEveryCellOrReportsIt) {
    Folder folder;
    const QStringList expected = {u"运单号|金额|Ab_x000G_"_s,
                                  u""_s,
                                  u"1234567890123|1234567890123|12.3|0000012345|0.001"_s,
                                  u"2024-11-05|2024-11-05|2024-11-05 18:00:00|12:00:00|1900-02-28|-1"_s,
                                  u"TRUE|文|#N/A|||q|12345678901234600|行|2024-11-05"_s,
                                  u"F4: 不是日期"_s,
                                  u"C5: 错误值"_s,
                                  u"D5: 公式没有保存结果"_s,
                                  u"E5: 文字不在工作簿里"_s,
                                  u"F5: 不认识的类型 zz"_s,
                                  u"G5: 数字超过 15 位，末尾可能不准"_s,
                                  u"ZZ5: 在第 256 列之后"_s};
    const QString path = folder.Put(Zip(Book(kRows)));
    EXPECT_EQ(Seen(path).join(u'\n'), expected.join(u'\n'));
    EXPECT_EQ(sheet::Read(path).names, (QStringList{u"帐单"_s, u"明细"_s}));
    EXPECT_EQ(Seen(path, 1), QStringList{u"另"_s});
    const QByteArray day = "<row><c s=\"1\"><v>1</v></c></row>";
    EXPECT_EQ(Seen(folder.Put(Zip(Book(day, {}, "<workbookPr date1904=\"1\"/>")))),
              QStringList{u"1904-01-02"_s});
    const QByteArray odd =
        "<row><c t=\"inlineStr\"><is><t>A_x0000_1</t></is></c><c><f>A1</f><v/></c><c "
        "t=\"str\"><f>A1</f><v/></c></row>";
    EXPECT_EQ(Seen(folder.Put(Zip(Book(odd)))),
              (QStringList{u"A1"_s, u"A1: 有无法识别的字符"_s, u"B1: 公式没有保存结果"_s}));
    EXPECT_EQ(sheet::Read(path).hidden, 1);
}

QByteArray Short(int value) {
    QByteArray bytes(2, '\0');
    qToLittleEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}
QByteArray Biff(int type, const QByteArray& data) {
    return Short(type) + Short(static_cast<int>(data.size())) + data;
}
QByteArray Double(double value) {
    QByteArray bytes(8, '\0');
    std::memcpy(bytes.data(), &value, 8);
    return bytes;
}
QByteArray FormulaAt(int row, int col, const QByteArray& result) {
    return Biff(0x0006, Short(row) + Short(col) + Short(0) + result + QByteArray(8, '\0'));
}

/// A stream of one sheet after a hidden one, with formulas, which no program of ours writes.
QByteArray Stream(bool encrypted) {
    const QByteArray begin = Short(0x0600), end = Biff(0x000A, {});
    const auto bof = [&](int kind) { return Biff(0x0809, begin + Short(kind) + QByteArray(12, '\0')); };
    const auto special = [](int kind, int value) {
        return Short(kind) + Short(value) + Short(0) + Short(0xFFFF);
    };
    const QByteArray cells =
        bof(0x10) + Biff(0x0200, Short(0) + Short(0) + Short(2) + Short(0) + Short(0) + Short(6) + Short(0)) +
        Biff(0x0203, Short(0) + Short(0) + Short(0) + Double(1234567890123)) + FormulaAt(0, 1, Double(12.5)) +
        FormulaAt(0, 2, special(0, 0)) + Biff(0x0207, Short(2) + '\1' + Short(0x6587) + Short(0x5B57)) +
        FormulaAt(0, 3, special(2, 0x2A)) + Biff(0x0205, Short(1) + Short(0) + Short(0) + "\x07\x01") +
        Biff(0x0203, Short(0) + Short(4) + Short(1) + Double(7)) + FormulaAt(1, 1, special(1, 1)) +
        FormulaAt(1, 2, special(3, 0)) + FormulaAt(1, 3, special(0, 0)) +
        FormulaAt(1, 4, Double(1234567890123456)) +
        Biff(0x00BD, Short(1) + Short(5) + Short(0) + Short(30) + Short(0) + Short(900)) + Biff(0x00BD, {}) +
        end;
    const auto sheet = [](qsizetype at, char hidden, const QByteArray& name) {
        return Biff(0x0085, Short(static_cast<int>(at)) + Short(0) + hidden + '\0' +
                                static_cast<char>(name.size()) + '\0' + name);
    };
    const auto look = [](int format) {
        return Biff(0x00E0, Short(0) + Short(format) + QByteArray(16, '\0'));
    };
    QByteArray globals;
    for (qsizetype at = 0, before = -1; at != before;) {
        before = at;
        globals = bof(5) + (encrypted ? Biff(0x002F, Short(0)) : Biff(0x0042, Short(1200))) +
                  Biff(0x041E, Short(170) + Short(4) + '\0' + "0000") + look(0) + look(170) +
                  sheet(at, 1, "old") + sheet(at + (bof(0x10) + end).size(), 0, "bill") + end;
        at = globals.size();
    }
    return globals + bof(0x10) + end + cells;
}

TEST(Sheet, AnXlsGivesWhatItsReaderPassesOver) {
    const Folder folder;
    const auto write = [&](const QString& name, bool encrypted) {
        const QByteArray stream = Stream(encrypted);
        workbook::WriteContainer(
            folder.Path(name), "Workbook", {},
            {{reinterpret_cast<const uchar*>(stream.constData()), static_cast<std::size_t>(stream.size())}});
        return Seen(folder.Path(name));
    };
    EXPECT_EQ(
        write(u"plain"_s, false).join(u'\n'),
        u"1234567890123|12.5|文字|#N/A|0007\n#DIV/0!|TRUE|||1234567890123460\n"
        u"D1: 错误值\nA2: 错误值\nE2: 数字超过 15 位，末尾可能不准\nF2: 无法读取\nD2: 公式的文字无法读取"_s);
    EXPECT_EQ(write(u"locked"_s, true), QStringList{u"! 工作簿有密码，无法读取！请去掉密码后另存。"_s});
    // Empty texts, and texts that go over the end of a record in each width.
    const QString narrow(3000, u'n'), wide = u"宽"_s.repeated(3000);
    for (const auto format : {workbook::Format::Biff8, workbook::Format::Biff5}) {
        const bool large = format == workbook::Format::Biff8;
        const QString path = folder.Path(QString::number(static_cast<int>(format)));
        const QList<QStringList> rows = {{u"运单号"_s, u""_s, u"重量"_s},
                                         {u""_s, u"x"_s},
                                         {large ? narrow : u"n"_s, large ? wide : u"宽"_s,
                                          large ? narrow + u'2' : u"2"_s, large ? wide + u'3' : u"3"_s}};
        workbook::Writer book(format, u"一"_s);
        for (const QStringList& cells : rows) {
            book.NextRow();
            for (const QString& cell : cells) book.Add(cell);
        }
        book.Save(path);
        QStringList expected;
        for (const QStringList& cells : rows) expected += cells.join(u'|');
        EXPECT_TRUE(Seen(path) == expected) << Seen(path).join(u' ').left(200).toStdString();
    }
}

TEST(Sheet, ACsvIsReadInEachEncodingAndDelimiter) {
    Folder folder;
    const QString text = u"某司帐单\n运单号;\"金额;元\";备注\r\n=\"007\";\"1,250.00\";\"两\n\"\"行\"\"\"\n"_s;
    const QStringList expected = {u"某司帐单"_s, u"运单号|金额;元|备注"_s, u"007|1,250.00|两\n\"行\""_s};
    const QByteArray gb =
        QByteArray::fromHex("d4cbb5a5bac5092095328236") + "\n1\t2";  // 运单号, tab, 丂 by four bytes
    EXPECT_EQ(Seen(folder.Put(text.toUtf8())), expected);
    EXPECT_EQ(Seen(folder.Put("\xEF\xBB\xBF" + text.toUtf8())), expected);
    EXPECT_EQ(Seen(folder.Put(gb))[0].section(u'|', 0, 0), u"运单号"_s);
    EXPECT_EQ(Seen(folder.Put(gb)).last(), u"1|2"_s);
    EXPECT_EQ(Seen(folder.Put("a,b\xFF\n\"c")),
              (QStringList{u"a|b\uFFFD"_s, u"c"_s, u"B1: 有无法识别的字符"_s, u"A2: 引号没有结束"_s}));
    EXPECT_EQ(Seen(folder.Put("\"a\" ,\"b\"c,\"" + QByteArray(31, '\n') + "\"")).mid(1),
              (QStringList{u"B1: 引号之后还有文字"_s, u"C1: 一个单元格里有太多行"_s}));
    // Few cells, but behind many empty ones.
    EXPECT_EQ(Seen(folder.Put((QByteArray(255, ',') + "x\n").repeated(20'000))),
              QStringList{u"! 数据太多，无法读取！"_s});
}

TEST(Sheet, AFileThatIsNoneIsRefusedWithItsReason) {
    Folder folder;
    const QString damaged = u"! 文件已损坏，或者不是工作簿！"_s;
    // One bit of a sum: what was unpacked is no more what was packed.
    QByteArray changed = Zip(Book(kRows));
    const qsizetype sum = changed.lastIndexOf("PK\1\2", changed.lastIndexOf("xl/s/1.xml")) + 16;
    changed[sum] = static_cast<char>(changed[sum] ^ 1);
    const struct {
        QByteArray bytes;
        QString answer;
    } rows[] = {{{}, u"! 文件是空的！"_s},
                {"\n\r\n,,\n", u"! 文件里没有数据！"_s},
                {"a\0b", u"a"_s},
                {QByteArray("a\0b", 3), damaged},
                {"<html><table>", u"! 文件的内容是网页，不是工作簿！请用表格软件打开后另存为工作簿。"_s},
                {"PK\3\4rest", damaged},
                {Zip({{"a.txt", "a"}}), damaged},
                {changed, damaged},
                {Zip(Book({})), u"! 文件里没有数据！"_s},
                {Zip(Book(kRows, "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>")), damaged},
                {Zip(Book("<row><c><v>1</v></row>")), damaged},
                {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", damaged}};
    for (const auto& row : rows) EXPECT_EQ(Seen(folder.Put(row.bytes)), QStringList{row.answer});
    EXPECT_TRUE(Seen(folder.Path(u"none"_s))[0].startsWith(u"! 无法打开文件"_s));
}

/// Any answer will do; what must not happen is a fault or an end without one.
TEST(Sheet, DamagedFilesGetAnAnswer) {
    Folder folder;
    workbook::Writer book(workbook::Format::Biff8, u"一"_s);
    for (int row = 0; row < 40; ++row) {
        book.NextRow();
        for (int col = 0; col < 4; ++col) book.Add(u"文字%1"_s.arg(row * col));
    }
    book.Save(folder.Path(u"b"_s));
    const QByteArray stream = Stream(false);
    workbook::WriteContainer(
        folder.Path(u"f"_s), "Workbook", {},
        {{reinterpret_cast<const uchar*>(stream.constData()), static_cast<std::size_t>(stream.size())}});
    const QByteArray whole[] = {tests::Bytes(folder.Path(u"b"_s)), tests::Bytes(folder.Path(u"f"_s)),
                                Zip(Book(kRows)), u"运单号,重量\n\"a\",1\n"_s.toUtf8()};
    std::mt19937 random(7);
    for (int round = 0; round < 150; ++round) {
        for (QByteArray bytes : whole) {
            const auto place = [&] {
                return static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()));
            };
            if (round % 4 == 0) bytes.truncate(place());
            for (int i = 0; i < 1 + round % 5 && !bytes.isEmpty(); ++i)
                bytes[place()] = static_cast<char>(random());
            EXPECT_FALSE(Seen(folder.Put(bytes)).isEmpty());
        }
    }
}

}  // namespace
