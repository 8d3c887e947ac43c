#include "platform/report/pdf.h"

#include "platform/errors.h"
#include "platform/report/paint.h"
#include "platform/report/pdf_fonts.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace report {
namespace {

constexpr double kPointsPerMillimetre = kPointsPerInch / kMillimetresPerInch;

QByteArray N(double value) {
    return PdfFile::Number(value);
}

/// The content of one page after the other. The page is turned over, so that heights count from its top.
class PdfCanvas : public Canvas {
  public:
    PdfCanvas(PdfFile& file, double height) : file_(file), height_(height) { Begin(); }

    void FillRect(double x, double y, double width, double height, Ink ink) override {
        SetInk(ink);
        content_ += N(x) + ' ' + N(y) + ' ' + N(width) + ' ' + N(height) + " re f\n";
    }
    void DashedLine(double x1, double y1, double x2, double y2, double weight, Ink ink) override {
        content_ += "q " + InkOf(ink) + " RG [" + N(5 * weight) + "] 0 d " + N(weight) + " w " + N(x1) + ' ' +
                    N(y1) + " m " + N(x2) + ' ' + N(y2) + " l S Q\n";
    }
    void DrawGlyphs(const Glyphs& glyphs, Ink ink) override;
    void DrawPicture(const QImage& image, double x, double y, double width, double height) override;

    /// Ends the page; gives the object of its content.
    int EndPage() {
        const int written = file_.WriteStream({}, content_);
        Begin();
        return written;
    }
    /// What the pages refer to.
    QByteArray WriteResources();

  private:
    void Begin() {
        content_ = "1 0 0 -1 0 " + N(height_) + " cm\n";
        ink_ = 0;
    }
    static QByteArray InkOf(Ink ink) {
        const auto part = [ink](int shift) { return N(((ink >> shift) & 0xFF) / 255.0); };
        return part(16) + ' ' + part(8) + ' ' + part(0);
    }
    void SetInk(Ink ink) {
        if (ink != ink_) content_ += InkOf(ink) + " rg\n";
        ink_ = ink;
    }

    PdfFile& file_;
    double height_;
    QByteArray content_;
    Ink ink_ = 0;
    PdfFonts fonts_;
    std::map<qint64, int> pictures_;  ///< objects by the pictures' keys
};

/// The glyphs follow each other by their own widths. One that shows another character elsewhere says
/// here which it is: a radical and the character that looks like it share a glyph.
void PdfCanvas::DrawGlyphs(const Glyphs& glyphs, Ink ink) {
    if (!glyphs.face) return;
    SetInk(ink);
    content_ += "BT /F" + QByteArray::number(fonts_.NumberOf(*glyphs.face)) + ' ' + N(glyphs.size) +
                " Tf 1 0 0 -1 " + N(glyphs.x.front()) + ' ' + N(glyphs.y) + " Tm\n";
    QByteArray string;
    const auto show = [&] {
        if (!string.isEmpty()) content_ += '<' + string + "> Tj\n";
        string.clear();
    };
    for (size_t i = 0; i < glyphs.ids.size(); ++i) {
        const auto [code, says] = fonts_.Use(*glyphs.face, glyphs.ids[i], glyphs.characters[i]);
        const QByteArray id = QByteArray::number(code, 16).rightJustified(4, '0');
        if (says) {
            string += id;
            continue;
        }
        show();
        content_ += "/Span<</ActualText" + PdfFile::Text(QString::fromUcs4(&glyphs.characters[i], 1)) +
                    ">>BDC <" + id + "> Tj EMC\n";
    }
    show();
    content_ += "ET\n";
}

void PdfCanvas::DrawPicture(const QImage& image, double x, double y, double width, double height) {
    int& object = pictures_[image.cacheKey()];
    if (object == 0) {
        QByteArray bytes;
        for (int row = 0; row < image.height(); ++row)
            bytes.append(reinterpret_cast<const char*>(image.constScanLine(row)),
                         qsizetype{3} * image.width());
        object = file_.WriteStream(
            "/Type/XObject/Subtype/Image/ColorSpace/DeviceRGB/BitsPerComponent 8/Width " +
                QByteArray::number(image.width()) + "/Height " + QByteArray::number(image.height()),
            bytes);
    }
    content_ += "q " + N(width) + " 0 0 " + N(-height) + ' ' + N(x) + ' ' + N(y + height) + " cm /P" +
                QByteArray::number(object) + " Do Q\n";
}

QByteArray PdfCanvas::WriteResources() {
    QByteArray resources = "<</Font" + fonts_.Write(file_);
    if (!pictures_.empty()) {
        resources += "/XObject<<";
        for (const auto& [key, object] : pictures_)
            resources += "/P" + QByteArray::number(object) + ' ' + PdfFile::Reference(object);
        resources += ">>";
    }
    return resources + ">>";
}

}  // namespace

void WritePdf(const Document& document, QIODevice& out, const std::function<void(int)>& progress) {
    PdfFile file(out);
    const int pages = file.Reserve(), resources = file.Reserve();
    const PaperSize paper = document.Paper();
    const double width = paper.width * kPointsPerMillimetre, height = paper.height * kPointsPerMillimetre;
    PdfCanvas canvas(file, height);
    QByteArray kids;
    for (int page = 0; page < document.Pages(); ++page) {
        if (progress) progress(page);
        Paint(document.PageAt(page), document.TypeFaces(), {kPointsPerMillimetre, false}, canvas);
        const int content = canvas.EndPage();
        kids += PdfFile::Reference(file.Write("<</Type/Page/Parent " + PdfFile::Reference(pages) +
                                              "/Resources " + PdfFile::Reference(resources) + "/Contents " +
                                              PdfFile::Reference(content) + ">>")) +
                ' ';
    }
    file.Write(resources, canvas.WriteResources());
    file.Write(pages, "<</Type/Pages/Count " + QByteArray::number(document.Pages()) + "/MediaBox[0 0 " +
                          N(width) + ' ' + N(height) + "]/Kids[" + kids + "]>>");
    const int catalog = file.Write("<</Type/Catalog/Pages " + PdfFile::Reference(pages) + ">>");
    const int information = file.Write("<</Title" + PdfFile::Text(document.Title()) + ">>");
    file.Finish(catalog, information);
}

void WritePdf(const Document& document, const QString& path, const std::function<void(int)>& progress) {
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        WritePdf(document, file, progress);
        if (file.flush() && file.commit())
            return;  // the commit alone overlooks what the flush of its end could not write
    }
    throw RuntimeError(u"无法写入“%1”：%2"_s.arg(path, file.errorString()));
}

}  // namespace report
