#include "database/database_file.h"
#include "editing/attendance_model.h"
#include "support/bench_company.h"
#include "support/peak_memory.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A desk that browses the last days of a company in which every employee has a card on every day.
class Desk {
public:
    Desk(const CompanySize& size, int days)
        : range_{LastSheetDay - std::chrono::days{days - 1}, LastSheetDay},
          connection_(OpenDatabaseFile(CompanyFile(size))), plain_(CompanyFile(size)) {
        Refresh();
        const int rows = size.employees * days;
        const bool last = rows_.RecordAt(rows - 1).has_value();
        if (rows_.rowCount() != rows || !rows_.RecordAt(0) || !last || RefreshPlainly() != rows)
            throw std::runtime_error("not every employee's days were read");
    }

    void Refresh() {
        const AttendanceCriteria criteria{{}, {}, {}, range_};
        rows_.Show(*RefreshAttendance(*connection_, criteria, LastSheetDay, [](auto, auto) { return true; }));
    }

    /// Returns the number of cards.
    int RefreshPlainly() {
        plain_.ReadAll("SELECT NIP, Nama, Dept, Divisi FROM Employee ORDER BY Nama");
        return plain_.ReadAll(
            "SELECT a.TCID, c.NIP, c.Dept, c.Divisi, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan "
            "FROM (TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID) "
            "INNER JOIN Employee c ON a.NIP=c.NIP WHERE b.Tanggal BETWEEN '"
            + StoredDay(range_.first).toStdString() + "' AND '" + StoredDay(range_.last).toStdString() + "'");
    }

private:
    DayRange range_;
    AttendanceModel rows_;
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
};

constexpr CompanySize TwoMonths{1000, 62};
constexpr int Month = 31;
constexpr int EmptyDays = 3650;

/// Shows the last month and as many days after it on which nobody has a card yet.
void ShowMonthAnd(int emptyDays) {
    const auto connection = OpenDatabaseFile(CompanyFile(TwoMonths));
    const DayRange range{LastSheetDay - std::chrono::days{Month - 1},
                         LastSheetDay + std::chrono::days{emptyDays}};
    AttendanceModel rows;
    rows.Show(
        *RefreshAttendance(*connection, {{}, {}, {}, range}, LastSheetDay, [](auto, auto) { return true; }));
}

void BrowserRefresh(Rounds& rounds) {
    Desk desk(TwoMonths, Month);
    while (rounds.Next()) {
        rounds.Time("refresh", [&] { desk.Refresh(); });
        rounds.Time("plain", [&] { desk.RefreshPlainly(); });
    }
    rounds.Compare("browser-refresh", "refresh", "plain", 3);
    const int peak = PeakMemoryOf({u"0"_s});
    const int emptyPeak = PeakMemoryOf({QString::number(EmptyDays)});
    rounds.Tell("peak_kB", peak);
    rounds.Tell("empty_days_peak_kB", emptyPeak);
    rounds.AddRatio("browser-peak-memory-3681-over-31-days", static_cast<double>(emptyPeak) / peak, 1.1);
}

void BrowserRefreshGrowth(Rounds& rounds) {
    Desk base(TwoMonths, Month);
    Desk moreEmployees({2000, 62}, Month);
    Desk moreDays(TwoMonths, 2 * Month);
    Desk longHistory({1000, 124}, Month);
    while (rounds.Next()) {
        rounds.Time("base", [&] { base.Refresh(); });
        rounds.Time("more_employees", [&] { moreEmployees.Refresh(); });
        rounds.Time("more_days", [&] { moreDays.Refresh(); });
        rounds.Time("long_history", [&] { longHistory.Refresh(); });
    }
    rounds.Compare("browser-2000-over-1000-employees", "more_employees", "base", 2.2);
    rounds.Compare("browser-62-over-31-days", "more_days", "base", 2.2);
    rounds.Compare("browser-124-over-62-sheets", "long_history", "base", 1.2);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], MemoryOption) == 0)
        return TellPeakMemory([&] { ShowMonthAnd(QByteArray(argv[2]).toInt()); });
    BenchProgram program(argc, argv);
    program.Add("browser_refresh", Measured::ProcessorTime, 50, BrowserRefresh);
    program.Add("browser_refresh_growth", Measured::ProcessorTime, 30, BrowserRefreshGrowth);
    return program.Run();
}
