#pragma once

#include "masks/Maskenfelder.h"

#include <QDialog>

#include <vector>

class ListField;
class Maskenfuss;

/// The window of every entry mask: keys, size and buttons.
///
/// Where the display is too small for the mask, its fields scroll and its buttons stay in view.
class Maskenfenster : public QDialog {
    Q_OBJECT

public:
    void done(int result) override;         ///< Remembers the size.
    void setVisible(bool visible) override; ///< At first as large as it needs, and as the display has room.
    /// Esc and the window's X: asks when something typed would be lost. "Abbrechen" asks nothing.
    void reject() override;

    Maskenfenster(const Hauptansicht& haupt, QWidget* parent);

    /// To be called by the mask when its own part is set up: keys, buttons, the size it had. F6 goes to the
    /// next of the `anfaenge`, the fields that groups begin with, in the order of the tabulator.
    void richteFensterEin(Maskenfuss& fuss, const std::vector<QWidget*>& anfaenge);
    /// What is typed into the field or chosen there would be lost.
    void bewache(EditField& feld);
    void bewache(ListField& feld);
    const Hauptansicht& haupt() const { return m_haupt; }
    DataControl& journaldaten() const { return m_haupt.Journaldaten; }
    /// Reads the stock list anew and selects the line of an article at a place. Where there is none, as
    /// with the places in sum, the list stays where it was.
    void zeigeBestand(const QString& Artikel, const QString& Lagerort);
    bool aendert() const { return m_id != 0; }
    qint64 ID() const { return m_id; } ///< Of the row that is changed; 0: a new booking.

    void vergissGetipptes() { m_getippt = false; } ///< It is saved.
    void weiter() { focusNextChild(); }

private:
    void setzeInRollbereich();
    void bindeTasten();

    const Hauptansicht m_haupt;
    Maskenfuss* m_fuss = nullptr;
    qint64 m_id = 0;
    bool m_getippt = false; ///< Since the mask was opened or saved.
};
