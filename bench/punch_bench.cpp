#include "cards/sheet_identifier.h"
#include "database/database_file.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"
#include "timecard/clock_recording.h"

#include <QCoreApplication>

#include <stdexcept>

namespace {

constexpr int PunchRounds = 400;

/// A desk at which the employees of a company clock in one after the other, each for the first time that day.
/// Every punch is written through to the disk, as in production.
class Desk {
public:
    explicit Desk(const CompanySize& size)
        : file_(CompanyFile(size)), connection_(OpenDatabaseFile(file_)), plain_(file_) {
        plain_.Execute("PRAGMA synchronous=FULL");
    }

    void Punch() {
        const ClockEntry entry{sheet_, UnusedDay, QStringLiteral("IN"), TimeOnDay(UnusedDay, arrival_)};
        if (RecordClockEntry(*connection_, entry, QString::fromStdString(NipOf(next_++))))
            throw std::runtime_error("a punch was refused");
    }

    /// The same look-ups and writes with the least work.
    void PunchPlainly() {
        const std::string nip = NipOf(next_++);
        const std::string card = sheet_.toStdString() + nip;
        plain_.Execute("BEGIN IMMEDIATE");
        plain_.ReadFirst("select TimeIn from TimeCardDetail where TCID='" + card + "'");
        if (plain_.ReadAll("select * from TimeCardHeader where tcid='" + card + "'") > 0
            || plain_.ReadAll("select * from TimeCardDetail where tcid='" + card + "'") > 0)
            throw std::runtime_error("the card is there already");
        PlainInsert header(plain_, "INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)");
        header.Run(card, nip, std::string("IN"));
        PlainInsert detail(plain_,
                           "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,BeriUangMakan) VALUES (?,?,?,?)");
        detail.Run(card, StoredDay(UnusedDay).toStdString(),
                   StoredTime(TimeOnDay(UnusedDay, arrival_)).toStdString(), 1);
        plain_.Execute("COMMIT");
    }

private:
    QString file_;
    QString sheet_ = SheetIdentifierOf(UnusedDay);
    Seconds arrival_ = std::chrono::hours{7};
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
    int next_ = 0;
};

void Punch(Rounds& rounds) {
    Desk longHistory({5000, 600});
    Desk noHistory({5000, 0});
    while (rounds.Next()) {
        rounds.Time("three_million_cards", [&] { longHistory.Punch(); });
        rounds.Time("no_cards", [&] { noHistory.Punch(); });
        rounds.Time("three_million_cards_plain", [&] { longHistory.PunchPlainly(); });
        rounds.Time("no_cards_plain", [&] { noHistory.PunchPlainly(); });
    }
    rounds.Compare("punch-3000000-over-0-cards", "three_million_cards", "no_cards", 1.3);
    rounds.Compare("punch-3000000-cards", "three_million_cards", "three_million_cards_plain", 3);
    rounds.Compare("punch-0-cards", "no_cards", "no_cards_plain", 3);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("punch", Measured::ElapsedTime, PunchRounds, Punch);
    return program.Run();
}
