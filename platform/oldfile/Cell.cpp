#include "platform/oldfile/Cell.h"

#include <QByteArrayList>
#include <QtEndian>

#include <unicode/ucnv.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace oldfile {

namespace {

template <class Number>
Number numberOf(const QByteArray& bytes)
{
    if (bytes.size() < qsizetype{sizeof(Number)}) throw std::out_of_range("too few bytes");
    Number number = 0;
    std::memcpy(&number, bytes.constData(), sizeof number); // this machine's order is the file's
    return number;
}

QString pairs(const QByteArray& bytes)
{
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(qFromLittleEndian<quint16>(bytes.constData() + i));
    return text;
}

/// Two bytes a letter; or after a mark one, where each zero byte changes to the other way and back.
QString utf16(const QByteArray& bytes)
{
    if (!bytes.startsWith("\xFF\xFE")) return pairs(bytes);
    QString text;
    bool single = true;
    for (const QByteArray& part : bytes.mid(2).split('\0')) {
        text += single ? QString::fromLatin1(part) : pairs(part);
        single = !single;
    }
    return text;
}

QString ofCodePage(const QByteArray& bytes, int codePage)
{
    UErrorCode code = U_ZERO_ERROR;
    UConverter* const converter = ucnv_open(("cp" + QByteArray::number(codePage)).constData(), &code);
    if (U_FAILURE(code)) return QString::fromLatin1(bytes);
    QString text(2 * bytes.size() + 1, QChar::Null);
    const int length =
        ucnv_toUChars(converter, reinterpret_cast<UChar*>(text.data()), static_cast<int>(text.size()),
                      bytes.constData(), static_cast<int>(bytes.size()), &code);
    ucnv_close(converter);
    text.truncate(length);
    for (QChar& letter : text) // bytes that the page has no letter for come as control characters
        if (letter.unicode() >= 0x80 && letter.unicode() < 0xA0) letter = QChar::ReplacementCharacter;
    return text;
}

/// Half a pair of two units is no letter.
bool replaceHalves(QString& text)
{
    bool found = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool pair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (pair) {
            ++i;
        } else if (text[i].isSurrogate()) {
            text[i] = QChar::ReplacementCharacter;
            found = true;
        }
    }
    return found;
}

Cell textOf(const QByteArray& bytes, const Header& header)
{
    if (header.format == Format::Jet3) {
        const QString text = ofCodePage(bytes, header.codePage);
        return text.contains(QChar::ReplacementCharacter) ? Cell(Garbled{text}) : Cell(text);
    }
    QString text = utf16(bytes);
    return replaceHalves(text) ? Cell(Garbled{text}) : Cell(text);
}

/// A sign byte and 128 bits in four words, the highest first.
Decimal decimalOf(const QByteArray& bytes, int scale)
{
    if (bytes.size() < 17) throw std::out_of_range("too few bytes");
    std::array<quint32, 4> words{};
    for (std::size_t i = 0; i < words.size(); ++i)
        words[i] = qFromLittleEndian<quint32>(bytes.constData() + 1 + 4 * i);
    QString digits;
    while (words != std::array<quint32, 4>{} || digits.size() <= scale) {
        quint64 rest = 0;
        for (quint32& word : words) {
            const quint64 value = rest << 32 | word;
            word = static_cast<quint32>(value / 10);
            rest = value % 10;
        }
        digits.prepend(QChar(static_cast<char16_t>(u'0' + rest)));
    }
    if (scale > 0) digits.insert(digits.size() - scale, u'.');
    return {bytes[0] != 0 ? u'-' + digits : digits};
}

} // namespace

Cell decode(const Column& column, const QByteArray& bytes, const Header& header)
{
    switch (column.type) {
    case Type::YesNo: return numberOf<quint8>(bytes) != 0;
    case Type::Byte: return qint64{numberOf<quint8>(bytes)};
    case Type::Integer: return qint64{numberOf<qint16>(bytes)};
    case Type::Long: return qint64{numberOf<qint32>(bytes)};
    case Type::Currency: return Currency{numberOf<qint64>(bytes)};
    case Type::Single: return double{numberOf<float>(bytes)};
    case Type::Double: return numberOf<double>(bytes);
    case Type::Date: return DayNumber{numberOf<double>(bytes)};
    case Type::Text:
    case Type::Memo: return textOf(bytes, header);
    case Type::Decimal: return decimalOf(bytes, column.scale);
    case Type::Binary:
    case Type::Object:
    case Type::Guid: break;
    }
    return Bytes{bytes};
}

} // namespace oldfile
