#pragma once

#include "delivery/Lieferscheindatei.h"
#include "platform/controls/DataControl.h"
#include "platform/family/WorkingDirectory.h"
#include "platform/report/PrintControl.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class LieferscheindruckForm;
}

/// The delivery notes of one year: numbers the sales that have no number yet, lists them, and prints the note
/// of the delivery that is chosen. Head, additional text, form and whether prices are printed are kept in the
/// year file.
class LieferscheindruckForm final : public QDialog {
    Q_OBJECT

public:
    explicit LieferscheindruckForm(int Jahr, QWidget* parent = nullptr);
    ~LieferscheindruckForm() override;

    /// Closing, in whatever way, keeps what was typed. When it cannot be kept and the user leaves the report
    /// of that, the window stays open.
    void done(int result) override;

protected:
    bool event(QEvent* event) override;

private:
    void richteListeEin();
    void bindeEinstellungen();

    void Form_Load();
    void Form_Activate();
    void meldeVerkaeufeOhneDatum() const;
    void Lieferscheindaten_Reposition();
    void Command2_Click();

    void oeffne(DataControl& daten) const;
    void fuelleFormulare();
    void lies();
    void sucheEin(std::optional<qint64> ID);
    void schreibeEinstellungen();
    void weiseAb(const QString& grund);
    Lieferschein gewaehlterLieferschein() const;
    QString druckdatei() const;

    const int m_jahr;
    std::unique_ptr<Ui::LieferscheindruckForm> ui;
    DataControl* Liefereinstellungen;
    DataControl* Lieferscheindaten;
    report::PrintControl* Report;
    WorkingDirectory m_arbeitsverzeichnis;
    bool m_ersteAktivierung = true;
};
