#pragma once

#include "core/cell_look.h"

#include <QStringView>

// The codes that the program itself gives a meaning. A company keeps the full lists of its codes in the
// database. They compare exactly, letter case included.

/// What a desk records. Every mode but `In` is a departure.
namespace ClockMode {
inline constexpr QStringView In = u"IN";
inline constexpr QStringView Out = u"N";
} // namespace ClockMode

/// The status of a time card.
namespace CardStatus {
inline constexpr QStringView In = u"IN";       ///< arrived, not gone yet
inline constexpr QStringView Out = u"OUT";     ///< gone
inline constexpr QStringView OutShort = u"OU"; ///< gone, as older cards write it
inline constexpr QStringView LeftEarly = u"PC";
inline constexpr QStringView OnBreak = u"KI";
inline constexpr QStringView OnDuty = u"TL"; ///< at work somewhere else
inline constexpr QStringView Absent = u"A";
inline constexpr QStringView Sick = u"S";
inline constexpr QStringView Excused = u"I";
inline constexpr QStringView OnLeave = u"C";
inline constexpr QStringView Holiday = u"L";
} // namespace CardStatus

/// Shift codes that need no row in the table of shifts.
namespace ShiftCode {
inline constexpr QStringView Default = u"P";
inline constexpr QStringView DayOff = u"O";
} // namespace ShiftCode

/// How an employee is paid. Every other type is paid by the month.
namespace PayType {
inline constexpr QStringView Daily = u"HRN";
} // namespace PayType

/// How a card's status is to be noticed in a grid.
CellLook LookOfStatus(QStringView status);
