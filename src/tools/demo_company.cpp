#include "tools/demo_company.h"

#include "cards/card_lines.h"
#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "database/new_database_file.h"
#include "timecard/sheet_lifecycle.h"
#include "tools/demo_attendance.h"
#include "tools/demo_photos.h"
#include "tools/demo_staff.h"

#include <functional>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

/// Rows that go to the database in one piece.
constexpr qsizetype BatchSize = 20'000;

/// Collects rows of one statement and writes them in large pieces.
class RowWriter {
public:
    RowWriter(Connection& connection, const QString& statement)
        : connection_(connection), statement_(statement) {}

    void Add(const QVariantList& row) {
        rows_ << row;
        if (rows_.size() >= BatchSize)
            Flush();
    }

    /// Writes what is collected; to be called after the last row.
    void Flush() {
        connection_.ExecuteMany(statement_, rows_);
        rows_.clear();
    }

private:
    Connection& connection_;
    QString statement_;
    QList<QVariantList> rows_;
};

struct CodeAndText {
    QStringView code;
    QStringView text;
};
constexpr CodeAndText Departments[] = {
    {u"ADM", u"Administrasi"}, {u"GUD", u"Gudang"},    {u"KEU", u"Keuangan"},
    {u"MNT", u"Perawatan"},    {u"PROD", u"Produksi"}, {u"QC", u"Pengendalian Mutu"},
};
constexpr CodeAndText Divisions[] = {
    {u"A", u"Regu A"}, {u"B", u"Regu B"}, {u"C", u"Regu C"},
    {u"G", u"Gudang"}, {u"K", u"Kantor"}, {u"T", u"Teknik"},
};
constexpr CodeAndText Statuses[] = {
    {CardStatus::In, u"Masuk"},           {CardStatus::Out, u"Keluar"},
    {CardStatus::Absent, u"Tidak hadir"}, {CardStatus::Sick, u"Sakit"},
    {CardStatus::Excused, u"Izin"},       {CardStatus::OnLeave, u"Cuti"},
    {CardStatus::Holiday, u"Libur"},      {CardStatus::LeftEarly, u"Pulang cepat"},
    {CardStatus::OnDuty, u"Tugas luar"},  {CardStatus::OnBreak, u"Keluar istirahat"},
};
constexpr CodeAndText AbsenceTypes[] = {
    {CardStatus::Absent, u"Alpa"},   {CardStatus::OnLeave, u"Cuti"}, {CardStatus::Excused, u"Izin"},
    {CardStatus::Holiday, u"Libur"}, {CardStatus::Sick, u"Sakit"},
};

template<class Rows, class RowOf>
void WriteAll(Connection& connection, const QString& insert, const Rows& rows, RowOf rowOf) {
    QList<QVariantList> values;
    for (const auto& row : rows)
        values << rowOf(row);
    connection.ExecuteMany(insert, values);
}

void WriteCodeTables(Connection& connection) {
    const auto codeAndText = [](const CodeAndText& entry) {
        return QVariantList{entry.code.toString(), entry.text.toString()};
    };
    WriteAll(connection, u"INSERT INTO Departments (DeptCode, DeptName) VALUES (?,?)"_s, Departments,
             codeAndText);
    WriteAll(connection, u"INSERT INTO Division (DivKode, DivName) VALUES (?,?)"_s, Divisions, codeAndText);
    WriteAll(connection, u"INSERT INTO AbsenTipe (Kode, Keterangan) VALUES (?,?)"_s, AbsenceTypes,
             codeAndText);
    int id = 0;
    WriteAll(connection, u"INSERT INTO [Employee Status] (ID, Status, Description) VALUES (?,?,?)"_s,
             Statuses, [&](const CodeAndText& status) { return QVariantList{++id} + codeAndText(status); });
    WriteAll(connection, u"INSERT INTO Shift (Code, TimeIn, TimeOut) VALUES (?,?,?)"_s, DemoShifts(),
             [](const DemoShift& shift) {
                 return QVariantList{shift.code.toString(), StoredTime(DayZero + shift.start),
                                     StoredTime(DayZero + shift.end)};
             });
}

/// Everybody's password is the user's own number or name, so that the demo is easy to use.
void WriteUsers(Connection& connection, const std::vector<DemoEmployee>& staff) {
    QStringList names{u"pelon"_s, u"budi"_s};
    for (const DemoEmployee& employee : staff)
        names << employee.nip;
    WriteAll(connection, u"INSERT INTO [User] (UserID, [Password]) VALUES (?,?)"_s, names,
             [](const QString& name) {
                 return QVariantList{name, name};
             });
    connection.Execute(u"INSERT INTO User_Job (UserID, GroupID) VALUES ('pelon','SPV'),('budi','ADM')"_s);
}

void WriteStaff(Connection& connection, const std::vector<DemoEmployee>& staff) {
    WriteAll(connection,
             u"INSERT INTO Employee (NIP, Nama, Dept, Divisi, PathImage, GP, RateOT, TMakan, EmpType) VALUES "
             "(?,?,?,?,?,?,?,?,?)"_s,
             staff, [](const DemoEmployee& employee) {
                 return QVariantList{employee.nip,
                                     employee.nama,
                                     employee.dept,
                                     employee.divisi,
                                     employee.pathImage.isEmpty() ? QVariant() : QVariant(employee.pathImage),
                                     employee.gp,
                                     employee.rateOT,
                                     employee.tMakan,
                                     employee.empType};
             });
}

