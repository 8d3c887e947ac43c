// The backup: the data file as it is, under a name that the operator gives.
#pragma once

#include <QString>

/// 系统数据备份. Asks for a file that is not there yet. Once the data are closed the program ends, whether
/// the copy was made or not; the file bears its name only when all of it is on the disk.
void BackUp();

/// What is meant by a path of the file dialog: a name that begins with a drive ("c:\DataBak.dat", as it is
/// proposed) is its last part in the dialog's folder. "" where nothing is left of it.
QString BackupTarget(const QString& chosen);
