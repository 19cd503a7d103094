#include "exchange/punch_import.h"

#include "cards/period_cards.h"
#include "core/code_lists.h"
#include "database/database_error.h"
#include "exchange/punch_cards.h"
#include "exchange/punch_store.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int CannotReadNumber = 90030;
constexpr int StoppedNumber = 90031;
constexpr qsizetype SampleLines = 200;

/// In the order of the outcomes.
constexpr QStringView OutcomeTexts[] = {
    u"masuk",
    u"keluar",
    u"sudah tercatat",
    u"ganda",
    u"di antara masuk dan keluar",
    u"keluar tanpa masuk",
    u"bertentangan dengan kartu",
    u"lembar ditutup",
    u"nomor tidak dikenal",
    u"tidak terbaca",
};
static_assert(std::size(OutcomeTexts) == PunchOutcomeCount);

/// Hands out the lines that are not blank and their numbers until it is told to stop.
void EachLine(const QString& path, const std::function<bool(int line, const QString& text)>& visit) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ProgramError(CannotReadNumber,
                           u"File %1 tidak dapat dibaca: %2"_s.arg(path, file.errorString()));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    for (int line = 1; !file.atEnd(); ++line) {
        QByteArray bytes = file.readLine();
        if (line == 1 && bytes.startsWith("\xEF\xBB\xBF"))
            bytes.remove(0, 3);
        while (bytes.endsWith('\n') || bytes.endsWith('\r'))
            bytes.chop(1);
        QString text = utf8.decode(bytes);
        if (utf8.hasError()) {
            text = QString::fromLatin1(bytes);
            utf8.resetState();
        }
        if (!text.trimmed().isEmpty() && !visit(line, text))
            return;
    }
}

/// The days that punches tell of, with the days around them: devices that lost their time tell of days years
/// away, and the years between must not be read.
std::vector<DayRange> RangesOf(const std::vector<PunchLine>& lines) {
    std::map<Day, int> days;
    for (const PunchLine& line : lines) {
        if (!line.nip.isEmpty())
            ++days[DayOf(line.reading->moment)];
    }
    constexpr std::chrono::days around{1};
    std::vector<DayRange> ranges;
    for (const auto& [day, count] : days) {
        if (!ranges.empty() && day - around <= ranges.back().last + around)
            ranges.back().last = day + around;
        else
            ranges.push_back({day - around, day + around});
    }
    return ranges;
}

/// The lines of one employee, in order of time; lines that say the same in their order in the file.
using LinesByNumber = std::map<QString, std::vector<PunchLine*>>;

LinesByNumber ByNumber(std::vector<PunchLine>& lines) {
    QHash<QString, std::vector<PunchLine*>> found;
    for (PunchLine& line : lines) {
        if (!line.nip.isEmpty())
            found[line.nip].push_back(&line);
    }
    LinesByNumber sorted;
    for (auto it = found.begin(); it != found.end(); ++it) {
        std::ranges::stable_sort(*it, {}, [](const PunchLine* line) { return line->reading->moment; });
        sorted.emplace(it.key(), std::move(*it));
    }
    return sorted;
}

void BringPunches(PunchCards& cards, const QString& nip, const std::vector<PunchLine*>& lines,
                  const PairingRules& rules) {
    struct Entry {
        Punch punch;
        PunchLine* line = nullptr; ///< null: a stored arrival
    };
    std::vector<Entry> entries;
    for (const Punch& stored : cards.StoredArrivals(nip))
        entries.push_back({stored});
    for (PunchLine* line : lines)
        entries.push_back({{line->reading->moment, line->reading->direction}, line});
    std::ranges::stable_sort(entries, {}, [](const Entry& entry) { return entry.punch.moment; });
    std::vector<Punch> punches;
    for (const Entry& entry : entries)
        punches.push_back(entry.punch);
    const Pairing pairing = PairPunches(
        punches, [&](Day day) { return cards.RosterOf(nip, day); }, rules);
    for (size_t i = 0; i < entries.size(); ++i) {
        if (!entries[i].line)
            continue;
        // The very punch that the card was made of is not one of two.
        const bool isStored = pairing.outcomes[i] == PunchOutcome::Double && !entries[i - 1].line
                              && entries[i - 1].punch.moment == entries[i].punch.moment;
        entries[i].line->outcome = isStored ? PunchOutcome::Stored : pairing.outcomes[i];
    }
    const auto lineOf = [&](const std::optional<size_t>& place) {
        return place ? entries[*place].line : nullptr;
    };
    for (const WorkedDay& day : pairing.days)
        cards.Bring(nip, day.day, lineOf(day.arrival), lineOf(day.departure));
}

