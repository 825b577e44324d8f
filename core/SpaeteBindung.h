#pragma once

#include <zablager/Lagerverwaltungsdaten.h>

#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QString>

#include <functional>

/// The late-bound edge of Lagerverwaltungsdaten: what hosts call by name.
///
/// No exception crosses Qt's meta-call, it would end the host. A call that fails returns its type's default
/// and leaves text and number of the failure here. The names are those of the early-bound interface, so they
/// stand in a class beside it: there they would override the functions that throw.
///
/// An object to which a host has given a property that the class does not have refuses every call by name
/// until the host takes it away again (sets it to an invalid QVariant).
class SpaeteBindung : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString LetzterFehler READ LetzterFehler)
    Q_PROPERTY(int LetzteFehlernummer READ LetzteFehlernummer)

public:
    /// `objekt`: the same object, or another one, whose functions throw.
    explicit SpaeteBindung(_Lagerverwaltungsdaten& objekt) : m_objekt(objekt) {}

    /// Text of the failure of the last call by name, or of a message of the last call of either kind that
    /// found no other place; empty after a successful call. What an early-bound call throws is not told again
    /// here.
    QString LetzterFehler() const { return m_fehler; }
    /// Number of the last call's failure; 0: the call succeeded, and LetzterFehler is at most a message.
    int LetzteFehlernummer() const { return m_fehlernummer; }

    // As in _Lagerverwaltungsdaten; a call that fails returns 0.
    Q_INVOKABLE double Get_Bestand(const QString& Artikel, const QString& Lagerort, const QDate& Stichtag);
    Q_INVOKABLE double Get_Bestand(const QString& Artikel, const QString& Lagerort,
                                   const QDateTime& Stichtag);
    Q_INVOKABLE double LagerbestandRechnen();
    Q_INVOKABLE void LagerbestandLaden();
    Q_INVOKABLE void Kontrolle_LagerbestandLaden();
    void stelleStichdatum(const QDate& tag);

protected:
    void beginneAufruf();                     ///< Forgets what the call before left.
    void hinterlasse(const QString& meldung); ///< Adds a message of the running call; its number is 0.

private:
    void abgesichert(const std::function<void()>& aufruf);

    _Lagerverwaltungsdaten& m_objekt;
    QString m_fehler;
    int m_fehlernummer = 0;
};
