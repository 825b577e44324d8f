#pragma once

#include <QAction>

#include <functional>

/// "Inventur ..." in the menu.
class Inventurbefehl : public QAction {
    Q_OBJECT

public:
    /// `danach` is called when something was booked.
    Inventurbefehl(const std::function<void()>& danach, QWidget* bildschirm);
};
