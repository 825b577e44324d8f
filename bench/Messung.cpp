#include "bench/Messung.h"

#include "platform/system/Messages.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

double median(std::vector<double> zeiten)
{
    const auto mitte = zeiten.begin() + static_cast<std::ptrdiff_t>(zeiten.size() / 2);
    std::nth_element(zeiten.begin(), mitte, zeiten.end());
    return *mitte;
}

double kuerzeste(const std::vector<double>& zeiten)
{
    return *std::min_element(zeiten.begin(), zeiten.end());
}

QString fach(double verhaeltnis)
{
    return QString::number(verhaeltnis, 'f', 2) + u"x"_s;
}

double sekunden(const std::function<void()>& arbeit)
{
    QElapsedTimer uhr;
    uhr.start();
    arbeit();
    return static_cast<double>(uhr.nsecsElapsed()) / 1e9;
}

QString zeitText(double sekunden)
{
    if (sekunden < 1e-3) return QString::number(sekunden * 1e6, 'f', 2) + u" us"_s;
    if (sekunden < 1) return QString::number(sekunden * 1e3, 'f', 2) + u" ms"_s;
    return QString::number(sekunden, 'f', 2) + u" s"_s;
}

int zahl(const QCommandLineParser& aufruf, const QString& name, int vorgabe)
{
    if (!aufruf.isSet(name)) return vorgabe;
    const int zahl = aufruf.value(name).toInt();
    fordere(zahl > 0, u"--"_s + name + u" wants a positive number"_s);
    return zahl;
}

Umfang umfang(const QCoreApplication& programm, const Umfang& vorgabe, const Umfang& voll)
{
    QCommandLineParser aufruf;
    aufruf.addHelpOption();
    aufruf.addOptions({{u"zeilen"_s, u"Journal rows a year."_s, u"number"_s},
                       {u"paare"_s, u"Pairs of article and storage place."_s, u"number"_s},
                       {u"runden"_s, u"How often each way is timed."_s, u"number"_s},
                       {u"voll"_s, u"The full size."_s}});
    aufruf.process(programm);
    const Umfang& basis = aufruf.isSet(u"voll"_s) ? voll : vorgabe;
    const Umfang umfang = {zahl(aufruf, u"zeilen"_s, basis.zeilen), zahl(aufruf, u"paare"_s, basis.paare),
                           zahl(aufruf, u"runden"_s, basis.runden)};
    fordere(umfang.zeilen >= umfang.paare, u"there must be a row for each pair"_s);
    return umfang;
}

/// What reports an error does something else than what is to be measured.
class Meldungswaechter : public sys::Messages {
public:
    sys::Answer show(const QString& text, int flags) override
    {
        if (erste.isEmpty()) erste = text;
        return sys::defaultAnswer(flags);
    }

    QString erste;
};

} // namespace

Messung::Messung(const QString& titel, int teile) : m_titel(titel), m_teile(teile) {}

void Messung::nimm(const QString& name, double ziel, std::function<void()> arbeit,
                   std::function<void()> vorher)
{
    m_wege.push_back(
        {name, ziel, [arbeit = std::move(arbeit)] { return sekunden(arbeit); }, std::move(vorher), {}});
}

void Messung::nimmGemessen(const QString& name, double ziel, std::function<double()> arbeit)
{
    m_wege.push_back({name, ziel, std::move(arbeit), {}, {}});
}

void Messung::miss(int runden)
{
    for (int runde = 0; runde < runden; ++runde) {
        for (Weg& weg : m_wege) {
            if (weg.vorher) weg.vorher();
            weg.zeiten.push_back(weg.arbeit() / m_teile);
        }
    }
    drucke(m_titel + u", "_s + QString::number(runden) + u" rounds"_s);
    for (const Weg& weg : m_wege)
        drucke(zeile(weg, m_wege.front()));
}

QString Messung::zeile(const Weg& weg, const Weg& grenze)
{
    const double mitte = median(weg.zeiten);
    const double mindestens = kuerzeste(weg.zeiten);
    QString zeiten = u"  "_s + weg.name.leftJustified(40) + zeitText(mitte).rightJustified(10) +
                     u"  (least "_s + zeitText(mindestens) + u")"_s;
    if (weg.ziel == 0) return zeiten;
    return zeiten + u"  "_s + fach(mitte / median(grenze.zeiten)) + u" (least "_s +
           fach(mindestens / kuerzeste(grenze.zeiten)) + u") of at most "_s + QString::number(weg.ziel) +
           u"x"_s;
}

void missEinzeln(const QString& titel, double hoechstensMs, int runden,
                 const std::function<void(int i)>& arbeit)
{
    std::vector<double> zeiten;
    for (int i = 0; i < runden; ++i) {
        QElapsedTimer uhr;
        uhr.start();
        arbeit(i);
        zeiten.push_back(static_cast<double>(uhr.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(zeiten);
    drucke(titel + u": "_s + QString::number(zeiten[zeiten.size() / 2], 'f', 2) + u" ms (least "_s +
           QString::number(zeiten.front(), 'f', 2) + u") of at most "_s + QString::number(hoechstensMs) +
           u" ms"_s);
}

int messe(int argc, char** argv, Umfang vorgabe, Umfang voll,
          const std::function<void(const Umfang&)>& arbeit)
{
    return messe(QCoreApplication(argc, argv), vorgabe, voll, arbeit);
}

int messe(const QCoreApplication& programm, Umfang vorgabe, Umfang voll,
          const std::function<void(const Umfang&)>& arbeit)
{
    Meldungswaechter meldungen;
    const sys::MessageScope dorthin(meldungen);
    try {
        arbeit(umfang(programm, vorgabe, voll));
        fordere(meldungen.erste.isEmpty(), u"reported: "_s + meldungen.erste);
        return 0;
    } catch (const std::exception& fehler) {
        std::fprintf(stderr, "%s\n", fehler.what());
        return 1;
    }
}

void fordere(bool bedingung, const QString& text)
{
    if (!bedingung) throw std::runtime_error(text.toStdString());
}

void drucke(const QString& zeile)
{
    std::printf("%s\n", qUtf8Printable(zeile));
    std::fflush(stdout);
}
