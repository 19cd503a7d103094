#pragma once

#include "shifts/roster_model.h"

/// Under the roster: how many employees stand in each shift on each day, "planned/needed" where the shift
/// needs more. A row for every shift that is planned in the month or needed; the columns are the roster's
/// days, the code is the title of the row.
class RosterCounts : public TableModel {
    Q_OBJECT
public:
    explicit RosterCounts(const RosterModel& roster, QObject* parent = nullptr);

    void SetNeeds(const ShiftNeeds& needs);

    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    void Recount();
    int RowCount() const override { return static_cast<int>(codes_.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;
    int Planned(int row, int column) const;
    int Needed(int row, int column) const;

    const RosterModel& roster_;
    ShiftNeeds needs_;
    QStringList codes_;
};
