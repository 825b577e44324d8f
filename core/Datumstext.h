#pragma once

#include <QDate>
#include <QString>

/// The text form of a day that procedures hand each other: "05.03.2024".
QString datumText(QDate tag);
