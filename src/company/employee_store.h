#pragma once

#include "database/connection.h"

#include <QHash>
#include <QString>

#include <optional>
#include <vector>

/// What an employee is paid by. Money in the company's currency; what is absent was never set.
struct PayTerms {
    QString empType; ///< "HRN" by the day, any other by the month
    std::optional<double> gp;
    std::optional<double> rateOT;
    std::optional<double> tMakan; ///< meal allowance of a day
    bool operator==(const PayTerms&) const = default;
};

/// A row of the table of employees. An absent text and an empty one are the same.
struct Employee {
    QString nip;
    QString nama;
    QString dept;   ///< code of a department
    QString divisi; ///< code of a division
    QString pathImage;
    PayTerms pay; ///< counts where no pay row is in force (see PayRow)
    std::optional<double> sc;
    std::optional<Day> masuk;
    std::optional<Day> keluar; ///< the last day of work
    QString idMesin;           ///< the number on a clock device
    bool operator==(const Employee&) const = default;
};

/// What an employee is paid by from a day on, until the next row's day. Before the first row the employee's
/// own pay data count.
struct PayRow {
    QString nip;
    Day from{};
    PayTerms pay;
};

/// A row to be added (no `before`), changed, or removed (no `after`). `before` is what was read and shown.
struct EmployeeChange {
    std::optional<Employee> before;
    std::optional<Employee> after;
};

enum class EmployeeProblem {
    NoNumber,
    BadNumber,     ///< holds what a number must not; detail: the number
    NumberTaken,   ///< another employee has it, or one that differs in letter case only; detail: that one's
    UnknownDept,   ///< detail: the code
    UnknownDivisi, ///< detail: the code
    LeftBeforeComing, ///< Keluar lies before Masuk
    ChangedElsewhere, ///< another desk changed the row since it was read; detail: its name there
    GoneElsewhere,    ///< another desk removed it
    HasCards,         ///< its number cannot change, nor can it go, while cards stand on it
};

/// What is wrong with one of the changes.
struct EmployeeFinding {
    size_t change; ///< its place among the changes
    QString nip;
    EmployeeProblem problem;
    QString detail;
};

/// Reads and writes employees. All functions throw DatabaseError.
class EmployeeStore {
public:
    explicit EmployeeStore(Connection& connection) : connection_(connection) {}

    /// All of them, ordered by number, in one statement.
    std::vector<Employee> ReadAll() const;
    std::optional<Employee> Read(const QString& nip) const;

    /// Writes all changes in one transaction and a constant number of statements, or none when something is
    /// wrong: what that is, change by change. A new number takes the employee's user, roster and pay rows
    /// along; with an employee that is removed they go too, but for the user of a supervisor.
    std::vector<EmployeeFinding> Save(const std::vector<EmployeeChange>& changes) const;

    /// The pay rows of an employee, the first one first.
    std::vector<PayRow> PayOf(const QString& nip) const;
    /// The pay rows that are in force on the day, by number.
    QHash<QString, PayRow> PayInForce(Day day) const;
    /// Lets employees be paid otherwise from a day on. Rows of a later day stay as they are; one of the same
    /// day is replaced.
    void SavePay(const std::vector<PayRow>& rows) const;

private:
    void Write(const std::vector<EmployeeChange>& changes) const;

    Connection& connection_;
};
