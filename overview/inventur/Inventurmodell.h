#pragma once

#include "core/inventur/Zaehlliste.h"

#include <QAbstractTableModel>

#include <functional>
#include <set>
#include <vector>

/// The lines of a count, those of the chosen places and kinds, to be counted in their cells.
class Inventurmodell : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Spalte {
        Artikel,
        Lagerort,
        Artikelgruppe,
        Buchbestand,
        Einheit,
        LetzteZaehlung,
        Gezaehlt,
        Differenz,
        Hinweis
    };

    inline static const QString Mengenformat = QStringLiteral("##,##0.00##");

    /// `merke` keeps a count where it survives the program. What it throws is reported, and the cell keeps
    /// what it had.
    using Merke = std::function<void(const Paar& paar, std::optional<double> gezaehlt)>;
    Inventurmodell(Merke merke, QObject* parent) : QAbstractTableModel(parent), m_merke(std::move(merke)) {}

    void setze(std::vector<Zaehlzeile> zeilen);
    void grenzeEin(const QString& lagerort, const QString& artikelgruppe); ///< Empty: all of them.
    /// Marks lines whose stock is another one than that the count was made on.
    void markiere(const std::vector<Zaehlzeile>& geaendert);
    const std::vector<Zaehlzeile>& zeilen() const { return m_zeilen; } ///< All, shown or not.
    std::vector<Zaehlzeile> gezeigte() const;
    int gezaehlte() const; ///< Of them.

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override;
    Qt::ItemFlags flags(const QModelIndex& zelle) const override;
    QVariant data(const QModelIndex& zelle, int rolle) const override;
    bool setData(const QModelIndex& zelle, const QVariant& wert, int rolle) override;

private:
    const Zaehlzeile& zeile(const QModelIndex& zelle) const;
    QString text(const QModelIndex& zelle) const;
    QString hinweis(const Zaehlzeile& zeile) const;

    Merke m_merke;
    std::vector<Zaehlzeile> m_zeilen;
    std::vector<std::size_t> m_gezeigte; // of them
    std::set<Paar> m_geaendert;
};
