#pragma once

#include <QAction>

#include <functional>
#include <optional>

class ComboBox;
class DataControl;
class DataGrid;
class QTabWidget;
class QWidget;
struct Befund;

/// "Dateien prüfen ..." in the menu: what is found leads to its booking in the journal.
class Pruefbefehl : public QAction {
    Q_OBJECT

public:
    struct Felder {
        ComboBox& drpJahr;
        QTabWidget& SSTab1;
        QWidget& TabJournal;
        DataControl& Journaldaten;
        DataGrid& Journalliste;
    };
    /// `zeigeAlles` lets the filter hide nothing any more.
    Pruefbefehl(const Felder& felder, std::function<void()> zeigeAlles, QWidget* bildschirm);

private:
    void pruefe(QWidget* bildschirm);
    bool oeffneJahr(int jahr) const;
    void zeigeBuchung(qint64 ID) const;

    const Felder m_felder;
    const std::function<void()> m_zeigeAlles;
};
