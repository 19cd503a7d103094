#pragma once

#include "core/clock.h"
#include "core/progress.h"
#include "core/table_model.h"
#include "database/connection.h"

#include <QHash>

#include <array>
#include <vector>

/// The shift roster of one month: a row for each employee, a column for each day. There are always 31 day
/// columns. A cell keeps the number of its code, not the text: a month of thousands of employees stays small.
class RosterModel : public TableModel {
    Q_OBJECT
public:
    static constexpr int DayColumns = 31;
    enum Column { SrNo, Nip, Nama, FirstDay, ColumnCount = FirstDay + DayColumns };

    explicit RosterModel(const Clock& clock, QObject* parent = nullptr);

    /// Reads all employees; the codes of the month before are gone. Returns false, everything as it was, when
    /// it was told to stop. Throws DatabaseError.
    bool LoadEmployees(Connection& connection, const Progress& progress = {});
    /// Reads the roster of the period, "YYYYMM", in place of the one shown. Returns false, everything as it
    /// was, when it was told to stop. Throws StatementError when the text names no month, DatabaseError when
    /// it cannot be read; everything stays as it was then.
    bool LoadRoster(Connection& connection, const QString& period, const Progress& progress = {});

    /// The month that is shown; nothing before one was read.
    std::optional<std::chrono::year_month> Month() const { return month_; }
    /// The day of a cell; nothing where the month has none.
    std::optional<Day> DayOfCell(const QModelIndex& cell) const { return DayOfColumn(cell.column()); }

    /// The code that a typed text means: without blanks around it, in the spelling of the shift codes where
    /// it differs by letter case only. Throws ProgramError for a text with a single quote, which no statement
    /// can name.
    QString CodeTyped(const QString& typed) const;
    /// Writes the cell's code as the shift of its employee and day in the month that is shown, whatever
    /// another desk wrote there before. Throws StatementError when the month has no such day, DatabaseError
    /// when it cannot be written.
    void SaveCell(Connection& connection, const QModelIndex& cell) const;

    /// A cell in words: who, when, and the hours of the shift.
    QString DescribeCell(const QModelIndex& cell) const;
    /// How many cells hold a code that is none of the shift codes.
    int CountUnlisted() const;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    struct RosterEmployee {
        QString nip;
        QString nama;
        std::optional<Day> keluar; ///< the last day of work
    };
    struct Code {
        QString text;
        bool listed = false;
        QString hours;
    };
    /// The numbers of an employee's codes, by day.
    using Days = std::array<int, DayColumns>;

    void ReadShiftCodes(Connection& connection);
    void PlaceShift(std::vector<Days>& roster, const QString& nip, Day day, const QString& shiftCode);
    int NumberOf(const QString& code);
    const Code& CodeOf(int row, int column) const;
    int RowCount() const override { return static_cast<int>(rows_.size()); }
    /// The place of a row's employee among all.
    size_t PlaceOf(int row) const { return rows_[static_cast<size_t>(row)]; }
    std::vector<size_t> RowsOf(std::chrono::year_month month) const;
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    std::optional<Day> DayOfColumn(int column) const;
    void SetDayLooks();

    const Clock& clock_;
    std::vector<RosterEmployee> employees_;
    std::vector<size_t> rows_; ///< the employees who are shown: those who had not left before the month
    QHash<QString, int> placesByNip_;
    std::optional<std::chrono::year_month> month_;
    std::vector<Days> roster_;
    /// The first is that of an empty cell.
    std::vector<Code> codes_;
    QHash<QString, int> numbersByCode_;
    std::array<CellLook, DayColumns> dayLooks_{};
    /// Whose shift was placed last: those of an employee follow each other.
    int lastPlace_ = -1;
};
