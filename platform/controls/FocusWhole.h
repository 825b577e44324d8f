#pragma once

class QWidget;

/// Gives a field the focus with its whole text selected: what the user types there takes its place.
void focusWhole(QWidget& field);
