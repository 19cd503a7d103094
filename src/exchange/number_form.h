#pragma once

#include "database/wall_time.h"

#include <QString>

#include <optional>

/// How a file writes its numbers: which sign parts the decimals, and the other one the thousands.
enum class NumberForm { Digits, PointDecimals, CommaDecimals };

/// How a file writes its dates. "2026-01-31" reads the same in each.
enum class DateForm { Iso, DayFirst, MonthFirst };

/// What a file's own cells say of a form.
template<class Form>
struct FormFound {
    Form form{};
    /// A cell that can be read in two ways, with nothing in the file to tell them apart; null when there is
    /// none.
    QString inDoubt = {};
};

/// Learns from all numbers of a file how they are written: 150000, 150.000, 150,000.00 and 150.000,00 may
/// stand in it, as long as they are of one form. A sign with exactly three digits behind it parts thousands,
/// unless another cell says that it parts decimals: then that cell is in doubt.
class NumberFormFinder {
public:
    void Note(QStringView cell);
    FormFound<NumberForm> Found() const;

private:
    int pointDecimals_ = 0;
    int commaDecimals_ = 0;
    QString pointInDoubt_; ///< such as 150.000
    QString commaInDoubt_; ///< such as 150,000
};

/// The number in digits with a point before the decimals, "-150000.5"; nothing for a text that is none in
/// this form. Blanks around it and "Rp" in front do not count.
std::optional<QString> ReadNumber(QStringView cell, NumberForm form);

/// The same for dates: 31/1/2026, 1-31-2026, 31.01.2026, the year with four digits, a midnight after it or
/// nothing.
class DateFormFinder {
public:
    void Note(QStringView cell);
    FormFound<DateForm> Found() const;

private:
    int dayFirst_ = 0;
    int monthFirst_ = 0;
    QString inDoubt_; ///< such as 1/2/2026
};

std::optional<Day> ReadDate(QStringView cell, DateForm form);
