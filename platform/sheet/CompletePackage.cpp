#include "platform/sheet/CompletePackage.h"

#include <QFile>
#include <QtEndian>

#include <zlib.h>

#include <array>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A part of an archive, as the directory at the archive's end names it.
struct Part {
    quint16 method = 0;
    qint64 packedSize = 0;
    qint64 header = 0; ///< Where its own header lies.
};

// Places and sizes in bytes, as the zip format lays its records down. No file of ours needs the 64-bit form.
constexpr qint64 EndSize = 22;
constexpr qint64 EntrySize = 46;
constexpr qint64 HeaderSize = 30;
constexpr quint32 EndMark = 0x06054b50;
constexpr quint32 EntryMark = 0x02014b50;
constexpr quint16 Deflated = 8;

template <class Number>
Number at(const QByteArray& bytes, qint64 place)
{
    return place + qint64{sizeof(Number)} > bytes.size() ? Number{}
                                                         : qFromLittleEndian<Number>(bytes.data() + place);
}

/// The parts of an archive that ends with its directory and has no comment; none when it does not.
std::vector<Part> partsOf(QFile& archive)
{
    archive.seek(archive.size() - EndSize);
    const QByteArray end = archive.read(EndSize);
    if (at<quint32>(end, 0) != EndMark) return {};
    archive.seek(at<quint32>(end, 16));
    const QByteArray directory = archive.read(at<quint32>(end, 12));
    std::vector<Part> parts;
    qint64 place = 0;
    for (int left = at<quint16>(end, 10); left > 0; --left) {
        if (at<quint32>(directory, place) != EntryMark) return {};
        parts.push_back({at<quint16>(directory, place + 10), at<quint32>(directory, place + 20),
                         at<quint32>(directory, place + 42)});
        place += EntrySize + at<quint16>(directory, place + 28) + at<quint16>(directory, place + 30) +
                 at<quint16>(directory, place + 32);
    }
    return parts;
}

/// The name of the root of an XML text by its beginning.
QByteArray rootOf(const QByteArray& beginning)
{
    const qsizetype behindDeclaration = beginning.indexOf("?>");
    const qsizetype tag = beginning.indexOf('<', behindDeclaration) + 1;
    if (behindDeclaration < 0 || tag == 0) return {};
    qsizetype end = tag;
    while (end < beginning.size() && !QByteArray(" \n>").contains(beginning[end]))
        ++end;
    return beginning.mid(tag, end - tag);
}

/// Unpacks a part piece by piece and looks at its first and last ones.
bool isComplete(QFile& archive, const Part& part)
{
    constexpr qint64 Piece = 65536;
    archive.seek(part.header);
    const QByteArray header = archive.read(HeaderSize);
    archive.skip(at<quint16>(header, 26) + at<quint16>(header, 28));
    if (part.method != Deflated) return false; // the library stores nothing as it is

    z_stream stream{};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK) return false;
    std::array<char, Piece> unpacked{};
    QByteArray packed;
    QByteArray first;
    QByteArray last;
    int state = Z_OK;
    for (qint64 left = part.packedSize; state == Z_OK;) {
        if (stream.avail_in == 0) {
            packed = archive.read(std::min(left, Piece));
            left -= packed.size();
            stream.next_in = reinterpret_cast<Bytef*>(packed.data());
            stream.avail_in = static_cast<uInt>(packed.size());
        }
        stream.next_out = reinterpret_cast<Bytef*>(unpacked.data());
        stream.avail_out = Piece;
        state = inflate(&stream, Z_NO_FLUSH);
        const QByteArray piece(unpacked.data(), Piece - stream.avail_out);
        if (first.isEmpty()) first = piece;
        last = last.right(100) + piece;
    }
    inflateEnd(&stream);
    const QByteArray root = rootOf(first);
    return state == Z_STREAM_END && !root.isEmpty() && last.trimmed().endsWith("</" + root + ">");
}

} // namespace

bool isCompletePackage(const QString& file)
{
    QFile archive(file);
    if (!archive.open(QIODevice::ReadOnly)) return false;
    const std::vector<Part> parts = partsOf(archive);
    return !parts.empty() && std::all_of(parts.begin(), parts.end(),
                                         [&](const Part& part) { return isComplete(archive, part); });
}
