#pragma once

#include <initializer_list>

class QGridLayout;
class QWidget;

/// Sets grids that stand one below the other as one: their first columns, the labels, equally wide, and their
/// second ones, the fields. A frame around a grid counts as part of its labels. \return where the fields
/// begin, in pixels from the left of the grids.
int richteAus(std::initializer_list<QGridLayout*> raster);

/// Hidden, the field leaves its place empty: nothing jumps when it comes and goes while the user types.
void behaeltPlatz(QWidget& feld);
