#include "platform/report/PreviewWindow.h"

#include "platform/report/Output.h"
#include "platform/report/PageView.h"
#include "platform/report/ProgressBox.h"
#include "platform/system/ErrorReport.h"
#include "platform/system/FileName.h"
#include "platform/system/GermanDialogs.h"
#include "platform/system/Messages.h"
#include "platform/system/Settings.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSpinBox>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double Zooms[] = {0.5, 0.75, 1, 1.5, 2, 4};
const QString Section = u"Lagerverwaltung"_s; // of the user's settings
const QString FolderKey = u"PDFVerzeichnis"_s;
constexpr int FixedEntries = 2;      // "Ganze Seite" and "Seitenbreite" stand before them
constexpr double WindowShare = 0.85; // of the screen

QString percent(double zoom)
{
    return QString::number(qRound(zoom * 100)) + u" %"_s;
}

} // namespace

PreviewWindow::PreviewWindow(Document document, const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window), m_document(std::move(document)), m_pages(new PageView(m_document, this))
{
    setObjectName(u"Druckvorschau"_s);
    setWindowTitle(title.isEmpty() ? m_document.title : title);
    setAttribute(Qt::WA_DeleteOnClose);
    auto* const layout = new QVBoxLayout(this);
    auto* const bar = new QHBoxLayout;
    layout->addLayout(bar);
    layout->addWidget(m_pages);
    m_pages->setObjectName(u"Seiten"_s);
    m_pages->setAccessibleName(u"Seiten des Berichts"_s);
    buildBar(*bar);
    const auto* const escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &QWidget::close);
    resize(screen()->availableSize() * WindowShare);
    m_pages->setFit(PageView::Fit::Width);
    m_pages->setFocus();
}

/// The keys of this window stand here and not in the program's table of keys: reports are shown to programs
/// that have none, and the fields and lists that table is made for are not among what this room knows.
void PreviewWindow::buildBar(QHBoxLayout& bar)
{
    button(bar, u"Drucken"_s, u"&Drucken ..."_s, Qt::CTRL | Qt::Key_P, &PreviewWindow::Drucken_Click);
    button(bar, u"PdfSpeichern"_s, u"Als &PDF speichern ..."_s, Qt::CTRL | Qt::Key_S,
           &PreviewWindow::PdfSpeichern_Click);
    bar.addStretch();
    buildTurning(bar);
    bar.addStretch();
    buildZoom(bar);
    bar.addStretch();
    auto* const close = new QPushButton(u"&Schließen"_s, this);
    close->setObjectName(u"Schliessen"_s);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    bar.addWidget(close);
}

void PreviewWindow::button(QHBoxLayout& bar, const QString& name, const QString& text,
                           const QKeySequence& key, void (PreviewWindow::*handler)())
{
    auto* const button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    // Not native, which is English in a host without German translations.
    button->setToolTip(key.toString(QKeySequence::PortableText).replace(u"Ctrl"_s, u"Strg"_s));
    const auto* const shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, button, [button] { button->click(); });
    connect(button, &QPushButton::clicked, this,
            [this, handler] { sys::underErrorReport({[this, handler] { (this->*handler)(); }}); });
    bar.addWidget(button);
}

