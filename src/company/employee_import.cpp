#include "company/employee_import.h"

#include "company/code_table.h"
#include "company/users.h"
#include "database/database_error.h"
#include "database/statement.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

using enum EmployeeField;
using enum ImportProblem;

/// Larger than any wage, and small enough that its digits are stored as they are.
constexpr double MostAmount = 1e11;

bool IsNumber(EmployeeField field) {
    return field == GP || field == RateOT || field == TMakan || field == Sc;
}

bool IsDate(EmployeeField field) {
    return field == Masuk || field == Keluar;
}

QString WithoutZeros(const QString& nip) {
    QStringView digits = nip;
    while (digits.startsWith(u'0'))
        digits = digits.sliced(1);
    return digits.toString().toUpper();
}

/// A list of codes as a file may name one: by its code, in any letter case, or by what people read.
class KnownCodes {
public:
    KnownCodes() = default;
    explicit KnownCodes(const std::vector<CodeName>& list) {
        for (const auto& [code, name] : list)
            byName_.insert(name.toUpper(), code);
        for (const auto& [code, name] : list)
            byName_.insert(code.toUpper(), code);
    }

    std::optional<QString> Find(const QString& text) const {
        const auto found = byName_.constFind(text.toUpper());
        return found == byName_.cend() ? std::nullopt : std::optional(*found);
    }
    void Add(const QString& code) { byName_.insert(code.toUpper(), code); }

private:
    QHash<QString, QString> byName_;
};

/// The employees and codes that a file is compared with, each read in one statement.
struct Present {
    Present(Connection& connection, const ImportOptions& options, Day today) {
        const EmployeeStore store(connection);
        for (Employee& employee : store.ReadAll()) {
            numbers.insert(WithoutZeros(employee.nip), employee.nip);
            upperNumbers.insert(employee.nip.toUpper(), employee.nip);
            QString nip = employee.nip;
            employees.insert(nip, std::move(employee));
        }
        payToday = store.PayInForce(today);
        payThen = store.PayInForce(options.payFrom);
        constexpr Day endOfTime{std::chrono::year{9999} / std::chrono::December / std::chrono::day{31}};
        lastPay = store.PayInForce(endOfTime);
        departments = KnownCodes(CodeLists::Departments(connection, CodeLists::DepartmentColumns::Joined));
        divisions = KnownCodes(CodeLists::Divisions(connection));
    }

    static PayTerms PayIn(const QHash<QString, PayRow>& rows, const Employee& employee) {
        const auto row = rows.constFind(employee.nip);
        return row == rows.cend() ? employee.pay : row->pay;
    }

    QHash<QString, Employee> employees;
    QHash<QString, QString> numbers; ///< by what is left without zeros in front
    QHash<QString, QString> upperNumbers;
    QHash<QString, PayRow> payToday;
    QHash<QString, PayRow> payThen;
    QHash<QString, PayRow> lastPay;
    KnownCodes departments;
    KnownCodes divisions;
};

class Planner {
public:
    Planner(Connection& connection, const EmployeeFile& file, const std::vector<EmployeeField>& fields,
            const ImportOptions& options, Day today)
        : file_(file), fields_(fields), options_(options), present_(connection, options, today) {}

    EmployeePlan Plan() {
        if (!CheckColumns())
            return std::move(plan_);
        FindForms();
        for (const CsvRow& row : file_.rows)
            PlanRow(row);
        return std::move(plan_);
    }

private:
    void Find(ImportProblem problem, EmployeeField field, const QString& value, const QString& detail = {}) {
        plan_.findings.push_back({line_, field, value, problem, detail});
    }

    bool CheckColumns() {
        line_ = 1;
        for (int i = 1; i < EmployeeFieldCount; ++i) {
            const auto field = static_cast<EmployeeField>(i);
            const auto columns = std::ranges::count(fields_, field);
            if (columns > 1)
                Find(TwoColumns, field, {});
            if (field == Nip && columns == 0)
                Find(NoNumberColumn, field, {});
        }
        return plan_.findings.empty();
    }

    void FindForms() {
        NumberFormFinder numbers;
        DateFormFinder dates;
        for (const CsvRow& row : file_.rows) {
            for (size_t i = 0; i < fields_.size(); ++i) {
                if (IsNumber(fields_[i]))
                    numbers.Note(Cell(row, i));
                else if (IsDate(fields_[i]))
                    dates.Note(Cell(row, i));
            }
        }
        plan_.numbers = options_.numbers.value_or(numbers.Found().form);
        plan_.dates = options_.dates.value_or(dates.Found().form);
        numberInDoubt_ = options_.numbers ? QString() : numbers.Found().inDoubt;
        dateInDoubt_ = options_.dates ? QString() : dates.Found().inDoubt;
    }

