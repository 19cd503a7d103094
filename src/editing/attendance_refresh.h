#pragma once

#include "cards/listed_employees.h"
#include "core/progress.h"

#include <vector>

/// Whose days to show, and which. An employee number outweighs department and division.
struct AttendanceCriteria {
    QString nip;
    std::optional<QString> dept;      ///< the code; nothing: all
    std::optional<QString> divisi;    ///< the code; nothing: all
    std::optional<DayRange> interval; ///< nothing: from the earliest to the latest day with attendance
};

/// What stands on an employee's card of one day. Times that were never set are absent.
struct AttendanceRecord {
    QString tcid;
    std::optional<WallTime> timeIn;
    std::optional<WallTime> timeOut;
    QString status;
    QString keterangan;

    bool operator==(const AttendanceRecord&) const = default;
};

/// Employees and days, and the attendance that there is of them. A day without a card takes no room.
class Attendance {
public:
    /// More rows than a grid can hold.
    static constexpr qint64 MostRows = 10'000'000;

    std::vector<ListedEmployee> employees; ///< in the order in which they stand within a day
    DayRange range;

    qint64 RowCount() const { return range.Days() * static_cast<qint64>(employees.size()); }
    const AttendanceRecord* Find(Day day, size_t employee) const;
    AttendanceRecord* Find(Day day, size_t employee);
    void Put(Day day, size_t employee, AttendanceRecord record);
    void Remove(Day day, size_t employee) { places_.remove(Key(day, employee)); }
    /// Puts it there unless another record stands there already.
    void Offer(Day day, size_t employee, AttendanceRecord record);

private:
    /// An empty record where there was none.
    AttendanceRecord& RecordFor(Day day, size_t employee);
    qint64 Key(Day day, size_t employee) const {
        return static_cast<qint64>(day.time_since_epoch().count()) * static_cast<qint64>(employees.size())
               + static_cast<qint64>(employee);
    }

    std::vector<AttendanceRecord> records_;
    QHash<qint64, size_t> places_; ///< in records_
};

/// Reads the attendance of every employee that the criteria ask for, in two statements; nothing when the
/// progress asked it to stop. Of several cards on one day the first one by identifier counts. Throws
/// ProgramError when it were more rows than a grid can hold, DatabaseError.
std::optional<Attendance> RefreshAttendance(Connection& connection, const AttendanceCriteria& criteria,
                                            Day today, const Progress& progress);

/// The same for one employee's one day; nothing when there is no card. Throws DatabaseError.
std::optional<AttendanceRecord> AttendanceOn(Connection& connection, const QString& nip, Day day);
