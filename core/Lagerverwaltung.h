#pragma once

#include "core/Modulzustand.h"
#include "platform/system/Messages.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <functional>

/// What the component does for its hosts. A function that fails throws.
///
/// It keeps one private value per property. Only a method copies values into the shared state, the key date
/// goes there at once.
class Lagerverwaltung : public _Lagerverwaltungsdaten {

public:
    /// What the component hands in, since it lies above this room.
    struct Anschluesse {
        /// Asked at the beginning of each method: where its messages go; null: into its report.
        std::function<sys::Messages*()> meldungen;
        std::function<void()>
            hauptbildschirm; ///< Shows the main screen and returns when the user has closed it.
    };
    /// What is told of a call that has begun, and of its messages that find no other place.
    struct Bericht {
        std::function<void()> beginnt;
        std::function<void(const QString& meldung)> meldet;
    };
    Lagerverwaltung(Anschluesse anschluesse, Bericht bericht)
        : m_anschluesse(std::move(anschluesse)), m_bericht(std::move(bericht))
    {}

    void setBetriebsadresse(const QString& adresse) override { m_betriebsadresse = adresse; }
    QString Betriebsadresse() const override { return m_betriebsadresse; }
    void setBetriebsnummer(const QString& nummer) override { m_betriebsnummer = nummer; }
    QString Betriebsnummer() const override { return m_betriebsnummer; }
    void setBetriebsname(const QString& name) override { m_betriebsname = name; }
    QString Betriebsname() const override { return m_betriebsname; }
    double Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag) override;
    void setStammverzeichnis(const QString& verzeichnis) override { m_stammverzeichnis = verzeichnis; }
    QString Stammverzeichnis() const override { return m_stammverzeichnis; }
    void setHerkunft(const QString& herkunft) override { m_herkunft = herkunft; }
    QString Herkunft() const override { return m_herkunft; }
    void setAnlagenpasswort(const QString& kennwort) override { m_anlagenpasswort = kennwort; }
    QString Anlagenpasswort() const override { return m_anlagenpasswort; }
    void setAnlagenverzeichnis(const QString& verzeichnis) override { m_anlagenverzeichnis = verzeichnis; }
    QString Anlagenverzeichnis() const override { return m_anlagenverzeichnis; }
    void setWaehrung(const QString& waehrung) override { m_waehrung = waehrung; }
    QString Währung() const override { return m_waehrung; }
    void setLagerpasswort(const QString& verbindung) override { m_lagerpasswort = verbindung; }
    void setBetriebpasswort(const QString& kennwort) override { m_betriebpasswort = kennwort; }
    QString Lagerpasswort() const override { return m_lagerpasswort; }
    QString Betriebpasswort() const override { return m_betriebpasswort; }
    double LagerbestandRechnen() override;
    void LagerbestandLaden() override;
    void Kontrolle_LagerbestandLaden() override;
    void setDatenverzeichnis(const QString& datei) override { m_datenverzeichnis = datei; }
    QString Datenverzeichnis() const override { return m_datenverzeichnis; }
    void setStichdatum(const QDate& tag) override;
    QDate Stichdatum() const override { return m_stichdatum; }
    void setArtikelname(const QString& name) override { m_artikelname = name; }
    QString Artikelname() const override { return m_artikelname; }
    void setLagername(const QString& kurzKu) override { m_lagername = kurzKu; }
    QString Lagername() const override { return m_lagername; }

private:
    class Meldungsweg;

    const Anschluesse m_anschluesse;
    const Bericht m_bericht;
    QString m_betriebsadresse, m_betriebsnummer, m_betriebsname;
    QString m_stammverzeichnis, m_herkunft;
    QString m_anlagenpasswort, m_anlagenverzeichnis;
    QString m_waehrung, m_lagerpasswort, m_betriebpasswort;
    QString m_datenverzeichnis;
    QDate m_stichdatum = nulldatum();
    QString m_artikelname, m_lagername;
};
