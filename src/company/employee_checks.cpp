#include "company/employee_checks.h"

#include "cards/card_store.h"
#include "company/users.h"
#include "core/code_lists.h"

#include <QSet>

using namespace Qt::StringLiterals;
using enum EmployeeProblem;

namespace {

/// What the checks of many changes need to know, read once.
struct Known {
    QHash<QString, Employee> employees; ///< by number
    QHash<QString, QString> numbers;    ///< as they are written, by their upper-case form
    QSet<QString> departments;
    QSet<QString> divisions;
    QSet<QString> withCards;
};

QSet<QString> CodesOf(const std::vector<CodeName>& list) {
    QSet<QString> codes;
    for (const CodeName& entry : list)
        codes << entry.code;
    return codes;
}

bool KeepsNumber(const EmployeeChange& change) {
    return change.before && change.after && change.after->nip == change.before->nip;
}

Known ReadKnown(Connection& connection, const std::vector<EmployeeChange>& changes) {
    Known known;
    for (const Employee& employee : EmployeeStore(connection).ReadAll()) {
        known.numbers.insert(employee.nip.toUpper(), employee.nip);
        known.employees.insert(employee.nip, employee);
    }
    known.departments = CodesOf(CodeLists::Departments(connection, CodeLists::DepartmentColumns::Joined));
    known.divisions = CodesOf(CodeLists::Divisions(connection));
    QStringList givenUp;
    for (const EmployeeChange& change : changes) {
        if (!change.before || KeepsNumber(change))
            continue;
        givenUp << change.before->nip;
        known.numbers.remove(change.before->nip.toUpper());
    }
    known.withCards = CardStore(connection).WithCards(givenUp);
    return known;
}

/// The number is the user's ID, too, and ends the names of cards, where a "-" begins a sheet's extension.
bool IsGoodNumber(const QString& nip) {
    return IsGoodUserId(nip) && !nip.startsWith(u'-');
}

using Problem = std::optional<std::pair<EmployeeProblem, QString>>;

/// What another desk did meanwhile, and what cards forbid.
Problem CheckBefore(const EmployeeChange& change, const Known& known) {
    const QString& nip = change.before->nip;
    const auto now = known.employees.constFind(nip);
    if (now == known.employees.cend())
        return {{GoneElsewhere, {}}};
    if (*now != *change.before)
        return {{ChangedElsewhere, now->nama}};
    if (!KeepsNumber(change) && known.withCards.contains(nip))
        return {{HasCards, {}}};
    return std::nullopt;
}

/// A code that stood there already is left to those who clear it up.
Problem CheckFields(const Employee& row, const std::optional<Employee>& before, const Known& known) {
    const auto isUnknown = [&](QString Employee::*code, const QSet<QString>& codes) {
        return !(row.*code).isEmpty() && !codes.contains(row.*code)
               && (!before || *before.*code != row.*code);
    };
    if (row.nip.trimmed().isEmpty())
        return {{NoNumber, {}}};
    if (!IsGoodNumber(row.nip))
        return {{BadNumber, row.nip}};
    if (isUnknown(&Employee::dept, known.departments))
        return {{UnknownDept, row.dept}};
    if (isUnknown(&Employee::divisi, known.divisions))
        return {{UnknownDivisi, row.divisi}};
    if (row.masuk && row.keluar && *row.keluar < *row.masuk)
        return {{LeftBeforeComing, {}}};
    return std::nullopt;
}

/// Takes the number, unless another employee has it.
Problem TakeNumber(const QString& nip, Known& known) {
    const QString key = nip.toUpper();
    if (const auto taken = known.numbers.constFind(key); taken != known.numbers.cend())
        return {{NumberTaken, *taken}};
    known.numbers.insert(key, nip);
    return std::nullopt;
}

} // namespace

std::vector<EmployeeFinding> CheckEmployees(Connection& connection,
                                            const std::vector<EmployeeChange>& changes) {
    Known known = ReadKnown(connection, changes);
    std::vector<EmployeeFinding> findings;
    for (size_t i = 0; i < changes.size(); ++i) {
        const auto& [before, after] = changes[i];
        Problem problem = before ? CheckBefore(changes[i], known) : std::nullopt;
        if (!problem && after)
            problem = CheckFields(*after, before, known);
        if (!problem && after && !KeepsNumber(changes[i]))
            problem = TakeNumber(after->nip, known);
        if (problem)
            findings.push_back({i, before ? before->nip : after->nip, problem->first, problem->second});
    }
    return findings;
}

QString FindingText(const EmployeeFinding& finding) {
    const auto& [change, nip, problem, detail] = finding;
    switch (problem) {
    case NoNumber:
        return u"NIK harus diisi."_s;
    case BadNumber:
        return u"NIK \"%1\" tidak dapat dipakai: jangan memakai ' atau ~, spasi di awal atau akhir, "
               "atau - di awal."_s.arg(detail);
    case NumberTaken:
        return u"NIK %1 sudah dipakai karyawan lain (%2). Pilih nomor lain."_s.arg(nip, detail);
    case UnknownDept:
        return u"NIK %1: departemen \"%2\" tidak ada. Tambahkan dulu di Departemen."_s.arg(nip, detail);
    case UnknownDivisi:
        return u"NIK %1: divisi \"%2\" tidak ada. Tambahkan dulu di Divisi."_s.arg(nip, detail);
    case LeftBeforeComing:
        return u"NIK %1: tanggal Keluar mendahului tanggal Masuk."_s.arg(nip);
    case ChangedElsewhere:
        return u"Karyawan %1 (%2) sudah diubah dari komputer lain. Tidak ada yang disimpan; periksa lalu "
               "ulangi."_s.arg(nip, detail);
    case GoneElsewhere:
        return u"Karyawan %1 sudah dihapus dari komputer lain. Tidak ada yang disimpan."_s.arg(nip);
    case HasCards:
        return u"Karyawan %1 sudah punya kartu absen, jadi nomornya tidak dapat diganti atau dihapus. "
               "Untuk karyawan yang berhenti, isi tanggal Keluar."_s.arg(nip);
    }
    return {};
}
