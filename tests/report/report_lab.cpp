#include "tests/report/report_lab.h"

#include "platform/errors.h"
#include "tests/support/files.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace tests {

std::shared_ptr<const report::Document> ReportLab::LayOutFile(const QString& path,
                                                              const QStringList& formulas) {
    report::Formulas values;
    for (const QString& formula : formulas) values.insert(report::ReadFormula(formula));
    return report::Document::LayOut(report::ReadLayout(path), company.Db(), values, QDate(2024, 3, 15));
}

std::shared_ptr<const report::Document> ReportLab::LayOut(const QString& inside, const QString& attributes,
                                                          const QStringList& formulas) {
    const QString text = u"<report "_s + attributes + u">"_s + inside + u"</report>"_s;
    return LayOutFile(Write(u"test.rpt"_s, text.toUtf8()), formulas);
}

QString ReportLab::Refusal(const QString& text) {
    try {
        LayOutFile(Write(u"test.rpt"_s, text.toUtf8()));
    } catch (const PlatformError& error) {
        return error.Text();
    }
    return {};
}

QString ReportLab::Write(const QString& name, const QByteArray& bytes) {
    const QString path = folder_.filePath(name);
    tests::Write(path, bytes);
    return path;
}

QStringList ReportLab::Texts(const report::Document& document, int page) {
    QStringList texts;
    for (const auto& item : document.PageAt(page).items)
        if (const auto* run = std::get_if<report::TextRun>(&item)) texts += run->text;
    return texts;
}

QStringList ReportLab::AllTexts(const report::Document& document) {
    QStringList texts;
    for (int page = 0; page < document.Pages(); ++page) {
        if (page > 0) texts += u"--"_s;
        texts += Texts(document, page);
    }
    return texts;
}

QList<PdfWord> ReadPdf(const QString& path) {
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-bbox"_s, path, u"-"_s});
    EXPECT_TRUE(reader.waitForFinished()) << reader.errorString().toStdString();
    EXPECT_EQ(reader.readAllStandardError().toStdString(), "");
    static const QRegularExpression line(
        u"<page |<word xMin=\"([-0-9.]+)\" yMin=\"([-0-9.]+)\" xMax=\"([-0-9.]+)\" yMax=\"([-0-9.]+)\">(.*)</word>"_s);
    QList<PdfWord> words;
    int page = -1;
    for (auto found = line.globalMatch(QString::fromUtf8(reader.readAllStandardOutput())); found.hasNext();) {
        const auto match = found.next();
        if (match.capturedLength(5) == 0) {
            ++page;
            continue;
        }
        QString text = match.captured(5);
        text.replace(u"&lt;"_s, u"<"_s)
            .replace(u"&gt;"_s, u">"_s)
            .replace(u"&quot;"_s, u"\""_s)
            .replace(u"&apos;"_s, u"'"_s);
        words += {page,
                  match.captured(1).toDouble(),
                  match.captured(2).toDouble(),
                  match.captured(3).toDouble(),
                  match.captured(4).toDouble(),
                  text.replace(u"&amp;"_s, u"&"_s)};
    }
    return words;
}

}  // namespace tests
