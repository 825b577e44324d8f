#include "core/farm/uebernahme/Zellen.h"

#include "platform/jet/Conversion.h"

#include <zablager/DatabaseError.h>

#include <cmath>

using namespace Qt::StringLiterals;
using oldfile::Type;

namespace {

constexpr int LaengsterText = 255;                // letters that a column can be grouped and sorted by
constexpr qint64 GenaueZahlen = 9007199254740992; // 2^53; above, a double does not hold each whole number

template <class... Rufe>
struct Wahl : Rufe... {
    using Rufe::operator()...;
};
template <class... Rufe>
Wahl(Rufe...) -> Wahl<Rufe...>;

Zelle verloren(const QString& grund)
{
    return {{}, grund};
}

Zelle zahl(double wert)
{
    if (!std::isfinite(wert)) return verloren(u"keine endliche Zahl"_s);
    return {wert, {}};
}

Zelle betrag(oldfile::Currency wert)
{
    if (std::abs(wert.tenThousandths) > GenaueZahlen) return verloren(u"Betrag mit zu vielen Stellen"_s);
    return {static_cast<double>(wert.tenThousandths) / 10000, {}};
}

Zelle dezimal(const oldfile::Decimal& wert)
{
    const double genaehert = wert.digits.toDouble();
    const auto nachkomma =
        wert.digits.contains(u'.') ? wert.digits.size() - 1 - wert.digits.indexOf(u'.') : 0;
    if (QString::number(genaehert, 'f', static_cast<int>(nachkomma)) != wert.digits)
        return verloren(u"Dezimalzahl mit zu vielen Stellen"_s);
    return {genaehert, {}};
}

Zelle zeitpunkt(oldfile::DayNumber wert)
{
    if (!std::isfinite(wert.days)) return verloren(u"kein Datum"_s);
    const double sekunden = std::abs(wert.days - std::trunc(wert.days)) * 86400;
    constexpr double Rundung = 0.001; // seconds; files hold whole ones, and days do not divide into them
    if (std::abs(sekunden - std::round(sekunden)) > Rundung) return verloren(u"Bruchteile einer Sekunde"_s);
    try {
        return {jet::fromDayNumber(wert.days), {}};
    } catch (const jet::Error&) {
        return verloren(u"Datum außerhalb des Kalenders"_s);
    }
}

Zelle text(const QString& wert, const jet::Field& ziel)
{
    if (wert.contains(QChar::Null)) return verloren(u"Text mit dem Zeichen 0"_s);
    if (ziel.type == jet::Type::Text && wert.size() > LaengsterText)
        return verloren(u"Text mit mehr als 255 Zeichen"_s);
    return {wert, {}};
}

QByteArray nummer(double wert)
{
    return wert == 0 ? "0" : QByteArray::number(wert, 'g', 17); // 0 has no sign here
}

QByteArray zeitform(const QDateTime& zeit)
{
    return zeit.toString(u"yyyyMMddHHmmss").toLatin1();
}

/// By whole days and seconds.
QByteArray zeitform(double tage)
{
    const double tag = std::trunc(tage);
    const auto sekunden = std::llround(std::abs(tage - tag) * 86400);
    return zeitform(QDateTime(QDate(1899, 12, 30).addDays(static_cast<qint64>(tag)), QTime(0, 0), Qt::UTC)
                        .addSecs(sekunden));
}

QByteArray ohneNullen(QByteArray zahl)
{
    if (!zahl.contains('.')) return zahl;
    while (zahl.endsWith('0'))
        zahl.chop(1);
    if (zahl.endsWith('.')) zahl.chop(1);
    return zahl;
}

} // namespace

Zelle umgesetzt(const oldfile::Cell& alt, const jet::Field& ziel)
{
    Zelle zelle = std::visit(
        Wahl{[](std::monostate) { return Zelle(); },
             [](bool wert) {
                 return Zelle{wert, {}};
             },
             [](qint64 wert) {
                 return Zelle{wert, {}};
             },
             [](double wert) { return zahl(wert); }, [](oldfile::Currency wert) { return betrag(wert); },
             [](oldfile::DayNumber wert) { return zeitpunkt(wert); },
             [&](const QString& wert) { return text(wert, ziel); },
             [](const oldfile::Decimal& wert) { return dezimal(wert); },
             [](const oldfile::Garbled&) { return verloren(u"Zeichen, die sich nicht lesen lassen"_s); },
             [](const oldfile::Bytes&) { return verloren(u"ein Objekt oder Binärdaten"_s); }},
        alt);
    try {
        if (zelle.verlust.isEmpty()) jet::convert(zelle.wert, ziel.type);
    } catch (const jet::Error& fehler) {
        return verloren(fehler.text());
    }
    return zelle;
}

bool hatGegenstueck(Type art)
{
    return art != Type::Binary && art != Type::Object && art != Type::Guid;
}

QString spaltentyp(const oldfile::Column& spalte)
{
    switch (spalte.type) {
    case Type::YesNo: return u"YESNO"_s;
    case Type::Byte:
    case Type::Integer:
    case Type::Long: return u"LONG"_s;
    case Type::Date: return u"DATETIME"_s;
    case Type::Text: return u"TEXT("_s + QString::number(qBound(1, spalte.size, LaengsterText)) + u')';
    case Type::Memo: return u"MEMO"_s;
    default: return u"DOUBLE"_s;
    }
}

QByteArray gleichform(const oldfile::Cell& alt)
{
    return std::visit(
        Wahl{[](std::monostate) { return QByteArray(); },
             [](bool wert) { return QByteArray(wert ? "w1" : "w0"); },
             [](qint64 wert) { return 'z' + nummer(static_cast<double>(wert)); },
             [](double wert) { return 'z' + nummer(wert); },
             [](oldfile::Currency wert) {
                 QByteArray ziffern =
                     QByteArray::number(std::abs(wert.tenThousandths)).rightJustified(5, '0');
                 ziffern.insert(ziffern.size() - 4, '.');
                 return (wert.tenThousandths < 0 ? "z-" : "z") + ohneNullen(ziffern);
             },
             [](oldfile::DayNumber wert) { return 'd' + zeitform(wert.days); },
             [](const QString& wert) { return 't' + wert.toUtf8(); },
             [](const oldfile::Decimal& wert) { return 'z' + ohneNullen(wert.digits.toLatin1()); },
             [](const oldfile::Garbled&) { return QByteArray(); },
             [](const oldfile::Bytes&) { return QByteArray(); }},
        alt);
}

QByteArray gleichform(const jet::Value& neu, const oldfile::Column& alt)
{
    if (neu.isNull()) return {};
    switch (alt.type) {
    case Type::YesNo: return neu.toBool() ? "w1" : "w0";
    case Type::Currency: return 'z' + ohneNullen(QByteArray::number(neu.toDouble(), 'f', 4));
    case Type::Decimal: return 'z' + ohneNullen(QByteArray::number(neu.toDouble(), 'f', alt.scale));
    case Type::Date: return 'd' + zeitform(neu.toDateTime());
    case Type::Text:
    case Type::Memo: return 't' + neu.toText().toUtf8();
    default: return 'z' + nummer(neu.toDouble());
    }
}
