#pragma once

#include "core/farm/Buchung.h"
#include "masks/Bestandswarnung.h"
#include "masks/Lagerstand.h"
#include "masks/Maskenfenster.h"

#include <functional>
#include <memory>
#include <optional>

class Artikelwahl;
class Buchungstag;
class Lagerortwahl;
class Umbuchseite;
namespace Ui {
class LAUmbuchForm;
}

/// Transfers: a quantity leaves one storage place and arrives at another, or becomes another article.
///
/// It is stored as two rows, an issue and a receipt, each of which names the other in Verfuttert_an. The sign
/// of Menge tells which is which. Both are one commit: of programs that were killed while they booked, each
/// fourth had left an issue without its receipt. What was stored before an error stays all the same, and a
/// save that is tried again goes on from it.
class LAUmbuchForm final : public Maskenfenster {
    Q_OBJECT

public:
    explicit LAUmbuchForm(const Hauptansicht& haupt, QWidget* parent = nullptr);
    ~LAUmbuchForm() override;

    void AmpelEinstellen(); ///< Red where a new stock is below 0.
    void FelderFullen();    ///< Computes the issuing side.
    void FelderFullen2();   ///< Computes the receiving side.

private:
    /// What is the same for both sides.
    struct Seite {
        Umbuchseite& felder;
        NumberEdit& ID; ///< Of the row that is changed.
        int vorzeichen; ///< Of the quantity in its row.
        Lagerortwahl* ort;
        Artikelwahl* artikel;
        Lagerstand stand;
    };

    Seite seite(Umbuchseite& felder, DataControl& Artikelauswahl, NumberEdit& ID, int vorzeichen,
                const std::function<void()>& fuelle);
    Maskenfelder maskenfelder(Umbuchseite& seite, DataControl& Artikelauswahl) const;
    void Form_Load();
    void uebernimmPaar();
    void uebernimmSeite(const Seite& seite, const Buchung& zeile);
    void ermittleEinheit(const Seite& seite);
    void berechne(Seite& seite);
    void txtMenge_Change();
    void zeigeWarnung();

    void schreibe();
    void aendere();
    void bucheNeu();
    qint64 schreibeNeue(std::optional<qint64>& neue, const Seite& seite, std::optional<qint64> partner = {});
    void bearbeite(qint64 ID, const Seite& seite, std::optional<qint64> partner = {});
    Buchung buchung(const Seite& seite, std::optional<qint64> partner) const; ///< The row of a side.
    void positioniere();
    void leereFuerNaechste();

    std::unique_ptr<Ui::LAUmbuchForm> ui;
    DataControl* m_lagerauswahl;
    DataControl* m_artikelauswahl;
    DataControl* m_artikelauswahl2;
    Buchungstag* m_tag = nullptr;
    std::optional<Seite> m_abgang, m_zugang;
    std::optional<Bestandswarnung> m_warnung;
    QString m_mitgenommen; ///< The article that the receiving side has from the issuing one.
    /// The rows, by their ID, of a new pair that could not be written to its end yet.
    std::optional<qint64> m_neuerAbgang, m_neuerZugang;
};
