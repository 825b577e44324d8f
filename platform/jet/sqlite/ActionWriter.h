#pragma once

#include "platform/jet/bind/ActionBinder.h"

#include <QByteArray>

namespace jet::sqlite {

/// INSERT, UPDATE and DELETE in SQLite's SQL, each value converted to the type of its column.
QByteArray writeInsert(const bind::BoundInsert& insert);
QByteArray writeUpdate(const bind::BoundUpdate& update);
QByteArray writeDelete(const bind::BoundDelete& statement);

} // namespace jet::sqlite
