#pragma once

#include "exchange/csv_reader.h"

#include <QString>
#include <QStringList>

#include <vector>

/// What a column of a file of employees may bring.
enum class EmployeeField {
    None, ///< the column is left
    Nip,
    Nama,
    Dept,
    Divisi,
    PathImage,
    EmpType,
    GP,
    RateOT,
    TMakan,
    Sc,
    Masuk,
    Keluar,
    IdMesin,
    Password
};
inline constexpr int EmployeeFieldCount = static_cast<int>(EmployeeField::Password) + 1;

/// As the database calls it: "GP"; "" for None.
QString EmployeeFieldName(EmployeeField field);

/// A file of employees as it was read.
struct EmployeeFile {
    QString path;
    CsvForm form;
    QStringList headings;
    std::vector<CsvRow> rows; ///< without the headings
};

/// Throws ProgramError, as ReadCsv does.
EmployeeFile ReadEmployeeFile(const QString& path);

/// What each column brings, by its heading: "NIK", "Gaji Pokok", "Tgl. Masuk" and their like.
std::vector<EmployeeField> MatchHeadings(const QStringList& headings);