    static QString Cell(const CsvRow& row, size_t column) {
        return row.cells.value(static_cast<qsizetype>(column));
    }

    /// Blanks around a number do not count, unless an employee's number has them.
    QString NumberIn(const CsvRow& row) const {
        const auto column = static_cast<size_t>(std::ranges::find(fields_, Nip) - fields_.begin());
        QString nip = Cell(row, column);
        return present_.employees.contains(nip) ? nip : nip.trimmed();
    }

    void PlanRow(const CsvRow& row) {
        line_ = row.line;
        const size_t before = plan_.findings.size();
        const auto extra =
            std::ranges::find_if_not(row.cells.begin() + std::min(row.cells.size(), file_.headings.size()),
                                     row.cells.end(), &QString::isEmpty);
        if (extra != row.cells.end())
            Find(MoreCells, None, *extra);
        const QString nip = NumberIn(row);
        CheckNumber(nip);
        const auto known = present_.employees.constFind(nip);
        const bool isNew = known == present_.employees.cend();
        Employee employee = isNew ? Employee{} : *known;
        employee.nip = nip;
        const PayTerms payToday = isNew ? PayTerms() : Present::PayIn(present_.payToday, *known);
        PayTerms pay = payToday;
        QString password;
        for (size_t i = 0; i < fields_.size(); ++i)
            Take(fields_[i], Cell(row, i), employee, pay, password);
        if (employee.masuk && employee.keluar && *employee.keluar < *employee.masuk
            && (isNew || employee != *known))
            Find(LeftBeforeComing, Keluar, StoredDay(*employee.keluar));
        if (plan_.findings.size() > before)
            return;
        if (isNew)
            employee.pay = pay;
        else if (pay != payToday)
            PlanPay(*known, payToday, pay);
        Enter(isNew ? std::nullopt : std::optional(*known), employee, pay != payToday, password);
    }

    void CheckNumber(const QString& nip) {
        if (nip.isEmpty())
            return Find(NoNumber, Nip, nip);
        if (!IsGoodUserId(nip) || nip.startsWith(u'-'))
            return Find(BadNumber, Nip, nip);
        if (const auto line = lines_.constFind(nip.toUpper()); line != lines_.cend())
            return Find(Twice, Nip, nip, QString::number(*line));
        lines_.insert(nip.toUpper(), line_);
        if (present_.employees.contains(nip))
            return;
        if (const QString other = present_.upperNumbers.value(nip.toUpper()); !other.isNull())
            Find(OtherCase, Nip, nip, other);
        else if (const QString longer = present_.numbers.value(WithoutZeros(nip)); !longer.isNull())
            Find(LostZeros, Nip, nip, longer);
    }

    /// Takes what a cell says, unless something is wrong with it.
    void Take(EmployeeField field, const QString& cell, Employee& employee, PayTerms& pay,
              QString& password) {
        if (field == None || field == Nip || (cell.trimmed().isEmpty() && !options_.emptyClears))
            return;
        switch (field) {
        case Nama:
            employee.nama = cell;
            break;
        case Dept:
            TakeCode(field, cell, employee.dept);
            break;
        case Divisi:
            TakeCode(field, cell, employee.divisi);
            break;
        case PathImage:
            employee.pathImage = cell;
            break;
        case EmpType:
            TakeType(cell, pay.empType);
            break;
        case GP:
            TakeNumber(field, cell, pay.gp);
            break;
        case RateOT:
            TakeNumber(field, cell, pay.rateOT);
            break;
        case TMakan:
            TakeNumber(field, cell, pay.tMakan);
            break;
        case Sc:
            TakeNumber(field, cell, employee.sc);
            break;
        case Masuk:
            TakeDate(field, cell, employee.masuk);
            break;
        case Keluar:
            TakeDate(field, cell, employee.keluar);
            break;
        case IdMesin:
            employee.idMesin = cell;
            break;
        case Password:
            password = cell; // an empty one would be none
            break;
        case None:
        case Nip:
            break;
        }
    }

    void TakeNumber(EmployeeField field, const QString& cell, std::optional<double>& number) {
        number.reset();
        if (cell.trimmed().isEmpty())
            return;
        const std::optional<QString> digits = ReadNumber(cell, plan_.numbers);
        if (!digits)
            return Find(NotANumber, field, cell);
        if (!numberInDoubt_.isEmpty() && IsInDoubt(cell))
            return Find(NumberInDoubt, field, cell);
        number = digits->toDouble();
        if (*number < 0 && field != Sc)
            Find(BelowZero, field, cell);
        else if (std::abs(*number) > MostAmount)
            Find(TooLarge, field, cell);
    }

    /// Whether the cell, which is a number in the file's form, is one in the other form, too.
    bool IsInDoubt(const QString& cell) const {
        const std::optional<QString> point = ReadNumber(cell, NumberForm::PointDecimals);
        const std::optional<QString> comma = ReadNumber(cell, NumberForm::CommaDecimals);
        return point && comma && *point != *comma;
    }

