#include "platform/report/Output.h"

#include "platform/system/FileFault.h"
#include "platform/system/Path.h"

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

/// Paints pages one after the other. \returns false when it was ended.
template <class BetweenPages>
bool paintPages(const Document& document, QPainter& painter, int from, int to, const BetweenPages& turn)
{
    const QPaintDevice& device = *painter.device();
    painter.scale(device.logicalDpiX() / DotsPerInch, device.logicalDpiY() / DotsPerInch);
    for (int page = from; page <= to; ++page) {
        if (page > from && !turn(page)) return false;
        document.paint(painter, page);
    }
    return true;
}

} // namespace

bool writePdf(const Document& document, const QString& file, const Progress& progress)
{
    QSaveFile draft(sys::localPath(file)); // takes the file's name when all is written
    if (!draft.open(QIODevice::WriteOnly)) throw sys::fileFault(errno, draft.fileName());
    const int last = static_cast<int>(document.pages.size()) - 1;
    bool complete = false;
    {
        QPdfWriter writer(&draft);
        writer.setResolution(static_cast<int>(DotsPerInch));
        writer.setPageLayout(document.layout);
        writer.setTitle(document.title);
        QPainter painter(&writer);
        complete = paintPages(document, painter, 0, last, [&](int page) {
            flush(draft);
            return progress(page, last + 1) && writer.newPage();
        });
    }
    if (!complete) return false; // the draft goes
    flush(draft);
    if (!draft.commit()) throw sys::fileFault(errno, draft.fileName());
    return true;
}

bool print(const Document& document, QPrinter& printer, const Progress& progress)
{
    printer.setDocName(document.title);
    printer.setPageLayout(document.layout);
    printer.setFullPage(true);
    const int last = static_cast<int>(document.pages.size()) - 1;
    const bool isPart = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
    const int from = isPart ? std::min(printer.fromPage() - 1, last) : 0;
    const int to = isPart ? std::clamp(printer.toPage() - 1, from, last) : last;

    QPainter painter;
    if (!painter.begin(&printer))
        throw sys::FileError(sys::FileErrorNumber::PathAccess,
                             u"Der Drucker '"_s + printer.printerName() + u"' nimmt keinen Auftrag an."_s);
    const bool complete = paintPages(document, painter, from, to, [&](int page) {
        return progress(page - from, to - from + 1) && printer.newPage();
    });
    if (!complete) printer.abort();
    painter.end();
    return complete;
}

} // namespace report
