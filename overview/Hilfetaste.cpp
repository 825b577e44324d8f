#include "overview/Hilfetaste.h"

#include "core/Modulzustand.h"
#include "overview/Hilfe.h"
#include "platform/controls/Tasten.h"
#include "platform/controls/Wiring.h"
#include "platform/system/OwnFile.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr auto EigeneSeite = "Hilfeseite";

/// By the names of the windows.
const std::map<QString, QString> Seiten{
    {u"LAZukaufForm"_s, u"buchen"_s},         {u"LAKorrekturForm"_s, u"buchen"_s},
    {u"LAUmbuchForm"_s, u"buchen"_s},         {u"LieferscheindruckForm"_s, u"lieferscheine"_s},
    {u"StammdatenForm"_s, u"stammdaten"_s},   {u"PruefungForm"_s, u"sicherung"_s},
    {u"InventurForm"_s, u"inventur"_s},       {u"VerlaufForm"_s, u"verlauf"_s},
    {u"JahreslisteForm"_s, u"jahresliste"_s}, {u"UmbenennenForm"_s, u"umbenennen"_s},
    {u"Druckvorschau"_s, u"drucken"_s}};

void zeige(const QString& seite)
{
    zeigeHilfe(modulzustand().Hilfedatei, sys::ownFile(), seite);
}

} // namespace

Hilfetaste::Hilfetaste(QAction& M_Hilfe, QWidget& bildschirm) : QObject(&bildschirm), m_bildschirm(bildschirm)
{
    M_Hilfe.setText(M_Hilfe.text() + u'\t' + tastenname(Taste::Hilfe));
    verdrahte(&M_Hilfe, &QAction::triggered, this, [this] { zeige(seiteZu(&m_bildschirm)); });
    qApp->installEventFilter(this); // a shortcut of this window does not reach the modal ones over it
}

/// The page of the nearest window that has one; empty for what does not belong to the main screen.
QString Hilfetaste::seiteZu(const QWidget* stelle) const
{
    QString seite;
    for (; stelle && stelle != &m_bildschirm; stelle = stelle->parentWidget())
        if (const auto eine = Seiten.find(stelle->objectName()); seite.isEmpty() && eine != Seiten.end())
            seite = eine->second;
    if (!stelle || !seite.isEmpty()) return stelle ? seite : QString();
    const QString eigene = m_bildschirm.property(EigeneSeite).toString();
    return eigene.isEmpty() ? u"hauptbildschirm"_s : eigene;
}

bool Hilfetaste::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto* const taste = static_cast<QKeyEvent*>(event);
    if (QKeySequence(taste->keyCombination()) != tastenzeile(Taste::Hilfe).tasten.constFirst()) return false;
    const QString seite = seiteZu(static_cast<const QWidget*>(watched));
    if (seite.isEmpty()) return false;
    if (!taste->isAutoRepeat()) sys::underErrorReport({[&] { zeige(seite); }});
    return true;
}

Hilfeseite::Hilfeseite(QObject& bildschirm, const QString& seite) : m_bildschirm(bildschirm)
{
    bildschirm.setProperty(EigeneSeite, seite);
}

Hilfeseite::~Hilfeseite()
{
    m_bildschirm.setProperty(EigeneSeite, {});
}
