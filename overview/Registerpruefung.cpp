#include "overview/Registerpruefung.h"

#include "core/farm/Artikelarten.h"
#include "platform/system/Blanks.h"
#include "platform/system/ErrorReport.h"

#include <QDate>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString Umbruch = u"\r\n"_s;
const QString Trennlinie = Umbruch + QString(158, u'=');

/// A product is checked when its category has one of these words. Case counts, so the longer word has its own
/// line.
constexpr QStringView Wirkstoffgruppen[] = {
    u"Herbizid",
    u"Fungizid",
    u"Insektizid",
    u"Akarizid",
    u"Beizmittel",
    u"Wachstumsregler",
    u"Pflanzenwachstumsregulator",
    u"Wachstumsregulator",
    u"Nematizid",
    u"Rodentizid",
    u"Molluskizid",
};

bool wirdGeprueft(const QString& Gruppe)
{
    return std::ranges::any_of(Wirkstoffgruppen, [&](QStringView wort) { return Gruppe.contains(wort); });
}

/// Articles may be named with their registration number, "Name     (1234-5)"; the register knows the name
/// alone.
QString kurzname(const QString& Artikel)
{
    const qsizetype anhang = Artikel.indexOf(u"     ("_s);
    return anhang < 0 ? Artikel : sys::trimBlanks(Artikel.left(anhang));
}

/// The tables are looked up by key as dynasets do it: a register has many entries, and only few are asked
/// for.
class Pruefung {
public:
    Pruefung(jet::Database& stamm, int Jahr)
        : m_mittel(stamm.OpenRecordset(u"SELECT * FROM PFLANZENSCHUTZMITTEL"_s, jet::Kind::Dynaset)),
          m_register(stamm.OpenRecordset(u"SELECT * FROM REGISTER"_s, jet::Kind::Dynaset)),
          m_befristete(stamm.OpenRecordset(
              u"SELECT * FROM REGISTER WHERE NOT ISNULL(Aufbrauchsfrist) ORDER BY Aufbrauchsfrist"_s,
              jet::Kind::Dynaset)),
          m_jahresende(Jahr, 12, 31)
    {}

    QString text(const QString& Artikel)
    {
        m_mittel->FindFirst(u"NAME = '"_s + Artikel + u"'"_s);
        if (m_mittel->NoMatch())
            return Umbruch + u"Das Pflanzenschutzmittel "_s + Artikel +
                   u" wurde in der Pflanzenschutzmitteldatenbank nicht gefunden. Es kann nicht überprüft "
                   u"werden und ist"
                   u" wahrscheinlich nicht mehr zugelassen."_s;
        if (!wirdGeprueft((*m_mittel)[u"Gruppe"].toText())) return {};
        const QString eintrag = eintragIn(*m_register, Artikel);
        if (eintrag.isEmpty())
            return warnung(Artikel, u"nicht gefunden. Es ist wahrscheinlich nicht mehr zugelassen."_s);
        m_befristete->FindFirst(eintrag);
        if (m_befristete->NoMatch())
            return Umbruch + u"Das Pflanzenschutzmittel "_s + Artikel +
                   u" wurde in der Registerdatenbank gefunden und ist zugelassen."_s;
        const QDate frist = (*m_befristete)[u"Aufbrauchsfrist"].toDate();
        const QString tag = frist.toString(u"dd.MM.yyyy"_s);
        return warnung(Artikel, frist < m_jahresende
                                    ? u"gefunden. Es ist am "_s + tag + u" ausgelaufen!"_s
                                    : u"gefunden. Es muss bis "_s + tag + u" verbraucht werden."_s);
    }

private:
    /// The criterion by which the register has the product, by its present number or its former one; empty:
    /// it has not.
    QString eintragIn(jet::Recordset& zeilen, const QString& Artikel) const
    {
        const QString nummer = (*m_mittel)[u"Regnr"].toText();
        for (const QString& spalte : {u"Regnr"_s, u"RegNrAlt"_s}) {
            QString kriterium = spalte + u" = '"_s + nummer + u"' AND lcase(trim(BEZEICHNUNG)) = '"_s +
                                kurzname(Artikel).toLower() + u"'"_s;
            zeilen.FindFirst(kriterium);
            if (!zeilen.NoMatch()) return kriterium;
        }
        return {};
    }

    static QString warnung(const QString& Artikel, const QString& befund)
    {
        return Trennlinie + Umbruch + u"VORSICHT: Das Pflanzenschutzmittel "_s + Artikel +
               u" wurde in der Registerdatenbank "_s + befund + Trennlinie;
    }

    std::unique_ptr<jet::Recordset> m_mittel, m_register, m_befristete;
    QDate m_jahresende;
};

} // namespace

std::optional<QString> registerpruefung(const jet::Recordset& bestand, jet::Database& stamm, int Jahr)
{
    Pruefung pruefung(stamm, Jahr);
    const std::size_t Artikel = bestand.PlaceOf(u"Artikel").value();
    const std::size_t Artikelart = bestand.PlaceOf(u"Artikelart").value();
    QString text;
    for (qsizetype i = 0; i < bestand.RecordCount(); ++i) {
        const auto zeile = bestand.RowAt(i);
        if (!zeile || (*zeile)[Artikelart].toText().compare(Pflanzenschutzmittel, Qt::CaseInsensitive) != 0)
            continue;
        const QString artikel = (*zeile)[Artikel].toText();
        // What could not be looked up must not pass for harmless.
        QString satz =
            Umbruch + u"Das Pflanzenschutzmittel "_s + artikel + u" konnte nicht überprüft werden."_s;
        if (sys::underErrorReport({[&] { satz = pruefung.text(artikel); }}) == sys::Outcome::Left) return {};
        text += satz;
    }
    return sys::trimBlanks(text).isEmpty() ? u"Keine abgelaufenen Pflanzenschutzmittel gefunden."_s : text;
}
