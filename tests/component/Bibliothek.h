#pragma once

#include "tests/support/Testbetrieb.h"

#include <zablager/Lagerverwaltungsdaten.h>

#include <QPluginLoader>

#include <gtest/gtest.h>

#include <memory>

/// The library loaded as a host does, and a farm of two years. A test may not name the state of the library: it is not the
/// one that the tests are linked with.
class Bibliothek : public testing::Test {
protected:
    Bibliothek()
    {
        hof.bucht(2023, "30.06. | H1 | Weizen | 120,5 | Ernte");
        hof.bucht(2024, "01.02. | H1 | Weizen | -20 | Verkauf");
        EXPECT_TRUE(wurzel) << loader.errorString().toStdString();
    }

    std::unique_ptr<QObject> objekt(const QString& klasse = QStringLiteral("ZABLAGER.Lagerverwaltungsdaten")) const
    {
        QObject* neu = nullptr;
        EXPECT_TRUE(
            QMetaObject::invokeMethod(wurzel, "CreateObject", Q_RETURN_ARG(QObject*, neu), Q_ARG(QString, klasse)));
        return std::unique_ptr<QObject>(neu);
    }

    Testbetrieb hof{QDate(2023, 1, 1)};
    QPluginLoader loader{QStringLiteral(ZABLAGER_LIBRARY)};
    QObject* const wurzel = loader.instance();
};

/// A late-bound stock question; `Tag` is QDate or QDateTime.
template <class Tag>
double bestand(QObject& lager, const char* art, const QString& artikel, const Tag& tag)
{
    double menge = -1;
    EXPECT_TRUE(QMetaObject::invokeMethod(&lager, "Get_Bestand", Q_RETURN_ARG(double, menge), Q_ARG(QString, artikel),
                                          Q_ARG(QString, QStringLiteral("H1")), QGenericArgument(art, &tag)));
    return menge;
}
