#pragma once

#include "core/farm/stammdaten/Stammliste.h"
#include "platform/jet/Database.h"

#include <QAbstractTableModel>

#include <memory>
#include <optional>

/// The rows of a table of the master data, to be changed where they stand, and an empty one below them for
/// what is new. Each cell is written when it is left; rows are blocked, never deleted. The last column is
/// the block.
///
/// A name that a journal holds stays, whatever farm's it is: see verwendung(). What is refused is told in
/// a box, and the cell keeps what it had.
class Stammdatenmodell : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;
    ~Stammdatenmodell() override;

    /// \throws jet::Error; no row is shown then.
    void zeige(const Stammliste& liste);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int abschnitt, Qt::Orientation richtung, int rolle) const override;
    Qt::ItemFlags flags(const QModelIndex& zelle) const override;
    QVariant data(const QModelIndex& zelle, int rolle) const override;
    bool setData(const QModelIndex& zelle, const QVariant& wert, int rolle) override;

    int laenge(const QModelIndex& zelle) const; ///< Most letters of a text; 0: any number.

private:
    using Zeile = std::vector<jet::Value>;

    const Zeile& zeile(int platz) const { return m_werte[static_cast<std::size_t>(platz)]; }
    Zeile gelesen(qsizetype platz) const;
    bool istNeue(const QModelIndex& zelle) const { return zelle.row() == rowCount() - 1; }
    bool istSperre(const QModelIndex& zelle) const { return zelle.column() == columnCount() - 1; }
    std::size_t platzVon(QStringView feld) const;
    QStringView feld(const QModelIndex& zelle) const;
    QString name(const Zeile& zeile) const;
    QString text(const QModelIndex& zelle) const;
    void schreibe(const QModelIndex& zelle, const jet::Value& wert);
    void warne(const QString& name) const;
    /// Why the row cannot be called so from now on; empty: it can.
    QString einwand(int platz, const Zeile& vorher, const Zeile& nachher) const;

    Stammliste m_liste;
    std::unique_ptr<jet::Database> m_datei;
    std::unique_ptr<jet::Recordset> m_zeilen; // null: none are shown
    std::vector<Zeile> m_werte;               // painting a cell must not fail
};
