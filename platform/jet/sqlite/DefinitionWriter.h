#pragma once

#include "platform/jet/bind/DefinitionBinder.h"

#include <QByteArray>

namespace jet::sqlite {

/// A definition in SQLite's SQL, in one of the open files.
QByteArray writeDefinition(const bind::BoundDefinition& definition, int file);

} // namespace jet::sqlite
