#include "core/platform_files.h"
#include "database/database_file.h"
#include "exchange/csv_reader.h"
#include "exchange/row_writer.h"

#include <csv.h>

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

/// In bytes: how much is gathered before it is written.
constexpr qsizetype BlockSize = 1 << 16;

void AppendQuoted(QByteArray& line, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<size_t>(bytes.size());
    const qsizetype start = line.size();
    line.resize(start + 2 * bytes.size() + 2); // every byte a quote, at most
    const size_t written =
        csv_write(line.data() + start, static_cast<size_t>(line.size() - start), bytes.data(), size);
    line.resize(start + static_cast<qsizetype>(written));
}

/// "12.125" alone could be read as thousands.
QByteArray Unmistakable(const QString& number) {
    const qsizetype point = number.indexOf(u'.');
    const bool likeThousands = point >= 0 && number.size() - point - 1 == 3;
    return number.toLatin1() + (likeThousands ? "0" : "");
}

class CsvWriter : public RowWriter {
public:
    CsvWriter(const QString& path, const std::vector<ExportColumn>& columns)
        : file_(path), columns_(columns) {
        if (!file_.open(QIODevice::WriteOnly))
            RefuseUnmade(path, file_.errorString());
        gathered_ = "\xEF\xBB\xBF";
        ExportRow titles;
        for (const ExportColumn& column : columns) {
            titles.emplace_back(column.title);
            gathered_ += titles.size() > 1 ? "," : "";
            AppendQuoted(gathered_, WithFormulaMark(column.title));
        }
        gathered_ += "\r\n";
    }

    void Write(const ExportRow& row) override {
        for (size_t i = 0; i < columns_.size(); ++i) {
            if (i > 0)
                gathered_ += ',';
            Append(row[i], columns_[i].kind);
        }
        gathered_ += "\r\n";
        if (gathered_.size() >= BlockSize)
            WriteGathered();
    }

    void Commit() override {
        WriteGathered();
        if (!file_.flush() || !HasReachedDisk(file_) || !file_.commit())
            RefuseUnmade(file_.fileName(), file_.errorString());
    }

private:
    void Append(const FieldValue& value, ColumnKind kind) {
        if (value.IsNull())
            return;
        const std::optional<QString> number = kind == ColumnKind::Number ? NumberText(value) : std::nullopt;
        const std::optional<WallTime> time = kind == ColumnKind::Moment ? value.Time() : std::nullopt;
        if (number)
            gathered_ += Unmistakable(*number);
        else if (time && DayOf(*time) == DayZero)
            gathered_ += ShownTime(*time).toLatin1(); // a time of day, of no day
        else
            AppendQuoted(gathered_, WithFormulaMark(value.Text()));
    }

    void WriteGathered() {
        if (file_.write(gathered_) != gathered_.size())
            RefuseUnmade(file_.fileName(), file_.errorString());
        gathered_.clear();
    }

    QSaveFile file_;
    std::vector<ExportColumn> columns_;
    QByteArray gathered_;
};

} // namespace

std::unique_ptr<RowWriter> MakeCsvWriter(const QString& path, const std::vector<ExportColumn>& columns) {
    return std::make_unique<CsvWriter>(path, columns);
}
