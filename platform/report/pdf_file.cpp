#include "platform/report/pdf_file.h"

#include <QString>

namespace report {

PdfFile::PdfFile(QIODevice& out) : out_(out) {
    Put("%PDF-1.6\n%\xE2\xE3\xCF\xD3\n");  // bytes above 127 say that the file is no text
}

void PdfFile::Put(const QByteArray& bytes) {
    out_.write(bytes);
    written_ += bytes.size();
}

int PdfFile::Reserve() {
    places_.push_back(0);
    return static_cast<int>(places_.size());
}

void PdfFile::Write(int object, const QByteArray& content) {
    places_[static_cast<size_t>(object - 1)] = written_;
    Put(QByteArray::number(object) + " 0 obj\n" + content + "\nendobj\n");
}

int PdfFile::Write(const QByteArray& content) {
    const int object = Reserve();
    Write(object, content);
    return object;
}

void PdfFile::WriteStream(int object, const QByteArray& dictionary, const QByteArray& bytes) {
    const QByteArray compressed =
        qCompress(bytes).mid(4);  // without the length that the toolkit puts before it
    Write(object, "<<" + dictionary + "/Filter/FlateDecode/Length " + QByteArray::number(compressed.size()) +
                      ">>\nstream\n" + compressed + "\nendstream");
}

int PdfFile::WriteStream(const QByteArray& dictionary, const QByteArray& bytes) {
    const int object = Reserve();
    WriteStream(object, dictionary, bytes);
    return object;
}

void PdfFile::Finish(int catalog, int information) {
    const qint64 table = written_;
    const QByteArray count = QByteArray::number(static_cast<qint64>(places_.size()) + 1);
    QByteArray lines = "xref\n0 " + count + "\n0000000000 65535 f \n";
    for (const qint64 place : places_)
        lines += QByteArray::number(place).rightJustified(10, '0') + " 00000 n \n";
    Put(lines + "trailer\n<</Size " + count + "/Root " + Reference(catalog) + "/Info " +
        Reference(information) + ">>\nstartxref\n" + QByteArray::number(table) + "\n%%EOF\n");
}

QByteArray PdfFile::Number(double value) {
    QByteArray text = QByteArray::number(value, 'f', 3);
    while (text.endsWith('0')) text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text == "-0" ? QByteArray("0") : text;
}

QByteArray PdfFile::Text(const QString& text) {
    QByteArray hex = "<FEFF";
    for (const QChar c : text) hex += QByteArray::number(c.unicode(), 16).rightJustified(4, '0');
    return hex + '>';
}

}  // namespace report
