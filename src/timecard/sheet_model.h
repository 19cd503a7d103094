#pragma once

#include "core/clock.h"
#include "core/table_model.h"
#include "timecard/day_sheet.h"

/// The day's sheet as the main window shows it: one row per employee. It holds compact rows; a cell's text is
/// made when the cell is shown.
class SheetModel : public TableModel {
    Q_OBJECT
public:
    enum Column {
        Status,
        Dept,
        Nip,
        Nama,
        TimeIn,
        TimeOut,
        Hours,
        OvertimeIn,
        OvertimeOut,
        OvertimeHours,
        ColumnCount
    };

    /// How many employees stand in which state.
    struct Counts {
        int employees = 0;
        int in = 0;
        int out = 0;
        int absent = 0;
        int others = 0;
    };

    /// The clauses that put the employee list in order: at first by name, then by a column as it is headed.
    static QString FirstOrder();
    QString OrderBy(int column) const;
    /// The columns whose headings are columns of the employee list as well: it can be sorted by them alone.
    static QList<int> SortableColumns() { return {Dept, Nip, Nama}; }

    explicit SheetModel(const Clock& clock, QObject* parent = nullptr);

    /// Reads the employee list in the order of the clause; new employees are absent until the next refresh.
    /// Throws DatabaseError, and shows what it showed before then.
    void LoadEmployees(Connection& connection, const QString& orderBy);

    /// Reads the sheet, and the employees anew, when the database has changed since the last refresh, else
    /// only lets the running hours move. Throws DatabaseError, and shows what it showed before then.
    void Refresh(Connection& connection, const QString& sheet);

    /// What the last refresh found: a closed sheet is not read further.
    bool IsClosed() const { return closed_; }
    Day SheetDay() const { return sheetDay_; }

    Counts Count() const;
    /// Of the cards that are shown; nothing when nobody has arrived.
    std::optional<WallTime> LatestArrival() const;
    /// What the roster says of an employee without a card on the sheet; "" for one who has a card, and on a
    /// closed sheet. Views show it in the status bar, too.
    QString RosterText(int row) const;
    const QString& NipAt(int row) const { return employees_.at(static_cast<size_t>(row)).nip; }
    /// -1 when no employee has that number.
    int RowOf(const QString& nip) const;

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    /// All that a refresh depends on; equal to the last one, nothing needs to be read.
    struct RefreshKey {
        ChangeStamp changes;
        QString sheet;
        Day today{};
        bool operator==(const RefreshKey&) const = default;
    };

    /// A row and the card of its employee on the sheet.
    struct CardRow {
        QString tcid;
        size_t row;
    };

    int RowCount() const override { return static_cast<int>(employees_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    void TakeEmployees(std::vector<SheetEmployee> employees);
    void Read(Connection& connection, const RefreshKey& key);
    void TakeCards(const std::vector<SheetCard>& cards, const QString& sheet);
    void ForgetCards();

    const Clock& clock_;
    QString orderBy_;
    ChangeStamp employeesRead_;
    std::optional<Day> employeesOf_; ///< the day on which they are there
    std::vector<SheetEmployee> employees_;
    std::vector<SheetEntry> entries_;
    std::vector<CardRow> rowsByCard_;
    QString sheetOfCards_;
    QHash<QString, QString> roster_; ///< of the sheet's day
    RefreshKey lastRead_;
    bool closed_ = false;
    Day sheetDay_{};
    WallTime now_{};
};
