#pragma once

#include "core/cell_change.h"
#include "editing/attendance_model.h"

/// Writes statuses into cells of the browser, all or none, and shows what stands in their rows then. A status
/// that must stand there is told by `expected`; it was one once, so that going back to it needs no listed
/// code. Throws DatabaseError.
CellsOutcome WriteStatusCells(Connection& connection, AttendanceModel& rows,
                              const std::vector<CellChange>& changes);
