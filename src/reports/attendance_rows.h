#pragma once

#include "cards/card_lines.h"
#include "cards/listed_employees.h"
#include "core/progress.h"
#include "core/shared_texts.h"

#include <vector>

/// The attendance of a period as the reports print it, for each employee in the order of days and cards. A
/// row takes a few bytes: a year of thousands of employees fits into little memory.
class AttendanceRows {
public:
    struct Row {
        Day day;
        qint16 minuteIn;  ///< of the day; -1: never set
        qint16 minuteOut; ///< the same
        quint32 status;
        quint32 remark;
    };

    /// How wide the cell of "Keterangan" is in this report.
    explicit AttendanceRows(int remarkWidth) : remarkWidth_(remarkWidth) {}

    /// Reads the rows of these employees; false when the progress asked it to stop. Throws DatabaseError.
    bool Read(Connection& connection, const CardFilter& filter, const std::vector<ListedEmployee>& employees,
              const Progress& progress);

    /// By the employee's place in the list that was given.
    const std::vector<Row>& Of(size_t employee) const { return rows_[employee]; }
    /// Appends both times, blank when never set, the status and the remark, each in its cell.
    void AppendCells(QString& line, const Row& row) const;

private:
    int remarkWidth_;
    std::vector<std::vector<Row>> rows_;
    NumberedTexts statuses_;
    NumberedTexts remarks_;
};
