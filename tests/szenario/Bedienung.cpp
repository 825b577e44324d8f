#include "tests/szenario/Bedienung.h"

#include "tests/support/Bildschirm.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>

#include <map>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QLineEdit* eingabezeile(QWidget& feld)
{
    auto* const zeile = qobject_cast<QLineEdit*>(&feld);
    return zeile ? zeile : feld.findChild<QLineEdit*>();
}

QString rasterzeile(const QTableView& liste, int zeile)
{
    QStringList zellen;
    for (int spalte = 0; spalte < liste.model()->columnCount(); ++spalte)
        if (!liste.isColumnHidden(spalte))
            zellen.append(liste.model()->index(zeile, spalte).data().toString());
    return zellen.join(u" | "_s);
}

int spalteZu(const QHeaderView& kopf, const QString& titel)
{
    for (int spalte = 0; spalte < kopf.count(); ++spalte)
        if (kopf.model()->headerData(spalte, Qt::Horizontal).toString() == titel) return spalte;
    scheitere(u"no column: "_s + titel);
}

} // namespace

void scheitere(const QString& grund)
{
    throw std::runtime_error(grund.toStdString());
}

void geheIn(QWidget& feld)
{
    feld.setFocus();
    if (!feld.hasFocus()) scheitere(u"cannot be entered: "_s + feld.objectName());
    if (auto* const zeile = eingabezeile(feld)) zeile->selectAll();
    if (auto* const text = qobject_cast<QPlainTextEdit*>(&feld)) text->selectAll();
}

void klicke(QWidget& feld, int zeile, bool doppelt)
{
    QWidget* ziel = &feld;
    QPoint stelle = feld.rect().center();
    if (const auto* const liste = qobject_cast<DataGrid*>(&feld); liste && zeile > 0) {
        stelle = liste->visualRect(liste->model()->index(zeile - 1, liste->columnAt(1))).center();
        ziel = liste->viewport();
    }
    QTest::mouseClick(ziel, Qt::LeftButton, Qt::NoModifier, stelle);
    if (doppelt) QTest::mouseDClick(ziel, Qt::LeftButton, Qt::NoModifier, stelle);
}

void klickeKopf(const DataGrid& liste, const QString& titel)
{
    const auto& kopf = *liste.horizontalHeader();
    const int spalte = spalteZu(kopf, titel);
    const QPoint mitte(kopf.sectionViewportPosition(spalte) + kopf.sectionSize(spalte) / 2,
                       kopf.viewport()->height() / 2);
    QTest::mouseClick(kopf.viewport(), Qt::LeftButton, Qt::NoModifier, mitte);
}

QString gesehen(const QObject& ding)
{
    if (ding.property("Ampel").isValid()) return ding.property("Ampel").toInt() == 3 ? u"rot"_s : u"grün"_s;
    if (const auto* const reiter = qobject_cast<const QTabWidget*>(&ding))
        return reiter->tabText(reiter->currentIndex());
    for (const char* name : {"Caption", "Text", "text", "title", "DocumentName"})
        if (const QVariant wert = ding.property(name); wert.isValid()) return wert.toString();
    return {};
}

QStringList rasterzeilen(const QTableView& liste)
{
    QStringList zeilen;
    for (int zeile = 0; zeile < liste.model()->rowCount(); ++zeile)
        zeilen.append(rasterzeile(liste, zeile));
    return zeilen;
}

QString rasterspalte(const DataGrid& liste, const QString& titel)
{
    const int spalte = spalteZu(*liste.horizontalHeader(), titel);
    QStringList zellen;
    for (int zeile = 0; zeile < liste.model()->rowCount(); ++zeile)
        zellen.append(liste.model()->index(zeile, spalte).data().toString());
    return zellen.join(u" | "_s);
}

QString aktuelleZeile(const DataGrid& liste)
{
    return liste.currentIndex().isValid() ? rasterzeile(liste, liste.currentIndex().row()) : u"keine"_s;
}

QString angebot(const QComboBox& liste)
{
    QStringList texte;
    for (int i = 0; i < liste.count(); ++i)
        texte.append(liste.itemText(i));
    return texte.join(u" | "_s);
}

QString markierter()
{
    const QLineEdit* const zeile = eingabezeile(fokus());
    return zeile ? zeile->selectedText() : QString();
}

bool ist(const QObject& ding, const QString& was)
{
    static const std::map<QString, const char*> zustaende{{u"an"_s, "checked"},
                                                          {u"offen"_s, "DroppedDown"},
                                                          {u"sichtbar"_s, "visible"},
                                                          {u"frei"_s, "enabled"}};
    return ding.property(zustaende.at(was.section(u' ', -1))).toBool() != was.startsWith(u"nicht "_s);
}
