#pragma once

#include "cards/card_search.h"
#include "core/progress.h"
#include "core/table_model.h"
#include "editing/grid_row.h"
#include "editing/search_row.h"

#include <QHash>

#include <exception>

/// The search's result as the grid shows it, and what was typed into its rows and is not saved yet. Rows are
/// fetched as they come into sight and kept compact; a cell's text is made when the cell is shown.
class SearchModel : public TableModel {
    Q_OBJECT
public:
    explicit SearchModel(QObject* parent = nullptr);

    /// Runs the search and shows its first rows. Throws DatabaseError, and shows what it showed before then.
    void Search(Connection& connection, const QString& whereClause);
    /// Reads the rows that are shown once more; when it is stopped, the rest is fetched again as it comes
    /// into sight. Unsaved texts are dropped. Throws DatabaseError.
    void Reread(const Progress& progress);

    bool IsSearched() const { return connection_ != nullptr; }
    /// What the rows were searched for.
    const QString& Clause() const { return clause_; }
    /// False while there are rows that were not fetched.
    bool IsWhole() const { return pages_.AtEnd(); }
    const std::vector<FoundDay>& FetchedRows() const { return rows_; }

    bool IsEdited(int row) const { return edited_.contains(row); }
    QList<int> EditedRows() const { return edited_.keys(); }
    void DropEdits();
    /// The texts of a row as shown, from column 1 on.
    QStringList Elements(int row) const;

    QString RowKey(int row) const override { return SearchRowKey(rows_[static_cast<size_t>(row)]); }
    int RowOfKey(const QString& key) const override;

    /// Reads a row anew in place of what it shows; false when its card is gone. Throws DatabaseError.
    bool LoadRow(int row);
    /// What ReversedTimes says of a row.
    QStringList ReversedTimes(int row) const;
    /// True when a departure was typed into a row that says that its employee is still in.
    bool GetsForgottenDeparture(int row) const;
    /// Shows this in a row in place of what it shows and what was typed there.
    void ShowRow(int row, FoundDay found);

    /// Saves what was typed into a row, if anything, and returns what takes it back. A row that another desk
    /// changed is read anew before the ConflictError goes on. Throws like SaveGridRow, and the row stays as
    /// typed otherwise.
    std::vector<CellChange> SaveRow(int row);
    /// Deletes the day of a row, which shows the card without it then, also when the card has others. Throws
    /// like DeleteRowsDay.
    void DeleteRow(int row);

    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

Q_SIGNALS:
    /// Further rows could not be fetched; they are not tried again before the next search.
    void FetchFailed(std::exception_ptr failure);

private:
    int RowCount() const override { return static_cast<int>(rows_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    void Append(std::vector<FoundDay> page);
    void ShowRowAnew(int row);

    Connection* connection_ = nullptr;
    QString clause_;
    CardSearch pages_;
    bool fetchFailed_ = false;
    std::vector<FoundDay> rows_;
    QHash<int, QStringList> edited_;
};
