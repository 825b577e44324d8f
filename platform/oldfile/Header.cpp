#include "platform/oldfile/Header.h"

#include "platform/jet/Errors.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <cstring>
#include <numeric>
#include <utility>

namespace oldfile {

namespace {

using jet::ErrorNumber;

// Bytes of the first page. What stands from `Masked` on is written over with a fixed key, which hides and
// guards nothing.
constexpr qsizetype Page = 4096, Name = 4, Version = 0x14, Masked = 0x18, CodePage = 0x3C, Password = 0x42,
                    Created = 0x72, Encryption = 0x299;
constexpr qsizetype MaskedJet3 = 126, MaskedJet4 = 128, PasswordJet3 = 20, PasswordJet4 = 40;
constexpr std::array<quint8, 4> Key{0xC7, 0xDA, 0x39, 0x6B};

/// The stream cipher RC4, which undoes itself.
void unmask(char* bytes, qsizetype count)
{
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), quint8{0});
    quint8 j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + Key[i % Key.size()]);
        std::swap(state[i], state[j]);
    }
    quint8 i = 0;
    j = 0;
    for (char* byte = bytes; byte < bytes + count; ++byte) {
        j = static_cast<quint8>(j + state[++i]);
        std::swap(state[i], state[j]);
        *byte = static_cast<char>(*byte ^ state[static_cast<quint8>(state[i] + state[j])]);
    }
}

QString untilNul(const QString& text)
{
    return text.left(text.indexOf(QChar::Null));
}

/// One byte a letter in the oldest format; later two, on which the whole days of the file's creation lie
/// as a mask.
QString password(const QByteArray& page, Format format)
{
    if (format == Format::Jet3) return untilNul(QString::fromLatin1(page.mid(Password, PasswordJet3)));
    double created = 0;
    std::memcpy(&created, page.constData() + Created, sizeof created);
    const bool hasDay = created > -1e9 && created < 1e9; // else no date at all
    const auto days = static_cast<quint32>(hasDay ? static_cast<qint32>(created) : 0);
    QString text;
    for (qsizetype i = 0; i < PasswordJet4; i += 2) {
        const auto mask = static_cast<char16_t>(days >> (i % 4 == 0 ? 0 : 16));
        text +=
            QChar(static_cast<char16_t>(qFromLittleEndian<quint16>(page.constData() + Password + i) ^ mask));
    }
    return untilNul(text);
}

Format formatOf(char version)
{
    if (version == 0) return Format::Jet3;
    return version == 1 ? Format::Jet4 : Format::Ace;
}

} // namespace

Header readHeader(const QString& path)
{
    QFile file(path);
    if (!file.exists()) jet::raise(ErrorNumber::FileNotFound, {path});
    if (!file.open(QIODevice::ReadOnly)) jet::raiseOfFile(ErrorNumber::CannotOpenFile, path);
    QByteArray page = file.read(Page);
    const QByteArray name = page.mid(Name, 15);
    if (page.size() < Page || (name != "Standard Jet DB" && name != "Standard ACE DB"))
        jet::raiseOfFile(ErrorNumber::UnknownFormat, path);
    const Format format = formatOf(page[Version]);
    const bool isEncrypted =
        format == Format::Ace && qFromLittleEndian<quint16>(page.constData() + Encryption) != 0;
    unmask(page.data() + Masked, format == Format::Jet3 ? MaskedJet3 : MaskedJet4);
    return {format, qFromLittleEndian<quint16>(page.constData() + CodePage), password(page, format),
            isEncrypted};
}

} // namespace oldfile
