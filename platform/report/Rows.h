#pragma once

#include "platform/report/Tables.h"
#include "platform/report/Totals.h"

#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace report {

/// The rows of a report in their order, read one after the other, and the values of all that its form refers
/// to.
class Rows {
public:
    /// Binds all references of the form; a group that is not formed is taken out of it.
    /// \throws jet::Error when something is missing, broken or cannot be sorted by.
    Rows(Form& form, const Job& job);

    bool next();                             ///< False: there is no further row.
    const Row& row() const { return m_row; } ///< The one that next() found.
    qsizetype done() const { return m_position; }
    qsizetype count() const; ///< Of all rows, those that are left out included.

private:
    struct Column {
        QString name; // in lower case
        QString expression;
    };
    void bindFormulas();
    void bindSummary();
    void bindGroups();
    void bind(const std::vector<Reference*>& references);
    void bind(Reference& reference);
    const Operand& formula(const QString& name) const;
    void checkComputed() const;
    /// The expression of a name in the table; empty: the rows do not have it.
    QString expressionOf(const QString& column) const;
    bool isHiddenKey(const QString& column) const;
    int select(const QString& column);
    void sortBy(const QString& expression, bool descending);
    void sortByField(const QString& field);
    QString statement() const;
    void sumUp();
    void readOn();

    struct Stretch {
        qsizetype from = 0;
        std::vector<std::optional<Row>> rows;
    };

    Form& m_form;
    Tables m_tables;
    Condition m_selection;
    std::vector<Column> m_columns;
    QStringList m_keys; // expressions of the summary, where there is one
    QStringList m_order;
    QStringList m_sorted; // expressions that m_order has already
    std::unique_ptr<jet::Recordset> m_rows;
    qsizetype m_position = 0;
    Stretch m_read; // of the rows; what was taken of it is empty
    Row m_row;
};

} // namespace report
