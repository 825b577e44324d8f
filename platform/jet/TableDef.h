#pragma once

#include "platform/jet/Value.h"

#include <QString>

#include <vector>

namespace jet {

/// One column of a table.
struct Field {
    QString name;
    Type type = Type::Null;
    int size = 0; ///< Greatest number of characters of a Text column, 1 to 255; 0 for every other type.
};

/// One table of a database file, or a link to a table of another file.
struct TableDef {
    QString name;
    std::vector<Field> fields; ///< In table order; empty for a link.
    QString connect;     ///< Of a link: "MS Access;PWD=...;DATABASE=path"; empty for a table of this file.
    QString sourceTable; ///< Of a link: the table's name in the other file.
};

} // namespace jet
