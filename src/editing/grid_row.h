#pragma once

#include "core/cell_change.h"
#include "editing/search_row.h"

/// Writes a row as it was typed, given as its elements, in one transaction: the card's header and its day,
/// adding what is missing. Elements that read as they were shown leave the stored values alone, and so do
/// empty times; a number counts as far as the start of its text is one, else 0. Does nothing and returns
/// false for a row of 6 elements or fewer.
///
/// Throws ProgramError for a text that is no day or time and for an unknown employee, ConflictError when
/// another desk has changed the row since it was read as `shown`, DatabaseError otherwise; nothing is written
/// then.
bool SaveGridRow(Connection& connection, const FoundDay& shown, const QStringList& elements);

/// Throws ProgramError when there is no such employee.
void RequireEmployee(Connection& connection, const QString& nip);

/// What an empty element says of a time, number or flag.
enum class EmptyElements { LeaveStored, Clear };

/// Writes the elements that differ from what is shown into the card, as SaveGridRow does. Throws ProgramError
/// for a text that is no day or time, ConflictError when the card is not as it is shown.
void WriteRow(TimeCard& card, const FoundDay& shown, const QStringList& elements, EmptyElements empty);

/// The columns of a row that another text stands in now, as the changes that bring the old one back.
std::vector<CellChange> TakeBackOf(const FoundDay& before, const FoundDay& after);

/// Tells a row of the search from all others: its card and day.
QString SearchRowKey(const FoundDay& row);

/// Sentences on the typed times of a row in which a departure lies before its arrival. Throws ProgramError
/// for a text that is no day or time.
QStringList ReversedTimes(const FoundDay& shown, const QStringList& elements);

/// Deletes the day of the row. Throws ConflictError when another desk has changed the row since it was read,
/// DatabaseError otherwise; nothing is deleted then.
void DeleteRowsDay(Connection& connection, const FoundDay& shown);
