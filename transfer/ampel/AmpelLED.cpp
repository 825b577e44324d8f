#include "transfer/ampel/AmpelLED.h"

#include "transfer/ampel/Systemfarbe.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Lampe {
    QStringView name, bedeutung;
};

/// By state. What a lamp says must not hang on its colour.
constexpr Lampe Lampen[] = {
    {u"Ampelgrau", u"grau: Bestand nicht bekannt"},
    {u"Ampelgruen", u"grün: Bestand ausreichend"},
    {u"Ampelgelb", u"gelb: Bestand knapp"},
    {u"Ampelrot", u"rot: Bestand negativ"},
};

int begrenzt(qint64 zustand)
{
    return int(std::clamp<qint64>(zustand, 0, 3));
}

/// Screen readers pass over widgets of no role.
QAccessibleInterface* alsBild(const QString& klasse, QObject* objekt)
{
    if (klasse != u"AmpelLED" && klasse != u"Ampelbild") return nullptr;
    return new QAccessibleWidget(qobject_cast<QWidget*>(objekt), QAccessible::Graphic);
}

} // namespace

AmpelLED::AmpelLED(QWidget* parent) : QWidget(parent), m_backColor(FarbeSchaltflache)
{
    QAccessible::installFactory(alsBild); // a second time has no effect
    for (std::size_t i = 0; i < m_bilder.size(); ++i)
        m_bilder[i] = new Ampelbild(Lampen[i].name.toString(), Lampen[i].bedeutung.toString(), *this);
    zeige(0);
    setAccessibleName(u"Bestandsampel"_s);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    InitProperties();
}

int AmpelLED::Ampel()
{
    stapleBilder();
    const int zustand = begrenzt(m_ampel);
    zeige(zustand);
    return zustand;
}

void AmpelLED::setAmpel(int New_Ampel)
{
    m_ampel = New_Ampel;
    Q_EMIT AmpelGeandert();
    stapleBilder();
    m_ampel = begrenzt(m_ampel);
    zeige(m_ampel);
}

void AmpelLED::setBackColor(quint32 New_BackColor)
{
    m_backColor = New_BackColor;
    update();
    Q_EMIT BackColorGeandert();
}

void AmpelLED::InitProperties()
{
    m_ampel = 0;
}

void AmpelLED::ReadProperties(const PropertyBag& bag)
{
    m_ampel = begrenzt(bag.ReadProperty(u"Ampel"_s, 0));
    zeige(m_ampel);
    m_backColor = quint32(bag.ReadProperty(u"BackColor"_s, FarbeArbeitsbereich));
    update();
}

void AmpelLED::WriteProperties(PropertyBag& bag) const
{
    bag.WriteProperty(u"Ampel"_s, m_ampel, 0);
    bag.WriteProperty(u"BackColor"_s, m_backColor, FarbeArbeitsbereich);
}

void AmpelLED::paintEvent(QPaintEvent*)
{
    QPainter(this).fillRect(rect(), farbeZu(m_backColor, palette()));
}

void AmpelLED::stapleBilder()
{
    m_bilder[0]->move(0, 0);
    for (std::size_t i = 1; i < m_bilder.size(); ++i)
        m_bilder[i]->move(m_bilder[0]->pos());
}

void AmpelLED::zeige(int zustand)
{
    for (Ampelbild* const bild : m_bilder)
        bild->hide();
    Ampelbild* const sichtbar = m_bilder[std::size_t(zustand)];
    sichtbar->show();
    setAccessibleDescription(sichtbar->accessibleName());
}