void PreviewWindow::buildTurning(QHBoxLayout& bar)
{
    const auto turn = [&](QStyle::StandardPixmap icon, const QString& tip,
                          const std::function<int()>& target) {
        auto* const button = new QToolButton(this);
        button->setIcon(style()->standardIcon(icon));
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setAutoRaise(true);
        connect(button, &QToolButton::clicked, this, [this, target] { m_pages->showPage(target()); });
        bar.addWidget(button);
    };
    turn(QStyle::SP_MediaSkipBackward, u"Erste Seite (Pos1)"_s, [] { return 0; });
    turn(QStyle::SP_ArrowLeft, u"Vorige Seite (Bild auf)"_s, [this] { return m_pages->currentPage() - 1; });

    auto* const caption = new QLabel(u"S&eite"_s, this);
    m_page = new QSpinBox(this);
    m_page->setObjectName(u"Seite"_s);
    m_page->setRange(1, m_pages->pageCount());
    m_page->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_page->setAlignment(Qt::AlignRight);
    m_page->setKeyboardTracking(false); // "12" does not lead over page 1
    m_page->setAccessibleName(u"Seite"_s);
    sys::makeMenuGerman(*m_page);
    caption->setBuddy(m_page);
    connect(m_page, &QSpinBox::editingFinished, m_pages,
            [this] { m_pages->setFocus(); }); // keys turn pages again
    bar.addWidget(caption);
    bar.addWidget(m_page);
    bar.addWidget(new QLabel(u"von "_s + QString::number(m_pages->pageCount()), this));
    connect(m_page, &QSpinBox::valueChanged, this, [this](int page) {
        if (page != m_pages->currentPage() + 1) m_pages->showPage(page - 1);
    });
    connect(m_pages, &PageView::pageChanged, this, [this](int page) {
        const QSignalBlocker silent(m_page);
        m_page->setValue(page + 1);
    });

    turn(QStyle::SP_ArrowRight, u"Nächste Seite (Bild ab)"_s, [this] { return m_pages->currentPage() + 1; });
    turn(QStyle::SP_MediaSkipForward, u"Letzte Seite (Ende)"_s, [this] { return m_pages->pageCount() - 1; });
}

void PreviewWindow::buildZoom(QHBoxLayout& bar)
{
    auto* const caption = new QLabel(u"&Größe"_s, this);
    m_zoom = new QComboBox(this);
    m_zoom->setObjectName(u"Groesse"_s);
    m_zoom->setAccessibleName(u"Größe der Ansicht"_s);
    m_zoom->setToolTip(u"Strg und + oder -"_s);
    m_zoom->addItems({u"Ganze Seite"_s, u"Seitenbreite"_s});
    for (const double zoom : Zooms)
        m_zoom->addItem(percent(zoom));
    m_zoom->setCurrentIndex(FixedEntries - 1);
    m_zoom->setEditable(true); // shows sizes that are not in the list
    m_zoom->lineEdit()->setReadOnly(true);
    sys::makeMenuGerman(*m_zoom);
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    caption->setBuddy(m_zoom);
    bar.addWidget(caption);
    bar.addWidget(m_zoom);
    connect(m_zoom, &QComboBox::activated, this, &PreviewWindow::Zoom_Click);
    connect(m_pages, &PageView::zoomChanged, this, &PreviewWindow::showZoom);
}

void PreviewWindow::Zoom_Click(int index)
{
    if (index >= FixedEntries)
        m_pages->setZoom(Zooms[index - FixedEntries]);
    else
        m_pages->setFit(index == 0 ? PageView::Fit::Page : PageView::Fit::Width);
}

void PreviewWindow::showZoom()
{
    if (m_pages->fit() == PageView::Fit::None) m_zoom->setEditText(percent(m_pages->zoom()));
}

void PreviewWindow::Drucken_Click()
{
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        sys::critical(u"Es ist kein Drucker eingerichtet. Der Bericht kann als PDF gespeichert werden."_s);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(m_document.layout);
    const sys::GermanDialogs german;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(u"Drucken"_s);
    dialog.setMinMax(1, m_pages->pageCount());
    dialog.setFromTo(1, m_pages->pageCount());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted) return;
    ProgressBox box(u"Der Bericht wird gedruckt ..."_s, this);
    print(m_document, printer, box.progress());
}

void PreviewWindow::PdfSpeichern_Click()
{
    const sys::GermanDialogs german;
    QFileDialog dialog(this, u"Als PDF speichern"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"PDF-Dateien (*.pdf)"_s);
    dialog.setDefaultSuffix(u"pdf"_s);
    const QString lastFolder = sys::GetSetting(Section, FolderKey);
    if (QFileInfo(lastFolder).isDir()) dialog.setDirectory(lastFolder);
    dialog.selectFile(sys::fileNameFor(m_document.title) + u".pdf"_s);
    if (dialog.exec() != QDialog::Accepted) return;
    const QString file = dialog.selectedFiles().constFirst();
    {
        ProgressBox box(u"Der Bericht wird gespeichert ..."_s, this);
        if (!writePdf(m_document, file, box.progress())) return;
    }
    const QString folder = QFileInfo(file).path();
    if (folder != lastFolder) sys::SaveSetting(Section, FolderKey, folder);
}

} // namespace report
