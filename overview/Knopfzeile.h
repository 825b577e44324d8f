#pragma once

#include "platform/controls/Wiring.h"

#include <QHBoxLayout>
#include <QPushButton>

/// The buttons below a window, from left to right. Enter presses the focused one alone.
class Knopfzeile : public QHBoxLayout {
public:
    /// `handler` is a member function of the window, or a callable of its own.
    template <class Fenster, class Handler>
    void fuege(Fenster* fenster, const QString& name, const QString& text, Handler handler)
    {
        auto* const knopf = new QPushButton(text);
        knopf->setObjectName(name);
        knopf->setAutoDefault(false);
        verdrahte(knopf, &QPushButton::clicked, fenster, handler);
        addWidget(knopf);
    }
};
