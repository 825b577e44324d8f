#pragma once

#include <QDate>
#include <QString>
#include <QStringView>

/// A date as screens show it: 01.03.2024; an invalid one is empty.
QString formatDate(QDate date);

/// A date as a user types it: day.month.year with two or four digits (00 to 29 are 20xx), or day and month
/// alone, which get `year`; each with or without leading zeros. Anything else is an invalid date: nothing is
/// turned round to fit.
QDate readTypedDate(QStringView text, int year);
