#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// A table as spreadsheet programs write it: cells between commas or semicolons, in quotes where they hold
/// such or a line break, the first line the titles.
struct Csv {
    struct Zeile {
        int nummer;         ///< In the file, from 1; the titles are in line 1.
        QStringList zellen; ///< As many as there are titles.
    };
    QString zeichensatz; ///< "UTF-8" or "Windows-1252".
    QChar trenner;
    QStringList titel;
    std::vector<Zeile> zeilen;
};

/// Recognises encoding and separator. \throws jet::Error InvalidArgument that names the line which has no
/// end or another number of cells.
Csv liesCsv(const QByteArray& bytes);
/// In UTF-8 with a mark, which spreadsheet programs know it by, with semicolons.
QByteArray alsCsv(const QStringList& titel, const std::vector<QStringList>& zeilen);

/// How the numbers of a file are written, known from all of them.
class Zahlform {
public:
    /// "1.234,5" where one of them has a comma, or none tells; "1234.5" where a point stands before other
    /// than three digits.
    explicit Zahlform(const QStringList& zahlen);
    bool istDeutsch() const { return m_deutsch; }
    std::optional<double> gelesen(const QString& zahl) const;

private:
    bool m_deutsch = true;
};
