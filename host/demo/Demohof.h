#pragma once

#include "host/Installation.h"

#include <QDate>
#include <QString>

/// The farm number of the demo farm.
inline const QString Demobetrieb = QStringLiteral("4711");

/// Creates the demo farm: master data, three closed years and the current one with its bookings up to
/// `heute`, opening stocks carried forward by the component.
///
/// It is built in a directory of its own, `demo.neu`, and then moved to its places, files that exist staying
/// as they are; the farm's folder comes last. Whoever finds that folder has found a whole farm, and the run
/// after an interrupted one begins anew. \returns false when the directory has a farm of that number already;
/// nothing is changed then. \throws sys::FileError when other farms live in the directory, whose master data
/// the demo farm would mix with, when another run is at work, or when something cannot be written;
/// jet::Error.
bool legeDemohofAn(const Installation& ort, QDate heute);
