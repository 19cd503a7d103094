#include "database/database_file.h"
#include "editing/search_model.h"
#include "support/bench_company.h"
#include "support/peak_memory.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr CompanySize Million{1000, 1000};
constexpr CompanySize TenThousand{1000, 10};
/// More rows than any screen shows.
constexpr int Screen = 60;
constexpr int FirstPage = 200;

/// A desk that has just opened the search.
class SearchDesk {
public:
    explicit SearchDesk(const QString& file) : connection_(OpenDatabaseFile(file)) {}

    /// Searches without criteria and makes the texts of the first screen.
    void ShowFirstScreen() {
        model_.Search(*connection_, QString());
        qsizetype letters = 0;
        for (int row = 0; row < Screen; ++row) {
            for (int column = 0; column < model_.columnCount(); ++column)
                letters += model_.index(row, column).data().toString().size();
        }
        if (letters == 0)
            throw std::runtime_error("nothing was shown");
    }

private:
    std::unique_ptr<Connection> connection_;
    SearchModel model_;
};

void FirstScreen(Rounds& rounds) {
    const QString large = CompanyFile(Million);
    const QString small = CompanyFile(TenThousand);
    SearchDesk million(large);
    SearchDesk tenThousand(small);
    PlainDatabase plain(large);
    while (rounds.Next()) {
        rounds.Time("million", [&] { million.ShowFirstScreen(); });
        rounds.Time("ten_thousand", [&] { tenThousand.ShowFirstScreen(); });
        rounds.Time("plain", [&] {
            if (plain.ReadAll("Select * from qry_TimeCardAll ORDER BY TCID LIMIT 200") != FirstPage)
                throw std::runtime_error("not a whole page");
        });
    }
    rounds.Compare("search-first-screen-1000000-over-10000-rows", "million", "ten_thousand", 2);
    rounds.Compare("search-first-screen", "million", "plain", 5);
    const int peak = PeakMemoryOf({large});
    const int smallPeak = PeakMemoryOf({small});
    rounds.Tell("million_peak_kB", peak);
    rounds.Tell("ten_thousand_peak_kB", smallPeak);
    rounds.AddRatio("search-peak-memory-1000000-over-10000-rows", static_cast<double>(peak) / smallPeak, 1.2);
}

/// Reads the whole result of a search for cards; all cards of the company begin with "T".
void Walk(Connection& connection, const QString& clause) {
    qsizetype rows = 0;
    WholeResult result(connection, clause, {});
    result([&rows](const FoundDay&) { ++rows; });
    if (rows != Million.employees * Million.sheets)
        throw std::runtime_error("not the whole result");
}

void PrefixWalk(Rounds& rounds) {
    const auto connection = OpenDatabaseFile(CompanyFile(Million));
    while (rounds.Next()) {
        rounds.Time("prefix", [&] { Walk(*connection, u" Where TCID like 'T%'"_s); });
        rounds.Time("all", [&] { Walk(*connection, {}); });
    }
    rounds.Compare("search-walk-prefix-over-all", "prefix", "all", 1.2);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], MemoryOption) == 0)
        return TellPeakMemory([&] { SearchDesk(QString::fromLocal8Bit(argv[2])).ShowFirstScreen(); });
    BenchProgram program(argc, argv);
    program.Add("search_first_screen", Measured::ProcessorTime, 100, FirstScreen);
    program.Add("search_walk_prefix", Measured::ProcessorTime, 3, PrefixWalk);
    return program.Run();
}
