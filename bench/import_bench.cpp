#include "company/employee_import.h"
#include "database/database_file.h"
#include "exchange/database_import.h"
#include "support/bench_company.h"
#include "support/peak_memory.h"
#include "support/plain_sqlite.h"
#include "support/rounds.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int Employees = 5000;
constexpr int Cards = 1'500'000;
constexpr int FewCards = 150'000;

/// An old database of that many cards, as its reader tells it; the reader itself is not measured.
class OldDatabase : public TableSource {
public:
    explicit OldDatabase(int cards) : cards_(cards) {}

    std::vector<SourceTable> Tables() override {
        return {{u"TimeCardHeader"_s,
                 {u"TCID"_s, u"NIP"_s, u"Status"_s, u"Keterangan"_s, u"NormalHours"_s, u"OTHours"_s,
                  u"NormalAmount"_s, u"OTAmount"_s, u"TotalUangMakan"_s}},
                {u"TimeCardDetail"_s,
                 {u"TCID"_s, u"Tanggal"_s, u"TimeIN"_s, u"TimeOUT"_s, u"TimeINOT"_s, u"TimeOutOT"_s,
                  u"ShiftCode"_s, u"BeriUangMakan"_s}}};
    }

    bool ReadRows(const std::vector<SourceTable>& tables, const RowSink& sink) override {
        for (size_t table = 0; table < tables.size(); ++table) {
            for (int i = 0; i < cards_; ++i) {
                if (!sink(table, table == 0 ? Header(i) : Detail(i)))
                    return false;
            }
        }
        return true;
    }

    static QStringList Header(int card) {
        return {Tcid(card), Nip(card),    u"OUT"_s,       {},        u"9.15"_s,
                u"0.3"_s,   u"95000.5"_s, u"3000.1234"_s, u"12500"_s};
    }
    static QStringList Detail(int card) {
        const QString day = StoredDay(DayOfCard(card));
        return {Tcid(card),
                day + u" 00:00:00"_s,
                day + u" 07:46:07"_s,
                day + u" 18:19:40"_s,
                day + u" 17:00:00"_s,
                day + u" 18:19:40"_s,
                u"P"_s,
                u"1"_s};
    }

private:
    static Day DayOfCard(int card) { return LastSheetDay - std::chrono::days{300 - card / Employees}; }
    static QString Nip(int card) { return QString::fromStdString(NipOf(card % Employees)); }
    static QString Tcid(int card) { return u'T' + StoredDay(DayOfCard(card)).remove(u'-') + Nip(card); }

    int cards_;
};

void ImportCards(const QString& file, int cards) {
    OldDatabase source(cards);
    const DatabaseImport import = ImportDatabase(source, file, WhenMissing::LeaveEmpty);
    if (!import.Agrees() || import.tables[1].rowsWritten != cards)
        throw std::runtime_error("the cards did not come in");
}

/// The same rows, known beforehand, with the least work.
void InsertCardsPlainly(const QString& file, int cards) {
    CreateDatabase(file);
    PlainDatabase plain(file);
    plain.Execute("PRAGMA synchronous=FULL; BEGIN");
    PlainInsert header(plain, "INSERT INTO TimeCardHeader (TCID,NIP,Status,Keterangan,NormalHours,OTHours,"
                              "NormalAmount,OTAmount,TotalUangMakan) VALUES (?,?,?,?,?,?,?,?,?)");
    PlainInsert detail(plain, "INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,TimeINOT,TimeOutOT,"
                              "ShiftCode,BeriUangMakan) VALUES (?,?,?,?,?,?,?,?)");
    for (int i = 0; i < cards; ++i) {
        const QStringList row = OldDatabase::Header(i);
        const auto text = [&row](int column) { return row[column].toStdString(); };
        header.Run(text(0), text(1), text(2), text(3), text(4), text(5), text(6), text(7), text(8));
    }
    for (int i = 0; i < cards; ++i) {
        const QStringList row = OldDatabase::Detail(i);
        const auto text = [&row](int column) { return row[column].toStdString(); };
        detail.Run(text(0), text(1).substr(0, 10), text(2), text(3), text(4), text(5), text(6), 1);
    }
    plain.Execute("COMMIT");
}

