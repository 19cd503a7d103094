#pragma once

#include "core/line_sink.h"
#include "core/table_model.h"

#include <QStringList>

#include <vector>

namespace modGeneral {

/// Blanks for everything that would break a line or move the text after it.
QString OneLine(const QString& text);

/// How many characters a reader sees.
int CharactersIn(const QString& text);

/// Exactly `width` characters: the first of the text, then blanks. A character is what a reader sees as one.
QString PadText(const QString& text, int width);
/// Appends the same to a line in the making.
void AppendPadded(QString& line, const QString& text, int width);
/// The same of a text that is put on one line first (OneLine).
void AppendCellText(QString& line, const QString& text, int width);

/// A small table of texts, such as the rows of a pick list.
class TextGrid : public TableModel {
    Q_OBJECT
public:
    explicit TextGrid(QObject* parent = nullptr) : TableModel({}, parent) {}

    void SetHeaders(const QStringList& headers);
    /// Takes all rows at once, in place of the present ones. Each has a cell for every header.
    void SetRows(std::vector<QStringList> rows);
    void SetText(int row, int column, const QString& text);
    QString Text(int row, int column) const override;

private:
    int RowCount() const override { return static_cast<int>(rows_.size()); }

    std::vector<QStringList> rows_;
};

/// The headers of a grid whose first column, "Sr.No", holds the serial number, followed by the given ones.
QStringList SetupGrid(const QStringList& headers);

/// The width of each printed column, in characters.
using ColumnWidths = std::vector<int>;

/// Takes the texts of a row's cells.
using RowSink = std::function<void(const QStringList& cells)>;
/// Hands the rows of a grid to the sink, from the first to the last; false when it was stopped.
using EachRow = std::function<bool(const RowSink& sink)>;

/// Hands a grid to the sink as fixed-width lines: the page heading, a rule, the column titles, a rule, the
/// rows, a rule. Each cell is put on one line, cut or padded to its width and followed by "|"; a rule is as
/// long as a row. Columns without a width are left out. False when it was stopped.
bool GridToTextTable(const QStringList& titles, const EachRow& rows, const ColumnWidths& widths,
                     const QStringList& pageHeading, const LineSink& sink);

/// The whole grid without a page heading, each column as wide as its longest text: the rows are asked for
/// twice. A cell that has become longer meanwhile is written in full and moves what follows on its line.
bool GridToTextTableAll(const QStringList& titles, const EachRow& rows, const LineSink& sink);

} // namespace modGeneral
