#pragma once

#include "core/clock.h"
#include "database/wall_time.h"
#include "support/plain_sqlite.h"

#include <QString>

#include <string>

/// How large a made-up company is: every employee has a card on every sheet, one sheet a day, and a shift on
/// every day of the months up to that of the newest sheet.
struct CompanySize {
    int employees;
    int sheets;
    int rosterMonths = 0;
};

/// The day of the newest sheet, whatever the size.
inline constexpr Day LastSheetDay =
    Day{std::chrono::year{2026} / std::chrono::November / std::chrono::day{22}};
/// A day that no sheet stands for yet, for benchmarks that write; what they leave on it is removed when the
/// company is next used.
inline constexpr Day UnusedDay = LastSheetDay + std::chrono::days{1};

std::string NipOf(int employee);

/// A folder that holds the company's database as DATA.mdb. It is kept between runs, and made anew when the
/// schema or the number of rows has changed.
QString CompanyFolder(const CompanySize& size);
/// The database file in that folder.
QString CompanyFile(const CompanySize& size);

/// Reads what a refresh of the sheet reads, with the least work; returns the number of cards.
int ReadSheetPlainly(PlainDatabase& database, const std::string& sheet);

/// The afternoon of the last sheet's day, for ever.
class BenchClock : public Clock {
public:
    WallTime Now() const override { return TimeOnDay(LastSheetDay, std::chrono::hours{16}); }
};
