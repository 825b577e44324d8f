// A host that knows names only: the same as early.cpp through Qt's meta-objects, without our headers.

#include <QDate>
#include <QObject>
#include <QPluginLoader>
#include <QVariant>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<QObject> erzeuge(QObject* zablager, const QString& klasse)
{
    QObject* objekt = nullptr;
    QMetaObject::invokeMethod(zablager, "CreateObject", Q_RETURN_ARG(QObject*, objekt),
                              Q_ARG(QString, klasse));
    if (!objekt) std::printf("%s\n", qUtf8Printable(zablager->property("LetzterFehler").toString()));
    return std::unique_ptr<QObject>(objekt);
}

double bestand(QObject* lager, const QString& artikel, const QString& ort, QDate tag)
{
    double menge = 0;
    QMetaObject::invokeMethod(lager, "Get_Bestand", Q_RETURN_ARG(double, menge), Q_ARG(QString, artikel),
                              Q_ARG(QString, ort), Q_ARG(QDate, tag));
    return menge;
}

/// Number 0: the call succeeded, and a text is at most a message to the user.
void zeigeFehler(const QObject* lager)
{
    const int nummer = lager->property("LetzteFehlernummer").toInt();
    std::printf("%d: %s\n", nummer, qUtf8Printable(lager->property("LetzterFehler").toString()));
}

} // namespace

int main()
{
    QPluginLoader bibliothek(QStringLiteral(ZABLAGER_LIBRARY));
    QObject* const zablager = bibliothek.instance();
    if (!zablager) return 1;
    erzeuge(zablager, u"ZABLAGER.Artikel"_s);
    const auto lager = erzeuge(zablager, u"ZABLAGER.Lagerverwaltungsdaten"_s);
    if (!lager) return 1;

    lager->setProperty("Betriebsnummer", u"4711"_s);
    lager->setProperty("Währung", u"€"_s);
    lager->setProperty("Stichdatum", QDate(2024, 1, 1));
    QMetaObject::invokeMethod(lager.get(), "Kontrolle_LagerbestandLaden");
    zeigeFehler(lager.get());
    std::printf("Weizen: %g\n", bestand(lager.get(), u"Weizen"_s, u"H1"_s, QDate(2025, 6, 30)));
    zeigeFehler(lager.get());
    bestand(lager.get(), u"Bauer's Mix"_s, u"H1"_s, QDate(2025, 6, 30));
    zeigeFehler(lager.get());
    return 0;
}
