#pragma once

#include <QMap>
#include <QString>

/// What a saved layout keeps of one control: numbers by the names of its properties. What equals its default
/// is not kept.
class PropertyBag {
public:
    qint64 ReadProperty(const QString& name, qint64 defaultValue) const
    {
        return m_kept.value(name, defaultValue);
    }
    void WriteProperty(const QString& name, qint64 value, qint64 defaultValue)
    {
        if (value == defaultValue)
            m_kept.remove(name);
        else
            m_kept.insert(name, value);
    }
    const QMap<QString, qint64>& kept() const { return m_kept; }

private:
    QMap<QString, qint64> m_kept;
};
