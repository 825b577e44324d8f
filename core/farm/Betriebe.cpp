#include "core/farm/Betriebe.h"

#include "platform/system/Path.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

bool istBetriebsnummer(const QString& text)
{
    return !text.isEmpty() && text[0] != u'0' &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QStringList betriebe(const QString& datenverzeichnis)
{
    QStringList nummern;
    for (const QString& ordner : QDir(sys::localPath(datenverzeichnis)).entryList({u"B*"_s}, QDir::Dirs)) {
        if (istBetriebsnummer(ordner.mid(1))) nummern.append(ordner.mid(1));
    }
    std::sort(nummern.begin(), nummern.end(), [](const QString& a, const QString& b) {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    });
    nummern.removeDuplicates(); // "b1" beside "B1"
    return nummern;
}
