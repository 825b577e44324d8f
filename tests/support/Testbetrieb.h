#pragma once

#include "host/Installation.h"
#include "platform/jet/Engine.h"
#include "platform/system/Messages.h"

#include <QDate>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>
#include <vector>

/// Messages of the product, kept instead of shown. A question gets the answer that the test has given for it.
class Meldungsprotokoll final : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override;
    /// Of two answers to one question the later one counts.
    void beantworte(const QString& text, sys::Answer antwort) { m_antworten.emplace_back(text, antwort); }
    void beantworteAlle(sys::Answer antwort)
    {
        m_jede = antwort;
    }                       ///< Questions that have no answer of their own.
    QStringList abgeholt(); ///< The texts since the last time.

private:
    QStringList m_texte;
    std::vector<std::pair<QString, sys::Answer>> m_antworten;
    std::optional<sys::Answer> m_jede;
};

/// The rows of a query, cells joined by " | ", NULL as "NULL".
QStringList gezeigt(jet::Database& datei, const QString& abfrage);

/// Rows as Testbetrieb::journal() gives them.
inline QStringList zeilen(const char* text)
{
    return QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts);
}

/// A farm in a temporary directory, made by the product's own set-up. While it lives the product finds this
/// farm, this day and this key date; messages are kept, and one that no test looked at is a failure.
class Testbetrieb {
public:
    explicit Testbetrieb(QDate Stichtag = QDate(2024, 6, 1),
                         const QString& Betriebsnummer = QStringLiteral("4711"));
    ~Testbetrieb();
    Q_DISABLE_COPY_MOVE(Testbetrieb)

    const Installation& ort() const { return m_ort; }
    QString journaldatei(int jahr) const { return m_ort.journaldatei(m_betriebsnummer, jahr); }
    std::unique_ptr<jet::Database> oeffne(int jahr) const;

    /// Adds rows, one a line, to a year file, which is made if it is missing; "NULL" is a text that is
    /// missing.
    void bucht(int jahr, const char* text) const;
    void fuehreAus(int jahr, const QString& anweisung) const;
    /// All rows, in the order of their ID, as a user notes them: "01.12. | H1 | Weizen | -20 | Verkauf".
    QStringList journal(int jahr) const;
    QStringList zeigt(int jahr, const QString& abfrage) const { return gezeigt(*oeffne(jahr), abfrage); }

    Meldungsprotokoll& meldungen() { return m_meldungen; }

private:
    QTemporaryDir m_ordner;
    Installation m_ort;
    QString m_betriebsnummer;
    Meldungsprotokoll m_meldungen;
    sys::MessageScope m_umleitung;
};
