#pragma once

#include "core/cell_change.h"
#include "core/table_model.h"
#include "shifts/roster_store.h"

/// How many employees each shift needs, as it is edited: a row for each shift, a column for each weekday from
/// Monday on. A need of 0 is shown as an empty cell.
class ShiftNeedModel : public TableModel {
    Q_OBJECT
public:
    enum Column { Code, Monday, ColumnCount = Monday + 7 };

    explicit ShiftNeedModel(QObject* parent = nullptr);

    /// Reads the shift codes, and the needs of others that are no shifts any more. Throws DatabaseError.
    void Load(Connection& connection);
    /// Writes cells together, or none of them, and shows them. Throws DatabaseError.
    CellsOutcome WriteCells(Connection& connection, const std::vector<CellChange>& changes);

    /// A number of employees; an empty text is 0. Throws ProgramError for what is none.
    static int NumberTyped(const QString& typed);

    QString RowKey(int row) const override { return rows_[static_cast<size_t>(row)].code; }

private:
    struct Row {
        QString code;
        std::array<int, 7> needed{};
    };

    int RowCount() const override { return static_cast<int>(rows_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;

    std::vector<Row> rows_;
};
