#include "host/Staende.h"

#include "host/Aufruffehler.h"
#include "host/Befehl.h"

#include <zablager/FileError.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString Form = u"d.M.yyyy hh:mm:ss"_s;

} // namespace

QString standtext(const Sicherung& sicherung)
{
    return sicherung.stand.toString(u"dd.MM.yyyy hh:mm:ss"_s);
}

std::map<int, Sicherung> staende(const Installation& ort, const QString& betrieb, const QString& stand,
                                 std::optional<int> jahr)
{
    const QDateTime genau = QDateTime::fromString(stand, Form);
    const QDate tag = genau.isValid() ? genau.date() : datum(stand);
    std::map<int, Sicherung> gewaehlte;
    QStringList vorhandene;
    for (const int dieses : gesicherteJahre(ort.betriebsordner(betrieb))) {
        if (jahr && *jahr != dieses) continue;
        for (const Sicherung& eine : sicherungen(ort.journaldatei(betrieb, dieses))) {
            vorhandene.append(QString::number(dieses) + u" vom "_s + standtext(eine));
            const bool gemeint = genau.isValid() ? eine.stand == genau : eine.stand.date() == tag;
            if (gemeint) gewaehlte.try_emplace(dieses, eine);
        }
    }
    if (!gewaehlte.empty()) return gewaehlte;
    throw sys::FileError(sys::FileErrorNumber::FileNotFound,
                         u"Eine Sicherung vom "_s + stand + u" gibt es nicht. Vorhanden: "_s +
                             (vorhandene.isEmpty() ? u"keine"_s : vorhandene.join(u", "_s)));
}
