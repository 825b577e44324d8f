#pragma once

#include "platform/oldfile/Cell.h"

#include <QStringList>

#include <functional>
#include <vector>

namespace oldfile {

struct Table {
    QString name;
    qint64 rows; ///< That live, as the file states them.
    std::vector<Column> columns;
};

/// A database file of the old engine, read by a program of its own, so that whatever a damaged file makes
/// of it leaves this process alone. Nothing is ever written to it.
class File {
public:
    /// Reads the header alone. \throws jet::Error as readHeader().
    explicit File(const QString& path) : m_path(path), m_header(readHeader(path)) {}

    const QString& path() const { return m_path; }
    const Header& header() const { return m_header; }
    /// Whether it opens with the password: any opens a file that has none.
    bool accepts(const QString& password) const;

    struct Contents {
        std::vector<Table> tables; ///< Of the user, in the order in which they were made.
        QStringList links;         ///< Tables whose rows lie in other files.
    };
    /// \throws jet::Error UnknownFormat when it is encrypted; DiskError with what cannot be read.
    Contents contents() const;
    /// Hands over the rows that live, a cell for each column, in the order in which they lie in the file.
    /// \throws jet::Error DiskError when one cannot be read, when there are not as many as the table
    /// states, or when none comes for half a minute; what the function throws.
    void read(const Table& table, const std::function<void(std::vector<Cell>)>& row) const;

private:
    QString m_path;
    Header m_header;
};

} // namespace oldfile
