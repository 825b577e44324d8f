#pragma once

#include "platform/jet/Database.h"
#include "platform/report/Form.h"
#include "platform/report/Job.h"

#include <QHash>
#include <QSet>

#include <memory>

namespace report {

/// The tables that a form draws on, looked up in the job's data files.
class Tables {
public:
    /// \throws jet::Error when a file, table or column is missing, naming it.
    Tables(const Form& form, const Job& job);

    jet::Database& rows() const { return *m_rows; } ///< The file that has the table of the rows.
    bool has(const QString& column) const { return m_columns.contains(column.toLower()); }
    /// \throws jet::Error NoSuchField when the table of the rows has no such column.
    void require(const QString& column) const;

    bool isLookup(const QString& table) const { return m_lookups.contains(table.toLower()); }
    /// A column of a lookup's row; NULL where there is no such row. \throws jet::Error NoSuchField.
    jet::Value lookUp(const QString& table, const QString& column) const;

private:
    std::unique_ptr<jet::Database> open(const Job& job, int index) const;
    void readLookup(const Lookup& lookup, jet::Database& file);
    std::unique_ptr<jet::Recordset> first(jet::Database& file, const QString& table,
                                          const QString& where = {}) const;
    [[noreturn]] void refuseColumn(const QString& table, const QString& column) const;

    QString m_form;
    QString m_table;
    std::unique_ptr<jet::Database> m_rows;
    QSet<QString> m_columns; // all names in lower case
    QHash<QString, QHash<QString, jet::Value>> m_lookups;
};

} // namespace report
