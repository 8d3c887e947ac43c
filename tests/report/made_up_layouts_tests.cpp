// Layouts and texts made up at random: a message or pages, never a fault.
#include "platform/errors.h"
#include "platform/report/pdf.h"
#include "tests/report/papers.h"
#include "tests/report/report_lab.h"

#include <QDir>

#include <gtest/gtest.h>
#include <random>

namespace tests {
namespace {

class MadeUp : public testing::Test {
  protected:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    /// A piece of a layout with something taken out, doubled or put in.
    QByteArray Damaged(QByteArray text) {
        static const QByteArrayList pieces = {
            "{",       "}",        "\"",         "<", ">",   "/", "&",        "{F1",
            "{sum(F6", "9999999",  "-1",         "0", "nan", "'", "\xE5\x8D", QByteArray(300, '('),
            " or ",    "{#pages}", "{total.F1}", "\0"};
        for (int changes = 1 + Below(3); changes > 0; --changes) {
            const int at = Below(static_cast<int>(text.size()));
            const int length = Below(40);
            if (Below(2) == 0) {  // a number that is another one
                int digit = at;
                while (digit < text.size() && (text[digit] < '0' || text[digit] > '9')) ++digit;
                if (digit < text.size()) text[digit] = "0123456789-."[Below(12)];
            } else if (Below(3) == 0)
                text.remove(at, length);
            else if (Below(2) == 0)
                text.insert(at, text.mid(Below(static_cast<int>(text.size())), length));
            else
                text.replace(at, Below(4), pieces[Below(static_cast<int>(pieces.size()))]);
        }
        return text;
    }
    QString Text() {
        QString text;
        for (int length = Below(60); length > 0; --length) {
            const char16_t kinds[] = {static_cast<char16_t>(0x20 + Below(0x60)),
                                      static_cast<char16_t>(0x4E00 + Below(0x5000)),
                                      static_cast<char16_t>(Below(0x10000)),
                                      u' ',
                                      u'，',
                                      u'）',
                                      u'\n',
                                      u'\t'};
            text += QChar(kinds[Below(8)]);
        }
        return text.remove(u'\'');
    }
    std::mt19937 random_{20240315};
};

TEST_F(MadeUp, LayoutsGiveAMessageOrPages) {
    ReportLab lab;
    int pages = 0, messages = 0;
    for (const Paper& paper : Papers()) {
        FillWorkTable(paper.layout, 40, [&](const QString& sql) { lab.company.Run(sql); });
        QFile file(QStringLiteral(LAYOUTS) + u'/' + paper.layout);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray good = file.readAll();
        for (int i = 0; i < 60; ++i) {
            const QString path = lab.Write(u"test.rpt"_s, Damaged(good));
            try {
                const auto document = lab.LayOutFile(path, paper.formulas);
                for (int page = 0; page < std::min(document->Pages(), 5); ++page) document->PageAt(page);
                ++pages;
            } catch (const PlatformError& error) {
                EXPECT_FALSE(error.Text().isEmpty());
                ++messages;
            }
        }
    }
    EXPECT_GT(pages, 50);
    EXPECT_GT(messages, 50);
}

TEST_F(MadeUp, TextsOfAllKindsArePrinted) {
    ReportLab lab;
    for (int i = 0; i < 200; ++i)
        lab.company.Run(
            u"insert into PRNTC04 (F1,F2,F3,F4,F5,F6,F7,F8,F9,F10,F11,F12,F13,F14,F15) values ("_s +
            [&] {
                QStringList cells;
                for (int cell = 0; cell < 15; ++cell) cells += u'\'' + Text() + u'\'';
                return cells.join(u',');
            }() +
            u")"_s);
    for (const QString& layout : {u"prntc04.rpt"_s, u"prntc06.rpt"_s}) {
        const auto document =
            lab.LayOutFile(QStringLiteral(LAYOUTS) + u'/' + layout, {u"RQ='"_s + Text() + u"'"_s});
        const QString path = lab.Folder() + u"/out.pdf"_s;
        report::WritePdf(*document, path);
        EXPECT_GT(QFileInfo(path).size(), 1000);
        const auto paper = document->Paper();
        for (int page = 0; page < document->Pages(); ++page)
            for (const auto& item : document->PageAt(page).items)
                if (const auto* run = std::get_if<report::TextRun>(&item)) {
                    const bool inside =
                        run->x >= 0 && run->x <= paper.width && run->y > 0 && run->y < paper.height;
                    EXPECT_TRUE(inside) << run->text.toStdString();
                }
    }
}

}  // namespace
}  // namespace tests
