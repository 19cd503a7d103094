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

/// Below the first combining mark each letter is a character of its own. Nearly all texts of a table are so
/// and need no search for boundaries or for what would break the line.
bool IsPlain(const QString& text) {
    return std::ranges::all_of(
        text, [](QChar c) { return c >= u' ' && c < u'\u0300' && (c < u'\u007F' || c >= u'\u00A0'); });
}

Extent ExtentOf(const QString& text, int most) {
    if (IsPlain(text)) {
        const qsizetype length = qMin<qsizetype>(text.size(), most);
        return {length, static_cast<int>(length)};
    }
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

bool BreaksTheLine(QChar c) {
    return c < u' ' || (c >= u'\u007F' && c < u'\u00A0') || c == QChar::LineSeparator
           || c == QChar::ParagraphSeparator;
}

QString CellText(const QAbstractItemModel& grid, int row, int column) {
    return modGeneral::OneLine(grid.index(row, column).data().toString());
}

QString Line(const QStringList& cells, const modGeneral::ColumnWidths& widths) {
    QString line;
    for (qsizetype column = 0; column < cells.size(); ++column)
        line += modGeneral::PadText(cells[column], widths[static_cast<size_t>(column)]) + u'|';
    return line;
}

} // namespace

namespace modGeneral {

QString OneLine(const QString& text) {
    if (std::ranges::none_of(text, BreaksTheLine))
        return text;
    QString line = text;
    line.replace(u"\r\n"_s, u" "_s);
    std::ranges::replace_if(line, BreaksTheLine, QChar(u' '));
    return line;
}

int CharactersIn(const QString& text) {
    return ExtentOf(text, std::numeric_limits<int>::max()).characters;
}

QString PadText(const QString& text, int width) {
    QString padded;
    AppendPadded(padded, text, width);
    return padded;
}

void AppendPadded(QString& line, const QString& text, int width) {
    if (width <= 0)
        return;
    static const QString blanks(64, u' ');
    const Extent extent = ExtentOf(text, width);
    line.append(QStringView(text).first(extent.length));
    const int missing = width - extent.characters;
    if (missing <= blanks.size())
        line.append(QStringView(blanks).first(missing));
    else
        line.resize(line.size() + missing, u' ');
}

void AppendCellText(QString& line, const QString& text, int width) {
    AppendPadded(line, IsPlain(text) ? text : OneLine(text), width);
}

void TextGrid::SetHeaders(const QStringList& headers) {
    beginResetModel();
    std::vector<TableColumn> columns;
    for (const QString& title : headers)
        columns.push_back({title});
    SetColumns(std::move(columns));
    rows_.clear();
    endResetModel();
}

int TextGrid::AddRow(const QStringList& cells) {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    QStringList padded = cells;
    padded.resize(columnCount());
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

void SetupGrid(TextGrid& grid, const QStringList& headers) {
    grid.SetHeaders(QStringList{u"Sr.No"_s} + headers);
}

QStringList GridToTextTable(const QAbstractItemModel& grid, const ColumnWidths& widths,
                            const QStringList& pageHeading, const Progress& progress) {
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
        if (!ShouldContinue(progress, row, grid.rowCount()))
            return {};
    }
    return lines << rule;
}

QStringList GridToTextTableAll(const QAbstractItemModel& grid, const Progress& progress) {
    ColumnWidths widths;
    for (int column = 0; column < grid.columnCount(); ++column)
        widths.push_back(CharactersIn(grid.headerData(column, Qt::Horizontal).toString()));
    for (int row = 0; row < grid.rowCount(); ++row) {
        for (int column = 0; column < grid.columnCount(); ++column) {
            int& width = widths[static_cast<size_t>(column)];
            width = std::max(width, CharactersIn(CellText(grid, row, column)));
        }
        if (!ShouldContinue(progress, row, grid.rowCount()))
            return {};
    }
    return GridToTextTable(grid, widths, {}, progress);
}

} // namespace modGeneral
