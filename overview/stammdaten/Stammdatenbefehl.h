#pragma once

#include <QAction>

#include <functional>

/// "Artikel und Lagerorte ..." in the menu.
class Stammdatenbefehl : public QAction {
    Q_OBJECT

public:
    /// `danach` is called when the window has closed: the main screen's lists may show other names.
    Stammdatenbefehl(const std::function<void()>& danach, QWidget* bildschirm);
};
