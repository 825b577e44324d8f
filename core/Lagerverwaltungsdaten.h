#pragma once

#include "core/Lagerverwaltung.h"
#include "core/SpaeteBindung.h"

/// The public class of the component: one object serves hosts that know the interface and hosts that call by
/// name.
class Lagerverwaltungsdaten final : public SpaeteBindung, public Lagerverwaltung {
    Q_OBJECT
    Q_INTERFACES(_Lagerverwaltungsdaten)
    Q_PROPERTY(QString Betriebsadresse READ Betriebsadresse WRITE setBetriebsadresse)
    Q_PROPERTY(QString Betriebsnummer READ Betriebsnummer WRITE setBetriebsnummer)
    Q_PROPERTY(QString Betriebsname READ Betriebsname WRITE setBetriebsname)
    Q_PROPERTY(QString Stammverzeichnis READ Stammverzeichnis WRITE setStammverzeichnis)
    Q_PROPERTY(QString Herkunft READ Herkunft WRITE setHerkunft)
    Q_PROPERTY(QString Anlagenpasswort READ Anlagenpasswort WRITE setAnlagenpasswort)
    Q_PROPERTY(QString Anlagenverzeichnis READ Anlagenverzeichnis WRITE setAnlagenverzeichnis)
    Q_PROPERTY(QString Währung READ Währung WRITE setWaehrung)
    Q_PROPERTY(QString Lagerpasswort READ Lagerpasswort WRITE setLagerpasswort)
    Q_PROPERTY(QString Betriebpasswort READ Betriebpasswort WRITE setBetriebpasswort)
    Q_PROPERTY(QString Datenverzeichnis READ Datenverzeichnis WRITE setDatenverzeichnis)
    Q_PROPERTY(QDate Stichdatum READ Stichdatum WRITE stelleStichdatum)
    Q_PROPERTY(QString Artikelname READ Artikelname WRITE setArtikelname)
    Q_PROPERTY(QString Lagername READ Lagername WRITE setLagername)

public:
    explicit Lagerverwaltungsdaten(Anschluesse anschluesse);

    // Who knows the class means the functions that throw.
    using Lagerverwaltung::Get_Bestand;
    using Lagerverwaltung::Kontrolle_LagerbestandLaden;
    using Lagerverwaltung::LagerbestandLaden;
    using Lagerverwaltung::LagerbestandRechnen;
};
