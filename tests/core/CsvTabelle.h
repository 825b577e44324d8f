#pragma once

#include <QHash>
#include <QProcess>
#include <QStringList>

/// A table of commas with a header line, packed by xz or not, row after row:
/// for (CsvTabelle tabelle(datei); tabelle.naechste();) ... A field in double quotes may hold commas, but no
/// quotes and no line breaks. What cannot be read is a failure of the test.
class CsvTabelle {
public:
    explicit CsvTabelle(const QString& datei);
    bool naechste();
    QString feld(const QString& spalte) const { return m_felder.value(m_spalten.value(spalte, -1)); }
    double zahl(const QString& spalte) const { return feld(spalte).toDouble(); }

private:
    QProcess m_entpacker;
    QHash<QString, qsizetype> m_spalten;
    QStringList m_felder;
};
