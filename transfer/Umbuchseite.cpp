#include "transfer/Umbuchseite.h"

#include "masks/ErfassungsmaskenModul.h"
#include "masks/Maskenraster.h"

using namespace Qt::StringLiterals;

Umbuchseite::Umbuchseite(QWidget* parent) : QGroupBox(parent)
{
    constexpr int Feldzeichen = 27; // of average width: the longest kind of articles fits, and both sides on 800 pixels
    setupUi(this);
    Seite->setColumnMinimumWidth(1, Feldzeichen * fontMetrics().averageCharWidth());
}

void Umbuchseite::setzeEinheitNeben(QWidget& feld, QHBoxLayout& zeile)
{
    Seite->removeWidget(txtEinheit);
    lblEinheit->setMinimumHeight(txtEinheit->sizeHint().height()); // the stocks of both sides stay in line
    behaeltPlatz(*lblEinheit);
    lblEinheit->hide();
    txtEinheit->setAccessibleName(u"Einheit"_s);
    zeile.addWidget(txtEinheit);
    setTabOrder(&feld, txtEinheit);
}

void Umbuchseite::nenneZweite()
{
    drpLagerort->setObjectName(u"drpLagerorte2"_s);
    drpGruppe->setObjectName(u"drpGruppe2"_s);
    drpArtikel->setObjectName(u"DrpArtikel2"_s);
    for (QWidget* feld : std::initializer_list<QWidget*>{chkVorhanden, txtBisher, txtNeu, txtEinheit, Ampel,
                                                         lblLagerort, lblLagername, lblArtikel})
        feld->setObjectName(feld->objectName() + u'2');
}

void Umbuchseite::verbinde(DataControl& Lagerauswahl, DataControl& Artikelauswahl)
{
    lblLagerort->setBuddy(*drpLagerort);
    lblArtikel->setBuddy(*drpArtikel);
    verbindeLagerorte(*drpLagerort, Lagerauswahl);
    verbindeArtikel(*drpArtikel, Artikelauswahl);
    fuelleArtikelarten(*drpGruppe);
}

void Umbuchseite::setzeBestand(double bisher, double neu)
{
    txtBisher->setValue(bisher);
    txtNeu->setValue(neu);
}
