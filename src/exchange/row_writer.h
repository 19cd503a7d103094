#pragma once

#include "exchange/table_export.h"

#include <memory>

/// Writes a table to a file in one form.
class RowWriter {
public:
    virtual ~RowWriter() = default;
    virtual void Write(const ExportRow& row) = 0;
    /// The file is complete.
    virtual void Commit() = 0;
};

/// Both throw ProgramError when the file cannot be written, now or with a row.
std::unique_ptr<RowWriter> MakeCsvWriter(const QString& path, const std::vector<ExportColumn>& columns);
std::unique_ptr<RowWriter> MakeXlsxWriter(const QString& path, const std::vector<ExportColumn>& columns);

/// A stored number in digits only, without an exponent; nothing for what is no number.
std::optional<QString> NumberText(const FieldValue& value);
