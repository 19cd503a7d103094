#include "support/bench_company.h"

#include "cards/sheet_identifier.h"
#include "database/database_file.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

/// The state that a card of the newest sheet or of an older one is in.
struct Card {
    std::string status;
    std::string timeIn;
    std::string timeOut;
    std::string overtimeIn;
    std::string overtimeOut;
};

std::string MomentText(const std::string& day, int hour, int spread) {
    char text[24];
    std::snprintf(text, sizeof text, "%s %02d:%02d:%02d", day.c_str(), hour, spread * 7 % 60,
                  spread * 13 % 60);
    return text;
}

/// One card in five has overtime. On the newest sheet one in three is still IN.
Card MakeCard(const std::string& day, bool newest, int employee) {
    Card card{"IN", MomentText(day, 7, employee), "", "", ""};
    if (newest && employee % 3 == 0)
        return card;
    card.status = "OUT";
    card.timeOut = MomentText(day, 17, employee);
    if (employee % 5 == 0) {
        card.overtimeIn = MomentText(day, 16, 0);
        card.overtimeOut = card.timeOut;
    }
    return card;
}

void AddEmployees(PlainDatabase& database, int employees) {
    PlainInsert insert(database, "INSERT INTO Employee (NIP,Nama,Dept,Divisi,GP,RateOT,TMakan,EmpType,sc) "
                                 "VALUES (?,?,?,?,?,?,?,?,?)");
    static const std::string names[] = {"Siti Rahmawati", "Budi Santoso", "Dewi Lestari",
                                        "Agus Setiawan",  "Rina Marlina", "Joko Prasetyo"};
    for (int i = 0; i < employees; ++i) {
        // A stride scatters the names over the numbers, as it is where people come and go.
        const std::string name = names[i % 6] + ' ' + std::to_string(i * 37 % employees);
        insert.Run(NipOf(i), name, std::to_string(100 + i % 12),
                   std::string(1, static_cast<char>('A' + i % 8)), 2'400'000 + i % 40 * 10'000, 15'000,
                   12'000, std::string(i % 4 == 0 ? "HRN" : "BLN"), 1);
    }
}

/// In the order of the keys, so that rows are appended.
void AddSheets(PlainDatabase& database, const CompanySize& size) {
    PlainInsert header(database, "INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)");
    PlainInsert detail(database, "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,TimeOutOT,"
                                 "ShiftCode,BeriUangMakan) VALUES (?,?,?,?,?,?,?,?)");
    for (int back = size.sheets - 1; back >= 0; --back) {
        const Day date = LastSheetDay - std::chrono::days{back};
        const std::string sheet = SheetIdentifierOf(date).toStdString();
        const std::string day = StoredDay(date).toStdString();
        for (int i = 0; i < size.employees; ++i) {
            const std::string tcid = sheet + NipOf(i);
            const Card card = MakeCard(day, back == 0, i);
            header.Run(tcid, NipOf(i), card.status);
            detail.Run(tcid, day, card.timeIn, card.timeOut, card.overtimeIn, card.overtimeOut,
                       std::string("P"), 1);
        }
    }
}

/// The first of the month that is so many months before that of the newest sheet, or after it below 0.
Day MonthBack(int months) {
    const std::chrono::year_month_day last{LastSheetDay};
    return Day{(last.year() / last.month() - std::chrono::months{months}) / 1};
}

/// How many days so many months up to that of the newest sheet have.
int RosterDays(const CompanySize& size) {
    return static_cast<int>((MonthBack(-1) - MonthBack(size.rosterMonths - 1)).count());
}

/// In the order of the keys, so that rows are appended.
void AddRoster(PlainDatabase& database, const CompanySize& size) {
    if (size.rosterMonths == 0)
        return;
    static const std::string codes[] = {"PAGI", "SIANG", "MALAM", "P", "O"};
    PlainInsert shift(database, "INSERT INTO Shift (Code,TimeIn,TimeOut) VALUES (?,'1899-12-30 08:00:00',"
                                "'1899-12-30 17:00:00')");
    for (const std::string& code : codes)
        shift.Run(code);
    PlainInsert roster(database, "INSERT INTO ShiftEmployee (NIP,Tgl,ShiftCode) VALUES (?,?,?)");
    const Day first = MonthBack(size.rosterMonths - 1);
    const int days = RosterDays(size);
    for (int i = 0; i < size.employees; ++i) {
        for (int day = 0; day < days; ++day)
            roster.Run(NipOf(i), StoredDay(first + std::chrono::days{day}).toStdString(),
                       codes[(i + day / 7) % 5]);
    }
}

void FillCompany(const QString& path, const CompanySize& size) {
    std::fprintf(stderr, "making a database of %d employees, %d sheets and %d months of roster ...\n",
                 size.employees, size.sheets, size.rosterMonths);
    PlainDatabase database(path);
    database.Execute("PRAGMA synchronous=OFF; PRAGMA journal_mode=OFF; PRAGMA cache_size=-1000000; BEGIN");
    AddEmployees(database, size.employees);
    AddSheets(database, size);
    AddRoster(database, size);
    database.Execute("COMMIT");
}

/// Takes back what a benchmark wrote in an earlier run.
void EmptyUnusedDay(PlainDatabase& database) {
    const std::string onThatDay = " WHERE TCID>='" + SheetIdentifierOf(UnusedDay).toStdString() + "';";
    database.Execute("DELETE FROM TimeCardHeader" + onThatDay + "DELETE FROM TimeCardDetail" + onThatDay);
}

/// Says whether the database holds this many rows, in tables and indexes like those of the new one.
bool Fits(PlainDatabase& database, const CompanySize& size, const QString& newDatabase) {
    database.Execute("ATTACH '" + newDatabase.toStdString() + "' AS new");
    const auto schemaOf = [](const std::string& name) {
        return "(SELECT group_concat(sql) FROM (SELECT sql FROM " + name + ".sqlite_schema ORDER BY name))";
    };
    const std::string cards = std::to_string(size.employees * size.sheets);
    return database.ReadAll("SELECT 1 WHERE " + schemaOf("main") + "=" + schemaOf("new")
                            + " AND (SELECT count(*) FROM Employee)=" + std::to_string(size.employees)
                            + " AND (SELECT count(*) FROM TimeCardHeader)=" + cards
                            + " AND (SELECT count(*) FROM TimeCardDetail)=" + cards
                            + " AND (SELECT count(*) FROM ShiftEmployee)="
                            + std::to_string(size.rosterMonths > 0 ? size.employees * RosterDays(size) : 0))
           == 1;
}

bool KeptOneFits(const QString& path, const CompanySize& size, const QString& newDatabase) {
    if (!QFile::exists(path))
        return false;
    PlainDatabase database(path);
    EmptyUnusedDay(database);
    return Fits(database, size, newDatabase);
}

} // namespace

