#include "cards/sheet_identifier.h"
#include "database/database_file.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"
#include "timecard/sheet_model.h"

#include <QCoreApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// A desk that shows the last sheet of a company, and another program that writes to the same file.
class Desk {
public:
    explicit Desk(const CompanySize& size)
        : file_(CompanyFile(size)), connection_(OpenDatabaseFile(file_)), plain_(file_), other_(file_) {
        model_.LoadEmployees(*connection_, u" ORDER BY NAMA"_s);
        other_.Execute("PRAGMA synchronous=OFF");
        Refresh();
        if (model_.Count().absent > 0 || RefreshPlainly() != size.employees)
            throw std::runtime_error("not every employee's card was read");
    }

    /// Another departure on one card, committed by the other program.
    void ChangeElsewhere() {
        minute_ = minute_ == 59 ? 10 : minute_ + 1;
        other_.Execute("UPDATE TimeCardDetail SET TimeOUT='" + StoredDay(LastSheetDay).toStdString()
                       + " 18:" + std::to_string(minute_) + ":00' WHERE TCID='" + sheet_.toStdString()
                       + NipOf(1) + "'");
    }

    void Refresh() { model_.Refresh(*connection_, sheet_); }

    /// The employees of the day, the day's roster and the cards, as a changed refresh reads them. Returns the
    /// number of cards.
    int RefreshPlainly() {
        const std::string day = StoredDay(LastSheetDay).toStdString();
        plain_.ReadAll("select Dept, Divisi, NIP, Nama from Employee where Keluar is null or Keluar>='" + day
                       + "' order by Nama");
        plain_.ReadAll(
            "select e.NIP, s.ShiftCode from Employee e left join ShiftEmployee s on s.NIP=e.NIP and "
            "s.Tgl='"
            + day + "'");
        return ReadSheetPlainly(plain_, sheet_.toStdString());
    }

private:
    QString file_;
    QString sheet_ = SheetIdentifierOf(LastSheetDay);
    BenchClock clock_;
    SheetModel model_{clock_};
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
    PlainDatabase other_;
    int minute_ = 10;
};

void SheetRefresh(Rounds& rounds) {
    Desk desk({5000, 60});
    while (rounds.Next()) {
        desk.ChangeElsewhere();
        rounds.Time("changed", [&] { desk.Refresh(); });
        rounds.Time("unchanged", [&] { desk.Refresh(); });
        desk.ChangeElsewhere();
        rounds.Time("plain", [&] { desk.RefreshPlainly(); });
    }
    rounds.Compare("sheet-refresh-changed", "changed", "plain", 3);
    rounds.Compare("sheet-refresh-unchanged", "unchanged", "changed", 0.01);
}

void SheetRefreshGrowth(Rounds& rounds) {
    Desk desk({5000, 60});
    Desk fewEmployees({2500, 60});
    Desk shortHistory({5000, 30});
    while (rounds.Next()) {
        for (const auto& [name, of] : {std::pair{"full", &desk}, std::pair{"half_employees", &fewEmployees},
                                       std::pair{"half_history", &shortHistory}}) {
            of->ChangeElsewhere();
            rounds.Time(name, [of = of] { of->Refresh(); });
        }
    }
    rounds.Compare("sheet-refresh-5000-over-2500-employees", "full", "half_employees", 2.2);
    rounds.Compare("sheet-refresh-60-over-30-sheets", "full", "half_history", 1.2);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("sheet_refresh", Measured::ProcessorTime, 100, SheetRefresh);
    program.Add("sheet_refresh_growth", Measured::ProcessorTime, 100, SheetRefreshGrowth);
    return program.Run();
}
