#include "editing/card_problems.h"

#include "cards/card_store.h"
#include "core/status_codes.h"
#include "core/typed_date.h"
#include "editing/problem_search.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using enum ProblemKind;

namespace {

constexpr std::chrono::days CountedDays{7};
const QString CompletedRemark = u"keluar dilengkapi"_s;

struct KindWords {
    QStringView what;
    QStringView proposal;
};
/// In the order of the kinds.
constexpr KindWords AllWords[] = {
    {u"masuk tanpa keluar", u"buka kartu dan isi jam keluar"},
    {u"keluar tanpa masuk", u"buka kartu dan isi jam masuk"},
    {u"keluar sebelum masuk", u"buka kartu dan betulkan jamnya"},
    {u"lebih dari 16 jam", u"buka kartu dan periksa jam keluar"},
    {u"bekerja pada hari libur", u"periksa jadwal shift hari itu"},
    {u"dijadwalkan, tanpa kartu dan status", u"isi statusnya: S, I, C atau A"},
    {u"kode shift tidak dikenal", u"isi kode itu di Master Shift Code, atau betulkan jadwal"},
    {u"kartu tanpa hari", u"buka kartu, isi jamnya lalu simpan"},
    {u"jam belum dihitung", u"hitung"},
};
static_assert(std::size(AllWords) == ProblemKindCount);

const KindWords& WordsOf(ProblemKind kind) {
    return AllWords[static_cast<size_t>(kind)];
}

QString MomentText(const std::optional<WallTime>& time, Day day) {
    if (!time)
        return u"kosong"_s;
    if (DayOf(*time) == day + std::chrono::days{1})
        return ShownMinute(*time) + NextDaySign.toString();
    return DayOf(*time) == day ? ShownMinute(*time) : ShownDay(DayOf(*time)) + u' ' + ShownMinute(*time);
}

/// False when the card no longer stands as it was shown.
bool Complete(TimeCard& card, const CardProblem& problem) {
    CardDay* day = card.DayOn(problem.day);
    if (!card.header || !day || card.header->status != problem.status
        || TimeIfSet(day->timeIn) != problem.timeIn || TimeIfSet(day->timeOut))
        return false;
    day->timeOut = problem.proposedOut;
    card.header->status = CardStatus::Out.toString();
    card.header->AddRemark(CompletedRemark);
    return true;
}

} // namespace

QString KindText(ProblemKind kind) {
    return WordsOf(kind).what.toString();
}

QString CardProblem::ProposalText() const {
    return proposedOut ? u"keluar %1, status OUT"_s.arg(MomentText(proposedOut, day))
                       : WordsOf(kind).proposal.toString();
}

QString CardProblem::OldAndNew() const {
    const QString who = u"%1 %2 %3: "_s.arg(ShownDay(day), nip, nama);
    if (!proposedOut)
        return who + ProposalText();
    return who + u"keluar kosong → %1, status %2 → OUT"_s.arg(MomentText(proposedOut, day), status);
}

QString CardProblem::Line() const {
    QStringList parts{StoredDay(day), nip, nama, KindText(kind)};
    if (!tcid.isEmpty())
        parts << u"(%1, masuk %2, keluar %3)"_s.arg(tcid, MomentText(timeIn, day), MomentText(timeOut, day));
    if (!shift.isEmpty())
        parts << u"shift %1"_s.arg(shift);
    return parts.join(u' ') + u"; "_s + ProposalText();
}

std::vector<CardProblem> FindProblems(Connection& connection, const CardFilter& filter, WallTime now) {
    const DayRange days = filter.days.value();
    ProblemSearch search(days, now, CodeLists::Shifts(connection), PeriodEmployees(connection, filter),
                         filter.nip || filter.dept);
    EachRosterDay(connection, days, [&](const QString& nip, Day day, const QString& code) {
        search.TakeRosterDay(nip, day, code);
    });
    EachPeriodCard(connection, days, filter.nip, [&](const PeriodCard& card) { search.TakeCard(card); });
    for (const PeriodCard& card : CardsWithoutDay(connection, days, filter.nip))
        search.TakeCardWithoutDay(card);
    return search.Finish();
}

int CountProblems(Connection& connection, WallTime now) {
    CardFilter filter;
    filter.days = DayRange{DayOf(now) - CountedDays, DayOf(now)};
    const std::vector<CardProblem> problems = FindProblems(connection, filter, now);
    return static_cast<int>(std::ranges::count_if(
        problems, [](const CardProblem& problem) { return problem.kind != NotComputed; }));
}

TakenProposals TakeProposals(Connection& connection, const std::vector<CardProblem>& problems,
                             const Progress& progress) {
    QStringList toCompute;
    TakenProposals taken = connection.InTransaction([&] {
        TakenProposals result;
        toCompute.clear();
        for (const CardProblem& problem : problems) {
            bool asShown = true;
            if (problem.proposedOut) {
                CardStore(connection).Change(problem.tcid, [&](TimeCard& card) {
                    asShown = Complete(card, problem);
                });
                result.completed += asShown;
                if (!asShown)
                    result.changedMeanwhile.push_back(problem);
            }
            if (asShown && problem.CanBeTaken())
                toCompute << problem.tcid;
        }
        return result;
    });
    taken.computation = modAbsen::CalculateTimeCards(connection, toCompute, progress);
    return taken;
}
