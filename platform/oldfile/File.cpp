#include "platform/oldfile/File.h"

#include "platform/jet/Errors.h"
#include "platform/oldfile/reader/Stream.h"
#include "platform/system/OwnFile.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QtEndian>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace oldfile {

namespace {

constexpr int Patience = 30000;               // ms without a byte
constexpr quint32 LongestRecord = 512U << 20; // bytes; a longer one tells that the stream is none

QString readerProgram()
{
    return QDir::cleanPath(QFileInfo(sys::ownFile()).path() + u"/../libexec/zablager/zablager-altleser"_s);
}

struct Record {
    char kind;
    QByteArray content;
};

/// The reading program at work, and what it tells.
class Reader {
public:
    Reader(const QString& path, const QStringList& arguments) : m_path(path)
    {
        m_process.setProgram(readerProgram());
        m_process.setArguments(QStringList(path) + arguments);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QIODevice::ReadOnly);
        if (!m_process.waitForStarted())
            fail(u"Das Programm '"_s + readerProgram() + u"' lässt sich nicht starten."_s);
    }
    ~Reader()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Reader)

    /// The next record; the one that tells the end has no content.
    Record next()
    {
        const QByteArray head = take(5);
        const auto length = qFromLittleEndian<quint32>(head.constData() + 1);
        if (length > LongestRecord) fail(u"Das Leseprogramm ist gestört."_s);
        Record record{head[0], take(length)};
        if (record.kind == stream::Failure) fail(QString::fromUtf8(record.content));
        return record;
    }

    [[noreturn]] void fail(const QString& reason) const
    {
        throw jet::Error(jet::ErrorNumber::DiskError,
                         jet::errorText(jet::ErrorNumber::DiskError, {m_path}) + u' ' + reason);
    }

private:
    QByteArray take(qsizetype count)
    {
        while (m_waiting.size() - m_taken < count) {
            m_waiting.remove(0, std::exchange(m_taken, 0));
            const bool more = m_process.bytesAvailable() > 0 || m_process.waitForReadyRead(Patience);
            if (!more)
                fail(m_process.state() == QProcess::Running ? u"Seit einer halben Minute kommt keine Zeile."_s
                                                            : u"Das Leseprogramm ist abgestürzt."_s);
            m_waiting += m_process.readAll();
        }
        m_taken += count;
        return m_waiting.mid(m_taken - count, count);
    }

    const QString m_path;
    QProcess m_process;
    QByteArray m_waiting; // what it has told, of which so much was taken
    qsizetype m_taken = 0;
};

Column columnOf(const QByteArray& content, Format format)
{
    if (content.size() < 7) throw std::out_of_range("too few bytes");
    const auto type = static_cast<Type>(static_cast<uchar>(content[0]));
    auto size = static_cast<int>(qFromLittleEndian<quint32>(content.constData() + 3));
    if (type == Type::Text && format != Format::Jet3) size /= 2;
    return {QString::fromUtf8(content.mid(7)), type, size, static_cast<uchar>(content[2])};
}

std::vector<Cell> rowOf(const QByteArray& content, const Table& table, const Header& header)
{
    std::vector<Cell> row;
    qsizetype place = 0;
    for (const Column& column : table.columns) {
        if (content.size() - place < 4) throw std::out_of_range("too few bytes");
        const auto length = qFromLittleEndian<quint32>(content.constData() + place);
        place += 4;
        if (length == stream::Null) {
            row.emplace_back();
            continue;
        }
        if (content.size() - place < qsizetype{length}) throw std::out_of_range("too few bytes");
        row.push_back(decode(column, content.mid(place, length), header));
        place += length;
    }
    return row;
}

} // namespace

bool File::accepts(const QString& password) const
{
    return m_header.password.isEmpty() || m_header.password == password;
}

File::Contents File::contents() const
{
    if (m_header.isEncrypted)
        throw jet::Error(jet::ErrorNumber::UnknownFormat,
                         jet::errorText(jet::ErrorNumber::UnknownFormat, {m_path}) +
                             u" Sie ist verschlüsselt."_s);
    Reader reader(m_path, {});
    Contents contents;
    for (Record record = reader.next(); record.kind != stream::End; record = reader.next()) {
        if (record.kind == stream::Link) contents.links.append(QString::fromUtf8(record.content));
        if (record.kind == stream::Table && record.content.size() > 4)
            contents.tables.push_back({QString::fromUtf8(record.content.mid(4)),
                                       qFromLittleEndian<quint32>(record.content.constData()),
                                       {}});
        if (record.kind == stream::Column && record.content.size() > 7 && !contents.tables.empty())
            contents.tables.back().columns.push_back(columnOf(record.content, m_header.format));
    }
    return contents;
}

void File::read(const Table& table, const std::function<void(std::vector<Cell>)>& row) const
{
    Reader reader(m_path, {table.name});
    for (Record record = reader.next(); record.kind != stream::End; record = reader.next()) {
        std::vector<Cell> cells;
        try {
            cells = rowOf(record.content, table, m_header);
        } catch (const std::out_of_range&) {
            reader.fail(u"Eine Zeile der Tabelle '"_s + table.name + u"' ist beschädigt."_s);
        }
        row(std::move(cells));
    }
}

} // namespace oldfile
