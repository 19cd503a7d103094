#include "editing/search_model.h"

#include "core/status_codes.h"
#include "database/database_error.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

bool IsFigure(int column) {
    return column == SerialNo || (column >= TimeIn && column <= TimeOutOt) || column >= NormalHours;
}

Figure FigureOf(int column) {
    if (column == BeriUangMakan)
        return Figure::Flag;
    if (column == NormalHours || column == OtHours)
        return Figure::Hours;
    return column == NormalAmount || column == OtAmount ? Figure::Amount : Figure::Plain;
}

std::vector<TableColumn> Columns() {
    std::vector<TableColumn> columns;
    for (int column = 0; column < ColumnCount; ++column)
        columns.push_back(
            {SearchColumnName(column), IsFigure(column) ? Qt::AlignRight : Qt::AlignLeft, FigureOf(column)});
    return columns;
}

} // namespace

SearchModel::SearchModel(QObject* parent) : TableModel(Columns(), parent) {}

void SearchModel::Search(Connection& connection, const QString& whereClause) {
    CardSearch pages(whereClause);
    std::vector<FoundDay> rows = pages.Next(connection);
    beginResetModel();
    connection_ = &connection;
    clause_ = whereClause;
    pages_ = std::move(pages);
    fetchFailed_ = false;
    rows_ = std::move(rows);
    edited_.clear();
    endResetModel();
}

void SearchModel::Reread(const Progress& progress) {
    CardSearch pages(clause_);
    std::vector<FoundDay> rows;
    bool goOn = true;
    while (goOn && rows.size() < rows_.size() && !pages.AtEnd()) {
        std::ranges::move(pages.Next(*connection_), std::back_inserter(rows));
        goOn = !progress || progress(static_cast<qsizetype>(rows.size()), rowCount());
    }
    if (rows.size() == rows_.size()) {
        // As a rule the same rows: the grid keeps its place.
        rows_ = std::move(rows);
        edited_.clear();
        NotifyColumns(0, ColumnCount - 1);
    } else {
        beginResetModel();
        rows_ = std::move(rows);
        edited_.clear();
        endResetModel();
    }
    pages_ = std::move(pages);
}

/// The rows stand in the order of their cards.
int SearchModel::RowOfKey(const QString& key) const {
    const QString tcid = key.section(u' ', 0, -2);
    const auto tcidOf = [](const FoundDay& row) -> const QString& { return row.header.tcid; };
    auto row = std::ranges::lower_bound(rows_, tcid, {}, tcidOf);
    while (row != rows_.cend() && row->header.tcid == tcid && SearchRowKey(*row) != key)
        ++row;
    return row != rows_.cend() && row->header.tcid == tcid ? static_cast<int>(row - rows_.cbegin()) : -1;
}

QStringList SearchModel::Elements(int row) const {
    const auto edited = edited_.constFind(row);
    return edited != edited_.cend() ? *edited : SearchRowElements(rows_.at(static_cast<size_t>(row)));
}

bool SearchModel::LoadRow(int row) {
    FoundDay& shown = rows_.at(static_cast<size_t>(row));
    std::optional<FoundDay> found = FindAgain(*connection_, shown);
    if (!found)
        return false;
    shown = *std::move(found);
    ShowRowAnew(row);
    return true;
}

void SearchModel::DropEdits() {
    for (const int row : EditedRows())
        ShowRowAnew(row);
}

QStringList SearchModel::ReversedTimes(int row) const {
    return IsEdited(row) ? ::ReversedTimes(rows_.at(static_cast<size_t>(row)), Elements(row)) : QStringList();
}

bool SearchModel::GetsForgottenDeparture(int row) const {
    const QString out = Text(row, TimeOut);
    return IsEdited(row) && !out.isEmpty() && Text(row, Status) == CardStatus::In
           && out != SearchCellText(rows_.at(static_cast<size_t>(row)), TimeOut);
}

std::vector<CellChange> SearchModel::SaveRow(int row) {
    if (!IsEdited(row))
        return {};
    FoundDay& shown = rows_.at(static_cast<size_t>(row));
    const FoundDay before = shown;
    const QStringList elements = Elements(row);
    try {
        SaveGridRow(*connection_, shown, elements);
    } catch (const ConflictError&) {
        LoadRow(row);
        throw;
    }
    shown.day = CardDay{DayOfRow(elements).value()}; // the one to be found again
    LoadRow(row);
    return TakeBackOf(before, shown);
}

void SearchModel::ShowRow(int row, FoundDay found) {
    rows_.at(static_cast<size_t>(row)) = std::move(found);
    ShowRowAnew(row);
}

void SearchModel::DeleteRow(int row) {
    FoundDay& shown = rows_.at(static_cast<size_t>(row));
    try {
        DeleteRowsDay(*connection_, shown);
    } catch (const ConflictError&) {
        LoadRow(row);
        throw;
    }
    shown.day.reset();
    ShowRowAnew(row);
}

void SearchModel::ShowRowAnew(int row) {
    edited_.remove(row);
    NotifyRow(row);
}

QString SearchModel::Text(int row, int column) const {
    if (column == SerialNo)
        return QString::number(row + 1);
    const auto edited = edited_.constFind(row);
    return edited != edited_.cend() ? edited->at(column - 1)
                                    : SearchCellText(rows_[static_cast<size_t>(row)], column);
}

CellLook SearchModel::LookOf(int row, int column) const {
    return column == Status ? LookOfStatus(Text(row, column)) : CellLook::Plain;
}

bool SearchModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || role != Qt::EditRole || !IsWrittenColumn(index.column()))
        return false;
    QStringList elements = Elements(index.row());
    elements[index.column() - 1] = EnteredText(elements, index.column(), value.toString());
    edited_.insert(index.row(), elements);
    Q_EMIT dataChanged(index, index);
    return true;
}

bool SearchModel::canFetchMore(const QModelIndex& parent) const {
    return !parent.isValid() && !pages_.AtEnd() && !fetchFailed_;
}

/// The view asks from within its own work, where nothing may be thrown or shown.
void SearchModel::fetchMore(const QModelIndex& parent) {
    if (!canFetchMore(parent))
        return;
    try {
        Append(pages_.Next(*connection_));
    } catch (const std::exception&) {
        fetchFailed_ = true;
        Q_EMIT FetchFailed(std::current_exception());
    }
}

void SearchModel::Append(std::vector<FoundDay> page) {
    if (page.empty())
        return;
    beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(page.size()) - 1);
    std::ranges::move(page, std::back_inserter(rows_));
    endInsertRows();
}
