#include "database/database_file.h"
#include "editing/card_problems.h"
#include "exchange/punch_import.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int ProblemRounds = 9;
constexpr int ImportRounds = 3;
constexpr int Employees = 5000;
constexpr std::chrono::days Month{29};

/// A desk that looks at the last month's cards.
class ProblemDesk {
public:
    explicit ProblemDesk(const CompanySize& size)
        : file_(CompanyFile(size)), connection_(OpenDatabaseFile(file_)), plain_(file_) {}

    void Find() {
        CardFilter filter;
        filter.days = DayRange{LastSheetDay - Month, LastSheetDay};
        found_ = FindProblems(*connection_, filter, BenchClock().Now()).size();
    }

    /// The same rows with the least work.
    void ReadPlainly() {
        const std::string days = "between '" + StoredDay(LastSheetDay - Month).toStdString() + "' and '"
                                 + StoredDay(LastSheetDay).toStdString() + "'";
        plain_.ReadAll("select NIP, Nama, Dept, Masuk, Keluar from Employee");
        plain_.ReadAll(
            "select e.NIP, s.Tgl, s.ShiftCode from Employee e left join ShiftEmployee s on s.NIP=e.NIP "
            "and s.Tgl "
            + days);
        if (plain_.ReadAll(
                "select d.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT, d.ShiftCode, "
                "h.NormalHours from TimeCardDetail d left join TimeCardHeader h on h.TCID=d.TCID where "
                "d.Tanggal "
                + days + " order by d.Tanggal, d.TCID")
            < Employees)
            throw std::runtime_error("the month has no cards");
    }

private:
    QString file_;
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
    size_t found_ = 0;
};

void Problems(Rounds& rounds) {
    ProblemDesk longHistory({Employees, 600, 2});
    ProblemDesk shortHistory({Employees, 60, 2});
    while (rounds.Next()) {
        rounds.Time("three_million_cards", [&] { longHistory.Find(); });
        rounds.Time("three_hundred_thousand_cards", [&] { shortHistory.Find(); });
        rounds.Time("plain", [&] { longHistory.ReadPlainly(); });
    }
    rounds.Compare("problems-3000000-over-300000-cards", "three_million_cards",
                   "three_hundred_thousand_cards", 1.2);
    rounds.Compare("problems-month-5000-employees", "three_million_cards", "plain", 3);
}

/// The punches of all employees on 50 days on which nobody has a card: an arrival and a departure each.
std::vector<PunchLine> Punches() {
    std::vector<PunchLine> lines;
    for (int day = 1; day <= 50; ++day) {
        for (int employee = 0; employee < Employees; ++employee) {
            for (const int hour : {7, 16}) {
                const QString number = QString::fromStdString(NipOf(employee));
                const WallTime moment = LastSheetDay + std::chrono::days{day} + std::chrono::hours{hour};
                lines.push_back({u"bench.txt"_s, static_cast<int>(lines.size()) + 1,
                                 number + u'\t' + StoredTime(moment), PunchReading{number, moment}});
            }
        }
    }
    return lines;
}

/// What is measured is taken back.
struct Stop {};

void ImportPunches500000(Rounds& rounds) {
    const QString file = CompanyFile({Employees, 0});
    const auto connection = OpenDatabaseFile(file);
    PlainDatabase plain(file);
    const std::vector<PunchLine> lines = Punches();
    while (rounds.Next()) {
        rounds.Time("import", [&] {
            try {
                connection->InTransaction([&] {
                    if (ImportPunches(*connection, lines, false, PunchRun::Write).newCards != 250'000)
                        throw std::runtime_error("not all punches became cards");
                    throw Stop();
                });
            } catch (const Stop&) {
            }
        });
        rounds.Time("plain", [&] {
            plain.Execute("BEGIN IMMEDIATE");
            PlainInsert punch(plain,
                              "insert into DevicePunch (File, Line, Content, Number, Moment, Direction, NIP, "
                              "Outcome) values (?,?,?,?,?,?,?,?)");
            PlainInsert header(plain, "INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)");
            PlainInsert day(plain,
                            "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,BeriUangMakan) VALUES "
                            "(?,?,?,?,?)");
            for (size_t i = 0; i < lines.size(); ++i) {
                const PunchLine& line = lines[i];
                const std::string nip = line.reading->number.toStdString();
                const std::string moment = StoredTime(line.reading->moment).toStdString();
                punch.Run(line.file.toStdString(), line.line, line.content.toStdString(), nip, moment,
                          std::string(), nip, std::string("masuk"));
                if (i % 2 == 1)
                    continue;
                const std::string date = moment.substr(0, 10);
                const std::string card =
                    "T" + date.substr(0, 4) + date.substr(5, 2) + date.substr(8, 2) + nip;
                header.Run(card, nip, std::string("OUT"));
                day.Run(card, date, moment, date + " 16:00:00", 1);
            }
            plain.Execute("ROLLBACK");
        });
    }
    rounds.Compare("import-500000-punches", "import", "plain", 4);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("problems", Measured::ProcessorTime, ProblemRounds, Problems);
    program.Add("import_punches", Measured::ProcessorTime, ImportRounds, ImportPunches500000);
    return program.Run();
}
