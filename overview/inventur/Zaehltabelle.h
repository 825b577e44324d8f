#pragma once

#include <QElapsedTimer>
#include <QTableView>

/// A table that is filled by keyboard alone: figures are typed into the column of counts, Enter goes a row
/// down, Entf empties, letters look for the article.
class Zaehltabelle : public QTableView {
    Q_OBJECT

public:
    explicit Zaehltabelle(QWidget* parent = nullptr);

    /// Takes what is typed and not left yet, as when a key presses a button. \returns false: it was refused.
    bool uebernimm();

protected:
    void keyPressEvent(QKeyEvent* taste) override;
    void closeEditor(QWidget* feld, QAbstractItemDelegate::EndEditHint wie) override;

private:
    void geheWeiter();
    void suche(const QString& buchstabe);

    QString m_wort;
    QElapsedTimer m_seitBuchstabe;
};
