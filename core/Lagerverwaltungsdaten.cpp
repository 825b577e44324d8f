#include "core/Lagerverwaltungsdaten.h"

Lagerverwaltungsdaten::Lagerverwaltungsdaten(Anschluesse anschluesse)
    : SpaeteBindung(static_cast<Lagerverwaltung&>(*this)),
      Lagerverwaltung(std::move(anschluesse),
                      {[this] { beginneAufruf(); }, [this](const QString& meldung) { hinterlasse(meldung); }})
{}
