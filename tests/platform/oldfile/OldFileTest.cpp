#include "platform/oldfile/File.h"

#include <zablager/DatabaseError.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QUuid>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace oldfile;

namespace {

const QString Access = QStringLiteral(ZABLAGER_SHARED_DATA) + u"/access/"_s;

QByteArray output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return process.readAllStandardOutput();
}

QDateTime momentOf(double days)
{
    const double day = std::trunc(days); // the time counts forward before day 0, too
    return QDate(1899, 12, 30)
        .startOfDay(Qt::UTC)
        .addDays(qint64(day))
        .addMSecs(std::llround(std::abs(days - day) * 86400) * 1000);
}

QString guid(const QByteArray& b)
{
    const auto* const bytes = reinterpret_cast<const uchar*>(b.constData());
    return QUuid(qFromLittleEndian<quint32>(bytes), qFromLittleEndian<quint16>(bytes + 4),
                 qFromLittleEndian<quint16>(bytes + 6), bytes[8], bytes[9], bytes[10], bytes[11], bytes[12],
                 bytes[13], bytes[14], bytes[15])
        .toString()
        .toUpper();
}

/// Whether a cell is what another program has read there. It writes "?" for a letter that it does not
/// know, and numbers with so many digits.
struct Same {
    QString expected;
    int digits;

    bool operator()(std::monostate) const { return false; }
    bool operator()(bool value) const { return expected == (value ? u"1" : u"0"); }
    bool operator()(qint64 value) const { return expected == QString::number(value); }
    bool operator()(double value) const
    {
        const double other = expected.toDouble();
        return digits == 17 ? value == other
                            : float(value) == float(other) || std::abs(value / other - 1) < 1e-15;
    }
    bool operator()(Currency value) const
    {
        return std::llround(expected.toDouble() * 10000) == value.tenThousandths;
    }
    bool operator()(DayNumber value) const
    {
        return momentOf(value.days).toString(u"yyyy-MM-ddTHH:mm:ss"_s) == expected;
    }
    bool operator()(const QString& value) const
    {
        bool same = value.size() == expected.size();
        for (qsizetype i = 0; same && i < value.size(); ++i)
            same = value[i] == expected[i] || (expected[i] == u'?' && value[i].unicode() > 0x7F);
        return same;
    }
    bool operator()(const Garbled& value) const { return (*this)(value.text); }
    bool operator()(const Decimal& value) const { return value.digits == expected; }
    bool operator()(const Bytes& value) const
    {
        const QByteArray hex = value.bytes.toHex().toUpper();
        const auto hash = QCryptographicHash::hash(hex, QCryptographicHash::Sha256).toHex();
        return expected == guid(value.bytes) ||
               expected == QString::number(hex.size()) + u' ' + QString::fromLatin1(hash);
    }
};

void expectSame(const Cell& cell, Same expected, const QString& where)
{
    EXPECT_TRUE(std::visit(expected, cell)) << where.toStdString() << ": " << expected.expected.toStdString();
}

} // namespace

TEST(OldFile, HoldsAWholeFarmToTheLastBit)
{
    const QTemporaryDir farm;
    const QString data = QStringLiteral(FARM);
    output(u"tar"_s, {u"-xJf"_s, data + u"/betrieb.tar.xz"_s, u"-C"_s, farm.path()});
    const auto lines =
        QString::fromUtf8(output(u"xz"_s, {u"-dc"_s, data + u"/inhalt.txt.xz"_s})).split(u'\n');
    std::optional<File> file;
    std::vector<std::vector<Cell>> rows;
    const Table* table = nullptr;
    File::Contents contents;
    std::size_t row = 0, column = 0, tables = 0;
    for (const QString& line : lines) {
        const QStringList words = line.split(u'\t');
        if (words[0] == u"FILE") {
            EXPECT_EQ(tables, contents.tables.size());
            contents = file.emplace(farm.filePath(words[1])).contents();
            tables = 0;
        } else if (words[0] == u"TABLE") {
            EXPECT_EQ(row, rows.size());
            table = &contents.tables.at(tables++);
            EXPECT_EQ(table->name, words[1]);
            rows.clear();
            file->read(*table, [&](std::vector<Cell> cells) { rows.push_back(std::move(cells)); });
            row = column = 0;
        } else if (words[0] == u"COL") {
            const Column& found = table->columns.at(column++);
            EXPECT_EQ(found.name, words[1]);
            EXPECT_EQ(words.size() > 3 ? words[3].toInt() : found.size, found.size);
        } else if (words[0] == u"ROW") {
            ASSERT_LT(row, rows.size());
            for (qsizetype i = 1; i < words.size(); ++i) {
                const Cell& cell = rows[row].at(static_cast<std::size_t>(i - 1));
                QString text = words[i];
                text.replace(u"\\n"_s, u"\n"_s).replace(u"\\t"_s, u"\t"_s);
                const QString where =
                    file->path() + u' ' + table->name + u' ' + table->columns[std::size_t(i - 1)].name;
                if (text == u"\\N")
                    EXPECT_TRUE(std::holds_alternative<std::monostate>(cell)) << where.toStdString();
                else
                    expectSame(cell, {text, 17}, where);
            }
            ++row;
        }
    }
    EXPECT_EQ(row, rows.size());
}

