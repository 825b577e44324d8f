#include "tests/core/CsvTabelle.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

CsvTabelle::CsvTabelle(const QString& datei)
{
    m_entpacker.start(u"xz"_s, {u"-dcf"_s, datei}); // copies what is not packed
    EXPECT_TRUE(naechste()) << datei.toStdString() << " has no header";
    for (const QString& spalte : m_felder)
        m_spalten.insert(spalte, m_spalten.size());
}

bool CsvTabelle::naechste()
{
    while (!m_entpacker.canReadLine() && m_entpacker.waitForReadyRead(-1)) {
    }
    const QString zeile = QString::fromUtf8(m_entpacker.readLine()).trimmed();
    if (zeile.isEmpty()) {
        m_entpacker.waitForFinished(-1);
        EXPECT_EQ(m_entpacker.exitCode(), 0) << m_entpacker.readAllStandardError().toStdString();
        return false;
    }
    m_felder.clear();
    bool gequotet = false;
    for (const QString& stueck : zeile.split(u',')) { // of a field in quotes, or all of one
        gequotet ? m_felder.last() += u',' + stueck : m_felder.emplace_back(stueck);
        if (stueck.count(u'"') % 2 != 0) gequotet = !gequotet;
    }
    m_felder.replaceInStrings(u"\""_s, QString());
    EXPECT_TRUE(m_spalten.isEmpty() || m_felder.size() == m_spalten.size()) << zeile.toStdString();
    return true;
}
