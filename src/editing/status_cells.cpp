#include "editing/status_cells.h"

#include "editing/attendance_cards.h"
#include "editing/employee_status.h"

using namespace Qt::StringLiterals;

namespace {

/// Reads each code once.
class ListedStatuses {
public:
    explicit ListedStatuses(Connection& connection) : connection_(connection) {}

    std::optional<QString> Of(const QString& code) {
        const auto known = codes_.constFind(code);
        return known != codes_.cend() ? *known : *codes_.insert(code, ListedStatus(connection_, code));
    }

private:
    Connection& connection_;
    QHash<QString, std::optional<QString>> codes_;
};

QString NotListed(const QString& code) {
    if (code.isEmpty())
        return u"status tidak dapat dikosongkan. Del menghapus absensi satu hari."_s;
    return u"kode %1 tidak ada dalam daftar status. F9 membuka daftarnya."_s.arg(code);
}

} // namespace

CellsOutcome WriteStatusCells(Connection& connection, AttendanceModel& rows,
                              const std::vector<CellChange>& changes) {
    CellsOutcome outcome;
    std::vector<DayStatus> statuses;
    ListedStatuses listed(connection);
    for (const CellChange& change : changes) {
        const auto [nip, day] = AttendanceModel::ReadRowKey(change.rowKey);
        const int row = rows.RowOfKey(change.rowKey);
        QString shown;
        QString status = change.text;
        if (change.column != AttendanceModel::Status) {
            outcome.refused.push_back({change, u"hanya kolom Status yang diketik di sini."_s});
        } else if (change.expected) {
            shown = *change.expected;
        } else if (const auto code = status.contains(u'\'') ? std::nullopt : listed.Of(status.trimmed())) {
            shown = rows.index(row, change.column).data().toString();
            status = *code;
        } else {
            outcome.refused.push_back({change, NotListed(status.trimmed())});
        }
        statuses.push_back({nip, day, shown, status});
    }
    if (!outcome.refused.empty())
        return outcome;
    const DayStatusesSaved saved = SaveDayStatuses(connection, statuses);
    for (const auto& [place, reason] : saved.refused)
        outcome.refused.push_back({changes[place], reason});
    for (size_t i = 0; i < changes.size(); ++i) {
        const CellChange& change = changes[i];
        if (outcome.refused.empty())
            outcome.takeBack.push_back({change.rowKey, change.column, statuses[i].shown, statuses[i].status});
        if (const int row = rows.RowOfKey(change.rowKey); row >= 0)
            rows.SetRecord(row, saved.now[i]);
    }
    return outcome;
}