TEST(OldFile, TellsWhatOtherReadersTell)
{
    if (!QFile::exists(Access)) GTEST_SKIP() << "no real files of the old engine in " ZABLAGER_SHARED_DATA;
    const auto all =
        QJsonDocument::fromJson(output(u"xz"_s, {u"-dc"_s, Access + u"contents.json.xz"_s})).object();
    for (auto named = all.begin(); named != all.end(); ++named) {
        const File file(Access + named.key());
        const QJsonObject expected = named.value().toObject();
        const QString password = expected[u"password"].toString();
        if (named.key().startsWith(u"ace_encrypted")) {
            EXPECT_THROW(file.contents(), jet::Error);
            continue;
        }
        EXPECT_TRUE(file.accepts(password)) << named.key().toStdString();
        EXPECT_NE(file.accepts(u"falsch"_s), !password.isEmpty());
        const auto contents = file.contents();
        const QJsonObject tables = expected[u"tables"].toObject();
        EXPECT_EQ(qsizetype(contents.tables.size()), tables.size());
        for (const Table& table : contents.tables) {
            const QJsonArray rows = tables[table.name].toObject()[u"rows"].toArray();
            qsizetype row = 0;
            file.read(table, [&](const std::vector<Cell>& cells) {
                const QJsonArray values = rows[row++].toArray();
                ASSERT_EQ(qsizetype(cells.size()), values.size());
                for (qsizetype i = 0; i < values.size(); ++i) {
                    const Cell& cell = cells[std::size_t(i)];
                    const QJsonObject object = values[i].toObject();
                    const QString text = object.isEmpty() ? values[i].toString()
                                                          : QString::number(object[u"hex_length"].toInt()) +
                                                                u' ' + object[u"sha256_of_hex"].toString();
                    const QString where = named.key() + u' ' + table.name + u' ' + QString::number(row);
                    if (values[i].isNull())
                        EXPECT_TRUE(std::holds_alternative<std::monostate>(cell)) << where.toStdString();
                    else
                        expectSame(cell, {text, 16}, where);
                }
            });
            EXPECT_EQ(row, rows.size()) << named.key().toStdString() << ' ' << table.name.toStdString();
        }
    }
}

// An error, or as many rows as each table states; never a crash, and never half a minute.
TEST(OldFile, DamagedTellsOrIsWhole)
{
    const QTemporaryDir folder;
    const QString data = QStringLiteral(FARM);
    output(u"tar"_s, {u"-xJf"_s, data + u"/betrieb.tar.xz"_s, u"-C"_s, folder.path()});
    QStringList names{folder.filePath(u"daten/B4711/Lager.2024"_s),
                      folder.filePath(u"anlagen/Anlagen.mdb"_s)};
    for (const QString& name : QDir(Access).entryList({u"jet3_types.mdb"_s, u"jet4_p*.mdb"_s, u"ace_a*"_s}))
        names.append(Access + name);
    QRandomGenerator random(4711);
    int told = 0, whole = 0;
    for (int variant = 0; variant < 200; ++variant) {
        QFile original(names[variant % names.size()]);
        ASSERT_TRUE(original.open(QIODevice::ReadOnly));
        QByteArray bytes = original.readAll();
        if (variant % 4 == 0) bytes.truncate(random.bounded(4097, int(bytes.size())));
        for (int flips = variant % 4 == 0 ? 0 : 1 + variant % 50; flips > 0; --flips)
            bytes[random.bounded(int(bytes.size()))] = char(random.bounded(256));
        QFile damaged(folder.filePath(u"x.mdb"_s));
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly) && damaged.write(bytes) == bytes.size());
        damaged.close();
        QElapsedTimer clock;
        clock.start();
        try {
            const File file(damaged.fileName());
            for (const Table& table : file.contents().tables) {
                qint64 rows = 0;
                file.read(table, [&](const std::vector<Cell>&) { ++rows; });
                EXPECT_EQ(rows, table.rows);
            }
            ++whole;
        } catch (const jet::Error& error) {
            EXPECT_TRUE(error.text().contains(u"x.mdb"));
            ++told;
        }
        EXPECT_LT(clock.elapsed(), 29000);
    }
    EXPECT_GT(told, 20);
    EXPECT_GT(whole, 20);
}
