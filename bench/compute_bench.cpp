#include "cards/card_computation.h"
#include "cards/sheet_identifier.h"
#include "database/database_file.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// As many cards as the program computes in one transaction.
constexpr int BatchSize = 500;

/// A day on which everybody of a company came and went; half of them have a roster entry. The hours are to be
/// computed.
class Office {
public:
    explicit Office(const CompanySize& size)
        : file_(CompanyFile(size)), connection_(OpenDatabaseFile(file_)), plain_(file_) {
        plain_.Execute("PRAGMA synchronous=FULL");
        plain_.Execute("BEGIN");
        plain_.Execute(
            "INSERT OR REPLACE INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00'),"
            "('S','1899-12-30 15:00:00','1899-12-30 23:00:00')");
        PlainInsert roster(plain_, "INSERT OR REPLACE INTO ShiftEmployee VALUES (?,?,?)");
        PlainInsert header(plain_, "INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)");
        PlainInsert detail(plain_, "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,BeriUangMakan) "
                                   "VALUES (?,?,?,?,?)");
        for (int i = 0; i < size.employees; ++i) {
            const std::string tcid = SheetIdentifierOf(UnusedDay).toStdString() + NipOf(i);
            tcids_ << QString::fromStdString(tcid);
            if (i % 2 == 0)
                roster.Run(NipOf(i), day_, std::string("P"));
            header.Run(tcid, NipOf(i), std::string("OUT"));
            detail.Run(tcid, day_, MomentOf(8, -i % 47 * 60), MomentOf(17, -i % 61 * 90), 1);
        }
        plain_.Execute("COMMIT");
    }

    /// Takes all results back, so that every computation has as much to write.
    void Forget() {
        plain_.Execute(
            "BEGIN;"
            "UPDATE TimeCardHeader SET NormalHours=NULL, OTHours=NULL, NormalAmount=NULL, "
            "OTAmount=NULL, TotalUangMakan=NULL WHERE TCID>='"
            + tcids_.front().toStdString()
            + "';"
              "UPDATE TimeCardDetail SET TimeINOT=NULL, TimeOutOT=NULL, ShiftCode=NULL WHERE TCID>='"
            + tcids_.front().toStdString() + "'; COMMIT");
    }

    /// Computes the first cards of the day.
    void Compute(int cards) {
        if (modAbsen::CalculateTimeCards(*connection_, tcids_.first(cards)).computed != cards)
            throw std::runtime_error("not every card was computed");
    }

    /// The same reads and writes with the least work; what is written is known beforehand.
    void ComputePlainly(int cards) {
        for (int start = 0; start < cards; start += BatchSize) {
            const int end = std::min(start + BatchSize, cards);
            plain_.Execute("BEGIN IMMEDIATE");
            plain_.ReadAll("select Code,TimeIn,TimeOut from Shift");
            if (plain_.ReadAll(CardQuery(start, end)) != end - start)
                throw std::runtime_error("not every card was read");
            WritePlainly(start, end);
            plain_.Execute("COMMIT");
        }
    }

private:
    std::string MomentOf(int hour, int second) const {
        return StoredTime(TimeOnDay(UnusedDay, std::chrono::hours{hour} + Seconds{second})).toStdString();
    }

    std::string CardQuery(int start, int end) const {
        std::string query =
            "select h.TCID, d.Tanggal, h.NIP, h.Status, d.TimeIN, d.TimeOUT, d.BeriUangMakan, "
            "r.ShiftCode, e.GP, e.RateOT, e.TMakan, e.EmpType "
            "from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID "
            "left join Employee e on e.NIP=h.NIP "
            "left join ShiftEmployee r on r.NIP=h.NIP and r.Tgl=d.Tanggal where h.TCID in (";
        for (int i = start; i < end; ++i)
            query += (i == start ? "'" : ",'") + tcids_[i].toStdString() + "'";
        return query + ") order by h.TCID, d.Tanggal";
    }

    void WritePlainly(int start, int end) {
        PlainInsert day(plain_, "update TimeCardDetail set TimeINOT=?, TimeOutOT=?, ShiftCode=? "
                                "where TCID=? and Tanggal=?");
        PlainInsert header(plain_, "update TimeCardHeader set NormalHours=?, OTHours=?, NormalAmount=?, "
                                   "OTAmount=?, TotalUangMakan=? where TCID=?");
        const std::string overtimeIn = MomentOf(17, 0);
        const std::string overtimeOut = MomentOf(16, 1800);
        for (int i = start; i < end; ++i)
            day.Run(overtimeIn, overtimeOut, std::string("P"), tcids_[i].toStdString(), day_);
        for (int i = start; i < end; ++i)
            header.Run(std::string("9.15"), std::string("0.3"), 2'400'000, 4500, 12'000,
                       tcids_[i].toStdString());
    }

    QString file_;
    std::string day_ = StoredDay(UnusedDay).toStdString();
    QStringList tcids_;
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
};

void Compute(Rounds& rounds) {
    Office office({5000, 60});
    while (rounds.Next()) {
        office.Forget();
        rounds.Time("cards_5000", [&] { office.Compute(5000); });
        office.Forget();
        rounds.Time("cards_5000_plain", [&] { office.ComputePlainly(5000); });
        office.Forget();
        rounds.Time("cards_2500", [&] { office.Compute(2500); });
    }
    rounds.Compare("compute-5000-cards", "cards_5000", "cards_5000_plain", 4);
    rounds.Compare("compute-5000-over-2500-cards", "cards_5000", "cards_2500", 2.2);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("compute", Measured::ProcessorTime, 40, Compute);
    return program.Run();
}
