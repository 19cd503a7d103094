#pragma once

#include "core/code_lists.h"
#include "core/company_settings.h"

#include <QString>

#include <vector>

/// What a company begins with.
struct NewCompany {
    CompanySettings settings;
    QString supervisor; ///< user ID
    QString password;
    std::vector<ShiftRow> shifts;
    std::vector<CodeName> statuses;
    std::vector<CodeName> absenceTypes;
    std::vector<CodeName> departments;
    std::vector<CodeName> divisions;
};

/// Codes and names as a person types or pastes them, one a line: "PROD Produksi", or the two parted by a tab,
/// ";" or ",". A line without a name is its own. Throws ProgramError naming the line where a code stands
/// twice or cannot be one.
std::vector<CodeName> ReadCodeLines(const QString& text);

/// Writes a company into the database file, which is made where there is none yet: all of it or nothing. In a
/// database that holds something already, codes that stand there stay as they are. Throws ProgramError and
/// DatabaseError.
void FoundCompany(const QString& databaseFile, const NewCompany& company);
