#pragma once

#include <QString>

/// The database's literal for a date text: "05.03.2024" becomes "#03/05/2024#".
///
/// Day, month and year are cut out by their places, so day and month need two digits.
QString SQLDatum(const QString& datum);

/// The surgery on record sources looks for the letters "where" and "order" wherever they stand, values
/// included: an article such as "Vorderachsöl" is cut too, and the database then refuses the text.

QString SQLVorWhere(const QString& quelle);  ///< What stands before WHERE, or else before ORDER BY.
QString SQLWhereTeil(const QString& quelle); ///< From WHERE to before ORDER BY; empty without a WHERE.
QString SQLAbOrder(const QString& quelle);   ///< A blank and what stands from ORDER BY on; empty without one.
