#include "overview/Hilfemenue.h"

#include "platform/controls/Wiring.h"
#include "platform/system/Application.h"
#include "platform/system/Messages.h"
#include "platform/system/OwnFile.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

void zeigeProgramminfo()
{
    const QString text =
        u"ZABLAGER "_s + sys::applicationVersion() +
        u"\rLagerverwaltung eines landwirtschaftlichen Betriebes\r\r"_s +
        u"© The ZABLAGER authors, MIT-Lizenz: Das Programm darf benutzt, geändert und weitergegeben"
        u" werden; es gibt keine Gewähr.\r\rGeladen aus "_s +
        sys::ownFile() + u"\rmit Qt "_s + QString::fromLatin1(qVersion());
    sys::messages().show(text, sys::OKOnly | sys::Information);
}

} // namespace

void ergaenzeHilfemenue(QMenuBar& leiste, QAction& hilfe)
{
    QMenu* const menue = leiste.addMenu(u"&Hilfe"_s);
    menue->addAction(&hilfe);
    QAction* const info = menue->addAction(u"&Info zur Lagerverwaltung"_s);
    info->setObjectName(u"M_Info"_s);
    verdrahte(info, &QAction::triggered, menue, &zeigeProgramminfo);
}
