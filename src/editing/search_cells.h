#pragma once

#include "core/cell_change.h"
#include "editing/search_model.h"

/// Writes cells of the search grid, all or none, as rows are saved that were typed, and shows what stands in
/// their rows then. What would be asked about a typed row is refused here. A cell whose contents must still
/// be there (`expected`) is compared with the database, any other row as a whole with what it shows. Throws
/// DatabaseError.
CellsOutcome WriteSearchCells(Connection& connection, SearchModel& rows,
                              const std::vector<CellChange>& changes);
