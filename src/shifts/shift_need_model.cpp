#include "shifts/shift_need_model.h"

#include "database/database_error.h"
#include "shifts/known_shifts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int BadNeedNumber = 16;
constexpr int MostNeeded = 9999;

std::vector<TableColumn> Columns() {
    std::vector<TableColumn> columns{{u"Shift"_s}};
    for (const QString& day :
         {u"Senin"_s, u"Selasa"_s, u"Rabu"_s, u"Kamis"_s, u"Jumat"_s, u"Sabtu"_s, u"Minggu"_s})
        columns.push_back({day, Qt::AlignHCenter});
    return columns;
}

} // namespace

int ShiftNeedModel::NumberTyped(const QString& typed) {
    bool isNumber = typed.trimmed().isEmpty();
    const int needed = isNumber ? 0 : typed.trimmed().toInt(&isNumber);
    if (!isNumber || needed < 0 || needed > MostNeeded)
        throw ProgramError(
            BadNeedNumber,
            u"Kebutuhan \"%1\" bukan jumlah karyawan. Ketik angka dari 0 sampai %2."_s.arg(typed).arg(
                MostNeeded));
    return needed;
}

ShiftNeedModel::ShiftNeedModel(QObject* parent) : TableModel(Columns(), parent) {}

void ShiftNeedModel::Load(Connection& connection) {
    KnownShifts shifts;
    shifts.Read(connection);
    ShiftNeeds needs = RosterStore::Needs(connection);
    for (const QString& code : shifts.Codes())
        needs.try_emplace(code);
    const bool sameRows = std::ranges::equal(needs, rows_, {}, &ShiftNeeds::value_type::first, &Row::code);
    if (!sameRows)
        beginResetModel();
    rows_.clear();
    for (const auto& [code, needed] : needs)
        rows_.push_back({code, needed});
    if (!sameRows)
        endResetModel();
    NotifyColumns(Monday, ColumnCount - 1);
}

CellsOutcome ShiftNeedModel::WriteCells(Connection& connection, const std::vector<CellChange>& changes) {
    return connection.InTransaction([&] {
        const ShiftNeeds stored = RosterStore::Needs(connection);
        CellsOutcome outcome;
        std::vector<ShiftNeed> needs;
        for (const CellChange& change : changes) {
            const auto need = stored.find(change.rowKey);
            const auto weekday = static_cast<size_t>(change.column - Monday);
            const int stands = need == stored.end() ? 0 : need->second[weekday];
            try {
                needs.push_back({change.rowKey, change.column - Code, NumberTyped(change.text)});
                if (change.expected && NumberTyped(*change.expected) != stands)
                    outcome.refused.push_back({change, u"sekarang %1 (dari meja lain)"_s.arg(stands)});
            } catch (const ProgramError& error) {
                outcome.refused.push_back({change, error.Description()});
            }
            outcome.takeBack.push_back({change.rowKey, change.column, QString::number(stands), change.text});
        }
        if (outcome.refused.empty())
            RosterStore::KeepNeeds(connection, needs);
        Load(connection);
        return outcome;
    });
}

QString ShiftNeedModel::Text(int row, int column) const {
    const auto& [code, needed] = rows_[static_cast<size_t>(row)];
    const int number = column < Monday ? 0 : needed[static_cast<size_t>(column - Monday)];
    return column < Monday ? code : number > 0 ? QString::number(number) : QString();
}

CellLook ShiftNeedModel::LookOf(int /*row*/, int column) const {
    return column == ColumnCount - 1 ? CellLook::Tinted : CellLook::Plain;
}
