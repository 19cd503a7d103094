#include "reports/report_cells.h"
#include "reports/report_file.h"
#include "reports/report_list.h"

#include "support/failures.h"
#include "support/test_company.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

bool GoOn(qsizetype, qsizetype) {
    return true;
}

Day November(unsigned day) {
    return Day{std::chrono::year{2026} / std::chrono::November / std::chrono::day{day}};
}

/// Four employees; the first has two cards on the 22nd, the last one only a card whose number differs in
/// letter case.
class Office : public TestCompany {
public:
    Office() {
        Db().Execute(u"INSERT INTO Employee (NIP, Nama, Dept, Divisi) VALUES (?,?,'PROD','A'),(?,?,'PROD',"
                     "'B'),(?,?,'ADM','A'),(?,?,'ADM','B')"_s,
                     {u"0012"_s, u"Siti Aminah"_s, u"0013"_s, u"Budi 'Boy' Santoso Wijaya"_s, u"0014"_s,
                      u"工場長 Agu\u0301s"_s, u"e15000001"_s, u"Dewi"_s});
        Db().Execute(u"INSERT INTO [Employee Status] VALUES (1,'OUT','Pulang'),(2,'TL','Tugas Luar'),"
                     "(3,'A','Tidak hadir'),(4,'I','Izin'),(5,'SAKITPARAH',NULL)"_s);
        AddCard(u"T202611220012"_s, u"0012"_s, 22, u"I"_s, {}, {},
                u"Izin urusan keluarga di luar kota sampai sore"_s);
        AddCard(u"T20261122-E0012"_s, u"0012"_s, 22, u"SAKITPARAH"_s, u"18:00:30"_s, u"19:30:00"_s, {});
        AddCard(u"T202611210012"_s, u"0012"_s, 21, u"OUT"_s, u"07:45:12"_s, u"17:03:59"_s, u"Tepat waktu"_s);
        AddCard(u"T202611220013"_s, u"0013"_s, 22, u"OUTLONGER"_s, u"08:00:00"_s, {}, {});
        Db().Execute(u"UPDATE TimeCardDetail SET TimeOUT='1899-12-30 00:00:00' WHERE TCID='T202611220013'"_s);
        AddCard(u"T202611230014"_s, u"0014"_s, 23, u"TL"_s, u"07:30:00"_s, {},
                u"ke 工場 e\u0301\r\nbaris\tdua"_s);
        AddCard(u"T20261122E15000001"_s, u"E15000001"_s, 22, u"I"_s, u"07:00:00"_s, {}, u"orang lain"_s);
    }

    void AddCard(const QString& tcid, const QString& nip, unsigned day, const QString& status,
                 const QString& timeIn, const QString& timeOut, const QString& remark) {
        const QString date = StoredDay(November(day));
        const auto moment = [&date](const QString& time) {
            return time.isEmpty() ? QString() : date + u' ' + time;
        };
        TestCompany::AddCard(tcid, nip, status, date, moment(timeIn), moment(timeOut));
        Db().Execute(u"UPDATE TimeCardHeader SET Keterangan=? WHERE TCID=?"_s, {remark, tcid});
    }

    /// The lines of a report, and how many employees it says that it lists.
    struct Printed {
        QStringList lines;
        qsizetype employees = 0;
    };
    Printed Print(QStringView name, const ReportCriteria& criteria) {
        Printed printed;
        const auto keep = [&printed](const QString& line) { printed.lines << line; };
        printed.employees = FindReport(name)->print(Db(), criteria, keep, GoOn).value_or(0);
        return printed;
    }
};

ReportCriteria Between(unsigned first, unsigned last) {
    return {.date1 = November(first), .date2 = November(last), .sort = u"Nama"_s};
}

ReportCriteria Of(const QString& department, const QString& division) {
    ReportCriteria criteria = Between(22, 22);
    criteria.department = {department, u"Bagian "_s + department};
    criteria.division = {division, u"Divisi "_s + division};
    return criteria;
}