std::string NipOf(int employee) {
    return std::to_string(10'000 + employee);
}

QString CompanyFolder(const CompanySize& size) {
    const QDir folder(
        u"%1/%2x%3"_s.arg(QStringLiteral(BENCH_DATA_FOLDER)).arg(size.employees).arg(size.sheets)
        + (size.rosterMonths > 0 ? u"x%1"_s.arg(size.rosterMonths) : QString()));
    folder.mkpath(u"."_s);
    const QString path = folder.filePath(u"DATA.mdb"_s);
    const QString newDatabase = folder.filePath(u"new.mdb"_s);
    QFile::remove(newDatabase);
    CreateDatabase(newDatabase);
    if (KeptOneFits(path, size, newDatabase)) {
        QFile::remove(newDatabase);
        return folder.path();
    }
    // It gets its name only once it is complete: a run that is broken off leaves nothing that seems to fit.
    FillCompany(newDatabase, size);
    QFile::remove(path);
    if (!QFile::rename(newDatabase, path))
        throw std::runtime_error("cannot make " + path.toStdString());
    return folder.path();
}

QString CompanyFile(const CompanySize& size) {
    return CompanyFolder(size) + u"/DATA.mdb"_s;
}

int ReadSheetPlainly(PlainDatabase& database, const std::string& sheet) {
    database.ReadFirst("select status from timecardmaster where tcid='" + sheet + "'");
    database.ReadFirst("select Tanggal from TimeCardDetail where substr(TCID,1,9)='" + sheet + "'");
    return database.ReadAll(
        "select d.TCID, h.Status, d.TimeIN, d.TimeOUT, d.TimeINOT, d.TimeOutOT "
        "from TimeCardDetail d left join TimeCardHeader h on h.TCID=d.TCID where d.TCID between '"
        + sheet + "' and '" + sheet + "\U0010FFFF' order by d.TCID, d.Tanggal");
}
