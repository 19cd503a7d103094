#include "reports/summary_report.h"

#include "core/text_table.h"
#include "reports/report_cells.h"
#include "reports/report_data.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int CountWidth = 6;

struct Status {
    QString code;
    QString description;
};

/// How many attendance rows an employee has of each status, in the order of the statuses.
using Counts = std::vector<qint64>;
using CountsByNip = QHash<QString, Counts>;

std::vector<Status> ReadStatuses(Connection& connection) {
    std::vector<Status> statuses;
    Cursor rows = connection.Query(u"SELECT Status, Description FROM [Employee Status] ORDER BY ID"_s);
    while (rows.Next())
        statuses.push_back({rows.Text(0), rows.Text(1)});
    return statuses;
}

/// Adds what the engine counts in a period; what is none of the statuses is left out.
void AddCounts(CountsByNip& all, Connection& connection, const ReportCriteria& period,
               const QHash<QString, size_t>& columns) {
    Cursor rows = connection.Query(u"SELECT a.NIP, a.Status, Count(*) FROM TimeCardHeader a "
                                   "INNER JOIN Employee c ON a.NIP=c.NIP "
                                   "INNER JOIN TimeCardDetail b ON a.TCID=b.TCID "_s
                                   + InPeriod(period) + OfChosenEmployees(period)
                                   + u" AND a.Status IS NOT NULL GROUP BY a.NIP, a.Status"_s);
    while (rows.Next()) {
        const auto column = columns.constFind(rows.Text(1));
        if (column == columns.cend())
            continue;
        Counts& counts = all[rows.Text(0)];
        counts.resize(static_cast<size_t>(columns.size()));
        counts[*column] += static_cast<qint64>(rows.Value(2).Number());
    }
}

/// A month at a time: the engine tells nothing before it has counted all that it was asked for. Nothing when
/// the work is to stop.
std::optional<CountsByNip> ReadCounts(Connection& connection, const ReportCriteria& criteria,
                                      const std::vector<Status>& statuses, const Progress& progress) {
    constexpr std::chrono::days Month{31};
    QHash<QString, size_t> columns;
    for (size_t column = 0; column < statuses.size(); ++column)
        columns.insert(statuses[column].code, column);
    CountsByNip all;
    ReportCriteria month = criteria;
    for (; month.date1 <= criteria.date2; month.date1 += Month) {
        if (!progress((month.date1 - criteria.date1).count(), (criteria.date2 - criteria.date1).count() + 1))
            return std::nullopt;
        month.date2 = std::min(criteria.date2, month.date1 + Month - std::chrono::days{1});
        AddCounts(all, connection, month, columns);
    }
    return all;
}

/// The days on which nothing else was counted are those of absence. With two cards on one day there can be
/// fewer than none.
void FillAbsences(Counts& counts, const std::vector<Status>& statuses, qint64 days) {
    const auto absent = std::ranges::find(statuses, AbsentCode, &Status::code);
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

QString TitleLine(const std::vector<Status>& statuses) {
    QString line = u"|No. |NIP     |Nama                |"_s;
    for (const Status& status : statuses)
        AppendCell(line, status.code, CountWidth);
    return line;
}

QString EmployeeLine(qsizetype number, const ReportEmployee& employee, const Counts& counts) {
    QString line = EmployeeCells(number, employee.nip, employee.nama);
    for (const qint64 count : counts)
        AppendCell(line, QString::number(count), CountWidth);
    return line;
}

QStringList Legend(const std::vector<Status>& statuses) {
    QStringList lines{QString(), u"CATATAN:"_s};
    for (const Status& status : statuses)
        lines << u'\t' + OneLine(status.code) + u": "_s + OneLine(status.description);
    return lines;
}

} // namespace

MaybePrinted PrintSummaryReport(Connection& connection, const ReportCriteria& criteria,
                                const Progress& progress) {
    const std::vector<ReportEmployee> employees = ReadEmployeesOf(connection, criteria);
    const std::vector<Status> statuses = ReadStatuses(connection);
    const auto counted = ReadCounts(connection, criteria, statuses, progress);
    if (!counted)
        return std::nullopt;
    const qint64 days = (criteria.date2 - criteria.date1).count() + 1;
    const QString rule = RuleLine(36 + 7 * std::ssize(statuses));
    PrintedReport report{Heading(criteria) << rule << TitleLine(statuses) << rule};
    for (const ReportEmployee& employee : employees) {
        if (!progress(report.employees, std::ssize(employees)))
            return std::nullopt;
        Counts counts = counted->value(employee.nip, Counts(statuses.size()));
        FillAbsences(counts, statuses, days);
        report.lines << EmployeeLine(++report.employees, employee, counts);
    }
    report.lines << rule << Legend(statuses);
    return report;
}
