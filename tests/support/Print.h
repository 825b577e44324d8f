#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

#include <gtest/gtest.h>

#include <ostream>

// How GoogleTest shows Qt's texts in a failure.

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(QStringView text, std::ostream* out)
{
    *out << '"' << text.toUtf8().toStdString() << '"';
}

inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '[' << texts.join(QStringLiteral(" | ")).toStdString() << ']';
}
