#include "database/database_file.h"
#include "editing/work_grid.h"
#include "reports/report_file.h"
#include "reports/report_list.h"
#include "support/bench_company.h"
#include "support/peak_memory.h"
#include "support/rounds.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// Of whose sheets the last year is printed: the company is there for the punches already.
constexpr CompanySize Company{5000, 600};
constexpr int Year = 365;

bool GoOn(qsizetype, qsizetype) {
    return true;
}

bool PrintDetail(Connection& connection, const LineSink& sink) {
    ReportCriteria criteria;
    criteria.date1 = LastSheetDay - std::chrono::days{Year - 1};
    criteria.date2 = LastSheetDay;
    return FindReport(u"AbsensiDetailKaryawan")->print(connection, criteria, sink, GoOn).has_value();
}

WholeResult SearchOfTheYear(Connection& connection) {
    const Day first = LastSheetDay - std::chrono::days{Year - 1};
    return {connection, u" Where TCID>='T%1'"_s.arg(StoredDay(first).remove(u'-')), GoOn};
}

bool PrintGrid(Connection& connection, const LineSink& sink) {
    return GridPrint(SearchOfTheYear(connection), sink);
}

bool PrintSheets(Connection& connection, const LineSink& sink) {
    return SheetPrint(SearchOfTheYear(connection), {}, sink, GoOn);
}

bool PrintEmployees(Connection& connection, const LineSink& sink) {
    return EmployeePrint(SearchOfTheYear(connection), {}, sink, GoOn);
}

const std::pair<const char*, bool (*)(Connection&, const LineSink&)> Prints[] = {
    {"detail", PrintDetail}, {"grid", PrintGrid}, {"sheets", PrintSheets}, {"employees", PrintEmployees}};

/// Opens the database and prints; any other name prints nothing.
void Print(const char* name, const QString& file) {
    const auto connection = OpenDatabaseFile(file);
    const QTemporaryDir folder;
    for (const auto& [print, write] : Prints) {
        if (std::strcmp(print, name) != 0)
            continue;
        WriteReportFile(ProgramFolder(folder.path()),
                        [&](const LineSink& sink) { return write(*connection, sink); });
    }
}

void PrintMemory(Rounds& rounds) {
    const QString file = CompanyFile(Company);
    double most = 0;
    while (rounds.Next()) {
        const int idle = PeakMemoryOf({u"idle"_s, file});
        for (const auto& [print, write] : Prints) {
            rounds.Time(print, [&, name = print] {
                const double megabytes = (PeakMemoryOf({QString::fromLatin1(name), file}) - idle) / 1024.0;
                rounds.Tell(std::string(name) + "_MB", megabytes);
                most = std::max(most, megabytes);
            });
        }
    }
    rounds.AddRatio("print-peak-memory", most, 150);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 4 && std::strcmp(argv[1], MemoryOption) == 0)
        return TellPeakMemory([&] { Print(argv[2], QString::fromLocal8Bit(argv[3])); });
    BenchProgram program(argc, argv);
    program.Add("print_memory", Measured::ElapsedTime, 1, PrintMemory);
    return program.Run();
}