    void TakeDate(EmployeeField field, const QString& cell, std::optional<Day>& day) {
        day.reset();
        if (cell.trimmed().isEmpty())
            return;
        day = ReadDate(cell, plan_.dates);
        if (!day)
            Find(NotADate, field, cell);
        else if (!dateInDoubt_.isEmpty() && ReadDate(cell, DateForm::MonthFirst)
                 && day != ReadDate(cell, DateForm::MonthFirst))
            Find(DateInDoubt, field, cell);
    }

    void TakeType(const QString& cell, QString& type) {
        const QString code = cell.trimmed().toUpper();
        if (cell != type && !code.isEmpty() && code != u"HRN"_s && code != u"BLN"_s)
            return Find(BadType, EmpType, cell);
        type = cell == type ? cell : code;
    }

    void TakeCode(EmployeeField field, const QString& cell, QString& code) {
        if (cell == code)
            return; // whatever it is, it is left to those who clear it up
        const QString wanted = cell.trimmed();
        if (wanted.isEmpty()) {
            code = wanted;
            return;
        }
        KnownCodes& known = field == Dept ? present_.departments : present_.divisions;
        if (const std::optional<QString> found = known.Find(wanted)) {
            code = *found;
        } else if (!options_.makeMissing) {
            Find(field == Dept ? UnknownDept : UnknownDivisi, field, wanted);
        } else if (wanted.contains(u'\'')) {
            Find(BadCode, field, wanted);
        } else {
            known.Add(wanted);
            (field == Dept ? plan_.newDepartments : plan_.newDivisions) << wanted;
            code = wanted;
        }
    }

    /// A change of pay is a row from its day on: what is paid on that day, with the values that the file has
    /// other than those of today.
    void PlanPay(const Employee& employee, const PayTerms& today, const PayTerms& wanted) {
        PayTerms pay = Present::PayIn(present_.payThen, employee);
        const auto take = [&](auto PayTerms::*member) {
            if (wanted.*member != today.*member)
                pay.*member = wanted.*member;
        };
        take(&PayTerms::empType);
        take(&PayTerms::gp);
        take(&PayTerms::rateOT);
        take(&PayTerms::tMakan);
        const auto last = present_.lastPay.constFind(employee.nip);
        if (last != present_.lastPay.cend() && last->from > options_.payFrom)
            return Find(LaterPay, GP, employee.nip, StoredDay(last->from));
        plan_.pay.push_back({employee.nip, options_.payFrom, pay});
    }

    void Enter(const std::optional<Employee>& before, const Employee& after, bool otherPay,
               const QString& password) {
        if (!before)
            ++plan_.added;
        else
            ++(after != *before || otherPay || !password.isEmpty() ? plan_.changed : plan_.unchanged);
        // With other pay alone, too: then it is looked whether the employee is still there.
        if (!before || after != *before || otherPay)
            plan_.changes.push_back({before, after});
        if (!password.isEmpty())
            plan_.passwords.emplace_back(after.nip, password);
    }

    const EmployeeFile& file_;
    const std::vector<EmployeeField>& fields_;
    const ImportOptions& options_;
    Present present_;
    EmployeePlan plan_;
    QString numberInDoubt_;
    QString dateInDoubt_;
    QHash<QString, int> lines_; ///< of the numbers that were seen, in upper case
    int line_ = 0;
};

void MakeCodes(Connection& connection, CodeKind kind, const QStringList& codes) {
    std::vector<CodeName> rows;
    for (const QString& code : codes)
        rows.push_back({code, code});
    CodeTable(connection, kind).Add(rows);
}

} // namespace

EmployeePlan PlanImport(Connection& connection, const EmployeeFile& file,
                        const std::vector<EmployeeField>& fields, const ImportOptions& options, Day today) {
    return Planner(connection, file, fields, options, today).Plan();
}

bool RunImport(Connection& connection, const EmployeePlan& plan, const Progress& progress) {
    if (!plan.findings.empty())
        throw std::logic_error("an import with findings is not run");
    const Users users(connection);
    const std::optional<HashedPasswords> passwords = users.Hash(plan.passwords, progress);
    if (!passwords)
        return false;
    connection.InTransaction([&] {
        MakeCodes(connection, CodeKind::Department, plan.newDepartments);
        MakeCodes(connection, CodeKind::Division, plan.newDivisions);
        const EmployeeStore store(connection);
        // The plan found nothing wrong, so what is wrong now came from elsewhere.
        if (!store.Save(plan.changes).empty())
            throw ConflictError(u"Employee"_s);
        store.SavePay(plan.pay);
        users.Write(*passwords);
    });
    return true;
}
