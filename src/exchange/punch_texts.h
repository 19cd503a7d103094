#pragma once

#include "exchange/punch_form.h"

/// How clock devices write dates, times and directions. Nothing for a text that is none.
namespace PunchTexts {

enum class DateOrder { Usual, MonthFirst };

/// "2026-11-18", "20261118", "18/11/2026", "18.11.26", "18112026"; month first "11/18/2026".
std::optional<Day> ReadDate(QStringView text, DateOrder order = DateOrder::Usual);
/// "07:58:12", "7.58", "0758", "075812".
std::optional<Seconds> ReadTime(QStringView text);
/// A date and a time, a blank or "T" between.
std::optional<WallTime> ReadMoment(QStringView text, DateOrder order = DateOrder::Usual);
/// Words and letters of both languages, and 0 and 1; None where a text says nothing, or nothing that is
/// known.
PunchDirection ReadDirection(QStringView text);
/// The same of a word that can be nothing but a direction.
bool IsDirectionWord(QStringView text);

} // namespace PunchTexts