void ImportOfCards(Rounds& rounds) {
    while (rounds.Next()) {
        const QTemporaryDir folder;
        rounds.Time("cards", [&] { ImportCards(folder.filePath(u"ours.mdb"_s), Cards); });
        QFile::remove(folder.filePath(u"ours.mdb"_s));
        rounds.Time("cards_plain", [&] { InsertCardsPlainly(folder.filePath(u"plain.mdb"_s), Cards); });
    }
    rounds.Compare("import-1500000-cards", "cards", "cards_plain", 3);
    const int peak = PeakMemoryOf({QString::number(Cards)});
    const int smallPeak = PeakMemoryOf({QString::number(FewCards)});
    rounds.Tell("cards_peak_kB", peak);
    rounds.Tell("few_cards_peak_kB", smallPeak);
    rounds.AddRatio("import-peak-memory-1500000-over-150000-cards", static_cast<double>(peak) / smallPeak,
                    1.2);
}

QByteArray EmployeeLine(int employee) {
    return QByteArray::fromStdString(NipOf(employee)) + ";Nama " + QByteArray::number(employee)
           + ";D1;V1;BLN;4.500.000,50;18.500;12.500;31/01/2020\r\n";
}

void ImportOfEmployees(Rounds& rounds) {
    const QTemporaryDir folder;
    QFile list(folder.filePath(u"list.csv"_s));
    if (!list.open(QIODevice::WriteOnly))
        throw std::runtime_error("no list was written");
    list.write("NIP;Nama;Dept;Divisi;EmpType;GP;RateOT;TMakan;Masuk\r\n");
    for (int i = 0; i < Employees; ++i)
        list.write(EmployeeLine(i));
    list.close();
    const QString file = folder.filePath(u"DATA.mdb"_s);
    CreateDatabase(file);
    const std::unique_ptr<Connection> connection = OpenDatabaseFile(file);
    PlainDatabase plain(file);
    plain.Execute("INSERT INTO Departments (DeptCode) VALUES ('D1'); INSERT INTO Division VALUES ('V1','')");
    while (rounds.Next()) {
        plain.Execute("DELETE FROM Employee");
        rounds.Time("employees", [&] {
            const EmployeeFile read = ReadEmployeeFile(list.fileName());
            const EmployeePlan plan = PlanImport(*connection, read, MatchHeadings(read.headings),
                                                 {.payFrom = LastSheetDay}, LastSheetDay);
            if (!RunImport(*connection, plan) || plan.added != Employees)
                throw std::runtime_error("the employees did not come in");
        });
        plain.Execute("DELETE FROM Employee");
        rounds.Time("employees_plain", [&] {
            plain.Execute("BEGIN IMMEDIATE");
            PlainInsert insert(plain,
                               "INSERT INTO Employee (NIP,Nama,Dept,Divisi,EmpType,GP,RateOT,TMakan,Masuk) "
                               "VALUES (?,?,?,?,?,?,?,?,?)");
            for (int i = 0; i < Employees; ++i)
                insert.Run(NipOf(i), "Nama " + std::to_string(i), std::string("D1"), std::string("V1"),
                           std::string("BLN"), std::string("4500000.5"), 18500, 12500,
                           std::string("2020-01-31"));
            plain.Execute("COMMIT");
        });
    }
    rounds.Compare("import-5000-employees", "employees", "employees_plain", 3);
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], MemoryOption) == 0)
        return TellPeakMemory([&] {
            const QTemporaryDir folder;
            ImportCards(folder.filePath(u"ours.mdb"_s), QString::fromLocal8Bit(argv[2]).toInt());
        });
    BenchProgram program(argc, argv);
    program.Add("import_employees", Measured::ProcessorTime, 20, ImportOfEmployees);
    program.Add("import_cards", Measured::ProcessorTime, 1, ImportOfCards);
    return program.Run();
}
