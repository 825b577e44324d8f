#include "host/Ausgabe.h"

#include <zablager/FileError.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

QString datumIso(const QDateTime& zeitpunkt)
{
    const bool nurTag = zeitpunkt.time() == QTime(0, 0);
    return nurTag ? zeitpunkt.date().toString(Qt::ISODate) : zeitpunkt.toString(u"yyyy-MM-ddTHH:mm:ss"_s);
}

QString maskiert(QString text)
{
    return text.replace(u'\\', u"\\\\"_s)
        .replace(u'\t', u"\\t"_s)
        .replace(u'\n', u"\\n"_s)
        .replace(u'\r', u"\\r"_s);
}

QString zellText(const jet::Value& wert)
{
    switch (wert.type()) {
    case jet::Type::Null: return {};
    case jet::Type::Boolean: return wert.toBool() ? u"-1"_s : u"0"_s;
    case jet::Type::Double: return zahlText(wert.toDouble());
    case jet::Type::Date: return datumIso(wert.toDateTime());
    default: return maskiert(wert.toText());
    }
}

QJsonValue jsonWert(const jet::Value& wert)
{
    switch (wert.type()) {
    case jet::Type::Null: return QJsonValue::Null;
    case jet::Type::Boolean: return wert.toBool();
    case jet::Type::Long: return wert.toLong();
    case jet::Type::Double: return wert.toDouble();
    case jet::Type::Date: return datumIso(wert.toDateTime());
    default: return wert.toText();
    }
}

/// QJsonObject would sort the columns, so each name and value is written by itself.
QString json(const QJsonValue& wert)
{
    const QByteArray liste = QJsonDocument(QJsonArray{wert}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(liste.mid(1, liste.size() - 2));
}

} // namespace

void schreibe(std::FILE* ziel, const QString& text)
{
    const QByteArray zeile = (text + u'\n').toUtf8();
    const auto laenge = static_cast<std::size_t>(zeile.size());
    if (std::fwrite(zeile.constData(), 1, laenge, ziel) == laenge && std::fflush(ziel) == 0) return;
    if (ziel == stdout)
        throw sys::FileError(sys::FileErrorNumber::DiskFull, u"Die Ausgabe lässt sich nicht schreiben."_s);
}

QString zahlText(double zahl)
{
    return QString::number(zahl, 'f', QLocale::FloatingPointShortest);
}

void schreibeTabelle(QTextStream& ziel, jet::Recordset& zeilen)
{
    QStringList zellen;
    for (const jet::Field& spalte : zeilen.Fields())
        zellen.append(maskiert(spalte.name));
    ziel << zellen.join(u'\t') << '\n';
    for (; !zeilen.Eof(); zeilen.MoveNext()) {
        for (qsizetype i = 0; i < zellen.size(); ++i)
            zellen[i] = zellText(zeilen[i]);
        ziel << zellen.join(u'\t') << '\n';
    }
}

void schreibeJson(QTextStream& ziel, jet::Recordset& zeilen)
{
    QStringList namen;
    for (const jet::Field& spalte : zeilen.Fields())
        namen.append(json(spalte.name));
    for (; !zeilen.Eof(); zeilen.MoveNext()) {
        QStringList paare;
        for (qsizetype i = 0; i < namen.size(); ++i)
            paare.append(namen[i] + u':' + json(jsonWert(zeilen[i])));
        ziel << '{' << paare.join(u',') << "}\n";
    }
}
