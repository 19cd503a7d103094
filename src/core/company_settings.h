#pragma once

#include "database/connection.h"

#include <QString>

/// What a company decides for all its desks. A database that says nothing has what stands here.
struct CompanySettings {
    QString name;
    bool nameHeadsReports = false;
    bool saveWithoutPassword = true; ///< whether the clock entry's "Simpan" records without a password
    int workDays = 6;                ///< of a week: 5 or 6
    bool operator==(const CompanySettings&) const = default;
};

/// Both throw DatabaseError.
CompanySettings ReadCompanySettings(Connection& connection);
/// In one transaction.
void WriteCompanySettings(Connection& connection, const CompanySettings& settings);

/// The line that heads the reports; null when none does.
QString ReportHead(Connection& connection);
