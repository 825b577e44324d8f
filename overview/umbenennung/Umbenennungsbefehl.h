#pragma once

#include <QAction>

#include <functional>

/// "Umbenennen ..." in the menu.
class Umbenennungsbefehl : public QAction {
    Q_OBJECT

public:
    /// `danach` is called when the window is closed.
    Umbenennungsbefehl(const std::function<void()>& danach, QWidget* bildschirm);
};
