#pragma once

#include "shifts/known_shifts.h"

/// A cycle of shifts, one code for each day, that begins again after its last.
struct ShiftCycle {
    QStringList codes;

    /// The code of any day counted from the cycle's first, which is 0; also of days before it.
    const QString& On(qsizetype day) const;
    /// The codes that are neither a shift of the company nor the day off, each once.
    QStringList Unlisted(const KnownShifts& shifts) const;
};

/// The most days that a cycle may have.
inline constexpr int LongestCycle = 400;

/// A cycle as it is typed: codes with blanks or commas between them, each with how many days it stays after
/// it, as in "P P P P P P O", "PAGI x3 MALAM x3 O x2" and "PAGIx3,MALAMx3,Ox2". A word that is a code of the
/// company is that code. Codes are written as KnownShifts::CodeTyped writes them. Throws ProgramError, which
/// names the place, for what is no cycle.
ShiftCycle ReadShiftCycle(const QString& typed, const KnownShifts& shifts);

/// Where the employees of a list start in a cycle.
struct CycleStart {
    int firstDay = 1; ///< the cycle's day, counted from 1, on which the first employee starts
    int step = 0;     ///< how many days further on each employee starts than the one before

    /// The cycle's day, counted from 0, of an employee of the list a number of days after the start.
    qsizetype DayOf(qsizetype employee, qsizetype daysLater) const {
        return firstDay - 1 + employee * step + daysLater;
    }
};
