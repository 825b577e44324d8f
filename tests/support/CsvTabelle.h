#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/// The contents of a file, unpacked where its name ends in ".xz". \throws std::runtime_error when it cannot be read.
QByteArray dateiinhalt(const QString& name);

/// A table of commas with a header line, row after row:  for (CsvTabelle tabelle(csv); tabelle.naechste();) ...
///
/// A field in double quotes may hold commas, but no quotes and no line breaks.
class CsvTabelle {
public:
    explicit CsvTabelle(const QByteArray& csv);

    bool naechste(); ///< \throws std::runtime_error when the row has another number of fields than the header.
    QByteArray feld(const QByteArray& spalte) const;
    double zahl(const QByteArray& spalte) const;

private:
    QList<QByteArray> m_zeilen;
    QList<QByteArray> m_felder;
    QHash<QByteArray, qsizetype> m_spalten;
    qsizetype m_nummer = 0;
};