constexpr QStringView AllReports[] = {u"AbsensiHarian", u"AbsensiDetailKaryawan", u"AbsensiDivisi",
                                      u"AbsensiSumKary"};

} // namespace

TEST(Reports, AreExactToTheCharacter) {
    Office office;
    ReportCriteria one = Between(21, 23);
    one.employee = u"0012"_s;
    ReportCriteria adm = Between(22, 23);
    adm.department = {u"ADM"_s, u"Administrasi"_s};
    ReportCriteria prod = Between(22, 22);
    prod.department = {u"PROD"_s, u"Produksi Utama"_s};
    const std::tuple<QStringView, ReportCriteria, QString> cases[] = {
        {u"AbsensiHarian", Between(22, 22), u"daily"_s},
        {u"AbsensiDetailKaryawan", one, u"employee_detail"_s},
        {u"AbsensiDivisi", adm, u"department"_s},
        {u"AbsensiSumKary", prod, u"summary"_s},
    };
    for (const auto& [name, criteria, expected] : cases) {
        EXPECT_EQ((office.Print(name, criteria).lines << QString()).join(u"\r\n"_s),
                  QString::fromUtf8(BytesOf(QStringLiteral(EXPECTED_REPORTS) + u'/' + expected + u".txt"_s)));
    }
}

TEST(Reports, ARunningNumberTooLongForItsCellIsWrittenInFull) {
    QString cells;
    AppendEmployeeCells(cells, 12345, u"0012"_s, u"Siti"_s);
    EXPECT_EQ(cells, u"|12345|0012    |Siti                |"_s);
}

TEST(Reports, ListTheEmployeesOfTheirCriteriaInTheirOrder) {
    struct Case {
        QString report;
        ReportCriteria criteria;
        QStringList employees;
        QStringList heading = {};
    };
    const auto detailOf = [](const QString& nip) {
        ReportCriteria criteria = Between(22, 22);
        criteria.employee = nip;
        return criteria;
    };
    const auto sortedBy = [](const QString& sort) {
        ReportCriteria criteria = Of(u"ADM"_s, u"A"_s);
        criteria.sort = sort;
        return criteria;
    };
    const QString all = u"<ALL>"_s;
    const QStringList everybody{u"0012"_s, u"0013"_s, u"0014"_s, u"e1500000"_s};
    const Case cases[] = {
        {u"AbsensiHarian"_s, sortedBy(u"NIP"_s), everybody},
        {u"AbsensiHarian"_s, sortedBy(u"Dept,Nama"_s), {u"e1500000"_s, u"0014"_s, u"0013"_s, u"0012"_s}},
        {u"AbsensiHarian"_s, sortedBy(u"Divisi,Nama"_s), {u"0012"_s, u"0014"_s, u"0013"_s, u"e1500000"_s}},
        {u"AbsensiDetailKaryawan"_s, detailOf(all), everybody},
        {u"AbsensiDetailKaryawan"_s, detailOf(u"E15000001"_s), {}},
        {u"AbsensiDivisi"_s, Of(all, all), everybody},
        {u"AbsensiDivisi"_s, Of(all, u"B"_s), {u"0013"_s, u"e1500000"_s}},
        {u"AbsensiDivisi"_s, Of(u"ADM"_s, u"A"_s), {u"0014"_s}},
        {u"AbsensiDivisi"_s, Of(u"XXX"_s, all), {}},
        {u"AbsensiSumKary"_s, Of(all, all), everybody},
        {u"AbsensiSumKary"_s, Of(all, u"B"_s), {u"0013"_s, u"e1500000"_s}, {u"DIVISI: DIVISI B"_s}},
        {u"AbsensiSumKary"_s,
         Of(u"PROD"_s, u"A"_s),
         {u"0012"_s},
         {u"DEPT  : BAGIAN PROD"_s, u"DIVISI: DIVISI A"_s}},
    };
    Office office;
    static const QRegularExpression number(u"^(?:NIP *: |\\|[0-9]+ *\\|)(\\S{1,8})"_s);
    for (const Case& c : cases) {
        QStringList employees;
        QStringList heading;
        const Office::Printed report = office.Print(c.report, c.criteria);
        for (const QString& line : report.lines) {
            if (const auto match = number.match(line); match.hasMatch())
                employees << match.captured(1);
            else if (line.startsWith(u"DEPT  : "_s) || line.startsWith(u"DIVISI: "_s))
                heading << line;
        }
        EXPECT_EQ(employees, c.employees) << c.report.toStdString();
        EXPECT_EQ(heading, c.heading) << c.report.toStdString();
        EXPECT_EQ(report.employees, c.employees.size()) << c.report.toStdString();
    }
}

