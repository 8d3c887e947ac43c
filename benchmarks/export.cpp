// The export of a list of 16,000 lines: pressing the form's button, compared with a bare loop that writes the
// same records into a container of the same kind, and with a converter at work on the same cells.
#include "records/export.h"

#include "app/session.h"
#include "benchmarks/subjects.h"
#include "platform/controls/box.h"
#include "platform/system/seams.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QtEndian>

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <memory>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace benchmarks {
namespace {

constexpr int Lines = 16'000;

[[noreturn]] void End(const char* why) {
    std::fprintf(stderr, "export: %s\n", why);
    std::exit(2);
}

/// The form with a file chosen, before its button is pressed.
class ReadyForm : public ToExcel {
  public:
    ReadyForm(const controls::FlexGrid& grid, const QString& file, int version) : ToExcel(&TheFrame()) {
        GD = &grid;
        Load();
        At<controls::ComboBox>(u"Cmb"_s).SetListIndex(version);
        sys::seams().askFile = [file](const sys::FileRequest&) { return file; };
        At<controls::Button>(u"CmdSaveTo"_s).click();
        show();
        activateWindow();
        Office::Settle();
    }
    void Export() {
        At<controls::Button>(u"Cmd(0)"_s).click();
        if (At<controls::Button>(u"Cmd(0)"_s).Caption() != u"打开文件") End("no file");
    }

  private:
    template <class Control>
    Control& At(const QString& name) {
        if (auto* control = findChild<Control*>(name)) return *control;
        End("no such control");
    }
};

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class Object>
using Held = std::unique_ptr<Object, Unref>;

QByteArray StreamOf(const QString& path, const char* name) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) End("no file to read");
    const QByteArray bytes = file.readAll();
    const Held<GsfInput> memory(
        gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.constData()), bytes.size(), FALSE));
    const Held<GsfInfile> container(gsf_infile_msole_new(memory.get(), nullptr));
    const Held<GsfInput> stream(gsf_infile_child_by_name(container.get(), name));
    QByteArray read(gsf_input_size(stream.get()), Qt::Uninitialized);
    if (!gsf_input_read(stream.get(), read.size(), reinterpret_cast<guint8*>(read.data()))) End("no stream");
    return read;
}

void BareLoop(const QByteArray& records, const char* name, const QByteArray& path) {
    const Held<GsfOutput> memory(gsf_output_memory_new());
    {
        const Held<GsfOutfile> container(gsf_outfile_msole_new(memory.get()));
        const Held<GsfOutput> stream(gsf_outfile_new_child(container.get(), name, FALSE));
        for (qsizetype at = 0; at < records.size();) {
            const auto* record = reinterpret_cast<const guint8*>(records.constData()) + at;
            const gsize length = 4 + qFromLittleEndian<quint16>(record + 2);
            if (!gsf_output_write(stream.get(), length, record)) End("a record was not written");
            at += static_cast<qsizetype>(length);
        }
        gsf_output_close(stream.get());
        gsf_output_close(GSF_OUTPUT(container.get()));
    }
    const auto size = static_cast<size_t>(gsf_output_size(memory.get()));
    const int file = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const guint8* bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory.get()));
    if (::write(file, bytes, size) != static_cast<ssize_t>(size) || ::fsync(file) != 0) End("not written");
    ::close(file);
}

void WriteCsv(const controls::FlexGrid& grid, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) End("no folder");
    for (int row = 0; row < grid.Rows(); ++row) {
        QStringList cells;
        for (int col = 0; col < grid.Cols(); ++col) cells += grid.TextMatrix(row, col);
        file.write(cells.join(u',').toUtf8() + '\n');
    }
}

void Convert(const QString& from, const QString& exporter, const QString& to) {
    const QStringList arguments{u"--export-type=Gnumeric_Excel:"_s + exporter, from, to};
    if (QProcess::execute(u"ssconvert"_s, arguments) != 0) End("ssconvert failed");
}

}  // namespace

void MeasureExport(Bench& bench, Office& office) {
    if (!bench.Wanted("export")) return;
    office.Form().LoadFirst(Lines);
    const controls::FlexGrid& grid = office.Form().Grid();
    if (grid.Rows() != Lines + 1) End("not the rows that were meant");
    const auto boxes = sys::seams().showBox;
    sys::seams().showBox = [](const sys::BoxRequest&) { return sys::BoxAnswer::Ok; };
    const QString csv = AppFolder + u"export.csv"_s;
    WriteCsv(grid, csv);
    schema::MakeExportFile(AppFolder + schema::kExportFile.toString());
    const bool converter = !QStandardPaths::findExecutable(u"ssconvert"_s).isEmpty();
    if (!converter)
        std::printf("export: ssconvert is not installed (package gnumeric), so it is not measured\n");
    const struct {
        std::string name;
        int version;
        const char* stream;
        QString exporter;
    } formats[] = {{"8.0", 0, "Workbook", u"excel_biff8"_s}, {"5.0", 2, "Book", u"excel_biff7"_s}};
    for (const auto& format : formats) {
        const QString file = AppFolder + u"export.xls"_s;
        std::unique_ptr<ReadyForm> form;
        const auto makeReady = [&] {
            QFile::remove(file);
            form = std::make_unique<ReadyForm>(grid, file, format.version);
        };
        makeReady();
        form->Export();
        const QByteArray records = StreamOf(file, format.stream);
        const QByteArray bare = QFile::encodeName(AppFolder + u"bare.xls"_s);
        bench.Run({.name = "export: 16,000 lines as " + format.name,
                   .limit = 2,
                   .runsInRound = 3,
                   .ours = [&] { form->Export(); },
                   .bare = [&] { BareLoop(records, format.stream, bare); },
                   .makeOursReady = makeReady,
                   .makeBareReady = [&] { QFile::remove(QFile::decodeName(bare)); }});
        if (converter)
            bench.Run({.name = "export: the same beside ssconvert, " + format.name,
                       .limit = 0.2,
                       .ours = [&] { form->Export(); },
                       .bare = [&] { Convert(csv, format.exporter, AppFolder + u"converted.xls"_s); },
                       .makeOursReady = makeReady});
    }
    sys::seams().showBox = boxes;
}

}  // namespace benchmarks
