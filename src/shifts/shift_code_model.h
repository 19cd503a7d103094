#pragma once

#include "core/cell_change.h"
#include "core/table_model.h"
#include "database/recordset.h"

#include <array>
#include <memory>

/// The shift codes with their hours, edited in place. One row at a time is in edit: it holds what is typed
/// until it is written as a whole or taken back.
///
/// A shift's times stand on the base date. An end that is typed earlier than its start stands on the day
/// after it, shown as "06:00 (+1)": only so the computation finds the end of a night shift.
class ShiftCodeModel : public TableModel {
    Q_OBJECT
public:
    enum Column { Code, TimeIn, TimeOut, ColumnCount };

    explicit ShiftCodeModel(QObject* parent = nullptr);

    /// Reads all rows anew; what was typed and not written is gone. Throws DatabaseError.
    void Refresh(Connection& connection);

    /// The row that holds something not yet written; -1 for none.
    int RowInEdit() const { return rowInEdit_; }
    /// True when the row in edit is a new one in which nothing was typed.
    bool IsBlankInEdit() const;
    QString CodeAt(int row) const { return Text(row, Code); }
    /// The stored code of the row in edit when another one was typed over it.
    std::optional<QString> RenamedFrom() const;
    /// The row of a code; -1 when there is none.
    int RowOf(const QString& code) const;

    /// Puts a new row in edit, after all others, and returns its number. No other row is in edit.
    int AddRow();
    /// Throws ProgramError when a value that is typed into the row in edit cannot stand there: a code without
    /// letters, or one that differs from another by letter case at most, or what is no time.
    void CheckTyped() const;
    /// Writes the row in edit and returns what takes that back, nothing for a new row; a blank new row is
    /// taken back instead. Throws as CheckTyped does, DatabaseError when the database refuses it: the row
    /// then stays in edit. Throws ConflictError when another desk changed the row: all rows have been read
    /// anew then.
    std::vector<CellChange> UpdateRow();
    /// Takes back what was typed into the row in edit; a new row goes away.
    void CancelRow();
    /// Removes a row that is not in edit. Throws as UpdateRow does.
    void DeleteRow(int row);

    /// Writes cells of rows that are told by their codes, all or none, while no row is in edit. A code that
    /// rows name is not changed here. Throws DatabaseError.
    CellsOutcome WriteCells(const std::vector<CellChange>& changes);

    QString RowKey(int row) const override { return CodeAt(row); }
    int RowOfKey(const QString& key) const override { return RowOf(key); }
    /// Reads all rows in the order of a column, or below 0 in the table's. Throws DatabaseError.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// Puts the row in edit. False while another row is.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

private:
    int RowCount() const override { return rstShift_ ? rstShift_->RowCount() : 0; }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    QString StoredText(int row, int column) const;
    std::array<QString, ColumnCount> StoredTexts(int row) const;
    std::unique_ptr<Recordset> Read() const;
    /// What takes back that the row shows other texts than these.
    std::vector<CellChange> TakeBackOf(int row, const std::array<QString, ColumnCount>& before) const;
    /// Why the cells of a row cannot be written; nothing when they are.
    QString WriteRow(int row, const std::vector<CellChange>& cells);
    void StartEdit(int row, bool isNew);
    void EndEdit();
    void ShowNextDay();
    void SetTyped();

    Connection* connection_ = nullptr;
    QString order_; ///< the end of the statement that reads the rows
    std::unique_ptr<Recordset> rstShift_;
    int rowInEdit_ = -1;
    bool isNew_ = false;
    std::array<QString, ColumnCount> typed_;
    std::array<bool, ColumnCount> touched_{};
};

/// How many rows name a shift code.
struct ShiftCodeUse {
    int rosterDays = 0;
    int cards = 0;
};

/// Throws DatabaseError.
ShiftCodeUse UseOfShiftCode(Connection& connection, const QString& code);
