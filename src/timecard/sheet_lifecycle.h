#pragma once

#include "database/connection.h"

#include <QSet>
#include <QString>

/// The states of a sheet as timecardmaster stores them. Any other number, and no row at all, is open.
enum class SheetStatus { Open = 0, Closed = 1 };

/// All functions here throw DatabaseError.

bool IsSheetClosed(Connection& connection, const QString& sheet);

/// The closed sheets of the days from first to last, in upper case as their cards name them.
QSet<QString> ClosedSheets(Connection& connection, Day first, Day last);

/// Writes the sheet's row, adding it when there is none. An empty identifier does nothing.
void CloseSheet(Connection& connection, const QString& sheet);
void ReopenSheet(Connection& connection, const QString& sheet);
