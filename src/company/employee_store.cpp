#include "company/employee_store.h"

#include "company/employee_checks.h"

using namespace Qt::StringLiterals;

namespace {

/// The columns in the order of the statements below.
const QStringList Columns{u"NIP"_s,   u"Nama"_s,   u"Dept"_s,   u"Divisi"_s,  u"PathImage"_s,
                          u"GP"_s,    u"RateOT"_s, u"TMakan"_s, u"EmpType"_s, u"sc"_s,
                          u"Masuk"_s, u"Keluar"_s, u"IdMesin"_s};

std::optional<double> NumberIn(const FieldValue& value) {
    return value.IsNull() ? std::nullopt : std::optional(value.Number());
}

std::optional<Day> DayIn(const FieldValue& value) {
    const std::optional<WallTime> time = value.Time();
    return time ? std::optional(DayOf(*time)) : std::nullopt;
}

QVariant Stored(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QVariant Stored(const std::optional<double>& number) {
    return number ? QVariant(*number) : QVariant();
}

QVariant Stored(const std::optional<Day>& day) {
    return day ? QVariant(StoredDay(*day)) : QVariant();
}

Employee EmployeeIn(const Cursor& row) {
    Employee employee{row.Text(0), row.Text(1), row.Text(2), row.Text(3), row.Text(4), {}, {}, {}, {}, {}};
    employee.pay = {row.Text(8), NumberIn(row.Value(5)), NumberIn(row.Value(6)), NumberIn(row.Value(7))};
    employee.sc = NumberIn(row.Value(9));
    employee.masuk = DayIn(row.Value(10));
    employee.keluar = DayIn(row.Value(11));
    employee.idMesin = row.Text(12);
    return employee;
}

QVariantList Values(const Employee& row) {
    const PayTerms& pay = row.pay;
    return {
        row.nip,           Stored(row.nama),   Stored(row.dept),   Stored(row.divisi),  Stored(row.pathImage),
        Stored(pay.gp),    Stored(pay.rateOT), Stored(pay.tMakan), Stored(pay.empType), Stored(row.sc),
        Stored(row.masuk), Stored(row.keluar), Stored(row.idMesin)};
}

std::vector<Employee> ReadEmployees(Connection& connection, const QString& rest,
                                    const QVariantList& values = {}) {
    return connection.Query(u"select %1 from Employee %2"_s.arg(Columns.join(u','), rest), values)
        .All(EmployeeIn);
}

std::vector<PayRow> ReadPay(Connection& connection, const QString& condition, const QVariant& value) {
    return connection
        .Query(u"select NIP, Berlaku, EmpType, GP, RateOT, TMakan from EmployeePay where %1 order by NIP, "
               "Berlaku"_s.arg(condition),
               {value})
        .All([](const Cursor& row) {
            const PayTerms pay{row.Text(2), NumberIn(row.Value(3)), NumberIn(row.Value(4)),
                               NumberIn(row.Value(5))};
            return PayRow{row.Text(0), DayIn(row.Value(1)).value_or(DayZero), pay};
        });
}

/// Where else an employee's number stands, its cards apart.
struct NumberColumn {
    QStringView table;
    QStringView column;
};
constexpr NumberColumn NumberColumns[] = {
    {u"ShiftEmployee", u"NIP"}, {u"EmployeePay", u"NIP"}, {u"[User]", u"UserID"}, {u"User_Job", u"UserID"}};

} // namespace

std::vector<Employee> EmployeeStore::ReadAll() const {
    return ReadEmployees(connection_, u"order by NIP"_s);
}

std::optional<Employee> EmployeeStore::Read(const QString& nip) const {
    const std::vector<Employee> found = ReadEmployees(connection_, u"where NIP=?"_s, {nip});
    return found.empty() ? std::nullopt : std::optional(found.front());
}

std::vector<EmployeeFinding> EmployeeStore::Save(const std::vector<EmployeeChange>& changes) const {
    return connection_.InTransaction([&] {
        std::vector<EmployeeFinding> findings = CheckEmployees(connection_, changes);
        if (findings.empty())
            Write(changes);
        return findings;
    });
}

void EmployeeStore::Write(const std::vector<EmployeeChange>& changes) const {
    QList<QVariantList> added;
    QList<QVariantList> changed;
    QList<QVariantList> renumbered;
    QList<QVariantList> removed;
    for (const auto& [before, after] : changes) {
        if (!after)
            removed << QVariantList{before->nip};
        else if (!before)
            added << Values(*after);
        else if (*after != *before)
            changed << Values(*after) + QVariantList{before->nip};
        if (after && before && after->nip != before->nip)
            renumbered << QVariantList{after->nip, before->nip};
    }
    connection_.ExecuteMany(u"delete from Employee where NIP=?"_s, removed);
    connection_.ExecuteMany(u"update Employee set %1=? where NIP=?"_s.arg(Columns.join(u"=?, ")), changed);
    for (const auto& [table, column] : NumberColumns) {
        // A supervisor stays one without being an employee.
        const QString unlessSupervisor =
            column == u"UserID" ? u" and UserID not in (select UserID from User_Job where GroupID='SPV')"_s
                                : QString();
        connection_.ExecuteMany(u"delete from %1 where %2=?"_s.arg(table, column) + unlessSupervisor,
                                removed);
        connection_.ExecuteMany(u"update %1 set %2=? where %2=?"_s.arg(table, column), renumbered);
    }
    const QString marks = QStringList(Columns.size(), u"?"_s).join(u',');
    connection_.ExecuteMany(u"insert into Employee (%1) values (%2)"_s.arg(Columns.join(u','), marks), added);
}

std::vector<PayRow> EmployeeStore::PayOf(const QString& nip) const {
    return ReadPay(connection_, u"NIP=?"_s, nip);
}

QHash<QString, PayRow> EmployeeStore::PayInForce(Day day) const {
    QHash<QString, PayRow> inForce;
    for (const PayRow& row : ReadPay(connection_, u"Berlaku<=?"_s, StoredDay(day)))
        inForce.insert(row.nip, row); // the last one counts
    return inForce;
}

void EmployeeStore::SavePay(const std::vector<PayRow>& rows) const {
    QList<QVariantList> keys;
    QList<QVariantList> values;
    for (const auto& [nip, from, pay] : rows) {
        keys << QVariantList{nip, StoredDay(from)};
        values << keys.back()
                      + QVariantList{Stored(pay.empType), Stored(pay.gp), Stored(pay.rateOT),
                                     Stored(pay.tMakan)};
    }
    connection_.InTransaction([&] {
        connection_.ExecuteMany(u"delete from EmployeePay where NIP=? and Berlaku=?"_s, keys);
        connection_.ExecuteMany(
            u"insert into EmployeePay (NIP, Berlaku, EmpType, GP, RateOT, TMakan) values (?,?,?,?,?,?)"_s,
            values);
    });
}
