#pragma once

#include "core/Lagerverwaltungsdaten.h"
#include "platform/controls/MessageBoxes.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <QObject>
#include <QString>

#include <memory>

/// The root object of the loadable library: makes the objects that hosts ask for, by class name or
/// early-bound.
class Zablager final : public QObject, public IZablager {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "ZABLAGER.Zablager/1.0")
    Q_INTERFACES(IZablager)
    Q_PROPERTY(QString LetzterFehler READ LetzterFehler)
    Q_PROPERTY(QString Version READ Version CONSTANT)

public:
    Zablager();
    ~Zablager() override { m_meldungen->desWirts = nullptr; } // nobody could replace it any more
    Q_DISABLE_COPY_MOVE(Zablager)

    /// A new object of the class "ZABLAGER.Lagerverwaltungsdaten", owned by the caller; null for any other
    /// class, with the reason in LetzterFehler.
    Q_INVOKABLE QObject* CreateObject(const QString& klasse);
    static QString Version(); ///< Of the library, such as "0.2.0".
    QString LetzterFehler() const
    {
        return m_fehler;
    } ///< Why the last CreateObject gave null; empty after another.

    std::unique_ptr<_Lagerverwaltungsdaten> erzeuge() override;
    void setzeMeldungen(sys::Messages* meldungen) override { m_meldungen->desWirts = meldungen; }

private:
    /// Where messages can go. Shared with the objects, which a host may keep after it has unloaded the
    /// library and thereby deleted us.
    struct Meldungsziele {
        MessageBoxes boxen;
        sys::Messages* desWirts = nullptr;
    };
    static std::unique_ptr<Lagerverwaltungsdaten> neu(const std::shared_ptr<Meldungsziele>& meldungen);

    std::shared_ptr<Meldungsziele> m_meldungen = std::make_shared<Meldungsziele>();
    QString m_fehler;
};
