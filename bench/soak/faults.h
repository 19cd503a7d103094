#pragma once

#include "database/connection.h"

#include <QString>
#include <QStringList>

/// What can be made to go wrong on purpose, to see that the soak notices it.
QStringList FaultNames();

/// Gives the database triggers that throw away what is written, or refuse it, in silence where the engine
/// can. The faults that are no database's ("memory", "window") change nothing here.
void Spoil(Connection& connection, const QString& fault);
