#pragma once

#include "core/table_model.h"
#include "database/connection.h"
#include "exchange/table_export.h"

#include <functional>

/// Whether a changed key is changed in the rows that name it, too.
enum class CarryAlong { No, Yes };

/// What the grids of the master data have in common: rows told apart by a key in the first column, and at
/// most one new row, at the end, that is written once its key is entered. What a cell's text becomes is
/// written at once. Functions that read or write throw DatabaseError, ProgramError with a text for the user
/// where something is not allowed, ConflictError where another desk was faster.
class MasterModel : public TableModel {
    Q_OBJECT
public:
    static constexpr int Key = 0;

    /// Reads all rows anew.
    void Refresh(Connection& connection);

    virtual QString KeyAt(int row) const = 0;
    /// -1 when there is none.
    int RowOf(const QString& key) const;

    virtual bool MayEdit(int row, int column) const = 0;
    /// How many rows name the key, in words ("3 kartu absen"); null when none does.
    virtual QString UseOf(int /*row*/) const { return {}; }
    virtual void Save(int row, int column, const QString& text, CarryAlong carry) = 0;
    /// Removes a row that is written, here and in the database.
    void Remove(int row);

    /// The columns as a file for spreadsheets has them.
    virtual std::vector<ExportColumn> ExportColumns() const;

    bool HasNew() const { return hasNew_; }
    bool IsNew(int row) const { return hasNew_ && row == rowCount() - 1; }
    /// Puts a new row at the end, unless there is one, and returns its number.
    int AddRow();
    /// Takes it away again.
    void DropNew();

protected:
    using TableModel::TableModel;

    Connection& Db() const { return *connection_; }
    void NewIsWritten() { hasNew_ = false; }

private:
    /// Reads the rows, and hands back what takes them into the model.
    virtual std::function<void()> Read(Connection& connection) = 0;
    virtual void RemoveStored(int row) = 0;
    virtual void Append() = 0;
    virtual void Erase(int row) = 0;
    void TakeAway(int row);

    Connection* connection_ = nullptr;
    bool hasNew_ = false;
};
