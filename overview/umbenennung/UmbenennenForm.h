#pragma once

#include "core/farm/umbenennung/Umbenennung.h"

#include <QDialog>

class CheckBox;
class ComboBox;
class MemoBox;
class TextBox;

/// "Umbenennen": another name for an article, a storage place or a business partner in all years, and two of
/// them made one. What it will do stands there before it is done.
class UmbenennenForm final : public QDialog {
    Q_OBJECT

public:
    explicit UmbenennenForm(QWidget* parent = nullptr);

private:
    QLayout* errichteFelder();
    QLayout* errichteKnoepfe();
    void fuelleNamen();
    Umbenennung umbenennung() const;
    bool pruefe();
    void benenne();

    ComboBox* drpWas;
    ComboBox* drpAlt;
    TextBox* txtNeu;
    CheckBox* chkNurBetrieb;
    MemoBox* m_plan;
};
