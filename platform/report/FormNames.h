#pragma once

#include "platform/report/Form.h"

namespace report {

/// Which totals mean something at a place of the form: a head stands before the rows that a running one would
/// add up, and what says which rows there are knows no sum of them.
enum class TotalsAllowed { No, OfTheWhole, Yes };

/// Checks what a form's references name against what the form has said so far: its formulas, its table, its
/// lookups.
class FormNames {
public:
    explicit FormNames(const Form& form) : m_form(form) {} ///< The form must outlive this.

    /// Reads a condition whose names are all known. \throws jet::Error InvalidArgument at the place; so do
    /// all.
    Condition condition(const QString& text, const Place& place, TotalsAllowed totals) const;
    void check(Operand& operand, TotalsAllowed totals) const;
    void check(Template& text, TotalsAllowed totals) const;

    bool isLookup(const QString& table) const;

private:
    void check(const std::vector<Reference*>& references, TotalsAllowed totals) const;
    void check(const Reference& reference, TotalsAllowed totals) const;
    bool isFormula(const QString& name) const;

    const Form& m_form;
};

} // namespace report
