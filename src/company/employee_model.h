#pragma once

#include "company/employee_store.h"
#include "company/master_model.h"
#include "core/clock.h"

/// The employees as a grid: what they are paid by is what is in force today. They are changed in their form.
class EmployeeModel : public MasterModel {
    Q_OBJECT
public:
    enum Column {
        Nip = Key,
        Nama,
        Dept,
        Divisi,
        EmpType,
        Gp,
        RateOT,
        TMakan,
        Masuk,
        Keluar,
        IdMesin,
        ColumnCount
    };

    explicit EmployeeModel(const Clock& clock, QObject* parent = nullptr);

    const Employee& At(int row) const { return rows_[static_cast<size_t>(row)]; }
    const PayTerms& PayAt(int row) const { return pay_[static_cast<size_t>(row)]; }
    /// The changes of pay after today. Throws DatabaseError.
    std::vector<PayRow> PayToCome(Connection& connection, int row) const;

    QString KeyAt(int row) const override { return At(row).nip; }
    bool MayEdit(int /*row*/, int /*column*/) const override { return false; }
    /// Headed so that the file comes in again as it is.
    std::vector<ExportColumn> ExportColumns() const override;
    void Save(int /*row*/, int /*column*/, const QString& /*text*/, CarryAlong /*carry*/) override {}

private:
    int RowCount() const override { return static_cast<int>(rows_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    std::function<void()> Read(Connection& connection) override;
    void RemoveStored(int row) override;
    void Append() override {}
    void Erase(int row) override;

    const Clock& clock_;
    std::vector<Employee> rows_;
    std::vector<PayTerms> pay_;
};
