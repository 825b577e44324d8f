#include "platform/report/Element.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace report {

namespace {

constexpr double LongestLength = 10'000;

QString listed(QStringList names)
{
    for (QString& name : names)
        name = u'<' + name + u'>';
    return names.join(u", "_s);
}

} // namespace

Element::Element(QXmlStreamReader& xml, const QString& file)
    : m_xml(xml), m_file(file), m_name(xml.name().toString()), m_place(here()), m_attributes(xml.attributes())
{}

Place Element::here() const
{
    return formPlace(m_file, m_xml.lineNumber());
}

QString Element::text(const QString& attribute)
{
    if (!has(attribute))
        m_place.refuse(u"Dem Element <"_s + m_name + u"> fehlt die Angabe '"_s + attribute + u"'."_s);
    return text(attribute, {});
}

QString Element::text(const QString& attribute, const QString& otherwise)
{
    m_known.append(attribute);
    return has(attribute) ? m_attributes.value(attribute).toString() : otherwise;
}

double Element::length(const QString& attribute)
{
    text(attribute);
    return length(attribute, 0);
}

double Element::length(const QString& attribute, double otherwise)
{
    const QString written = text(attribute, {});
    if (!has(attribute)) return otherwise;
    bool isNumber = false;
    const double value = written.toDouble(&isNumber);
    if (!isNumber || !(value >= 0 && value <= LongestLength))
        refuseValue(attribute, u"eine Zahl ab 0, mit Punkt statt Komma"_s);
    return value;
}

bool Element::truth(const QString& attribute, bool otherwise)
{
    return word<bool>(attribute, {{u"true"_s, true}, {u"false"_s, false}}, otherwise);
}

QRgb Element::color(const QString& attribute, QRgb otherwise)
{
    const QString written = text(attribute, {});
    if (!has(attribute)) return otherwise;
    const QColor color(written);
    if (!written.startsWith(u'#') || !color.isValid()) refuseValue(attribute, u"eine Farbe wie #c0c0c0"_s);
    return color.rgb();
}

void Element::children(std::initializer_list<std::pair<QString, Reading>> known)
{
    refuseUnknownAttributes();
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        refuseBrokenXml();
        if (m_xml.isEndElement()) return;
        if (m_xml.isCharacters() && !m_xml.isWhitespace())
            here().refuse(u"Text steht hier an falscher Stelle: "_s + m_xml.text().toString().trimmed());
        if (!m_xml.isStartElement()) continue;
        const auto* const found = std::find_if(known.begin(), known.end(),
                                               [this](const auto& row) { return m_xml.name() == row.first; });
        if (found == known.end()) {
            QStringList names;
            for (const auto& row : known)
                names.append(row.first);
            refuseChild(names);
        }
        Element child(m_xml, m_file);
        found->second(child);
    }
}

QString Element::content()
{
    refuseUnknownAttributes();
    QString text;
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        refuseBrokenXml();
        if (m_xml.isEndElement()) break;
        if (m_xml.isStartElement()) refuseChild({});
        if (m_xml.isCharacters()) text += m_xml.text();
    }
    return text.trimmed();
}

void Element::finish()
{
    while (!m_xml.atEnd()) {
        m_xml.readNext();
        refuseBrokenXml();
    }
}

void Element::refuseUnknownAttributes() const
{
    for (const QXmlStreamAttribute& attribute : m_attributes) {
        if (attribute.prefix() == u"xsi" || m_known.contains(attribute.name())) continue;
        m_place.refuse(u"Die Angabe '"_s + attribute.qualifiedName().toString() + u"' gibt es bei <"_s +
                       m_name + u"> nicht. Möglich sind: "_s + m_known.join(u", "_s) + u'.');
    }
}

void Element::refuseValue(const QString& attribute, const QString& possible) const
{
    m_place.refuse(u"Die Angabe "_s + attribute + u"=\""_s + m_attributes.value(attribute).toString() +
                   u"\" ist nicht zulässig. Möglich ist: "_s + possible + u'.');
}

void Element::refuseChild(const QStringList& known) const
{
    const QString possible =
        known.isEmpty() ? u"kein Element stehen."_s : u"nur stehen: "_s + listed(known) + u'.';
    here().refuse(u"Das Element <"_s + m_xml.name().toString() + u"> ist hier nicht zulässig. In <"_s +
                  m_name + u"> darf "_s + possible);
}

void Element::refuseBrokenXml() const
{
    switch (m_xml.error()) {
    case QXmlStreamReader::NoError: return;
    case QXmlStreamReader::PrematureEndOfDocumentError:
        here().refuse(u"Die Datei ist unvollständig: Das Ende von <"_s + m_name + u"> fehlt."_s);
    default:
        here().refuse(
            u"Hier ist das XML nicht richtig geschrieben, zum Beispiel ein Element <"_s + m_name +
            u"> falsch geschlossen, ein Anführungszeichen vergessen oder ein < im Text. Die Zeichen < und & "
            "werden als &lt; und &amp; geschrieben."_s);
    }
}

} // namespace report
