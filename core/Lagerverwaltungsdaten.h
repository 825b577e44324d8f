#pragma once

#include "core/SpaeteBindung.h"

#include "core/Modulzustand.h"
#include "platform/system/Messages.h"

#include <functional>

/// The public class of the component: one object serves hosts that know the interface and hosts that call by name.
///
/// It keeps one private value per property. Only a method copies values into the shared state, the key date goes there
/// at once.
class Lagerverwaltungsdaten final : public SpaeteBindung, public _Lagerverwaltungsdaten {
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
    /// What the component hands in, since it lies above this room.
    struct Anschluesse {
        /// Asked at the beginning of each method: where its messages go; null: into LetzterFehler.
        std::function<sys::Messages*()> meldungen;
        std::function<void()> hauptbildschirm; ///< Shows the main screen and returns when the user has closed it.
    };
    explicit Lagerverwaltungsdaten(Anschluesse anschluesse) : m_anschluesse(std::move(anschluesse)) {}

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
    _Lagerverwaltungsdaten& fruehgebunden() override { return *this; }

    Anschluesse m_anschluesse;
    QString m_betriebsadresse, m_betriebsnummer, m_betriebsname;
    QString m_stammverzeichnis, m_herkunft;
    QString m_anlagenpasswort, m_anlagenverzeichnis;
    QString m_waehrung, m_lagerpasswort, m_betriebpasswort;
    QString m_datenverzeichnis;
    QDate m_stichdatum = nulldatum();
    QString m_artikelname, m_lagername;
};
