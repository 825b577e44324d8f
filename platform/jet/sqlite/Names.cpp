#include "platform/jet/sqlite/Names.h"

namespace jet::sqlite {

QByteArray schemaName(int file)
{
    return file == 0 ? "main" : "file" + QByteArray::number(file);
}

QByteArray placed(const bind::Table& table)
{
    return schemaName(table.file) + '.' + quoted(table.name);
}

QByteArray quoted(const QString& name)
{
    QByteArray text = name.toUtf8();
    text.replace('"', "\"\"");
    return '"' + text + '"';
}

QString indexName(const QString& table, const QString& index)
{
    return table + u'.' + index;
}

} // namespace jet::sqlite
