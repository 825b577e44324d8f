#pragma once

#include "platform/oldfile/Header.h"

#include <QByteArray>
#include <QString>

#include <variant>

namespace oldfile {

/// The types of columns, with the numbers that files have for them.
enum class Type : quint8 {
    YesNo = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Object = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

struct Column {
    QString name;
    Type type;
    int size;  ///< Most letters of a Text; else bytes.
    int scale; ///< Decimals of a Decimal.
};

/// Money as the file has it: in ten-thousandths, a whole number that a double does not always hold.
struct Currency {
    qint64 tenThousandths;
    bool operator==(const Currency&) const = default;
};
/// A day with its time, as days since 30.12.1899; below 0 the time of day counts forward too.
struct DayNumber {
    double days;
    bool operator==(const DayNumber&) const = default;
};
/// A decimal of up to 28 digits, written with a point.
struct Decimal {
    QString digits;
    bool operator==(const Decimal&) const = default;
};
/// A text in which some bytes are no letter of its code page; U+FFFD stands for each.
struct Garbled {
    QString text;
    bool operator==(const Garbled&) const = default;
};
/// What has no counterpart elsewhere: binary data, objects, identifiers.
struct Bytes {
    QByteArray bytes;
    bool operator==(const Bytes&) const = default;
};

/// NULL, truth, whole number, floating number, and so on. An empty text is a text.
using Cell =
    std::variant<std::monostate, bool, qint64, double, Currency, DayNumber, QString, Decimal, Garbled, Bytes>;

/// A value from its bytes. \throws std::out_of_range when they are too few for the type.
Cell decode(const Column& column, const QByteArray& bytes, const Header& header);

} // namespace oldfile
