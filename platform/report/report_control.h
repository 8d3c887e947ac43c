// The report control: a form names a layout, a data file and formulas, and runs the report into a preview or
// onto a printer.
//
// Always holds: what is printed or saved is the document that the last preview laid out, whatever has changed
// since.
#pragma once

#include "platform/report/document.h"

#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <memory>

class QPrinter;

namespace report {

class Preview;

class ReportControl : public QObject {
    Q_OBJECT
  public:
    explicit ReportControl(QObject* parent = nullptr);

    enum DestinationKind { ToWindow = 0, ToPrinter = 1 };

    QString ReportFileName;        ///< full path of the layout
    QMap<int, QString> DataFiles;  ///< 0: the database file that the layout reads
    QMap<int, QString> Formulas;   ///< from 0 up, "name='value'"
    int Destination = ToWindow;
    QWidget* WindowParent = nullptr;    ///< the preview opens inside it and fills it
    int WindowLeft = 0, WindowTop = 0;  ///< pixels
    QString MessageTitle;               ///< of the boxes that the preview shows

    /// Gives the database of a data file; the form says where it comes from.
    std::function<std::shared_ptr<dao::Database>(const QString& path)> OpenDataFile;
    /// The preview shows another page: its position as a text.
    std::function<void(const QString& position)> PositionChanged;
    QString Position() const;

    /// 1 runs the report. Raises RuntimeError and DatabaseError: for a layout that is missing or faulty, a
    /// statement that fails, a printer that is not there.
    void SetAction(int action);

    /// Asks the operator for a printer; false when he gives up. The real one is the system's print dialog.
    static std::function<bool(QPrinter& printer, int pages, QWidget* over)>& AskPrinter();

  private:
    std::shared_ptr<const Document> LayOut() const;
    void ShowPreview();
    void Print();
    void SaveAsPdf();
    void Reload();

    std::shared_ptr<const Document> document_;
    QPointer<Preview> preview_;
};

}  // namespace report
