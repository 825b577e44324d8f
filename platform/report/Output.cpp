#include "platform/report/Output.h"

#include "platform/system/FileFault.h"

#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace report {

namespace {

/// Hands all that is painted so far to the system and tells why it does not take it.
void flush(QSaveFile& draft)
{
    if (draft.flush()) return;
    draft.flush(); // the first failure may be a part that was still written; the rest tells the reason
    throw sys::fileFault(errno, draft.fileName());
}

/// Pages of a document, from 0.
struct Range {
    int first, last;
};

Range allPages(const Document& document)
{
    return {0, static_cast<int>(document.pages.size()) - 1};
}

Range wantedPages(const Document& document, const QPrinter& printer)
{
    const Range all = allPages(document);
    if (printer.printRange() != QPrinter::PageRange || printer.fromPage() <= 0) return all;
    const int first = std::min(printer.fromPage() - 1, all.last);
    return {first, std::clamp(printer.toPage() - 1, first, all.last)};
}

/// Paints pages one after the other. `turn` begins the next one; false ends the work. \returns false when it
/// was ended.
template <class Turn>
bool paintPages(const Document& document, QPainter& painter, Range range, const Progress& progress,
                const Turn& turn)
{
    const QPaintDevice& device = *painter.device();
    painter.scale(device.logicalDpiX() / DotsPerInch, device.logicalDpiY() / DotsPerInch);
    for (int page = range.first; page <= range.last; ++page) {
        if (page > range.first) {
            if (!progress(page - range.first, range.last - range.first + 1)) return false;
            turn();
        }
        document.paint(painter, page);
    }
    return true;
}

bool writePdf(const Document& document, Range range, const QString& file, const Progress& progress)
{
    QSaveFile draft(file); // takes the file's name when all is written
    errno = EISDIR;        // a directory is refused without asking the system
    if (!draft.open(QIODevice::WriteOnly)) throw sys::fileFault(errno, file);
    bool complete = false;
    {
        QPdfWriter writer(&draft);
        writer.setResolution(static_cast<int>(DotsPerInch));
        writer.setPageLayout(document.layout);
        writer.setTitle(document.title);
        QPainter painter(&writer);
        complete = paintPages(document, painter, range, progress, [&] {
            flush(draft);
            writer.newPage();
        });
    }
    if (!complete) return false; // the draft goes
    flush(draft);
    if (!draft.commit()) throw sys::fileFault(errno, file);
    return true;
}

sys::FileError refusal(const QPrinter& printer)
{
    return {sys::FileErrorNumber::PathAccess,
            u"Der Drucker '"_s + printer.printerName() + u"' nimmt nichts an."_s};
}

} // namespace

bool writePdf(const Document& document, const QString& file, const Progress& progress)
{
    return writePdf(document, allPages(document), file, progress);
}

bool print(const Document& document, QPrinter& printer, const Progress& progress)
{
    const Range range = wantedPages(document, printer);
    if (printer.outputFormat() == QPrinter::PdfFormat)
        return writePdf(document, range, printer.outputFileName(), progress);
    printer.setDocName(document.title);
    if (!printer.setPageLayout(document.layout)) // it has no such paper
        printer.setPageOrientation(document.layout.orientation());
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer)) throw refusal(printer);
    const bool complete = paintPages(document, painter, range, progress, [&] {
        if (!printer.newPage()) throw refusal(printer);
    });
    if (!complete) printer.abort();
    return complete;
}

} // namespace report
