#include "tests/support/CsvTabelle.h"

#include <QFile>
#include <QProcess>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QByteArray entpackt(const QString& name)
{
    QProcess xz;
    xz.start(u"xz"_s, {u"-dc"_s, name});
    if (!xz.waitForFinished(-1) || xz.exitStatus() != QProcess::NormalExit || xz.exitCode() != 0)
        throw std::runtime_error(name.toStdString() +
                                 " cannot be unpacked: " + xz.readAllStandardError().toStdString());
    return xz.readAllStandardOutput();
}

QList<QByteArray> felder(const QByteArray& zeile)
{
    if (!zeile.contains('"')) return zeile.split(',');
    QList<QByteArray> alle(1);
    bool gequotet = false;
    for (const char zeichen : zeile) {
        if (zeichen == '"')
            gequotet = !gequotet;
        else if (zeichen == ',' && !gequotet)
            alle.emplaceBack();
        else
            alle.back().append(zeichen);
    }
    return alle;
}

} // namespace

QByteArray dateiinhalt(const QString& name)
{
    if (name.endsWith(u".xz")) return entpackt(name);
    QFile datei(name);
    if (!datei.open(QIODevice::ReadOnly)) throw std::runtime_error(name.toStdString() + " cannot be read");
    return datei.readAll();
}

CsvTabelle::CsvTabelle(const QByteArray& csv) : m_zeilen(csv.split('\n'))
{
    const auto kopf = felder(m_zeilen.takeFirst());
    for (qsizetype i = 0; i < kopf.size(); ++i)
        m_spalten.insert(kopf[i], i);
}

bool CsvTabelle::naechste()
{
    if (m_nummer >= m_zeilen.size() || m_zeilen[m_nummer].isEmpty()) return false;
    m_felder = felder(m_zeilen[m_nummer++]);
    if (m_felder.size() != m_spalten.size())
        throw std::runtime_error("row " + std::to_string(m_nummer) + " of the table has another number of fields");
    return true;
}

QByteArray CsvTabelle::feld(const QByteArray& spalte) const
{
    const auto stelle = m_spalten.constFind(spalte);
    if (stelle == m_spalten.constEnd()) throw std::runtime_error("the table lacks the column " + spalte.toStdString());
    return m_felder[*stelle];
}

double CsvTabelle::zahl(const QByteArray& spalte) const
{
    bool gueltig = false;
    const double zahl = feld(spalte).toDouble(&gueltig);
    if (!gueltig) throw std::runtime_error("no number: " + feld(spalte).toStdString());
    return zahl;
}
