#include "cards/card_computation.h"

#include "cards/card_store.h"
#include "compute/shift_resolution.h"
#include "core/code_lists.h"
#include "database/database_error.h"
#include "database/statement.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// Large enough that a transaction's own cost does not show, small enough that other desks hardly wait.
constexpr qsizetype BatchSize = 500;

using Reasons = QHash<QString, std::exception_ptr>;

/// What became of a batch.
struct Batch {
    std::vector<ComputedCard> computed;
    std::vector<modAbsen::UnknownShift> unknownShifts;
    Reasons failed; ///< by identifier
};

void Compute(const ComputableCard& card, const std::vector<ShiftRow>& shifts, Batch& batch) {
    const QString shiftCode = modAbsen::ResolveShift(card.rosterCode, card.timeIn, shifts);
    // No statement may carry a quote in a value: such a number or code finds no employee and no shift.
    Quoted(card.nip);
    Quoted(shiftCode);
    const std::optional<ShiftHours> hours = modAbsen::HoursOfShift(shifts, shiftCode);
    const CardResult result =
        ComputeCard({card.status,
                     card.timeIn,
                     card.timeOut,
                     card.mealGranted,
                     shiftCode,
                     hours.value_or(ShiftHours()),
                     {Money::FromField(card.basicPay), HourlyRate::FromField(card.overtimeRate),
                      Money::FromField(card.mealAllowance), card.employeeType}});
    if (!hours && result.day)
        batch.unknownShifts.push_back({card.tcid, shiftCode});
    batch.computed.push_back({card.tcid, card.storedDay, result});
}

Batch ComputeBatch(Connection& connection, const QStringList& tcids) {
    return connection.InTransaction([&] {
        const CardStore store(connection);
        const std::vector<ShiftRow> shifts = CodeLists::Shifts(connection);
        Batch batch;
        batch.computed.reserve(static_cast<size_t>(tcids.size()));
        for (const ComputableCard& card : store.ReadForComputation(tcids)) {
            try {
                Compute(card, shifts, batch);
            } catch (const ProgramError&) {
                batch.failed.insert(card.tcid, std::current_exception());
            }
        }
        store.WriteResults(batch.computed);
        return batch;
    });
}

void Note(const Batch& batch, const QStringList& tcids, modAbsen::ComputationReport& report) {
    report.computed += static_cast<int>(batch.computed.size());
    std::ranges::copy(batch.unknownShifts, std::back_inserter(report.unknownShifts));
    if (std::ssize(batch.computed) == tcids.size())
        return;
    QSet<QString> computed;
    for (const ComputedCard& card : batch.computed)
        computed << card.tcid;
    for (const QString& tcid : tcids) {
        const auto failed = batch.failed.constFind(tcid);
        if (failed != batch.failed.cend())
            report.notComputed.push_back({tcid, *failed});
        else if (!computed.contains(tcid))
            report.notComputed.push_back({tcid, {}});
    }
}

} // namespace

modAbsen::ComputationReport modAbsen::CalculateTimeCards(Connection& connection, const QStringList& tcids,
                                                         const Progress& progress) {
    QStringList cards = tcids;
    cards.removeAll(QString());
    cards.removeDuplicates();
    ComputationReport report;
    for (qsizetype start = 0; start < cards.size(); start += BatchSize) {
        const QStringList batch = cards.mid(start, BatchSize);
        Note(ComputeBatch(connection, batch), batch, report);
        const qsizetype done = start + batch.size();
        if (progress && !progress(done, cards.size())) {
            report.cancelled = done < cards.size();
            break;
        }
    }
    return report;
}

modAbsen::ComputationReport modAbsen::CalculateTimeCard(Connection& connection, const QString& tcid) {
    return CalculateTimeCards(connection, {tcid});
}
