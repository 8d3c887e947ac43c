// Making the files that lie beside the program: the database, the export's helper, the wallpaper, the layouts
// of the reports.
//
// Always holds: a file that is there is never touched; a file bears its name only when it is whole, and its
// owner alone can read it.
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace schema {

/// A new database with all tables and first rows, locked with the password. company is the name on reports
/// and in the main caption, "" leaves it open. Raises RuntimeError if the file is there already or can't be
/// made.
void MakeDatabase(const QString& path, const QString& company = {});
/// The export's helper: a database without a password, holding the empty table mysheet. Raises like the
/// above.
void MakeExportFile(const QString& path);
/// The wallpaper, a PNG picture of 1920 by 1080 pixels. Raises like the above.
void MakePicture(const QString& path);

/// The layouts of the reports with the schema by which an editor helps to change them: their file names.
QStringList LayoutFiles();
/// One of them, as it comes with the program. Raises like the above.
void MakeLayout(const QString& path);

/// Makes what is missing of all these in a folder that exists. Gives the names of those it made. Raises
/// RuntimeError at the first that can't be made; those made before it stay.
QStringList MakeDataFiles(const QString& folder, const QString& company = {});

/// Lets write fill a file of another name beside path and gives it that name when all of it is on the disk.
/// That file is there already, empty, and can be read by its owner alone, which has to stay so.
/// What was begun is removed when write raises. Raises RuntimeError if path is there already.
void MakeWhole(const QString& path, const std::function<void(const QString& temporary)>& write);

}  // namespace schema
