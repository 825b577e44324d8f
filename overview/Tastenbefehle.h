#pragma once

#include <QObject>

#include <functional>

namespace Ui {
class LagerbestandNeu;
}
class QPushButton;

/// The keys of the main screen, for those who work without a mouse: each leads to a field or presses a
/// button, as the table of keys says.
class Tastenbefehle : public QObject {
    Q_OBJECT

public:
    struct Befehle {
        std::function<void()> neuLesen;
        std::function<void()> allesZeigen;
    };
    Tastenbefehle(Ui::LagerbestandNeu& ui, const Befehle& befehle, QWidget& bildschirm);

private:
    void bindeFelder();
    void bindeKnoepfe();
    bool journalGezeigt() const;
    void zeigeListe(int reiter);
    void wechsleGruppe(int schritt);
    void druecke(QPushButton& knopf);

    Ui::LagerbestandNeu& m_ui;
    QWidget& m_bildschirm;
};