PunchReport ReportOf(const std::vector<PunchLine>& lines, const PunchCards& cards) {
    PunchReport report;
    for (const PunchLine& line : lines) {
        ++report.counts[static_cast<size_t>(line.outcome)];
        if (line.IsListed())
            report.listed.push_back(line);
    }
    report.newCards = cards.NewCards();
    report.changedCards = cards.ChangedCards();
    return report;
}

PunchReport Import(Connection& connection, std::vector<PunchLine> lines, bool firstAndLast, PunchRun run,
                   const Progress& progress) {
    const QHash<QString, QString> owners = NumberOwners(connection);
    const KeptPunches kept(connection, lines.empty() ? QString() : lines.front().file);
    const size_t ownLines = lines.size();
    std::ranges::copy(kept.Unknown(owners), std::back_inserter(lines));
    QSet<QString> nips;
    for (PunchLine& line : lines) {
        line.outcome = line.reading ? PunchOutcome::UnknownNumber : PunchOutcome::Unreadable;
        line.nip = line.reading ? owners.value(line.reading->number) : QString();
        nips << line.nip;
    }
    PairingRules rules{PunchDoubles(connection), firstAndLast, CodeLists::Shifts(connection)};
    PunchCards cards(rules.doubles);
    for (const DayRange& days : RangesOf(lines))
        cards.Read(connection, days, nips);
    const LinesByNumber byNumber = ByNumber(lines);
    qsizetype done = 0;
    for (const auto& [nip, ofEmployee] : byNumber) {
        BringPunches(cards, nip, ofEmployee, rules);
        if (progress && !progress(++done, std::ssize(byNumber)))
            throw ProgramError(StoppedNumber, u"Impor absen dibatalkan. Tidak ada yang disimpan."_s);
    }
    if (run == PunchRun::Write) {
        cards.Write(connection);
        kept.Write(connection, lines, ownLines);
    }
    return ReportOf(lines, cards);
}

} // namespace

QString OutcomeText(PunchOutcome outcome) {
    return OutcomeTexts[static_cast<size_t>(outcome)].toString();
}

QString PunchLine::Text() const {
    const QString where = u"%1 baris %2: %3"_s.arg(file).arg(line).arg(OutcomeText(outcome));
    if (!reading)
        return where + u": "_s + content;
    const QString who = nip.isEmpty() ? u"nomor %1"_s.arg(reading->number) : u"NIK %1"_s.arg(nip);
    return where + u": %1, %2 %3"_s.arg(who, ShownDay(DayOf(reading->moment)), ShownTime(reading->moment))
           + (tcid.isEmpty() ? QString() : u", kartu %1"_s.arg(tcid));
}

QString PunchReport::Summary() const {
    QStringList parts{u"%1 kartu baru, %2 kartu dilengkapi"_s.arg(newCards).arg(changedCards)};
    for (int i = 0; i < PunchOutcomeCount; ++i) {
        if (counts[static_cast<size_t>(i)] > 0)
            parts << u"%1 %2"_s.arg(counts[static_cast<size_t>(i)]).arg(OutcomeTexts[i]);
    }
    return parts.join(u"; ");
}

QStringList FirstLinesOf(const QString& path) {
    QStringList lines;
    EachLine(path, [&lines](int, const QString& text) {
        lines << text;
        return lines.size() < SampleLines;
    });
    return lines;
}

std::vector<PunchLine> ReadPunchFile(const QString& path, const PunchForm& form) {
    const QString name = QFileInfo(path).fileName();
    std::vector<PunchLine> lines;
    EachLine(path, [&](int line, const QString& text) {
        lines.push_back({name, line, text, form.Read(text)});
        return true;
    });
    return lines;
}

PunchReport ImportPunches(Connection& connection, std::vector<PunchLine> lines, bool firstAndLast,
                          PunchRun run, const Progress& progress) {
    return connection.InTransaction([&] { return Import(connection, lines, firstAndLast, run, progress); });
}
