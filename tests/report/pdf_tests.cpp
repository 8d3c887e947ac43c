// The text of a PDF, as a reader that knows nothing of ours finds it.
#include "platform/errors.h"
#include "platform/report/pdf.h"
#include "tests/report/report_lab.h"
#include "tests/support/full_disk.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace tests {
namespace {

TEST(Pdf, EachTextIsFoundAtItsPlace) {
    ReportLab lab;
    // Digits behind Latin letters; characters that share their glyph with a radical, and such a radical
    // itself; what the family lacks.
    const QStringList texts{u"KV2411240019"_s, u"费用"_s, u"长里"_s, u"⽤⻓⾥"_s, u"用户"_s,
                            u"A&B<C>"_s,       u"×÷−"_s,  u"𠀋"_s,   u"ðŋ"_s};
    QString inside = u"<data>select F1 from PRNTC023</data><head><band height='200'>"_s;
    for (qsizetype i = 0; i < texts.size(); ++i)
        inside += u"<text x='%1' y='%2' bold='%3'>%4</text>"_s.arg(10 + 3 * i)
                      .arg(10 + 12 * i)
                      .arg(i % 2 ? u"yes"_s : u"no"_s, texts[i].toHtmlEscaped());
    const auto document = lab.LayOut(inside + u"</band></head>"_s, u"margins='20 30 10 10'"_s);
    const QString path = lab.Folder() + u"/texts.pdf"_s;
    report::WritePdf(*document, path);
    const QList<PdfWord> words = ReadPdf(path);
    ASSERT_EQ(words.size(), texts.size());
    for (qsizetype i = 0; i < texts.size(); ++i) {
        const double left = (20 + 10 + 3.0 * static_cast<double>(i)) / report::kPoint;
        const double middle = (30 + 10 + 12.0 * static_cast<double>(i)) / report::kPoint;
        const double width = document->TypeFaces().Width(texts[i], 9, i % 2) / report::kPoint;
        EXPECT_EQ(words[i].text.toStdString(), texts[i].toStdString());
        EXPECT_NEAR(words[i].left, left, 0.1) << texts[i].toStdString();
        EXPECT_NEAR(words[i].right, left + width, 0.1) << texts[i].toStdString();
        EXPECT_NEAR((words[i].top + words[i].bottom) / 2, middle, 3) << texts[i].toStdString();
    }
}

TEST(Pdf, AFileThatCannotBeWrittenLeavesTheOldOne) {
    ReportLab lab;
    const auto document =
        lab.LayOut(u"<data>select F1 from PRNTC023</data><head><band><text>x</text></band></head>"_s);
    EXPECT_THROW(report::WritePdf(*document, lab.Folder() + u"/no/such.pdf"_s), RuntimeError);
    const QString path = lab.Write(u"old.pdf"_s, "old");
    {
        const FullDisk full(1500);
        EXPECT_THROW(report::WritePdf(*document, path), RuntimeError);
    }
    EXPECT_EQ(QFileInfo(path).size(), 3);
    report::WritePdf(*document, path);
    EXPECT_GT(QFileInfo(path).size(), 1500);
}

}  // namespace
}  // namespace tests
