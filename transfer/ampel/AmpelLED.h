#pragma once

#include "transfer/ampel/Ampelbild.h"
#include "transfer/ampel/PropertyBag.h"

#include <array>

/// The traffic light beside a stock figure: four pictures on one spot, of which one is visible.
///
///     0 Ampelgrau    nothing known        2 Ampelgelb    stock runs short
///     1 Ampelgruen   stock suffices       3 Ampelrot     stock is negative
///
/// Which lamp is lit is the masks' rule. Hosts read and write the properties; a write comes from no user and
/// fires nothing but the signal for the container. A new light shows its layout's picture, the grey one, and
/// has the colour of dialogs.
class AmpelLED : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int Ampel READ Ampel WRITE setAmpel NOTIFY AmpelGeandert)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor NOTIFY BackColorGeandert)
    // Where designers find the description of the property.
    Q_CLASSINFO("BackColor",
                "Gibt die Hintergrundfarbe zurück, die verwendet wird, um Text und Grafik in einem Objekt "
                "anzuzeigen, oder legt diese fest.")

public:
    explicit AmpelLED(QWidget* parent = nullptr);

    /// The state, 0 to 3. Reading puts the pictures back on their spot and shows the lamp of the state, as
    /// writing does.
    int Ampel();
    /// What is below 0 or above 3 becomes 0 or 3, after AmpelGeandert.
    void setAmpel(int New_Ampel);

    /// A classic colour value: 0x00BBGGRR, or a system colour such as 0x8000000F. Fills what the lamp leaves
    /// free.
    quint32 BackColor() const { return m_backColor; }
    void setBackColor(quint32 New_BackColor);

    void InitProperties(); ///< A new control: state 0; no picture is shown or hidden.
    void
    ReadProperties(const PropertyBag& bag); ///< A saved layout; pictures stay on their spot, no signal comes.
    /// Keeps "Ampel" and "BackColor" where they differ from 0 and the application workspace's 0x8000000C.
    void WriteProperties(PropertyBag& bag) const;

    QSize sizeHint() const override { return m_bilder[0]->size(); }
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void AmpelGeandert(); ///< Comes with every write, before the lamp changes.
    void BackColorGeandert();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void stapleBilder();
    void zeige(int zustand);

    std::array<Ampelbild*, 4> m_bilder; // by state
    int m_ampel = 0;                    // out of range only while AmpelGeandert runs
    quint32 m_backColor;
};
