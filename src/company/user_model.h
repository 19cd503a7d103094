#pragma once

#include "company/master_model.h"
#include "company/users.h"

/// The users as a grid.
class UserModel : public MasterModel {
    Q_OBJECT
public:
    enum Column { UserId = Key, Employee, Supervisor, Password, ColumnCount };

    explicit UserModel(QObject* parent = nullptr);

    QString KeyAt(int row) const override { return At(row).id; }
    /// A user ID is typed once; whether one is a supervisor, as "Ya" or "Tidak".
    bool MayEdit(int row, int column) const override;
    void Save(int row, int column, const QString& text, CarryAlong carry) override;

private:
    int RowCount() const override { return static_cast<int>(rows_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    std::function<void()> Read(Connection& connection) override;
    void RemoveStored(int row) override { Users(Db()).Remove(At(row).id); }
    void Append() override { rows_.emplace_back(); }
    void Erase(int row) override { rows_.erase(rows_.begin() + row); }

    const UserRow& At(int row) const { return rows_[static_cast<size_t>(row)]; }

    std::vector<UserRow> rows_;
};
