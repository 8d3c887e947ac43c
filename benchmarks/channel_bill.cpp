// A channel's bill of 50,000 lines in each format: chosen in its form, read, compared with the channel's
// waybills and listed. A tenth of the lines are the channel's own; the others are looked up among all
// waybills.
#include "app/main_window.h"
#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/system/seams.h"
#include "platform/workbook/workbook.h"
#include "reconcile/channel_bill_form.h"

#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <gsf/gsf-outfile-zip.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Lines = 50'000;
constexpr double Limit = 3;  // seconds
constexpr int TextColumns = 2;

[[noreturn]] void End(const char* why) {
    std::fprintf(stderr, "channel bill: %s\n", why);
    std::exit(2);
}

QList<QStringList> BillRows() {
    QList<QStringList> rows{{u"运单号"_s, u"目的地"_s, u"计费重"_s, u"金额"_s, u"件数"_s}};
    auto waybills = Db->ReadEngine(u"select F1,F2031,F404,F507,F401 from B01 limit %1"_s.arg(Lines));
    for (; !waybills.Eof(); waybills.MoveNext()) {
        QStringList cells;
        for (int field = 0; field < 5; ++field) cells += waybills.Fields(field).Text();
        rows += cells;
    }
    if (rows.size() != Lines + 1) End("not the lines that were meant");
    return rows;
}

void WriteCsv(const QList<QStringList>& rows, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) End("no folder");
    for (const QStringList& cells : rows) file.write(cells.join(u',').toUtf8() + '\n');
}

void WriteXls(const QList<QStringList>& rows, const QString& path) {
    workbook::Writer book(workbook::Format::Biff8, u"bill"_s);
    for (const QStringList& cells : rows) {
        book.NextRow();
        for (const QString& cell : cells) book.Add(cell);
    }
    book.Save(path);
}

/// Texts in the table of texts, numbers in their cells, as spreadsheet programs write them.
QByteArrayList SheetAndTexts(const QList<QStringList>& rows) {
    QByteArray sheet = "<worksheet><sheetData>", texts = "<sst>";
    int text = 0, row = 0;
    for (const QStringList& cells : rows) {
        const QByteArray number = QByteArray::number(++row);
        sheet += "<row r=\"" + number + "\">";
        for (int col = 0; col < cells.size(); ++col) {
            const QByteArray place = "<c r=\"" + QByteArray(1, static_cast<char>('A' + col)) + number;
            if (row > 1 && col >= TextColumns) {
                sheet += place + "\"><v>" + cells[col].toUtf8() + "</v></c>";
                continue;
            }
            sheet += place + "\" t=\"s\"><v>" + QByteArray::number(text++) + "</v></c>";
            texts += "<si><t>" + cells[col].toHtmlEscaped().toUtf8() + "</t></si>";
        }
        sheet += "</row>";
    }
    return {sheet + "</sheetData></worksheet>", texts + "</sst>"};
}

void Put(GsfOutfile* folder, const char* name, const QByteArray& bytes) {
    GsfOutput* const part = gsf_outfile_new_child(folder, name, FALSE);
    if (!gsf_output_write(part, bytes.size(), reinterpret_cast<const guint8*>(bytes.constData())))
        End("a part was not written");
    gsf_output_close(part);
    g_object_unref(part);
}

void WriteXlsx(const QList<QStringList>& rows, const QString& path) {
    const QByteArray office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
    const auto relation = [&](const QByteArray& id, const QByteArray& kind, const QByteArray& target) {
        return "<Relationship Id=\"" + id + "\" Type=\"" + office + '/' + kind + "\" Target=\"" + target +
               "\"/>";
    };
    const auto relations = [](const QByteArray& all) { return "<Relationships>" + all + "</Relationships>"; };
    const QByteArrayList parts = SheetAndTexts(rows);
    gsf_init();
    GsfOutput* const file = gsf_output_stdio_new(QFile::encodeName(path).constData(), nullptr);
    GsfOutfile* const zip = gsf_outfile_zip_new(file, nullptr);
    const auto folder = [](GsfOutfile* above, const char* name) {
        return GSF_OUTFILE(gsf_outfile_new_child(above, name, TRUE));
    };
    GsfOutfile* const root = folder(zip, "_rels");
    GsfOutfile* const book = folder(zip, "xl");
    GsfOutfile* const links = folder(book, "_rels");
    Put(root, ".rels", relations(relation("r1", "officeDocument", "xl/workbook.xml")));
    Put(book, "workbook.xml",
        "<workbook xmlns:r=\"" + office + "\"><sheets><sheet name=\"1\" r:id=\"r1\"/></sheets></workbook>");
    Put(links, "workbook.xml.rels",
        relations(relation("r1", "worksheet", "sheet.xml") + relation("r2", "sharedStrings", "texts.xml")));
    Put(book, "sheet.xml", parts[0]);
    Put(book, "texts.xml", parts[1]);
    for (GsfOutfile* const part : {links, book, root, zip}) {
        gsf_output_close(GSF_OUTPUT(part));
        g_object_unref(part);
    }
    gsf_output_close(file);
    g_object_unref(file);
}

class OpenBill {
  public:
    OpenBill() {
        TheFrame().ShowChild(u"ChannelBill"_s);
        Office::Settle();
        form_ = TheFrame().Front();
        At<controls::DTPicker>(u"DTP(0)"_s).SetValue(QDate(2000, 1, 1));
        At<controls::DTPicker>(u"DTP(1)"_s).SetValue(LastDay());
        At<controls::ComboBox>(u"Cmb(0)"_s).SetListIndex(0);
    }
    ~OpenBill() {
        form_->Unload();
        Office::Settle();
    }
    OpenBill(const OpenBill&) = delete;
    OpenBill& operator=(const OpenBill&) = delete;

    void Compare(const QString& path) {
        sys::seams().askFile = [path](const sys::FileRequest&) { return path; };
        At<controls::Button>(u"Cmd(0)"_s).click();
        At<controls::Button>(u"Cmd(1)"_s).click();
        if (At<controls::FlexGrid>(u"GD"_s).Rows() <= Lines) End("not compared");
    }

  private:
    template <class Control>
    Control& At(const QString& name) {
        if (auto* control = form_->findChild<Control*>(name)) return *control;
        End("no such control");
    }

    ChildForm* form_;
};

}  // namespace

void MeasureChannelBill(Bench& bench, Office&) {
    if (!bench.Wanted("channel bill")) return;
    const QList<QStringList> rows = BillRows();
    const auto askFile = sys::seams().askFile;
    const struct {
        const char* name;
        void (*write)(const QList<QStringList>&, const QString&);
    } formats[] = {{"csv", WriteCsv}, {"xls", WriteXls}, {"xlsx", WriteXlsx}};
    for (const auto& [name, write] : formats) {
        const QString path = AppFolder + u"bill."_s + QString::fromLatin1(name);
        QFile::remove(path);
        write(rows, path);
        OpenBill bill;
        bench.State(std::string("channel bill: 50,000 lines as ") + name,
                    BestOf(3, {}, [&] { bill.Compare(path); }), "s", Limit);
        QFile::remove(path);
    }
    sys::seams().askFile = askFile;
}

}  // namespace benchmarks
