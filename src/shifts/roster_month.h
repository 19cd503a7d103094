#pragma once

#include "core/progress.h"
#include "shifts/known_shifts.h"
#include "shifts/roster_fill.h"
#include "shifts/roster_period.h"

#include <array>

struct RosterEmployee {
    QString nip;
    QString nama;
    QString dept;
    QString divisi;
    std::optional<Day> masuk;  ///< the first day of work, where it was told
    std::optional<Day> keluar; ///< the last one

    bool WorksOn(Day day) const { return (!masuk || day >= *masuk) && (!keluar || day <= *keluar); }
};

/// The roster of one month for all employees, who are counted from 0 in their table's order; days from 1. A
/// day keeps the number of its code, not the text: a month of thousands of employees stays small.
class RosterMonth {
public:
    static constexpr unsigned MostDays = 31;

    /// Reads all employees; the codes of the month before are gone. Returns false, everything as it was, when
    /// it was told to stop. Throws DatabaseError.
    bool ReadEmployees(Connection& connection, const Progress& progress = {});
    /// Reads the roster of the period, "YYYYMM", in place of the one that was read, and the shift codes.
    /// Returns false, everything as it was, when it was told to stop. Throws StatementError when the text
    /// names no month, DatabaseError when it cannot be read; everything stays as it was then.
    bool ReadMonth(Connection& connection, const QString& period, const Progress& progress = {});

    /// The month that was read; nothing before.
    std::optional<std::chrono::year_month> Month() const { return month_; }
    /// Nothing where the month has no such day.
    std::optional<Day> DateOf(unsigned day) const;
    const std::vector<RosterEmployee>& Employees() const { return employees_; }
    /// Those who had not left before the month: the others' shifts are not read.
    std::vector<int> Staff() const;
    /// -1 for a number that no employee has.
    int EmployeeOf(const QString& nip) const { return rowsByNip_.value(nip, -1); }
    const KnownShifts& Shifts() const { return shifts_; }

    const QString& CodeOn(int employee, unsigned day) const;
    void Put(int employee, unsigned day, const QString& code);

    /// The codes that stand in the month, in the order of the shift codes, unlisted ones after them.
    QStringList CodesInUse() const;
    int Count(const QString& code, unsigned day) const;
    /// How many days hold a code that is none of the shift codes.
    int CountUnlisted() const;

    /// What a preview would fill, and what stands in its way and is kept.
    struct Previewed {
        int filled = 0;
        int kept = 0;
    };
    enum class Standing { Kept, Replaced };
    /// Shows planned cells in place of what stands, and in place of an earlier preview. Days that the month
    /// lacks are left out, and those before and after an employee's work.
    Previewed Preview(const std::vector<PlannedCell>& cells, Standing standing);
    bool IsPreviewed(int employee, unsigned day) const;
    /// What stands, whether or not a preview is shown over it.
    const QString& StandingOn(int employee, unsigned day) const;
    void EndPreview();

private:
    using Days = std::array<int, MostDays>;

    bool HadLeft(int employee, std::chrono::year_month month) const;
    int NumberOf(const QString& code);
    void PlaceShift(std::vector<Days>& roster, const QString& nip, Day day, const QString& shiftCode);
    void CountAll();

    std::vector<RosterEmployee> employees_;
    QHash<QString, int> rowsByNip_;
    std::optional<std::chrono::year_month> month_;
    KnownShifts shifts_;
    std::vector<Days> roster_;
    /// What stands while roster_ shows a preview.
    std::optional<std::vector<Days>> standing_;
    /// The first is that of a day without a shift.
    std::vector<QString> codes_{QString()};
    QHash<QString, int> numbersByCode_;
    /// How many employees have each code on each day.
    std::vector<Days> counts_{Days{}};
    /// Whom the last shift was placed with: those of an employee follow each other.
    int lastEmployee_ = -1;
};
