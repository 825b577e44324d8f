#pragma once

#include <QLabel>

/// What is going on, in the status line to the end of the block.
class Statusmeldung {
public:
    Statusmeldung(QLabel& zeile, const QString& text) : m_zeile(zeile), m_vorher(zeile.text())
    {
        zeile.setText(text);
        zeile.repaint();
    }
    ~Statusmeldung() { m_zeile.setText(m_vorher); }
    Q_DISABLE_COPY_MOVE(Statusmeldung)

private:
    QLabel& m_zeile;
    const QString m_vorher;
};
