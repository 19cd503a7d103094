#pragma once

#include "core/table_model.h"
#include "editing/card_problems.h"

/// The days that a supervisor has to look at, one a row, all or those of one kind.
class ProblemModel : public TableModel {
    Q_OBJECT
public:
    enum Column { Tanggal, Nip, Nama, Dept, Masalah, Masuk, Keluar, Status, Shift, Usul, ColumnCount };

    explicit ProblemModel(QObject* parent = nullptr);

    void SetProblems(std::vector<CardProblem> problems);
    /// Shows those of this kind only; all without one.
    void ShowKind(std::optional<ProblemKind> kind);
    const CardProblem& At(int row) const { return problems_[shown_.at(static_cast<size_t>(row))]; }
    /// "3 kartu bermasalah, 40 menunggu dihitung"
    QString CountText() const;

    QString RowKey(int row) const override;

private:
    int RowCount() const override { return static_cast<int>(shown_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    void Select();

    std::vector<CardProblem> problems_;
    std::vector<size_t> shown_;
    std::optional<ProblemKind> kind_;
};
