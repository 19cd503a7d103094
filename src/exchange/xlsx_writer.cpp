#include "database/database_file.h"
#include "exchange/row_writer.h"

#include <xlsxwriter.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr int XlsxNumber = 90021;
/// In characters; wider cells are cut on the screen, not in the file.
constexpr qsizetype WidestColumn = 60;
constexpr double SecondsOfDay = 86400;

/// The first day whose number is the same in every spreadsheet program; a time alone stands on day
/// zero, or on the one after it.
constexpr Day FirstNumberedDay{std::chrono::year{1900} / std::chrono::March / std::chrono::day{1}};

/// Days since day zero, the time as their fraction; nothing for what cannot be told as a number.
std::optional<double> SerialOf(WallTime time) {
    const bool isTimeAlone = DayOf(time) == DayZero || DayOf(time) == DayZero + std::chrono::days{1};
    if (!isTimeAlone && DayOf(time) < FirstNumberedDay)
        return std::nullopt;
    return static_cast<double>((DayOf(time) - DayZero).count())
           + static_cast<double>(TimeOfDay(time).count()) / SecondsOfDay;
}

class XlsxWriter : public RowWriter {
public:
    XlsxWriter(const QString& path, const std::vector<ExportColumn>& columns)
        : path_(QFileInfo(path).absoluteFilePath()),
          workshop_(QFileInfo(path_).absolutePath() + u"/.ekspor-XXXXXX"_s), columns_(columns) {
        if (!workshop_.isValid())
            RefuseUnmade(path, workshop_.errorString());
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        QByteArray place = workshop_.path().toLocal8Bit();
        options.tmpdir = place.data();
        book_.reset(workbook_new_opt(Unfinished().toLocal8Bit().constData(), &options));
        if (!book_)
            throw std::bad_alloc();
        sheet_ = workbook_add_worksheet(book_.get(), nullptr);
        day_ = Format("yyyy-mm-dd");
        moment_ = Format("yyyy-mm-dd hh:mm:ss");
        time_ = Format("hh:mm:ss");
        lxw_format* const heading = workbook_add_format(book_.get());
        format_set_bold(heading);
        worksheet_freeze_panes(sheet_, 1, 0);
        for (size_t i = 0; i < columns.size(); ++i)
            WriteText(i, columns[i].title, heading);
    }

    void Write(const ExportRow& row) override {
        if (++row_ >= LXW_ROW_MAX)
            throw ProgramError(ErrorKind::TooManyRows, XlsxNumber,
                               u"a workbook holds at most %1 rows; write a CSV file"_s.arg(LXW_ROW_MAX - 1),
                               {QString::number(LXW_ROW_MAX - 1)});
        for (size_t i = 0; i < columns_.size(); ++i) {
            if (!row[i].IsNull())
                WriteCell(i, row[i]);
        }
    }

    void Commit() override {
        for (size_t i = 0; i < columns_.size(); ++i)
            worksheet_set_column(sheet_, static_cast<lxw_col_t>(i), static_cast<lxw_col_t>(i),
                                 static_cast<double>(std::min(widths_[i], WidestColumn) + 2), nullptr);
        Require(workbook_close(book_.release()));
        std::error_code failure;
        std::filesystem::rename(Unfinished().toStdU16String(), path_.toStdU16String(), failure);
        if (failure)
            RefuseUnmade(path_, QString::fromLocal8Bit(failure.message().c_str()));
    }

private:
    struct Close {
        void operator()(lxw_workbook* book) const { workbook_close(book); }
    };

    QString Unfinished() const { return workshop_.filePath(u"book.xlsx"_s); }

    lxw_format* Format(const char* numbers) {
        lxw_format* const format = workbook_add_format(book_.get());
        format_set_num_format(format, numbers);
        return format;
    }

    void WriteCell(size_t column, const FieldValue& value) {
        switch (columns_[column].kind) {
        case ColumnKind::Number:
            if (const std::optional<QString> number = NumberText(value))
                return WriteNumber(column, value.Number(), number->size(), nullptr);
            break;
        case ColumnKind::Flag:
            Require(
                worksheet_write_boolean(sheet_, row_, static_cast<lxw_col_t>(column), value.Flag(), nullptr));
            return;
        case ColumnKind::Date:
        case ColumnKind::Moment:
            if (const std::optional<double> serial = value.Time() ? SerialOf(*value.Time()) : std::nullopt) {
                lxw_format* const format = columns_[column].kind == ColumnKind::Date ? day_
                                           : *serial < 2                             ? time_
                                                                                     : moment_;
                return WriteNumber(column, *serial, value.Text().size(), format);
            }
            break;
        case ColumnKind::Text:
            break;
        }
        WriteText(column, value.Text(), nullptr);
    }

    void WriteNumber(size_t column, double number, qsizetype width, lxw_format* format) {
        Widen(column, width);
        Require(worksheet_write_number(sheet_, row_, static_cast<lxw_col_t>(column), number, format));
    }

    void WriteText(size_t column, const QString& text, lxw_format* format) {
        Widen(column, text.size());
        Require(worksheet_write_string(sheet_, row_, static_cast<lxw_col_t>(column),
                                       text.toUtf8().constData(), format));
    }

    void Widen(size_t column, qsizetype width) {
        widths_.resize(columns_.size());
        widths_[column] = std::max(widths_[column], width);
    }

    void Require(lxw_error error) const {
        if (error != LXW_NO_ERROR)
            RefuseUnmade(path_, QString::fromUtf8(lxw_strerror(error)));
    }

    QString path_;
    QTemporaryDir workshop_;
    std::vector<ExportColumn> columns_;
    std::vector<qsizetype> widths_;
    std::unique_ptr<lxw_workbook, Close> book_;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* day_ = nullptr;
    lxw_format* moment_ = nullptr;
    lxw_format* time_ = nullptr;
    lxw_row_t row_ = 0;
};

} // namespace

std::unique_ptr<RowWriter> MakeXlsxWriter(const QString& path, const std::vector<ExportColumn>& columns) {
    return std::make_unique<XlsxWriter>(path, columns);
}
