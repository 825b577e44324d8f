#pragma once

#include <QDateTime>
#include <QString>

#include <variant>

namespace jet {

/// What a column or an expression holds. The values of Boolean are -1 and 0 in the file, of Counter and Long
/// 4-byte whole numbers; every other number is a Double, whatever the column was declared as; Memo is a text
/// without a bound of its length; Date has a time of day that mostly is midnight.
enum class Type { Null, Boolean, Long, Counter, Double, Date, Text, Memo };

bool isNumber(Type type); ///< Boolean counts as one, Date does not.
bool isWhole(Type type);  ///< Long or Counter.
bool isText(Type type);   ///< Text or Memo.

/// One field of one row: NULL, or a truth value, whole number, floating number, date or text.
class Value {
public:
    Value() = default; ///< NULL
    Value(bool value) : m_value(value) {}
    Value(int value) : m_value(qint64{value}) {}
    Value(qint64 value) : m_value(value) {}
    Value(double value) : m_value(value) {}
    Value(const QDate& value) : m_value(QDateTime(value, QTime(0, 0), Qt::UTC)) {}
    /// What calendar and clock show counts, in whatever time zone.
    Value(const QDateTime& value) : m_value(QDateTime(value.date(), value.time(), Qt::UTC)) {}
    Value(const QString& value) : m_value(value) {}
    Value(const char*) = delete; // would become a truth value

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }
    /// Null, Boolean, Long, Double, Date or Text.
    Type type() const;

    /// The conversions of the German runtime. NULL is 0, false, "" or no date.
    /// \throws Error ConversionFailed when a text is no number or no date.
    double toDouble() const;
    qint64 toLong() const; ///< Half to even: 2.5 is 2, 3.5 is 4. \throws Error Overflow beyond 4 bytes.
    bool toBool() const;   ///< Any number but 0 is true; so are "Wahr", "True", "-1".
    QString
    toText() const; ///< 0.25 is "0,25"; a date is "05.03.2024", with its time only when that is not midnight.
    QDateTime toDateTime() const;
    QDate toDate() const { return toDateTime().date(); }

    /// Same kind and same value; NULL equals NULL. Not the engine's comparison.
    bool operator==(const Value& other) const = default;

private:
    std::variant<std::monostate, bool, qint64, double, QDateTime, QString> m_value;
};

} // namespace jet
