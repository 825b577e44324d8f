#pragma once

#include <QObject>

class QWidget;

/// Translates a key that was pressed in a field, given by its classic code: Enter (13) becomes Tab and is
/// swallowed (set to 0), F2 (113) becomes Alt+Down, which opens the list of a combo. The new key goes to the
/// field that has the focus when the handler has returned.
void TasteUmsetzen(int& KeyCode);

/// Lets the keys of all fields of a screen, which has its buttons already, go through TasteUmsetzen while it
/// lives. On a focused button Enter presses that button and no other one, in a text of several lines it
/// begins a new one, and a field with the property KeepsEnter gets it itself.
class FieldKeys : public QObject {
    Q_OBJECT

public:
    explicit FieldKeys(QWidget& screen);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& m_screen;
};
