#include "cards/listed_employees.h"
#include "core/code_lists.h"
#include "core/status_codes.h"
#include "reports/report_cells.h"
#include "reports/report_list.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int CountWidth = 6;

/// How many attendance rows an employee has of each status, in the order of the statuses.
using Counts = std::vector<qint64>;
using CountsByNip = QHash<QString, Counts>;

/// Adds what the engine counts; what is none of the statuses is left out.
void AddCounts(CountsByNip& all, Connection& connection, const CardFilter& filter,
               const QHash<QString, size_t>& columns) {
    for (const StatusCount& counted : CountStatuses(connection, filter)) {
        const auto column = columns.constFind(counted.status);
        if (column == columns.cend())
            continue;
        Counts& counts = all[counted.nip];
        counts.resize(static_cast<size_t>(columns.size()));
        counts[*column] += counted.lines;
    }
}

/// A month at a time: the engine tells nothing before it has counted all that it was asked for. Nothing when
/// the work is to stop.
std::optional<CountsByNip> ReadCounts(Connection& connection, const ReportCriteria& criteria,
                                      const std::vector<CodeName>& statuses, const Progress& progress) {
    constexpr std::chrono::days Month{31};
    QHash<QString, size_t> columns;
    for (size_t column = 0; column < statuses.size(); ++column)
        columns.insert(statuses[column].code, column);
    CountsByNip all;
    CardFilter month = criteria.Filter();
    for (Day first = criteria.date1; first <= criteria.date2; first += Month) {
        if (!progress((first - criteria.date1).count(), (criteria.date2 - criteria.date1).count() + 1))
            return std::nullopt;
        month.days = {first, std::min(criteria.date2, first + Month - std::chrono::days{1})};
        AddCounts(all, connection, month, columns);
    }
    return all;
}

/// The days on which nothing else was counted are those of absence. With two cards on one day there can be
/// fewer than none.
void FillAbsences(Counts& counts, const std::vector<CodeName>& statuses, qint64 days) {
    const auto absent = std::ranges::find(statuses, CardStatus::Absent, &CodeName::code);
    if (absent == statuses.end())
        return;
    qint64& count = counts[static_cast<size_t>(absent - statuses.begin())];
    count = 0;
    count = days - std::accumulate(counts.begin(), counts.end(), qint64{0});
}

QStringList Heading(const ReportCriteria& criteria) {
    QStringList lines{u"SUMMARY ABSENSI KARYAWAN "_s, ReportPeriod(criteria.date1, criteria.date2)};
    if (criteria.department.Filters())
        lines << u"DEPT  : "_s + OneLine(criteria.department.shown).toUpper();
    if (criteria.division.Filters())
        lines << u"DIVISI: "_s + OneLine(criteria.division.shown).toUpper();
    return lines << QString();
}

QString TitleLine(const std::vector<CodeName>& statuses) {
    QString line = u"|No. |NIP     |Nama                |"_s;
    for (const CodeName& status : statuses)
        AppendCell(line, status.code, CountWidth);
    return line;
}

QStringList Legend(const std::vector<CodeName>& statuses) {
    QStringList lines{QString(), u"CATATAN:"_s};
    for (const CodeName& status : statuses)
        lines << u'\t' + OneLine(status.code) + u": "_s + OneLine(status.name);
    return lines;
}

} // namespace

ListedCount PrintSummaryReport(Connection& connection, const ReportCriteria& criteria, const LineSink& sink,
                               const Progress& progress) {
    const auto employees = ReadListedEmployees(connection, criteria.Filter(), {});
    const std::vector<CodeName> statuses = CodeLists::Statuses(connection);
    const auto counted = ReadCounts(connection, criteria, statuses, progress);
    if (!counted)
        return std::nullopt;
    const qint64 days = (criteria.date2 - criteria.date1).count() + 1;
    const QString titles = TitleLine(statuses);
    const QString rule = RuleLine(36 + 7 * std::ssize(statuses));
    for (const QString& line : Heading(criteria) + QStringList{rule, titles, rule})
        sink(line);
    QString line;
    for (size_t i = 0; i < employees.size(); ++i) {
        if (!progress(static_cast<qsizetype>(i), std::ssize(employees)))
            return std::nullopt;
        Counts counts = counted->value(employees[i].nip, Counts(statuses.size()));
        FillAbsences(counts, statuses, days);
        line.truncate(0);
        AppendEmployeeCells(line, static_cast<qsizetype>(i) + 1, employees[i].nip, employees[i].nama);
        for (const qint64 count : counts)
            AppendCell(line, QString::number(count), CountWidth);
        sink(line);
    }
    for (const QString& last : QStringList{rule} + Legend(statuses))
        sink(last);
    return std::ssize(employees);
}
