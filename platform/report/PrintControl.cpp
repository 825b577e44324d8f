#include "platform/report/PrintControl.h"

#include "platform/report/Output.h"
#include "platform/report/PreviewWindow.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/FileFault.h"
#include "platform/system/Path.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace report {

PrintControl::PrintControl(QWidget* screen) : QObject(screen) {}

void PrintControl::PrintReport()
{
    std::optional<Document> document;
    {
        ProgressBox box(u"Der Bericht wird zusammengestellt ..."_s, screen());
        document = setPages(m_job, box.progress());
    }
    if (!document) return;
    if (!m_name.isEmpty()) document->title = m_name;
    switch (m_destination) {
    case ToWindow: (new PreviewWindow(std::move(*document), m_title, screen()))->show(); break;
    case ToPrinter: toPrinter(*document); break;
    case ToFile: {
        ProgressBox box(u"Der Bericht wird gespeichert ..."_s, screen());
        writePdf(*document, sys::localPath(m_file), box.progress());
        break;
    }
    }
}

void PrintControl::set(QMap<int, QString>& entries, int index, const QString& text)
{
    if (text.isEmpty())
        entries.remove(index);
    else
        entries.insert(index, text);
}

QWidget* PrintControl::screen() const
{
    const auto* const widget = qobject_cast<QWidget*>(parent());
    return widget ? widget->window() : nullptr;
}

void PrintControl::toPrinter(const Document& document) const
{
    const QPrinterInfo info =
        m_printer.isEmpty() ? QPrinterInfo::defaultPrinter() : QPrinterInfo::printerInfo(m_printer);
    if (info.isNull())
        throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                             m_printer.isEmpty()
                                 ? u"Es ist kein Drucker eingerichtet."_s
                                 : u"Der Drucker '"_s + m_printer + u"' ist nicht eingerichtet."_s);
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setCopyCount(m_copies);
    ProgressBox box(u"Der Bericht wird gedruckt ..."_s, screen());
    print(document, printer, box.progress());
}

} // namespace report
