#pragma once

#include "core/farm/stammdaten/Stammliste.h"

#include <QDialog>

#include <functional>
#include <vector>

class Stammdatenmodell;
class QComboBox;
class QTableView;
class QTabWidget;

/// "Artikel und Lagerorte": the master data that masks offer, a table a tab, changed in place. They serve
/// every farm of the data directory.
class StammdatenForm final : public QDialog {
    Q_OBJECT

public:
    explicit StammdatenForm(QWidget* parent = nullptr);

    void done(int result) override;

private:
    struct Reiter {
        QTableView* tabelle;
        Stammdatenmodell* modell;
        std::function<Stammliste()> liste;
    };

    void errichteReiter(const QString& titel, const QString& name, QWidget* darueber,
                        std::function<Stammliste()> liste);
    QLayout* errichteKnoepfe();
    void zeige();
    void beginneNeue();
    const Reiter& reiter() const;

    QTabWidget* m_reiter;
    QComboBox* drpArtikelart;
    std::vector<Reiter> m_listen; ///< In the order of the tabs.
};
