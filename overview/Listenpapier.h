#pragma once

#include "platform/jet/Value.h"

#include <QString>
#include <QTemporaryDir>

#include <utility>
#include <vector>

class QWidget;
namespace report {
class PrintControl;
}

/// Prints rows that stand in no file, through a report form of the farm.
class Listenpapier {
public:
    struct Auftrag {
        QString formular; ///< "Zaehlliste.rpt", in the folder of the report forms.
        QString titel;    ///< Of the document.
        QString tabelle;  ///< As the form calls it.
        std::vector<std::pair<QString, QString>> spalten; ///< Name and type: "Artikel", "Text(50)".
        std::vector<std::vector<jet::Value>> zeilen;      ///< A value for each column.
        std::vector<std::pair<QString, QString>> formeln; ///< Beside number and name of the farm.
    };

    explicit Listenpapier(QWidget* fenster);

    /// Shows the pages in a preview of their own. \throws jet::Error, sys::FileError.
    void drucke(const Auftrag& auftrag);

private:
    static void baue(const QString& datei, const Auftrag& auftrag);

    QTemporaryDir m_ordner;
    report::PrintControl* m_druck;
};
