#pragma once

#include "core/program_folder.h"
#include "database/connection.h"

#include <QString>

/// An employee as the entry window shows one after recording; all empty for an unknown number.
struct EmployeeDetails {
    QString nama;
    QString dept;
    QString divisi;
    QString pathImage;
};

/// Throws DatabaseError.
EmployeeDetails LoadEmployeeDetails(Connection& connection, const QString& nip);

/// The existing picture file to show for an employee: the one that the record names, a relative path being
/// relative to the program folder; else NoImage.gif of the program folder; empty when that is missing too.
QString PhotoFile(const ProgramFolder& folder, const QString& pathImage);

/// Whether the record names something that is there but no file, such as a folder or a pipe.
bool NamesNoFile(const ProgramFolder& folder, const QString& pathImage);
