#pragma once

#include <QDate>
#include <QObject>
#include <QString>

#include <memory>

namespace sys {
class Messages; // <zablager/Messages.h>
}

/// What a host hands the stock-keeping component, and what it asks of it.
///
/// The functions stand in the order of the interface's function table, which hosts rely on: a new one goes to
/// the end. Properties only keep their value, but `Stichdatum`, which counts for all objects at once; the
/// methods hand the values on to the whole process, where the last method call wins. Texts start empty, the
/// key date is 30.12.1899.
///
/// Methods throw jet::Error or sys::FileError, with a number and a German text.
// NOLINTNEXTLINE(bugprone-reserved-identifier): hosts know the interface by this name
class _Lagerverwaltungsdaten {
public:
    virtual ~_Lagerverwaltungsdaten() = default;

    virtual void setBetriebsadresse(const QString& adresse) = 0; ///< Of the farm, for report headers.
    virtual QString Betriebsadresse() const = 0;
    virtual void setBetriebsnummer(
        const QString& nummer) = 0; ///< Without leading zeros; names the farm folder "B" + number.
    virtual QString Betriebsnummer() const = 0;
    virtual void setBetriebsname(const QString& name) = 0; ///< For captions and report headers.
    virtual QString Betriebsname() const = 0;
    /// Stock of one article at one storage place at the end of a day, in the unit of its bookings and not
    /// rounded.
    ///
    /// Only the journal file of the day's own year is read; the farm is the one of the last LagerbestandLaden
    /// or Kontrolle_LagerbestandLaden in this process. A missing year file is told by a message, the stock is
    /// then 0.
    virtual double Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag) = 0;
    virtual void
    setStammverzeichnis(const QString& verzeichnis) = 0; ///< Directory of the master-data databases.
    virtual QString Stammverzeichnis() const = 0;
    virtual void setHerkunft(const QString& herkunft) = 0; ///< Which host program calls.
    virtual QString Herkunft() const = 0;
    virtual void
    setAnlagenpasswort(const QString& kennwort) = 0; ///< Of the objects database (storage places).
    virtual QString Anlagenpasswort() const = 0;
    virtual void
    setAnlagenverzeichnis(const QString& verzeichnis) = 0; ///< Directory of the objects database.
    virtual QString Anlagenverzeichnis() const = 0;
    virtual void setWaehrung(const QString& waehrung) = 0; ///< Shown with prices.
    virtual QString Währung() const = 0;
    virtual void
    setLagerpasswort(const QString& verbindung) = 0; ///< Connect text of the journal, such as ";pwd=...".
    virtual void setBetriebpasswort(const QString& kennwort) = 0; // sic: one "s" less than Betriebsname
    virtual QString Lagerpasswort() const = 0;
    virtual QString Betriebpasswort() const = 0;
    /// Fails on every call: its statement, kept as hosts know it, has an AND too many, and the database
    /// engine refuses it (jet::Error ExpressionSyntax, 3075). A stock is what Get_Bestand answers.
    virtual double LagerbestandRechnen() = 0;
    /// Opens the stock-keeping screen; returns when the user closes it. A journal file that does not exist
    /// yet is made from the template before. \throws jet::Error NotSupported, as the last step, when the host
    /// has no QApplication; InvalidArgument when the screen is open already or the key date was never set.
    virtual void LagerbestandLaden() = 0;
    /// Carries the closing stocks of the key date's year and of every later one into the year file after it.
    /// \throws jet::Error InvalidArgument while the screen is open for another farm.
    virtual void Kontrolle_LagerbestandLaden() = 0;
    virtual void setDatenverzeichnis(
        const QString& datei) = 0; ///< Despite its name the journal file of the key date's year.
    virtual QString Datenverzeichnis() const = 0;
    virtual void
    setStichdatum(const QDate& tag) = 0; ///< \throws jet::Error InvalidArgument when it is no date.
    virtual QDate Stichdatum() const = 0;
    virtual void setArtikelname(const QString& name) = 0; ///< For LagerbestandRechnen.
    virtual QString Artikelname() const = 0;
    virtual void setLagername(const QString& kurzKu) = 0; ///< Short code of a storage place, for
                                                          ///< LagerbestandRechnen and the screen.
    virtual QString Lagername() const = 0;
};
Q_DECLARE_INTERFACE(_Lagerverwaltungsdaten, "ZABLAGER.Lagerverwaltungsdaten/1.0")

/// The root object of the loadable library: QPluginLoader::instance(), cast with qobject_cast.
class IZablager {
public:
    virtual ~IZablager() = default;

    /// A new object, independent of all others; it may outlive this factory and the loader.
    virtual std::unique_ptr<_Lagerverwaltungsdaten> erzeuge() = 0;
    /// Where the messages of all objects go while the host has no QApplication; null: into the object's
    /// property LetzterFehler. The place must live until it is replaced or the library is unloaded.
    virtual void setzeMeldungen(sys::Messages* meldungen) = 0;
};
Q_DECLARE_INTERFACE(IZablager, "ZABLAGER.Zablager/1.0")
