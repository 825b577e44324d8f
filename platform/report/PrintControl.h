#pragma once

#include "platform/report/Job.h"

#include <QObject>
#include <QString>

class QWidget;

namespace report {

struct Document;

/// The report print control of a screen: its properties say what is to be printed and where to, PrintReport
/// starts. Indices may have gaps; an empty text removes an entry.
class PrintControl final : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString ReportFileName READ ReportFileName WRITE setReportFileName)
    Q_PROPERTY(QString SelectionFormula READ SelectionFormula WRITE setSelectionFormula)
    Q_PROPERTY(QString PrinterName READ PrinterName WRITE setPrinterName)
    Q_PROPERTY(QString PrinterDriver READ PrinterDriver WRITE setPrinterDriver)
    Q_PROPERTY(QString PrinterPort READ PrinterPort WRITE setPrinterPort)
    Q_PROPERTY(QString WindowTitle READ WindowTitle WRITE setWindowTitle)
    Q_PROPERTY(QString DocumentName READ DocumentName WRITE setDocumentName)
    Q_PROPERTY(QString PrintFileName READ PrintFileName WRITE setPrintFileName)
    Q_PROPERTY(int CopiesToPrinter READ CopiesToPrinter WRITE setCopiesToPrinter)
    Q_PROPERTY(Destination Destination READ destination WRITE setDestination)

public:
    enum Destination { ToWindow = 0, ToPrinter = 1, ToFile = 2 };
    Q_ENUM(Destination)

    explicit PrintControl(QWidget* screen); ///< The preview window goes with the screen.

    QString ReportFileName() const { return m_job.reportFile; } ///< Full name of the report form.
    void setReportFileName(const QString& file) { m_job.reportFile = file; }
    QString SelectionFormula() const
    {
        return m_job.selection;
    } ///< Condition that rows must meet; empty: all.
    void setSelectionFormula(const QString& condition) { m_job.selection = condition; }

    QString Formulas(int index) const
    {
        return m_job.formulas.value(index);
    } ///< See setFormulas() in Formulas.h.
    void setFormulas(int index, const QString& formula) { set(m_job.formulas, index, formula); }
    QString DataFiles(int index) const { return m_job.dataFiles.value(index); } ///< See Job.
    void setDataFiles(int index, const QString& file) { set(m_job.dataFiles, index, file); }
    QString SortFields(int index) const { return m_job.sortFields.value(index); } ///< See Job.
    void setSortFields(int index, const QString& field) { set(m_job.sortFields, index, field); }

    QString PrinterName() const { return m_printer; } ///< Empty: the user's usual one.
    void setPrinterName(const QString& name) { m_printer = name; }
    QString PrinterDriver() const { return m_driver; } ///< Kept only: the printer's name says it all here.
    void setPrinterDriver(const QString& driver) { m_driver = driver; }
    QString PrinterPort() const { return m_port; } ///< Kept only.
    void setPrinterPort(const QString& port) { m_port = port; }
    QString WindowTitle() const { return m_title; } ///< Empty: the document's name.
    void setWindowTitle(const QString& title) { m_title = title; }
    /// What is printed, "Lieferschein 12 Huber": for the list of print jobs, and the name that is offered for
    /// a PDF. Empty: the form's title.
    QString DocumentName() const { return m_name; }
    void setDocumentName(const QString& name) { m_name = name; }
    QString PrintFileName() const { return m_file; } ///< Of the PDF file that destination 2 writes.
    void setPrintFileName(const QString& file) { m_file = file; }
    int CopiesToPrinter() const { return m_copies; } ///< From 1.
    void setCopiesToPrinter(int copies) { m_copies = copies; }
    Destination destination() const { return m_destination; }
    void setDestination(Destination destination) { m_destination = destination; }

    /// Makes the report and shows, prints or writes it. All data is read before the preview comes up. The
    /// user may end what takes longer than a second; then nothing is shown or written, and no further page
    /// printed. \throws jet::Error, sys::FileError with a text that names what is missing or broken.
    void PrintReport();

private:
    static void set(QMap<int, QString>& entries, int index, const QString& text);
    QWidget* screen() const;
    void toPrinter(const Document& document) const;

    Job m_job;
    QString m_printer;
    QString m_driver;
    QString m_port;
    QString m_title;
    QString m_name;
    QString m_file;
    int m_copies = 1;
    Destination m_destination = ToWindow;
};

} // namespace report
