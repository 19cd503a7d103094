#include "company/employee_model.h"

#include "company/amount_text.h"
#include "company/employee_entry.h"

using namespace Qt::StringLiterals;

EmployeeModel::EmployeeModel(const Clock& clock, QObject* parent)
    : MasterModel({{u"NIK"_s},
                   {u"Nama"_s},
                   {u"Dept"_s},
                   {u"Divisi"_s},
                   {u"Tipe"_s},
                   {u"GP"_s, Qt::AlignRight},
                   {u"Rate OT"_s, Qt::AlignRight},
                   {u"Uang makan"_s, Qt::AlignRight},
                   {u"Masuk"_s},
                   {u"Keluar"_s},
                   {u"ID mesin"_s}},
                  parent),
      clock_(clock) {}

std::function<void()> EmployeeModel::Read(Connection& connection) {
    const EmployeeStore store(connection);
    std::vector<Employee> rows = store.ReadAll();
    const QHash<QString, PayRow> inForce = store.PayInForce(clock_.Today());
    std::vector<PayTerms> pay;
    pay.reserve(rows.size());
    for (const Employee& employee : rows) {
        const auto found = inForce.constFind(employee.nip);
        pay.push_back(found == inForce.cend() ? employee.pay : found->pay);
    }
    return [this, rows = std::move(rows), pay = std::move(pay)] {
        rows_ = rows;
        pay_ = pay;
    };
}

std::vector<ExportColumn> EmployeeModel::ExportColumns() const {
    using enum ColumnKind;
    return {{u"NIP"_s},         {u"Nama"_s},         {u"Dept"_s},           {u"Divisi"_s},
            {u"EmpType"_s},     {u"GP"_s, Number},   {u"RateOT"_s, Number}, {u"TMakan"_s, Number},
            {u"Masuk"_s, Date}, {u"Keluar"_s, Date}, {u"IdMesin"_s}};
}

std::vector<PayRow> EmployeeModel::PayToCome(Connection& connection, int row) const {
    std::vector<PayRow> rows = EmployeeStore(connection).PayOf(At(row).nip);
    std::erase_if(rows, [today = clock_.Today()](const PayRow& pay) { return pay.from <= today; });
    return rows;
}

void EmployeeModel::RemoveStored(int row) {
    SaveEmployee(Db(), {{At(row), std::nullopt}, {}, {}});
}

void EmployeeModel::Erase(int row) {
    rows_.erase(rows_.begin() + row);
    pay_.erase(pay_.begin() + row);
}

QString EmployeeModel::Text(int row, int column) const {
    const Employee& employee = At(row);
    const PayTerms& pay = PayAt(row);
    const auto day = [](const std::optional<Day>& value) { return value ? ShownDay(*value) : QString(); };
    switch (column) {
    case Nip:
        return employee.nip;
    case Nama:
        return employee.nama;
    case Dept:
        return employee.dept;
    case Divisi:
        return employee.divisi;
    case EmpType:
        return pay.empType;
    case Gp:
        return ShownAmount(pay.gp);
    case RateOT:
        return ShownAmount(pay.rateOT);
    case TMakan:
        return ShownAmount(pay.tMakan);
    case Masuk:
        return day(employee.masuk);
    case Keluar:
        return day(employee.keluar);
    case IdMesin:
        return employee.idMesin;
    default:
        return {};
    }
}

/// Who has left is still listed, for the earlier reports' sake, but quietly.
CellLook EmployeeModel::LookOf(int row, int /*column*/) const {
    const auto& keluar = At(row).keluar;
    return keluar && *keluar < clock_.Today() ? CellLook::Quiet : CellLook::Plain;
}
