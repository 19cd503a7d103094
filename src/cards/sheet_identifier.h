#pragma once

#include "database/wall_time.h"

#include <QString>

#include <optional>
#include <utility>

/// A sheet is named "T" + yyyymmdd, with "-" and an extension after for a second sheet on one day. A card is
/// named by its sheet and the employee number, in upper case.

inline constexpr qsizetype DayIdentifierLength = 9;

QString SheetIdentifierOf(Day day);

/// "T" + yyyymm: what the month contributes to a sheet identifier.
QString MonthPartOf(Day day);

/// A day as two digits ("5" gives "05"); text that is no number stays as it is.
QString TwoDigitDay(const QString& day);

/// Puts an identifier together from its month part, its day and its extension, which may be empty.
QString ComposeSheetIdentifier(const QString& monthPart, const QString& day, const QString& extension);

/// The two-digit day of an identifier without an extension: its last two characters.
QString TrailingDay(const QString& sheet);

/// The two-digit day of any identifier: of one with an extension, its characters 8 and 9.
QString DayPartOf(const QString& sheet);

/// Whether the text can name a sheet. Every month may have 31 days: a day is taken as it was typed.
bool IsSheetIdentifier(const QString& text);

/// The day that the identifier of a sheet or a card names; nothing when it names none.
std::optional<Day> DayOfIdentifier(const QString& identifier);

/// The first and the last identifier of the cards that a sheet, or all sheets of its day, can have: they
/// begin with the given one.
std::pair<QString, QString> CardRange(const QString& sheet);

QString CardIdentifier(const QString& sheet, const QString& nip);
