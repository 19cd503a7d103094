#pragma once

#include "exchange/table_source.h"

/// An Access database: Jet 3, Jet 4 or ACE. It is read by a process of its own, the program tadata-access
/// beside this one, since a damaged file may end its reader. Single numbers come as the digits that they
/// print with; an empty text is null. All functions throw ProgramError when the file cannot be read, is no
/// Access database, is damaged or protected by a password.
class AccessFile : public TableSource {
public:
    explicit AccessFile(const QString& path) : path_(path) {}

    std::vector<SourceTable> Tables() override;
    bool ReadRows(const std::vector<SourceTable>& tables, const RowSink& sink) override;

private:
    QString path_;
};
