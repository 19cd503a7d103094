#include "core/row_search.h"
#include "database/database_file.h"
#include "editing/status_cells.h"
#include "support/bench_company.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Month = 30;
const DayRange Days{LastSheetDay - std::chrono::days{Month - 1}, LastSheetDay};

/// A browser over days on which everybody has a card.
class Browser {
public:
    Browser(const CompanySize& size, const DayRange& days)
        : days_(days), connection_(OpenDatabaseFile(CompanyFile(size))), plain_(CompanyFile(size)) {
        plain_.Execute("PRAGMA synchronous=FULL");
        plain_.Execute("INSERT OR REPLACE INTO [Employee Status] VALUES (1,'S','Sakit'),(2,'CT','Cuti')");
        Reread();
    }

    /// What is not shown would not be overwritten.
    void Reread() {
        const AttendanceCriteria criteria{{}, {}, {}, days_};
        rows_.Show(*RefreshAttendance(*connection_, criteria, LastSheetDay, {}));
    }

    int Rows() const { return rows_.rowCount(); }

    /// Gives all rows the other of two statuses.
    void Paste() {
        const QString status = Next();
        std::vector<CellChange> changes;
        for (int row = 0; row < Rows(); ++row)
            changes.push_back({rows_.RowKey(row), AttendanceModel::Status, status});
        const CellsOutcome outcome = WriteStatusCells(*connection_, rows_, changes);
        if (!outcome.refused.empty())
            throw std::runtime_error(outcome.refused.front().reason.toStdString());
    }

    /// The same reads and writes with the least work.
    void PastePlainly() {
        const std::string status = Next().toStdString();
        plain_.Execute("BEGIN IMMEDIATE");
        const int read = plain_.ReadAll(
            "SELECT a.TCID, c.NIP, c.Dept, c.Divisi, b.Tanggal, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan "
            "FROM (TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID) "
            "INNER JOIN Employee c ON a.NIP=c.NIP WHERE b.Tanggal BETWEEN '"
            + StoredDay(days_.first).toStdString() + "' AND '" + StoredDay(days_.last).toStdString() + "'");
        if (read != Rows())
            throw std::runtime_error("not every card was read");
        PlainInsert update(plain_, "UPDATE TimeCardHeader SET Status=? WHERE TCID=?");
        for (int row = 0; row < Rows(); ++row)
            update.Run(status, rows_.RecordAt(row)->tcid.toStdString());
        plain_.Execute("COMMIT");
    }

    /// Walks to the last row as a name is found that no other row has.
    void Find() {
        const QString name = rows_.index(Rows() - 1, AttendanceModel::Nip).data().toString();
        if (FindRow(rows_, {AttendanceModel::Nip, AttendanceModel::Nama}, name, 0) != Rows() - 1)
            throw std::runtime_error("the row was not found");
    }

    void FindPlainly() {
        if (plain_.ReadAll("SELECT NIP, Nama FROM Employee ORDER BY Nama") != Rows())
            throw std::runtime_error("not every employee was read");
    }

private:
    QString Next() { return ++writes_ % 2 == 0 ? u"S"_s : u"CT"_s; }

    DayRange days_;
    std::unique_ptr<Connection> connection_;
    PlainDatabase plain_;
    AttendanceModel rows_;
    int writes_ = 0;
};

void BlockPaste(Rounds& rounds) {
    Browser browser({200, Month}, Days);
    if (browser.Rows() != 6000)
        throw std::runtime_error("not 6,000 cells");
    while (rounds.Next()) {
        rounds.Time("paste", [&] { browser.Paste(); });
        rounds.Time("plain", [&] { browser.PastePlainly(); });
        browser.Reread();
    }
    rounds.Compare("grid-paste-6000-cells", "paste", "plain", 3);
}

void FindInRows(Rounds& rounds) {
    Browser browser({5000, 0, 24}, {LastSheetDay, LastSheetDay});
    if (browser.Rows() != 5000)
        throw std::runtime_error("not 5,000 rows");
    while (rounds.Next()) {
        rounds.Time("find", [&] { browser.Find(); });
        rounds.Time("plain", [&] { browser.FindPlainly(); });
    }
    rounds.Compare("grid-find-in-5000-rows", "find", "plain", 3);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    BenchProgram program(argc, argv);
    program.Add("grid_paste", Measured::ProcessorTime, 30, BlockPaste);
    program.Add("grid_find", Measured::ProcessorTime, 100, FindInRows);
    return program.Run();
}
