#include "database/database_file.h"
#include "shifts/roster_fill.h"
#include "shifts/roster_model.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <array>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// The roster of a company's last month, and another program that writes to the same file.
class Roster {
public:
    explicit Roster(const CompanySize& size)
        : file_(CompanyFile(size)), connection_(OpenDatabaseFile(file_)), plain_(file_), other_(file_) {
        plain_.Execute("PRAGMA synchronous=FULL");
        other_.Execute("PRAGMA synchronous=OFF");
        Open();
        if (model_.index(size.employees - 1, RosterModel::FirstDay + 29).data().toString().isEmpty()
            || OpenPlainly() != 30 * size.employees)
            throw std::runtime_error("not every shift was read");
    }

    /// Empties the page cache of either side, as another desk's change does.
    void ChangeElsewhere() {
        other_.Execute("UPDATE Employee SET sc=" + std::to_string(++changes_) + " WHERE NIP='" + NipOf(0)
                       + "'");
    }

    void Open() {
        model_.LoadEmployees(*connection_);
        model_.LoadRoster(*connection_, u"202611"_s);
    }

    /// Returns the number of shifts.
    int OpenPlainly() {
        plain_.ReadAll("Select * from employee");
        plain_.ReadAll("select Code,TimeIn,TimeOut from Shift");
        return plain_.ReadAll("select * from ShiftEmployee where CAST(substr(Tgl,1,4) AS INTEGER)=2026 and "
                              "CAST(substr(Tgl,6,2) AS INTEGER)=11");
    }

    void SaveCell() {
        const QModelIndex cell = NextCell();
        model_.setData(cell, cell.data() == u"P"_s ? u"PAGI"_s : u"P"_s);
        model_.SaveCell(*connection_, cell);
    }

    /// The same look-up and write with the least work. Always another code: what stands there already would
    /// not be written at all.
    void SaveCellPlainly() {
        const std::string key = " WHERE NIP='" + NipOf(NextCell().row()) + "' and Tgl='2026-11-12'";
        if (plain_.ReadAll("select * from ShiftEmployee" + key) != 1)
            throw std::runtime_error("no such shift");
        plain_.Execute("UPDATE ShiftEmployee SET ShiftCode=CASE ShiftCode WHEN 'O' THEN 'SIANG' ELSE 'O' END"
                       + key);
    }

    /// A month without a shift is filled by a cycle: previewed, then written. Whatever else fills it is gone.
    void FillPattern() {
        model_.LoadRoster(*connection_, u"202612"_s);
        const ShiftCycle cycle = ReadShiftCycle(u"PAGI x3 MALAM x3 O x2"_s, model_.Roster().Shifts());
        model_.Preview(PlanCycle(cycle, {model_.Shown(), 1, RosterModel::DayColumns}, {1, 1}),
                       RosterMonth::Standing::Kept);
        const std::vector<CellChange> changes = model_.PreviewedChanges();
        model_.EndPreview();
        if (std::ssize(model_.WriteCells(*connection_, changes).takeBack)
            != qsizetype{RosterModel::DayColumns} * model_.rowCount())
            throw std::runtime_error("not every day was filled");
    }

    /// The same rows with the least work.
    void FillPatternPlainly() {
        const std::array<std::string, 8> cycle{"PAGI", "PAGI", "PAGI", "MALAM", "MALAM", "MALAM", "O", "O"};
        plain_.Execute("BEGIN IMMEDIATE");
        PlainInsert insert(plain_, "insert into ShiftEmployee(NIP,Tgl,ShiftCode) VALUES(?,?,?)");
        for (int employee = 0; employee < model_.rowCount(); ++employee) {
            const std::string nip = NipOf(employee);
            for (int day = 0; day < RosterModel::DayColumns; ++day)
                insert.Run(nip, "2026-12-" + std::string(day < 9 ? "0" : "") + std::to_string(day + 1),
                           cycle[static_cast<size_t>(employee + day) % cycle.size()]);
        }
        plain_.Execute("COMMIT");
    }

    void EmptyFilledMonth() {
        other_.Execute("DELETE FROM ShiftEmployee WHERE Tgl BETWEEN '2026-12-01' AND '2026-12-31'");
    }

private:
    QModelIndex NextCell() {
        next_ = (next_ + 37) % model_.rowCount();
        return model_.index(next_, RosterModel::FirstDay + 11);
    }

    QString file_;
    BenchClock clock_;
    RosterModel model_{clock_};
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
    PlainDatabase other_;
    int next_ = 0;
    int changes_ = 0;
};

/// Two companies that differ from the full one in one size each.
struct Companies {
    Roster full{{5000, 0, 24}};
    Roster halfHistory{{5000, 0, 12}};
    Roster halfEmployees{{2500, 0, 24}};
};

void OpenMonth(Rounds& rounds) {
    Companies companies;
    while (rounds.Next()) {
        for (const auto& [name, roster] :
             {std::pair{"open", &companies.full}, std::pair{"open_half_history", &companies.halfHistory},
              std::pair{"open_half_employees", &companies.halfEmployees}}) {
            roster->ChangeElsewhere();
            rounds.Time(name, [roster = roster] { roster->Open(); });
        }
        companies.full.ChangeElsewhere();
        rounds.Time("open_plain", [&] { companies.full.OpenPlainly(); });
    }
    rounds.Compare("roster-open-5000-employees", "open", "open_plain", 3);
    rounds.Compare("roster-open-24-over-12-months", "open", "open_half_history", 1.2);
    rounds.Compare("roster-open-5000-over-2500-employees", "open", "open_half_employees", 2.2);
}

void SaveCell(Rounds& rounds) {
    Companies companies;
    while (rounds.Next()) {
        rounds.Time("save", [&] { companies.full.SaveCell(); });
        rounds.Time("save_half_history", [&] { companies.halfHistory.SaveCell(); });
        rounds.Time("save_half_employees", [&] { companies.halfEmployees.SaveCell(); });
        rounds.Time("save_plain", [&] { companies.full.SaveCellPlainly(); });
    }
    rounds.Compare("roster-save-cell", "save", "save_plain", 3);
    rounds.Compare("roster-save-24-over-12-months", "save", "save_half_history", 1.3);
    rounds.Compare("roster-save-5000-over-2500-employees", "save", "save_half_employees", 1.3);
}

void FillPattern(Rounds& rounds) {
    Roster roster({5000, 0, 24});
    roster.EmptyFilledMonth();
    while (rounds.Next()) {
        rounds.Time("pattern", [&] { roster.FillPattern(); });
        roster.EmptyFilledMonth();
        rounds.Time("pattern_plain", [&] { roster.FillPatternPlainly(); });
        roster.EmptyFilledMonth();
    }
    rounds.Compare("roster-pattern-5000-employees", "pattern", "pattern_plain", 3);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("roster_open", Measured::ProcessorTime, 20, OpenMonth);
    program.Add("roster_save", Measured::ElapsedTime, 200, SaveCell);
    program.Add("roster_pattern", Measured::ElapsedTime, 10, FillPattern);
    return program.Run();
}
