#pragma once

#include "core/farm/pruefung/Befund.h"

#include <QDialog>

#include <optional>
#include <vector>

class QLabel;
class QTableWidget;

/// "Dateien prüfen": what a check of the farm's files has found, the worst first. Enter on a line leaves
/// the window for the booking that it is about.
class PruefungForm final : public QDialog {
    Q_OBJECT

public:
    explicit PruefungForm(QWidget* parent = nullptr);

    /// What the window was left for; nothing when it was closed.
    const std::optional<Befund>& gewaehlter() const { return m_gewaehlter; }
    void done(int result) override;

private:
    void pruefeAlles();
    void zeige();
    void waehle();

    QTableWidget* m_liste;
    QLabel* m_ergebnis;
    std::vector<Befund> m_befunde; // in the order of the lines
    std::optional<Befund> m_gewaehlter;
};
