// A report as a PDF. Every text that is drawn can be searched for and copied as it was written.
#pragma once

#include "platform/report/document.h"

#include <QIODevice>
#include <QString>

#include <functional>

namespace report {

/// Writes a document; a file that is there is replaced when the new one is whole. progress is called before
/// each page. Raises RuntimeError with the reason in words for the operator, and then the file is as it was.
void WritePdf(const Document& document, const QString& path,
              const std::function<void(int page)>& progress = {});
/// The same into a device that is open. What the device refuses is the caller's to ask.
void WritePdf(const Document& document, QIODevice& out, const std::function<void(int page)>& progress = {});

}  // namespace report
