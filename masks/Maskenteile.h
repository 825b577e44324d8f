#pragma once

#include "ui_Maskenfuss.h"
#include "ui_Maskenkopf.h"

#include <QWidget>

/// The upper part of every entry mask: day, storage place, kind and article.
class Maskenkopf : public QWidget, public Ui::Maskenkopf {
public:
    explicit Maskenkopf(QWidget* parent = nullptr) : QWidget(parent) { setupUi(this); }
};

/// The lower part of every entry mask: comment and buttons.
class Maskenfuss : public QWidget, public Ui::Maskenfuss {
public:
    explicit Maskenfuss(QWidget* parent = nullptr) : QWidget(parent) { setupUi(this); }
};