DayRange AttendanceOf(const DemoOptions& options) {
    const Day after = options.until + days{1};
    year_month_day first = year_month_day{after} - std::chrono::months{options.months};
    if (!first.ok())
        first = first.year() / first.month() / std::chrono::last;
    return {Day{first}, options.until};
}

/// Whole months, from the attendance's first to the one in which the day after it lies.
DayRange RosterOf(const DemoOptions& options) {
    const year_month_day first{AttendanceOf(options).first};
    const year_month_day last{options.until + days{1}};
    return {Day{first.year() / first.month() / 1}, Day{last.year() / last.month() / std::chrono::last}};
}

/// Told how many more rows were made.
using Advance = std::function<void(qint64 rows)>;

void WriteRoster(Connection& connection, const std::vector<DemoEmployee>& staff, const DayRange& period,
                 const Advance& advance) {
    RowWriter writer(connection, u"INSERT INTO ShiftEmployee (NIP, Tgl, ShiftCode) VALUES (?,?,?)"_s);
    for (const DemoEmployee& employee : staff) {
        for (Day day = period.first; employee.HasRoster() && day <= period.last; day += days{1})
            writer.Add({employee.nip, StoredDay(day), PlannedShift(employee, day).code.toString()});
        advance(period.Days());
    }
    writer.Flush();
}

/// Writes time cards and, day by day, which sheets there are.
class AttendanceWriter {
public:
    explicit AttendanceWriter(Connection& connection)
        : store_(connection),
          sheets_(connection, u"INSERT INTO timecardmaster (TCID, Status) VALUES (?,?)"_s) {}

    void AddDay(const std::vector<DemoEmployee>& staff, Day day, SheetStatus status) {
        QStringList sheetsOfDay;
        for (const DemoEmployee& employee : staff) {
            for (const DemoCard& card : CardsOf(employee, day)) {
                cards_.push_back(AsTimeCard(card));
                if (!sheetsOfDay.contains(card.sheet))
                    sheetsOfDay << card.sheet;
            }
        }
        if (std::ssize(cards_) >= BatchSize)
            WriteCards();
        for (const QString& sheet : sheetsOfDay)
            sheets_.Add({sheet, static_cast<int>(status)});
        sheetCount_ += sheetsOfDay.size();
    }

    void Flush() {
        WriteCards();
        sheets_.Flush();
    }

    qint64 CardCount() const { return cardCount_; }
    qint64 SheetCount() const { return sheetCount_; }

private:
    static TimeCard AsTimeCard(const DemoCard& card) {
        const auto orNull = [](const QString& text) { return text.isEmpty() ? QString() : text; };
        return {
            CardHeader{CardIdentifier(card.sheet, card.nip), card.nip, card.status, orNull(card.keterangan)},
            {{card.day, card.timeIn, card.timeOut, card.overtimeIn, card.overtimeOut, orNull(card.shiftCode),
              card.timeIn ? std::optional(true) : std::nullopt}}};
    }

    void WriteCards() {
        store_.Insert(cards_);
        cardCount_ += std::ssize(cards_);
        cards_.clear();
    }

    CardStore store_;
    std::vector<TimeCard> cards_;
    RowWriter sheets_;
    qint64 cardCount_ = 0;
    qint64 sheetCount_ = 0;
};

} // namespace

DemoSummary FillDemoCompany(Connection& connection, const DemoOptions& options,
                            const DemoProgress& progress) {
    const std::vector<DemoEmployee> staff = MakeDemoStaff(options.employees);
    const DayRange attendance = AttendanceOf(options);
    const DayRange roster = RosterOf(options);
    return connection.InTransaction([&]() -> DemoSummary {
        qint64 done = 0;
        const Advance advance = [&, total = options.employees
                                            * (roster.Days() + 2 * attendance.Days())](qint64 rows) {
            done += rows;
            if (progress)
                progress(static_cast<int>(100 * done / total));
        };
        WriteCodeTables(connection);
        WriteUsers(connection, staff);
        WriteStaff(connection, staff);
        WriteRoster(connection, staff, roster, advance);

        // One sheet was opened again for a correction; the others are closed.
        const Day reopened = attendance.last - weeks{1};
        AttendanceWriter writer(connection);
        for (Day day = attendance.first; day <= attendance.last; day += days{1}) {
            writer.AddDay(staff, day, day == reopened ? SheetStatus::Open : SheetStatus::Closed);
            advance(qint64{2} * options.employees);
        }
        writer.Flush();
        return {attendance.first, writer.CardCount(), writer.SheetCount()};
    });
}

DemoSummary MakeDemoCompany(const QString& path, const DemoOptions& options, const DemoProgress& progress) {
    DemoSummary summary;
    DemoPhotos photos(path);
    MakeDatabaseFile(path, [&](Connection& connection) {
        summary = FillDemoCompany(connection, options, progress);
        photos.Write();
    });
    photos.Keep();
    return summary;
}
