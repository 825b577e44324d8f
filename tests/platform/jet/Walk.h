#pragma once

#include "platform/jet/Engine.h"

#include <memory>

/// A recordset that a test file walks through. Beside its own calls, such as "Set Menge = 5", it knows
///
///   Put F = value     Edit, Set and Update; answers what the field then holds
///   Mark, Back        keeps the current row's bookmark, goes back to it
///   BackToModified    goes to the row that was written last
///   Row 2             answers the row at that place, "gone" where there is none any more
///   From 2 criterion  answers the place that FindFrom finds
///   Count, Place      answer RecordCount and AbsolutePosition
///   elsewhere SQL     executes a statement as another program would
///   Close             closes the database
class Walk {
public:
    Walk(jet::Database& database, const QString& kind, const QString& source);

    /// Does calls that stand with "; " between them. \returns the answer of the last one or, where it has none, the row
    /// that is current then, "Bof", "Eof" or both; a refusal as "!" with number and text.
    QString run(const QString& calls);

private:
    QString call(const QString& name, const QString& argument);
    QString answered(const QString& name, const QString& argument);
    void put(const QString& field, const QString& value);
    QString standing() const;

    jet::Database& m_database;
    jet::Engine m_other;
    std::unique_ptr<jet::Recordset> m_rows;
    jet::Bookmark m_mark;
};
