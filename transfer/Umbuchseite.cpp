#include "transfer/Umbuchseite.h"

using namespace Qt::StringLiterals;

Umbuchseite::Umbuchseite(QWidget* parent) : QGroupBox(parent)
{
    // Of average width: the longest kind of articles fits, and both sides on 800 pixels; the longest unit
    // fits.
    constexpr int Feldzeichen = 27, Einheitzeichen = 7;
    setupUi(this);
    txtEinheit->setFixedWidth(Einheitzeichen * fontMetrics().averageCharWidth());
    Seite->setColumnMinimumWidth(1, Feldzeichen * fontMetrics().averageCharWidth());
}

void Umbuchseite::setzeEinheitNeben(QWidget& feld, QHBoxLayout& zeile)
{
    Bestaende->removeWidget(txtEinheit);
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

void Umbuchseite::setzeBestand(double bisher, double neu)
{
    txtBisher->setValue(bisher);
    txtNeu->setValue(neu);
}
