// The objects of a PDF file, written one after the other.
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <vector>

namespace report {

class PdfFile {
  public:
    explicit PdfFile(QIODevice& out);

    /// The number of an object that is written later.
    int Reserve();
    void Write(int object, const QByteArray& content);
    int Write(const QByteArray& content);
    /// A stream, compressed. The dictionary is its entries apart from the length and the filter.
    void WriteStream(int object, const QByteArray& dictionary, const QByteArray& bytes);
    int WriteStream(const QByteArray& dictionary, const QByteArray& bytes);
    /// Ends the file.
    void Finish(int catalog, int information);

    /// A number with as many digits as a page needs.
    static QByteArray Number(double value);
    /// A text as a string object, in UTF-16.
    static QByteArray Text(const QString& text);
    static QByteArray Reference(int object) { return QByteArray::number(object) + " 0 R"; }

  private:
    void Put(const QByteArray& bytes);

    QIODevice& out_;
    qint64 written_ = 0;
    std::vector<qint64> places_;
};

}  // namespace report
