#include "database/database_file.h"
#include "reports/report_list.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

bool GoOn(qsizetype, qsizetype) {
    return true;
}

const std::string Employees = "SELECT NIP, Nama, Dept, Divisi FROM Employee";
const std::string CardsOfDays = "FROM TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID ";
const std::string CardsOfEmployees = "FROM TimeCardHeader a INNER JOIN Employee c ON a.NIP=c.NIP "
                                     "INNER JOIN TimeCardDetail b ON a.TCID=b.TCID ";
const std::string Cells = "SELECT a.NIP, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan ";

/// A company whose last days are reported on. Each report has its plain queries: those that read the same
/// rows, and nothing is made of them.
class PayrollOffice {
public:
    explicit PayrollOffice(const CompanySize& size)
        : size_(size), file_(CompanyFile(size)), plain_(file_), connection_(OpenDatabaseFile(file_)) {
        plain_.Execute("INSERT OR REPLACE INTO [Employee Status] VALUES (1,'IN','Masuk'),(2,'OUT','Pulang'),"
                       "(3,'A','Tidak hadir'),(4,'I','Izin'),(5,'S','Sakit')");
        criteria_.date1 = LastSheetDay - std::chrono::days{size.sheets - 1};
        criteria_.date2 = LastSheetDay;
        criteria_.sort = u"Nama"_s;
    }

    /// Makes the lines of a report. Every employee must be in it, and with so many lines at least.
    void Print(QStringView name, int linesPerEmployee) {
        int lines = 0;
        const auto count = [&lines](const QString&) { ++lines; };
        if (!FindReport(name)->print(*connection_, criteria_, count, GoOn)
            || lines < size_.employees * linesPerEmployee)
            throw std::runtime_error("not every employee was reported");
    }

    void DailyPlainly() {
        Read("SELECT NIP, Nama FROM Employee ORDER BY Nama", size_.employees);
        Read("SELECT a.NIP, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan " + CardsOfDays + "WHERE b.Tanggal='"
                 + StoredDay(criteria_.date1).toStdString() + "' ORDER BY b.Tanggal, b.TCID",
             size_.employees);
    }

    void DayTablesPlainly(const std::string& cards) {
        Read(Employees, size_.employees);
        Read(Cells + cards + InPeriod() + " ORDER BY b.Tanggal, b.TCID", size_.employees * size_.sheets);
    }

    /// The figures of the summary alone, counted by the engine.
    void SummaryPlainly() {
        Read("SELECT a.NIP, a.Status, Count(*) " + CardsOfEmployees + InPeriod()
                 + " GROUP BY a.NIP, a.Status",
             size_.employees);
    }

private:
    std::string InPeriod() const {
        return "WHERE b.Tanggal BETWEEN '" + StoredDay(criteria_.date1).toStdString() + "' AND '"
               + StoredDay(criteria_.date2).toStdString() + "'";
    }

    void Read(const std::string& query, int atLeast) {
        if (plain_.ReadAll(query) < atLeast)
            throw std::runtime_error("not every row was read");
    }

    CompanySize size_;
    QString file_;
    PlainDatabase plain_;
    std::unique_ptr<Connection> connection_;
    ReportCriteria criteria_;
};

void DailyReport(Rounds& rounds) {
    PayrollOffice office({1000, 31});
    while (rounds.Next()) {
        rounds.Time("daily", [&] { office.Print(u"AbsensiHarian", 1); });
        rounds.Time("daily_plain", [&] { office.DailyPlainly(); });
    }
    rounds.Compare("report-daily", "daily", "daily_plain", 3);
}

void MonthReports(Rounds& rounds) {
    PayrollOffice office({1000, 31});
    while (rounds.Next()) {
        rounds.Time("detail", [&] { office.Print(u"AbsensiDetailKaryawan", 31); });
        rounds.Time("detail_plain", [&] { office.DayTablesPlainly(CardsOfDays); });
        rounds.Time("department", [&] { office.Print(u"AbsensiDivisi", 31); });
        rounds.Time("department_plain", [&] { office.DayTablesPlainly(CardsOfEmployees); });
        rounds.Time("summary", [&] { office.Print(u"AbsensiSumKary", 1); });
        rounds.Time("summary_plain", [&] { office.SummaryPlainly(); });
    }
    rounds.Compare("report-employee-detail", "detail", "detail_plain", 3);
    rounds.Compare("report-department", "department", "department_plain", 3);
    rounds.Compare("report-summary", "summary", "summary_plain", 2);
}

void ReportGrowth(Rounds& rounds) {
    PayrollOffice office({1000, 31});
    PayrollOffice twiceTheEmployees({2000, 31});
    PayrollOffice twiceTheDays({1000, 62});
    while (rounds.Next()) {
        for (const auto& [name, of] :
             {std::pair{"once", &office}, std::pair{"twice_the_employees", &twiceTheEmployees},
              std::pair{"twice_the_days", &twiceTheDays}})
            rounds.Time(name, [of = of] { of->Print(u"AbsensiDetailKaryawan", 31); });
    }
    rounds.Compare("report-2000-over-1000-employees", "twice_the_employees", "once", 2.2);
    rounds.Compare("report-62-over-31-days", "twice_the_days", "once", 2.2);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("report_daily", Measured::ProcessorTime, 100, DailyReport);
    program.Add("reports", Measured::ProcessorTime, 40, MonthReports);
    program.Add("reports_growth", Measured::ProcessorTime, 40, ReportGrowth);
    return program.Run();
}
