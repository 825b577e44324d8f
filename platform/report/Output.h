#pragma once

#include "platform/report/Document.h"
#include "platform/report/Paginator.h"

#include <QString>

class QPrinter;

namespace report {

/// Writes all pages to a PDF file, whose name is taken as it is. The file appears complete or not at all; one
/// that is there stays as it was when the writing fails or is ended. \returns false when it was ended by
/// `progress`. \throws sys::FileError when it cannot be written.
bool writePdf(const Document& document, const QString& file, const Progress& progress);

/// Prints the pages that the printer is set to, or all; a printer that is a PDF file gets it as writePdf
/// does. \returns false when it was ended by `progress`; the pages up to there may come out of the printer.
/// \throws sys::FileError when the printer takes nothing.
bool print(const Document& document, QPrinter& printer, const Progress& progress);

} // namespace report
