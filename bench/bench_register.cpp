// The check of a year's plant-protection products against a large register.

#include "bench/Messbetrieb.h"
#include "bench/Messung.h"

#include "overview/Registerpruefung.h"
#include "platform/jet/Engine.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr double Sekunde = 1000; // ms

QString name(int nummer)
{
    return u"Mittel "_s + QString::number(nummer);
}

/// A register of as many entries as the journal has rows; every fifth has a last day of use.
void fuelleRegister(jet::Database& stamm, int eintraege, int produkte)
{
    stamm.BeginTrans();
    const auto register_ = stamm.OpenRecordset(u"REGISTER"_s);
    for (int i = 0; i < eintraege; ++i) {
        register_->AddNew();
        register_->Set(u"Regnr", QString::number(i));
        register_->Set(u"RegNrAlt", QString::number(i + eintraege));
        register_->Set(u"BEZEICHNUNG", name(i));
        if (i % 5 == 0) register_->Set(u"Aufbrauchsfrist", QDate(Messbetrieb::ErstesJahr, 6, 30));
        register_->Update();
    }
    const auto mittel = stamm.OpenRecordset(u"PFLANZENSCHUTZMITTEL"_s);
    for (int i = 0; i < produkte; ++i) {
        mittel->AddNew();
        mittel->Set(u"NAME", name(i * (eintraege / produkte)));
        mittel->Set(u"Gruppe", u"Herbizid"_s);
        // By its present number, by its former one, or not at all.
        const int nummer = i * (eintraege / produkte) + (i % 3 == 1 ? eintraege : i % 3 == 2 ? -1 : 0);
        mittel->Set(u"Regnr", QString::number(nummer));
        mittel->Update();
    }
    stamm.CommitTrans();
}

void messeRegister(const Umfang& umfang)
{
    const Messbetrieb betrieb(umfang.paare, umfang.paare);
    const auto stamm =
        jet::engine().OpenDatabase(betrieb.stammdaten(Messbetrieb::ErstesJahr), u";pwd=RT-58KX"_s);
    fuelleRegister(*stamm, umfang.zeilen, umfang.paare);
    const auto bestand = stamm->OpenRecordset(
        u"SELECT NAME AS Artikel, 'Pflanzenschutzmittel' AS Artikelart FROM PFLANZENSCHUTZMITTEL"_s,
        jet::Kind::Snapshot);
    const auto pruefe = [&] { return registerpruefung(*bestand, *stamm, Messbetrieb::ErstesJahr); };
    const QString text = pruefe().value();
    fordere(text.count(u"zugelassen"_s) + text.count(u"ausgelaufen"_s) == umfang.paare,
            u"the check is another one"_s);
    missEinzeln(u"Check of "_s + QString::number(umfang.paare) + u" products, register of "_s +
                    QString::number(umfang.zeilen) + u" entries"_s,
                Sekunde, umfang.runden, [&](int) { pruefe(); });
}

} // namespace

int main(int argc, char** argv)
{
    return messe(argc, argv, {10'000, 200, 10}, {100'000, 200, 5}, messeRegister);
}
