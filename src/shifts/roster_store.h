#pragma once

#include "database/connection.h"

#include <array>
#include <map>
#include <optional>
#include <vector>

/// A day of one employee's roster that is to be written.
struct RosterChange {
    QString nip;
    Day day;
    QString code; ///< a null text: the day has no entry any more
    /// What must stand there; empty for a day without a shift. What stands there is overwritten when nothing
    /// is expected.
    std::optional<QString> expected = {};
};

/// What became of changes: all of them were written or, with conflicts, none.
struct RosterSaved {
    /// What stood in the place of each change, as it would be a change's code.
    std::vector<QString> before;
    /// The numbers of the changes where something else stood than was expected.
    std::vector<size_t> conflicts;
};

/// A cycle that is kept under a name, as it was typed.
struct KeptPattern {
    QString name;
    QString cycle;
};

/// How many employees a shift needs on a weekday, from 1, Monday, to 7; 0 where nobody said.
struct ShiftNeed {
    QString code;
    int weekday;
    int needed;
};

/// The needs of each shift, from Monday to Sunday.
using ShiftNeeds = std::map<QString, std::array<int, 7>>;

/// The tables of the roster, but for the reading of a month. All functions throw DatabaseError.
namespace RosterStore {

/// Writes all changes or, where one finds something else than it expects, none. In a fixed number of
/// statements for some hundred employees.
RosterSaved Save(Connection& connection, const std::vector<RosterChange>& changes);

/// By name.
std::vector<KeptPattern> Patterns(Connection& connection);
/// In place of what was kept under the name.
void KeepPattern(Connection& connection, const KeptPattern& pattern);
void ForgetPattern(Connection& connection, const QString& name);

ShiftNeeds Needs(Connection& connection);
/// In place of what was kept of the same shifts and weekdays.
void KeepNeeds(Connection& connection, const std::vector<ShiftNeed>& needs);

} // namespace RosterStore
