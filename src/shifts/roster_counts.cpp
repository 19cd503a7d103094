#include "shifts/roster_counts.h"

using namespace Qt::StringLiterals;

RosterCounts::RosterCounts(const RosterModel& roster, QObject* parent)
    : TableModel(std::vector<TableColumn>(RosterModel::DayColumns, {QString(), Qt::AlignHCenter}), parent),
      roster_(roster) {
    connect(&roster, &RosterModel::CountsChanged, this, &RosterCounts::Recount);
}

void RosterCounts::SetNeeds(const ShiftNeeds& needs) {
    needs_ = needs;
    Recount();
}

void RosterCounts::Recount() {
    QStringList codes = roster_.Month() ? roster_.Roster().CodesInUse() : QStringList();
    for (const auto& [code, byWeekday] : needs_) {
        if (roster_.Month() && !codes.contains(code))
            codes << code;
    }
    if (codes == codes_)
        return NotifyColumns(0, columnCount() - 1);
    beginResetModel();
    codes_ = std::move(codes);
    endResetModel();
}

int RosterCounts::Planned(int row, int column) const {
    return roster_.Roster().Count(codes_[row], static_cast<unsigned>(column) + 1);
}

int RosterCounts::Needed(int row, int column) const {
    const auto need = needs_.find(codes_[row]);
    const auto day = roster_.Roster().DateOf(static_cast<unsigned>(column) + 1);
    return need == needs_.end() || !day ? 0 : need->second[std::chrono::weekday{*day}.iso_encoding() - 1];
}

QString RosterCounts::Text(int row, int column) const {
    if (!roster_.Roster().DateOf(static_cast<unsigned>(column) + 1))
        return {};
    const int planned = Planned(row, column);
    const int needed = Needed(row, column);
    return planned < needed ? u"%1/%2"_s.arg(planned).arg(needed) : QString::number(planned);
}

CellLook RosterCounts::LookOf(int row, int column) const {
    if (Planned(row, column) < Needed(row, column))
        return CellLook::Lacking;
    const QVariant ofDay = roster_.headerData(RosterModel::FirstDay + column, Qt::Horizontal, CellLookRole);
    return ofDay.isValid() ? static_cast<CellLook>(ofDay.toInt()) : CellLook::Hatched;
}

QVariant RosterCounts::data(const QModelIndex& index, int role) const {
    if (role != Qt::ToolTipRole || !index.isValid())
        return TableModel::data(index, role);
    const int needed = Needed(index.row(), index.column());
    const QString need = needed > 0 ? u", perlu %1"_s.arg(needed) : QString();
    return u"%1: %2 karyawan"_s.arg(codes_[index.row()]).arg(Planned(index.row(), index.column())) + need;
}

QVariant RosterCounts::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical && role == Qt::DisplayRole)
        return codes_.value(section);
    return TableModel::headerData(section, orientation, role);
}
