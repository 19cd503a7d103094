#include "core/text_table.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// How far the first `most` characters of a text reach, and how many there are.
struct Extent {
    qsizetype length = 0;
    int characters = 0;
};

Extent ExtentOf(const QString& text, int most) {
    Extent extent;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    while (extent.characters < most) {
        const qsizetype next = finder.toNextBoundary();
        if (next < 0)
            break;
        extent = {next, extent.characters + 1};
    }
    return extent;
}

int CharactersIn(const QString& text) {
    return ExtentOf(text, std::numeric_limits<int>::max()).characters;
}

QString CellText(const QAbstractItemModel& grid, int row, int column) {
    return grid.index(row, column).data().toString();
}

QString Line(const QStringList& cells, const modGeneral::ColumnWidths& widths) {
    QString line;
    for (qsizetype column = 0; column < cells.size(); ++column)
        line += modGeneral::PadText(cells[column], widths[static_cast<size_t>(column)]) + u'|';
    return line;
}

} // namespace

namespace modGeneral {

QString PadText(const QString& text, int width) {
    if (width <= 0)
        return {};
    const Extent extent = ExtentOf(text, width);
    return text.first(extent.length) + QString(width - extent.characters, u' ');
}

void TextGrid::SetHeaders(const QStringList& headers) {
    beginResetModel();
    headers_ = headers;
    rows_.clear();
    endResetModel();
}

int TextGrid::AddRow(const QStringList& cells) {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    QStringList padded = cells;
    padded.resize(headers_.size());
    rows_.push_back(std::move(padded));
    endInsertRows();
    return row;
}

void TextGrid::SetText(int row, int column, const QString& text) {
    rows_.at(static_cast<size_t>(row))[column] = text;
    Q_EMIT dataChanged(index(row, column), index(row, column));
}

QString TextGrid::Text(int row, int column) const {
    return rows_.at(static_cast<size_t>(row)).value(column);
}

void TextGrid::SetRows(std::vector<QStringList> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int TextGrid::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int TextGrid::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headers_.size());
}

QVariant TextGrid::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole)
        return {};
    return Text(index.row(), index.column());
}

QVariant TextGrid::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return headers_.value(section);
}

void SetupGrid(TextGrid& grid, const QStringList& headers) {
    grid.SetHeaders(QStringList{u"Sr.No"_s} + headers);
}

QStringList GridToTextTable(const QAbstractItemModel& grid, const ColumnWidths& widths,
                            const QStringList& pageHeading) {
    const int columns = std::min(grid.columnCount(), static_cast<int>(widths.size()));
    QStringList titles;
    for (int column = 0; column < columns; ++column)
        titles << grid.headerData(column, Qt::Horizontal).toString();
    const QString titleLine = Line(titles, widths);
    const QString rule(CharactersIn(titleLine), u'-');

    QStringList lines = pageHeading;
    lines << rule << titleLine << rule;
    for (int row = 0; row < grid.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < columns; ++column)
            cells << CellText(grid, row, column);
        lines << Line(cells, widths);
    }
    return lines << rule;
}

QStringList GridToTextTableAll(const QAbstractItemModel& grid) {
    ColumnWidths widths;
    for (int column = 0; column < grid.columnCount(); ++column) {
        int width = CharactersIn(grid.headerData(column, Qt::Horizontal).toString());
        for (int row = 0; row < grid.rowCount(); ++row)
            width = std::max(width, CharactersIn(CellText(grid, row, column)));
        widths.push_back(width);
    }
    return GridToTextTable(grid, widths, {});
}

} // namespace modGeneral
