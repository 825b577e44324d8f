#include "masks/Maskenraster.h"

#include <QFrame>
#include <QGridLayout>
#include <QWidget>

#include <algorithm>

namespace {

int breiteDerBeschriftung(const QGridLayout& raster)
{
    int breite = 0;
    for (int zeile = 0; zeile < raster.rowCount(); ++zeile) {
        const QLayoutItem* const eintrag = raster.itemAtPosition(zeile, 0);
        const bool eineSpalte = eintrag && eintrag != raster.itemAtPosition(zeile, 1);
        if (eineSpalte && eintrag->widget()) breite = std::max(breite, eintrag->widget()->sizeHint().width());
    }
    return breite;
}

/// What a frame takes at the left of its grid.
int rahmenbreite(const QGridLayout& raster)
{
    const auto* const rahmen = qobject_cast<QFrame*>(raster.parentWidget());
    if (!rahmen || rahmen->layout() != &raster) return 0;
    return rahmen->frameWidth() + raster.contentsMargins().left();
}

} // namespace

int richteAus(std::initializer_list<QGridLayout*> raster)
{
    // of average width: all kinds of articles fit, most articles, and the mask on 800 pixels
    constexpr int Feldzeichen = 28;
    int beschriftung = 0;
    for (const QGridLayout* grid : raster)
        beschriftung = std::max(beschriftung, breiteDerBeschriftung(*grid) + rahmenbreite(*grid));
    const QWidget& maske = *(*raster.begin())->parentWidget();
    const int feld = Feldzeichen * maske.fontMetrics().averageCharWidth();
    for (QGridLayout* grid : raster) {
        grid->setColumnMinimumWidth(0, beschriftung - rahmenbreite(*grid));
        grid->setColumnMinimumWidth(1, feld);
    }
    return beschriftung + (*raster.begin())->horizontalSpacing();
}

void behaeltPlatz(QWidget& feld)
{
    QSizePolicy platz = feld.sizePolicy();
    platz.setRetainSizeWhenHidden(true);
    feld.setSizePolicy(platz);
}
