// A company's file and layouts written as text, laid out without a screen.
#pragma once

#include "platform/report/document.h"
#include "tests/support/company.h"

#include <QTemporaryDir>

#include <memory>

namespace tests {

using namespace Qt::StringLiterals;

class ReportLab {
  public:
    Company company;

    /// Lays out the file of a layout; formulas as "name='value'".
    std::shared_ptr<const report::Document> LayOutFile(const QString& path, const QStringList& formulas = {});
    /// The same for a layout's text: the content of <report>, with the attributes of that element.
    std::shared_ptr<const report::Document> LayOut(const QString& inside, const QString& attributes = {},
                                                   const QStringList& formulas = {});
    /// What a layout's text is refused with; "" if it is not.
    QString Refusal(const QString& text);
    QString Folder() const { return folder_.path(); }
    QString Write(const QString& name, const QByteArray& bytes);

    /// The texts of a page, in the order in which they are drawn.
    static QStringList Texts(const report::Document& document, int page);
    /// Those of all pages, pages divided by "--".
    static QStringList AllTexts(const report::Document& document);

  private:
    QTemporaryDir folder_;
};

/// What pdftotext finds in a file: words page by page, each with its place in points.
struct PdfWord {
    int page;
    double left, top, right, bottom;
    QString text;
};
QList<PdfWord> ReadPdf(const QString& path);

}  // namespace tests
