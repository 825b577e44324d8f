#include "host/demo/Tabelle.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

Tabelle tabelle(const QString& name)
{
    QFile quelle(u":/demo/"_s + name + u".csv"_s);
    const bool geoeffnet = quelle.open(QIODevice::ReadOnly);
    Q_ASSERT(geoeffnet);
    QStringList zeilen = QString::fromUtf8(quelle.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList spalten = zeilen.takeFirst().split(u';');

    Tabelle ergebnis;
    for (const QString& zeile : zeilen) {
        const QStringList zellen = zeile.split(u';');
        Q_ASSERT(zellen.size() == spalten.size());
        QHash<QString, QString>& neu = ergebnis.emplace_back();
        for (qsizetype i = 0; i < spalten.size(); ++i)
            neu.insert(spalten[i], zellen[i]);
    }
    return ergebnis;
}

qint64 hundertstel(const QString& text)
{
    return qRound64(text.toDouble() * 100);
}

bool istJa(const QString& text)
{
    Q_ASSERT(text == u"Ja"_s || text == u"Nein"_s);
    return text == u"Ja"_s;
}
