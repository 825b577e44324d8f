#include "overview/Hilfe.h"

#include "platform/system/Files.h"
#include "platform/system/Messages.h"
#include "platform/system/Path.h"
#include "platform/system/Programs.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString handbuchseite(const QString& bibliothek, const QString& seite)
{
    const QString ordner = QFileInfo(bibliothek).path();
    return QDir::cleanPath(ordner + u"/../share/doc/zablager/handbuch/"_s + seite + u".html"_s);
}

} // namespace

void zeigeHilfe(const QString& Hilfedatei, const QString& bibliothek, const QString& seite)
{
    const QString handbuch = handbuchseite(bibliothek, seite);
    for (const QString& datei : {Hilfedatei, handbuch}) {
        if (!datei.isEmpty() && sys::Exist(datei)) return sys::openDocument(datei);
    }
    sys::critical(u"Die Hilfe wurde nicht gefunden. Erwartet wird sie in einer dieser beiden Dateien:\r\r"_s +
                  sys::localPath(Hilfedatei) + u'\r' + handbuch +
                  u"\r\rWird die Lagerverwaltung neu installiert, so ist auch das Handbuch wieder da."_s);
}
