#pragma once

#include <QString>

#include <map>
#include <optional>
#include <vector>

/// What a check finds, the worst first. Up to `NummerZuZweiLieferungen` it is a fault: figures or files
/// are wrong. From there on it is a remark: it may be meant so.
enum class Befundart {
    DateiBeschaedigt,
    FalscherStand,
    IndexFehlt,
    Zaehler,
    Anfangsbestand,
    HalbeUmbuchung,
    FalschesJahr,
    LetzterTagMitUhrzeit,
    NummerZuZweiLieferungen,
    UnbekannterLagerort,
    UnbekannterArtikel,
    ZweiEinheiten,
    NegativerBestand,
    FremderAnfangsbestand,
    Name,
};

struct Befund {
    Befundart art;
    QString Betrieb;          ///< Empty: of a file that serves all farms.
    std::optional<int> jahr;  ///< None: of no year.
    std::optional<qint64> ID; ///< Of the booking, where it is about one.
    QString text;
    QString abhilfe; ///< What mends it; empty for a remark that nothing need mend.

    bool istFehler() const { return art <= Befundart::NummerZuZweiLieferungen; }
};

/// What is found in one file: of each kind the first ones, and how many more there were.
class Befunde {
public:
    Befunde(QString Betrieb, std::optional<int> jahr) : m_betrieb(std::move(Betrieb)), m_jahr(jahr) {}

    void nenne(Befundart art, const QString& text, const QString& abhilfe = {},
               std::optional<qint64> ID = {});
    /// In the order in which they were found. Another call gives nothing.
    std::vector<Befund> nimm();

private:
    QString m_betrieb;
    std::optional<int> m_jahr;
    std::vector<Befund> m_alle;
    std::map<Befundart, int> m_anzahl;
};
