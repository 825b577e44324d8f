#include "core/farm/pruefung/Namen.h"

#include "core/farm/Artikelarten.h"
#include "core/farm/Namenswarnung.h"

#include <set>

using namespace Qt::StringLiterals;

namespace {

Textnummern texte(jet::Database& datei, const QString& abfrage)
{
    Textnummern alle;
    const auto zeilen = datei.OpenRecordset(abfrage, jet::Kind::Snapshot);
    for (; !zeilen->Eof(); zeilen->MoveNext())
        alle.nummer((*zeilen)[0].toText());
    return alle;
}

} // namespace

Stammnamen::Stammnamen(jet::Database* grundstamm, jet::Database* anlagen)
    : m_kenntArtikel(grundstamm), m_kenntOrte(anlagen)
{
    if (grundstamm)
        for (const Artikelart& art : artikelarten())
            m_artikel[art.name] = texte(*grundstamm, u"SELECT NAME FROM "_s + art.tabelle.toString());
    if (anlagen) m_orte = texte(*anlagen, u"SELECT KurzKu FROM Objekte"_s);
}

bool Stammnamen::kennt(QStringView art, const QString& artikel) const
{
    const Artikelart* bekannte = artikelartZu(art);
    return bekannte && m_artikel.at(bekannte->name).bekannt(artikel);
}

void Stammnamen::pruefe(const Journalzeilen& journal, Befunde& befunde) const
{
    const QString abhilfe = u"in 'Artikel und Lagerorte' aufnehmen oder die Buchungen ändern"_s;
    std::set<std::pair<int, int>> artikel;
    std::set<int> orte;
    for (const Journalzeile& zeile : journal.zeilen) {
        const QString& name = journal.texte.text(zeile.artikel);
        const QString& art = journal.texte.text(zeile.art);
        const QString& ort = journal.texte.text(zeile.ort);
        if (m_kenntOrte && orte.insert(zeile.ort).second && !m_orte.bekannt(ort))
            befunde.nenne(Befundart::UnbekannterLagerort,
                          u"Den Lagerort '"_s + ort + u"' gibt es in den Stammdaten nicht."_s, abhilfe,
                          zeile.ID);
        if (m_kenntArtikel && artikel.insert({zeile.artikel, zeile.art}).second && !kennt(art, name))
            befunde.nenne(Befundart::UnbekannterArtikel,
                          u"Den Artikel '"_s + name + u"' gibt es unter '"_s + art +
                              u"' in den Stammdaten nicht."_s,
                          abhilfe, zeile.ID);
    }
    pruefeNamen(journal, befunde);
}

void Stammnamen::pruefeNamen(const Journalzeilen& journal, Befunde& befunde) const
{
    std::set<int> geprueft{0};
    for (const Journalzeile& zeile : journal.zeilen) {
        if (geprueft.insert(zeile.artikel).second)
            if (const QString text = artikelwarnung(journal.texte.text(zeile.artikel)); !text.isEmpty())
                befunde.nenne(Befundart::Name, text, {}, zeile.ID);
        for (const int name : {zeile.ort, zeile.empfaenger})
            if (geprueft.insert(name).second)
                if (const QString text = namenswarnung(journal.texte.text(name)); !text.isEmpty())
                    befunde.nenne(Befundart::Name, text, {}, zeile.ID);
    }
}
