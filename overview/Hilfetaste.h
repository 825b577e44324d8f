#pragma once

#include <QObject>
#include <QString>

class QAction;
class QWidget;

/// Help at the window that the user is in: by its key in the main screen, its masks and whatever lies over
/// them, and by the command of the menu.
class Hilfetaste : public QObject {
    Q_OBJECT

public:
    Hilfetaste(QAction& M_Hilfe, QWidget& bildschirm);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString seiteZu(const QWidget* stelle) const;

    const QWidget& m_bildschirm;
};

/// Another page for the main screen and the messages over it, to the end of the block.
class Hilfeseite {
public:
    Hilfeseite(QObject& bildschirm, const QString& seite);
    ~Hilfeseite();
    Q_DISABLE_COPY_MOVE(Hilfeseite)

private:
    QObject& m_bildschirm;
};
