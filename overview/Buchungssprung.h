#pragma once

#include <QObject>

#include <functional>
#include <optional>

class ComboBox;
class DataControl;
class DataGrid;
class QTabWidget;

/// Leads from another window to a booking in the journal of the main screen.
class Buchungssprung : public QObject {
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
    Buchungssprung(const Felder& felder, std::function<void()> zeigeAlles, QObject* bildschirm);

    /// Opens the year, when the user agrees, and makes the booking current, where one is named.
    void geheZu(int jahr, std::optional<qint64> ID) const;

private:
    bool oeffneJahr(int jahr) const;
    void zeigeBuchung(qint64 ID) const;

    const Felder m_felder;
    const std::function<void()> m_zeigeAlles;
};