TEST(Reports, APeriodThatEndsBeforeItBeginsHasNoDays) {
    Office office;
    ReportCriteria one = Between(23, 21);
    one.employee = u"0012"_s;
    const QStringList lines = office.Print(u"AbsensiDetailKaryawan", one).lines;
    EXPECT_EQ(lines.value(1), u"TANGGAL: 23-Nov-2026 s/d 21-Nov-2026"_s);
    EXPECT_EQ(lines.mid(6), (QStringList{lines[6], lines[7], lines[6], lines[6]})) << "a table without rows";
    one.department = {u"PROD"_s, u"Produksi"_s};
    EXPECT_TRUE(
        office.Print(u"AbsensiSumKary", one)
            .lines.contains(u"|1   |0012    |Siti Aminah         |0     |0     |-1    |0     |0     |"_s));
}

TEST(Reports, CountEveryCardOfAStatusOnceAndTheOtherDaysAsAbsent) {
    Office office;
    office.Db().Execute(u"DELETE FROM [Employee Status] WHERE Status='A'"_s);
    EXPECT_TRUE(office.Print(u"AbsensiSumKary", Between(1, 30))
                    .lines.contains(u"|1   |0012    |Siti Aminah         |1     |0     |1     |1     |"_s))
        << "no status stands for absence";
    office.Db().Execute(u"INSERT INTO [Employee Status] VALUES (0,'A','')"_s);
    office.AddCard(u"T202611240012"_s, u"0012"_s, 24, u"I"_s, {}, {}, {});
    office.AddCard(u"T202611250012"_s, u"0012"_s, 25, u"A"_s, {}, {}, {});
    office.AddCard(u"T202612010012"_s, u"0012"_s, 30, {}, {}, {}, {});
    office.AddCard(u"T202612310012"_s, u"0012"_s, 61, u"I"_s, {}, {}, {});
    EXPECT_TRUE(
        office.Print(u"AbsensiSumKary", Between(1, 61))
            .lines.contains(u"|1   |0012    |Siti Aminah         |56    |1     |0     |3     |1     |"_s));
}

TEST(Reports, StopWhereverTheUserAsksThemTo) {
    Office office;
    for (const QStringView name : AllReports) {
        int mayAsk = 0;
        ListedCount listed;
        for (; mayAsk < 20 && !listed; ++mayAsk) {
            int asked = 0;
            listed = FindReport(name)->print(
                office.Db(), Between(22, 22), [](const QString&) {},
                [&](qsizetype, qsizetype) { return ++asked <= mayAsk; });
        }
        EXPECT_EQ(mayAsk - 1, 5) << name.toString().toStdString() << ": once reading, then for each employee";
        EXPECT_EQ(listed, 4);
    }
}

TEST(Reports, RefuseACriterionThatWouldEndItsText) {
    Office office;
    ReportCriteria criteria = Between(22, 22);
    criteria.employee = criteria.division.code = u"x' OR 'a'='a"_s;
    for (const QStringView name : {AllReports[1], AllReports[2], AllReports[3]})
        EXPECT_NE(FailureOf([&] { office.Print(name, criteria); }), QString());
}
