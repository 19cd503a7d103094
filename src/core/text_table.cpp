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

/// What becomes of a cell that is longer than its column.
enum class LongCells { Cut, Whole };

void WriteRow(QString& line, const QStringList& cells, const modGeneral::ColumnWidths& widths,
              LongCells longCells) {
    line.truncate(0);
    for (size_t column = 0; column < widths.size(); ++column) {
        const QString cell = modGeneral::OneLine(cells[static_cast<qsizetype>(column)]);
        int width = widths[column];
        if (longCells == LongCells::Whole)
            width = std::max(width, modGeneral::CharactersIn(cell));
        modGeneral::AppendPadded(line, cell, width);
        line += u'|';
    }
}

bool WriteTable(const QStringList& titles, const modGeneral::EachRow& rows,
                const modGeneral::ColumnWidths& widths, LongCells longCells, const LineSink& sink) {
    QString line;
    WriteRow(line, titles, widths, LongCells::Cut);
    const QString rule(modGeneral::CharactersIn(line), u'-');
    sink(rule);
    sink(line);
    sink(rule);
    const auto write = [&](const QStringList& cells) {
        WriteRow(line, cells, widths, longCells);
        sink(line);
    };
    if (!rows(write))
        return false;
    sink(rule);
    return true;
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

QStringList SetupGrid(const QStringList& headers) {
    return QStringList{u"Sr.No"_s} + headers;
}

bool GridToTextTable(const QStringList& titles, const EachRow& rows, const ColumnWidths& widths,
                     const QStringList& pageHeading, const LineSink& sink) {
    std::ranges::for_each(pageHeading, sink);
    return WriteTable(titles, rows, widths, LongCells::Cut, sink);
}

bool GridToTextTableAll(const QStringList& titles, const EachRow& rows, const LineSink& sink) {
    ColumnWidths widths(static_cast<size_t>(titles.size()));
    const auto measure = [&widths](const QStringList& cells) {
        for (size_t column = 0; column < widths.size(); ++column)
            widths[column] =
                std::max(widths[column], CharactersIn(OneLine(cells[static_cast<qsizetype>(column)])));
    };
    measure(titles);
    return rows(measure) && WriteTable(titles, rows, widths, LongCells::Whole, sink);
}

} // namespace modGeneral
