#pragma once

#include "core/cell_change.h"
#include "core/clock.h"
#include "core/table_model.h"
#include "shifts/roster_month.h"
#include "shifts/roster_store.h"

#include <QSet>

/// The shift roster of one month: a row for each employee, a column for each day. There are always 31 day
/// columns. All employees are shown, or those that a filter finds.
class RosterModel : public TableModel {
    Q_OBJECT
public:
    static constexpr int DayColumns = RosterMonth::MostDays;
    enum Column { SrNo, Nip, Nama, FirstDay, ColumnCount = FirstDay + DayColumns };

    explicit RosterModel(const Clock& clock, QObject* parent = nullptr);

    const RosterMonth& Roster() const { return month_; }
    /// As RosterMonth reads them, for the views. The filter stays.
    bool LoadEmployees(Connection& connection, const Progress& progress = {});
    bool LoadRoster(Connection& connection, const QString& period, const Progress& progress = {});
    std::optional<std::chrono::year_month> Month() const { return month_.Month(); }
    /// The day of a cell; nothing where the month has none.
    std::optional<Day> DayOfCell(const QModelIndex& cell) const { return DayOfColumn(cell.column()); }
    /// The employee of a row, as the month counts them.
    int EmployeeOf(int row) const { return shown_[static_cast<size_t>(row)]; }
    const std::vector<int>& Shown() const { return shown_; }

    /// Shows the employees in whose number, name, department or division every word stands. The rows of
    /// employees to be kept stay all the same.
    void Filter(const QString& words, const QSet<int>& keptEmployees = {});

    /// Writes the cell's code as the shift of its employee and day in the month that is shown, whatever
    /// another desk wrote there before. Throws StatementError when the month has no such day, DatabaseError
    /// when it cannot be written.
    void SaveCell(Connection& connection, const QModelIndex& cell) const;
    /// Writes cells of this or another month together, or none of them; a null text takes the entry away.
    /// Those of the month that is shown show what stands there then, also what stood in the way. Throws
    /// DatabaseError.
    CellsOutcome WriteCells(Connection& connection, const std::vector<CellChange>& changes);
    /// A key names the month, too: what is taken back belongs where it was written.
    QString RowKey(int row) const override;
    int RowOfKey(const QString& key) const override;
    static std::optional<std::chrono::year_month> MonthOfKey(const QString& key);

    /// Shows what planned cells would make of the month, and ends it.
    RosterMonth::Previewed Preview(const std::vector<PlannedCell>& cells, RosterMonth::Standing standing);
    void EndPreview();
    /// The cells of the preview; they expect what stands where they are shown.
    std::vector<CellChange> PreviewedChanges() const;

    /// A cell in words: who, when, and the hours of the shift.
    QString DescribeCell(const QModelIndex& cell) const;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

Q_SIGNALS:
    /// How many employees stand in a shift on some day is not what it was.
    void CountsChanged();

private:
    static unsigned DayNumber(int column) { return static_cast<unsigned>(column - FirstDay + 1); }
    const QString& CodeOf(int row, int column) const {
        return month_.CodeOn(EmployeeOf(row), DayNumber(column));
    }
    const RosterEmployee& EmployeeIn(int row) const {
        return month_.Employees()[static_cast<size_t>(EmployeeOf(row))];
    }
    CellLook LookOfDay(int column) const { return dayLooks_[static_cast<size_t>(column - FirstDay)]; }
    QString KeyOf(int employee) const;
    static QString NipOfKey(const QString& key) { return key.sliced(7); }
    /// Throws ProgramError for what typing would refuse.
    RosterChange RosterChangeOf(const CellChange& change) const;
    QString ConflictText(const CellChange& change, const QString& stands) const;
    /// Shows a code where the change's cell is shown.
    void Show(const CellChange& change, const QString& code);
    std::vector<int> Found(const QSet<int>& keptEmployees) const;
    void NotifyDays();
    int RowCount() const override { return static_cast<int>(shown_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    std::optional<Day> DayOfColumn(int column) const;
    void SetDayLooks();

    const Clock& clock_;
    RosterMonth month_;
    QStringList filter_;
    std::vector<int> shown_;
    std::array<CellLook, DayColumns> dayLooks_{};
};
