#pragma once

#include "company/employee_file.h"
#include "company/employee_store.h"
#include "core/code_lists.h"
#include "core/progress.h"
#include "exchange/number_form.h"

/// What is wrong with a cell, or a line, of a file of employees.
enum class ImportProblem {
    NoNumberColumn, ///< none of the columns is NIP
    TwoColumns,     ///< another column is the same field
    MoreCells,      ///< than headings: often a separator in an unquoted cell
    NoNumber,
    BadNumber, ///< holds what no number may
    Twice,     ///< detail: the line on which the number stands already
    OtherCase, ///< detail: the number of an employee, which differs in letter case only
    LostZeros, ///< detail: the number of an employee, which differs in zeros in front only
    NotANumber,
    NumberInDoubt, ///< it can be read in two ways, and the file does not tell
    BelowZero,
    TooLarge,
    NotADate,
    DateInDoubt,
    BadType, ///< neither HRN nor BLN
    UnknownDept,
    UnknownDivisi,
    BadCode,          ///< no department or division can have it
    LeftBeforeComing, ///< Keluar before Masuk
    LaterPay          ///< of the number in the value; detail: the later day from which other pay is set
};

struct ImportFinding {
    int line;
    EmployeeField field;
    QString value;
    ImportProblem problem;
    QString detail = {};
};

/// "line 7: GP "12a" is not a number", and the same for the user.
QString EnglishText(const ImportFinding& finding);
QString UserText(const ImportFinding& finding);

struct ImportOptions {
    bool emptyClears = false; ///< an empty cell empties what stands there; otherwise it changes nothing
    bool makeMissing = false; ///< departments and divisions that are not there yet
    Day payFrom{};            ///< the day from which changed pay of those who are there already counts
    /// How the file is written, where it does not show.
    std::optional<NumberForm> numbers = {};
    std::optional<DateForm> dates = {};
};

/// What an import would do. Nothing of it is done while there are findings.
struct EmployeePlan {
    std::vector<EmployeeChange> changes;
    std::vector<PayRow> pay;
    std::vector<std::pair<QString, QString>> passwords; ///< as they stand in the file
    QStringList newDepartments;
    QStringList newDivisions;
    int added = 0;
    int changed = 0; ///< those with other pay or another password only counted in
    int unchanged = 0;
    NumberForm numbers{};
    DateForm dates{};
    std::vector<ImportFinding> findings; ///< line by line
};

/// Compares a file with the employees. Somebody is told by the number alone. An employee who is there already
/// is changed in the columns that the file has and in no other; pay is compared with what is in force today,
/// as it is shown and exported, and changed from `payFrom` on. Throws DatabaseError.
EmployeePlan PlanImport(Connection& connection, const EmployeeFile& file,
                        const std::vector<EmployeeField>& fields, const ImportOptions& options, Day today);

/// Does what was planned, in one transaction. The progress is told of the passwords, which take longest.
/// False when it stopped the import. Throws ConflictError when another desk changed an employee meanwhile,
/// DatabaseError; nothing is written then.
bool RunImport(Connection& connection, const EmployeePlan& plan, const Progress& progress = {});
