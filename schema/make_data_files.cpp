// make-data-files FOLDER [COMPANY]: makes what is missing of the data files in a folder. Ends with 0 when all
// of them are there, 1 when one could not be made, 2 when it was called wrongly.
#include "platform/errors.h"
#include "schema/data_files.h"
#include "schema/names.h"

#include <QCoreApplication>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

int Make(const QString& folder, const QString& company) {
    QTextStream out(stdout);
    const QStringList made = schema::MakeDataFiles(folder, company);
    QStringList names{schema::kDatabaseFile.toString(), schema::kExportFile.toString(),
                      schema::kPictureFile.toString()};
    names += schema::LayoutFiles();
    for (const QString& name : names) {
        out << name << (made.contains(name) ? u"：已生成\n"_s : u"：已存在，未改动\n"_s);
    }
    if (!company.isEmpty() && !made.contains(schema::kDatabaseFile)) {
        out << u"公司名称只写入新的数据文件，现有文件中的名称未改动\n"_s;
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    QTextStream err(stderr);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        err << u"用法：make-data-files 文件夹 [公司名称]\n"_s;
        return 2;
    }
    try {
        return Make(arguments[1], arguments.value(2));
    } catch (const std::exception& error) {
        err << u"生成数据文件失败："_s << QString::fromUtf8(error.what()) << u"\n"_s;
        return 1;
    }
}
