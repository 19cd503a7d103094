#pragma once

#include "company/code_table.h"
#include "company/master_model.h"

/// One of the lists of codes as a grid.
class CodeModel : public MasterModel {
    Q_OBJECT
public:
    enum Column { Code = Key, Name, ColumnCount };

    explicit CodeModel(CodeKind kind, QObject* parent = nullptr);

    QString KeyAt(int row) const override { return At(row).code; }
    bool MayEdit(int /*row*/, int /*column*/) const override { return true; }
    QString UseOf(int row) const override;
    void Save(int row, int column, const QString& text, CarryAlong carry) override;

private:
    int RowCount() const override { return static_cast<int>(rows_.size()); }
    QString Text(int row, int column) const override;
    std::function<void()> Read(Connection& connection) override;
    void RemoveStored(int row) override { Table().Remove(At(row).code); }
    void Append() override { rows_.emplace_back(); }
    void Erase(int row) override { rows_.erase(rows_.begin() + row); }

    CodeTable Table() const { return CodeTable(Db(), kind_); }
    const CodeName& At(int row) const { return rows_[static_cast<size_t>(row)]; }

    CodeKind kind_;
    std::vector<CodeName> rows_;
};
