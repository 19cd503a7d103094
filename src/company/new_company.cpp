#include "company/new_company.h"

#include "company/users.h"
#include "database/database_file.h"
#include "database/new_database_file.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadLineNumber = 90034;

QList<QVariantList> Rows(const std::vector<CodeName>& codes) {
    QList<QVariantList> rows;
    for (const auto& [code, name] : codes)
        rows << QVariantList{code, name, code};
    return rows;
}

QVariant StoredOrNull(const std::optional<WallTime>& time) {
    return time ? QVariant(StoredTime(*time)) : QVariant();
}

void InsertCodes(Connection& connection, const QString& table, const QString& code, const QString& name,
                 const std::vector<CodeName>& codes) {
    connection.ExecuteMany(
        u"insert into %1 (%2, %3) select ?, ? where not exists (select %2 from %1 where %2=?)"_s.arg(
            table, code, name),
        Rows(codes));
}

void InsertStatuses(Connection& connection, const std::vector<CodeName>& statuses) {
    QList<QVariantList> rows;
    for (const auto& [status, description] : statuses)
        rows << QVariantList{rows.size() + 1, status, description, status};
    connection.ExecuteMany(
        u"insert into [Employee Status] (ID, Status, Description) select ?, ?, ? where not "
        "exists (select Status from [Employee Status] where Status=?)"_s,
        rows);
}

void InsertShifts(Connection& connection, const std::vector<ShiftRow>& shifts) {
    QList<QVariantList> rows;
    for (const auto& [code, timeIn, timeOut] : shifts)
        rows << QVariantList{code, StoredOrNull(timeIn), StoredOrNull(timeOut), code};
    connection.ExecuteMany(u"insert into Shift (Code, TimeIn, TimeOut) select ?, ?, ? where not exists "
                           "(select Code from Shift where Code=?)"_s,
                           rows);
}

} // namespace

std::vector<CodeName> ReadCodeLines(const QString& text) {
    static const QRegularExpression parts(u"^([^\\s;,]+)(?:\\s*[;,\\t]\\s*|\\s+|$)(.*)$"_s);
    std::vector<CodeName> codes;
    QSet<QString> seen;
    int number = 0;
    for (const QString& line : text.split(u'\n')) {
        ++number;
        if (line.trimmed().isEmpty())
            continue;
        const auto match = parts.match(line.trimmed());
        const QString code = match.captured(1);
        if (code.isEmpty() || code.contains(u'\''))
            throw ProgramError(BadLineNumber, u"Baris %1: \"%2\" tidak berawal dengan kode. Tulis kode lalu "
                                              "namanya, misalnya PROD Produksi."_s.arg(number)
                                                  .arg(line.trimmed()));
        if (seen.contains(code.toUpper()))
            throw ProgramError(BadLineNumber,
                               u"Baris %1: kode %2 sudah ada di atasnya."_s.arg(number).arg(code));
        seen << code.toUpper();
        const QString name = match.captured(2).trimmed();
        codes.push_back({code, name.isEmpty() ? code : name});
    }
    return codes;
}

void FoundCompany(const QString& databaseFile, const NewCompany& company) {
    CheckUserId(company.supervisor);
    const auto fill = [&company](Connection& connection) {
        const Users users(connection);
        const HashedPasswords password = *users.Hash({{company.supervisor, company.password}});
        connection.InTransaction([&] {
            WriteCompanySettings(connection, company.settings);
            InsertCodes(connection, u"Departments"_s, u"DeptCode"_s, u"DeptName"_s, company.departments);
            InsertCodes(connection, u"Division"_s, u"DivKode"_s, u"DivName"_s, company.divisions);
            InsertCodes(connection, u"AbsenTipe"_s, u"Kode"_s, u"Keterangan"_s, company.absenceTypes);
            InsertStatuses(connection, company.statuses);
            InsertShifts(connection, company.shifts);
            users.Write(password);
            users.SetSupervisor(company.supervisor, true);
        });
    };
    if (QFile::exists(databaseFile))
        fill(*OpenDatabaseFile(databaseFile));
    else
        MakeDatabaseFile(databaseFile, fill);
}
