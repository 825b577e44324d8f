#include "core/farm/stammdaten/Csv.h"

#include "platform/jet/Conversion.h"

#include <zablager/DatabaseError.h>

#include <QRegularExpression>
#include <QStringDecoder>

#include <unicode/ucnv.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QByteArray Marke("\xEF\xBB\xBF"); // of UTF-8

QString ausWindows1252(const QByteArray& bytes)
{
    UErrorCode code = U_ZERO_ERROR;
    QString text(bytes.size() + 1, QChar::Null);
    UConverter* const umsetzer = ucnv_open("windows-1252", &code);
    const int laenge =
        ucnv_toUChars(umsetzer, reinterpret_cast<UChar*>(text.data()), static_cast<int>(text.size()),
                      bytes.constData(), static_cast<int>(bytes.size()), &code);
    ucnv_close(umsetzer);
    text.truncate(laenge);
    return text;
}

QString alsText(const QByteArray& bytes, QString& zeichensatz)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(bytes.startsWith(Marke) ? bytes.sliced(Marke.size()) : bytes);
    zeichensatz = utf8.hasError() ? u"Windows-1252"_s : u"UTF-8"_s;
    return utf8.hasError() ? ausWindows1252(bytes) : text;
}

/// Of the first line, outside of quotes, what stands there more often.
QChar trennerVon(const QString& text)
{
    qsizetype kommas = 0;
    qsizetype semikolons = 0;
    bool zitiert = false;
    for (const QChar zeichen : text) {
        if (zeichen == u'"') zitiert = !zitiert;
        if (zitiert) continue;
        if (zeichen == u'\n') break;
        kommas += zeichen == u',';
        semikolons += zeichen == u';';
    }
    return semikolons >= kommas ? u';' : u',';
}

class Leser {
public:
    Leser(const QString& text, QChar trenner) : m_text(text), m_trenner(trenner) {}

    bool amEnde() const { return m_stelle >= m_text.size(); }
    int nummer() const { return m_nummer; }

    /// The cells of the next line, which ends behind its line break.
    QStringList zeile()
    {
        QStringList zellen;
        for (;;) {
            zellen.append(zelle());
            if (amEnde() || m_text[m_stelle++] == u'\n') break;
        }
        ++m_nummer;
        return zellen;
    }

private:
    bool istEnde(QChar zeichen) const { return zeichen == m_trenner || zeichen == u'\n'; }

    QString zelle()
    {
        if (amEnde() || m_text[m_stelle] != u'"') {
            const qsizetype anfang = m_stelle;
            while (!amEnde() && !istEnde(m_text[m_stelle]))
                ++m_stelle;
            return m_text.sliced(anfang, m_stelle - anfang);
        }
        return zitierte();
    }

    QString zitierte()
    {
        const int erste = m_nummer;
        QString inhalt;
        while (++m_stelle < m_text.size()) {
            if (m_text[m_stelle] == u'"') {
                if (++m_stelle >= m_text.size() || istEnde(m_text[m_stelle])) return inhalt;
                if (m_text[m_stelle] != u'"') break;
            }
            m_nummer += m_text[m_stelle] == u'\n';
            inhalt += m_text[m_stelle];
        }
        throw jet::Error(
            jet::ErrorNumber::InvalidArgument,
            u"In Zeile %1 beginnt ein Anführungszeichen, das nicht vor dem Ende einer Zelle endet."_s.arg(
                erste));
    }

    const QString& m_text;
    const QChar m_trenner;
    qsizetype m_stelle = 0;
    int m_nummer = 1;
};

QString inZelle(const QString& text)
{
    static const QRegularExpression besonderes(u"[;,\"\\r\\n]"_s);
    return text.contains(besonderes) ? u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"' : text;
}

} // namespace

Csv liesCsv(const QByteArray& bytes)
{
    Csv csv;
    QString text = alsText(bytes, csv.zeichensatz);
    text.replace(u"\r\n"_s, u"\n"_s);
    csv.trenner = trennerVon(text);
    Leser leser(text, csv.trenner);
    csv.titel = leser.zeile();
    while (!leser.amEnde()) {
        const int nummer = leser.nummer();
        const QStringList zellen = leser.zeile();
        if (zellen == QStringList(QString())) continue; // an empty line
        if (zellen.size() != csv.titel.size())
            throw jet::Error(jet::ErrorNumber::InvalidArgument,
                             u"Zeile %1 hat %2 Zellen, die Titelzeile %3."_s.arg(nummer)
                                 .arg(zellen.size())
                                 .arg(csv.titel.size()));
        csv.zeilen.push_back({nummer, zellen});
    }
    return csv;
}

QByteArray alsCsv(const QStringList& titel, const std::vector<QStringList>& zeilen)
{
    QByteArray bytes = Marke;
    const auto schreibe = [&](QStringList zellen) {
        std::ranges::transform(zellen, zellen.begin(), inZelle);
        bytes += zellen.join(u';').toUtf8() + '\n';
    };
    schreibe(titel);
    std::ranges::for_each(zeilen, schreibe);
    return bytes;
}

Zahlform::Zahlform(const QStringList& zahlen)
{
    static const QRegularExpression punkt(u"^-?\\d+\\.(\\d{1,2}|\\d{4,})$"_s);
    const auto istPlain = [](const QString& zahl) { return punkt.match(zahl).hasMatch(); };
    const auto hatKomma = [](const QString& zahl) { return zahl.contains(u','); };
    m_deutsch = std::ranges::any_of(zahlen, hatKomma) || std::ranges::none_of(zahlen, istPlain);
}

std::optional<double> Zahlform::gelesen(const QString& zahl) const
{
    if (m_deutsch) return jet::readNumber(zahl);
    bool istZahl = false;
    const double wert = zahl.toDouble(&istZahl);
    return istZahl ? std::optional(wert) : std::nullopt;
}
