#pragma once

#include "platform/report/Place.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <QXmlStreamReader>

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

namespace report {

/// One element of a form's XML while it is read, with its attributes as what they mean. Everything that is
/// not understood is refused with file and line; nothing is passed over.
class Element {
public:
    /// The reader stands at the element's start.
    Element(QXmlStreamReader& xml, const QString& file);

    QString name() const { return m_name; }
    const Place& place() const { return m_place; }

    QString text(const QString& attribute); ///< \throws jet::Error where it is missing.
    QString text(const QString& attribute, const QString& otherwise); ///< An attribute that may be missing.
    double length(const QString& attribute);                          ///< 0 to 10 000, with a point.
    double length(const QString& attribute, double otherwise);
    bool truth(const QString& attribute, bool otherwise = false); ///< "true" or "false".
    QRgb color(const QString& attribute, QRgb otherwise);         ///< "#rrggbb".
    bool has(const QString& attribute) const { return m_attributes.hasAttribute(attribute); }
    /// One of a few words.
    template <class Value>
    Value word(const QString& attribute, const std::vector<std::pair<QString, Value>>& words, Value otherwise)
    {
        const QString written = text(attribute, {});
        QStringList possible;
        for (const auto& [word, value] : words) {
            if (written == word) return value;
            possible.append(word);
        }
        if (has(attribute)) refuseValue(attribute, possible.join(QStringLiteral(", ")));
        return otherwise;
    }

    using Reading = std::function<void(Element&)>;
    /// Reads the elements inside; each name has its own function. To be called once, after the attributes.
    void children(std::initializer_list<std::pair<QString, Reading>> known);
    /// Reads the text inside, as it stands, but for blanks at its ends; for an element without elements.
    QString content();
    /// For an element with nothing inside.
    void end() { children({}); }
    /// For the outermost element: nothing but comments may stand behind it.
    void finish();

private:
    void refuseUnknownAttributes() const;
    [[noreturn]] void refuseValue(const QString& attribute, const QString& possible) const;
    [[noreturn]] void refuseChild(const QStringList& known) const;
    void refuseBrokenXml() const;
    Place here() const;

    QXmlStreamReader& m_xml;
    QString m_file;
    QString m_name;
    Place m_place;
    QXmlStreamAttributes m_attributes;
    QStringList m_known;
};

} // namespace report
