#include "bench/Speicher.h"

#include "bench/Messung.h"

#include <QFile>

#include <malloc.h>

using namespace Qt::StringLiterals;

namespace {

double ausStatus(const QByteArray& name)
{
    QFile status(u"/proc/self/status"_s);
    fordere(status.open(QIODevice::ReadOnly), u"the system does not tell what memory is used"_s);
    for (const QByteArray& zeile : status.readAll().split('\n'))
        if (zeile.startsWith(name))
            return zeile.mid(name.size()).simplified().split(' ').first().toDouble() * 1024;
    return 0;
}

} // namespace

double belegterSpeicher()
{
    return ausStatus("VmRSS:");
}

double speicherspitze()
{
    return ausStatus("VmHWM:");
}

void beginneSpitze()
{
    QFile schalter(u"/proc/self/clear_refs"_s);
    fordere(schalter.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && schalter.write("5") == 1,
            u"the system does not let the peak of memory begin anew"_s);
}

double vergebenerSpeicher()
{
    const auto stand = mallinfo2();
    return static_cast<double>(stand.uordblks) + static_cast<double>(stand.hblkhd);
}
