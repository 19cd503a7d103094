#include "company/employee_import.h"
#include "core/passwords.h"
#include "database/database_error.h"
#include "exchange/table_export.h"
#include "support/test_company.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// A company of two departments, a division and two employees, one of whom is paid otherwise from
/// mid-December on.
class EmployeeImport : public CompanyTest {
protected:
    EmployeeImport() {
        Run(u"PRAGMA synchronous=OFF"_s);
        Run(u"INSERT INTO Departments (DeptCode,DeptName) VALUES ('PRD','Produksi'),('G','Gudang')"_s);
        Run(u"INSERT INTO Division VALUES ('A','Divisi A')"_s);
        Run(u"INSERT INTO Employee (NIP,Nama,Dept,EmpType,GP,RateOT,Masuk) VALUES "
            "('0011','Budi','PRD','HRN',150000,10000,'2020-01-05'),"
            "('0012',' Ayu ','LAMA','hrn',90000.125,1,NULL)"_s);
        Run(u"INSERT INTO EmployeePay (NIP,Berlaku,EmpType,GP) VALUES ('0012','2026-12-15','HRN',95000)"_s);
    }

    EmployeePlan Plan(const QByteArray& text) {
        QFile file(folder.filePath(u"in.csv"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        const EmployeeFile read = ReadEmployeeFile(file.fileName());
        return PlanImport(Db(), read, MatchHeadings(read.headings), options, today);
    }
    QStringList Rows() {
        return RowsOf(
            u"select NIP, Nama, Dept, EmpType, GP, RateOT, Masuk, IdMesin from Employee order by NIP"_s);
    }
    QStringList PayRows() {
        return RowsOf(u"select NIP, Berlaku, EmpType, GP, RateOT from EmployeePay order by NIP, Berlaku"_s);
    }

    Day today = DayOf(Moment(u"2026-11-22"));
    ImportOptions options{.payFrom = DayOf(Moment(u"2026-12-01"))};
};

} // namespace

TEST_F(EmployeeImport, EveryWrongLineIsNamed) {
    const std::tuple<QByteArray, QStringList> cases[] = {
        {"Nama,Dept\nBudi,PRD\n", {u"line 1: no column is NIP"_s}},
        {"NIP,NIK\n1,1\n", {u"line 1: two columns are NIP"_s}},
        {"NIP;GP;RateOT;EmpType\n0013;12a;1.5;HRM\n0014;-5;;BLN\n0015;150000;;hrn\n",
         {u"line 2: GP \"12a\" is not a number"_s, u"line 2: EmpType \"HRM\" is neither HRN nor BLN"_s,
          u"line 3: GP \"-5\" is below zero"_s}},
        {"NIP,Nama\n,Budi\n0'1,X\n0013,A\n0013,B\nx1,C\nX1,D\n12,E\n0014,F,G\n",
         {u"line 2: NIP is empty"_s, u"line 3: NIP \"0'1\" holds a sign that a number must not hold"_s,
          u"line 5: NIP \"0013\" stands on line 4 already"_s,
          u"line 7: NIP \"X1\" stands on line 6 already"_s,
          u"line 8: NIP \"12\" differs from the employee \"0012\" in zeros in front only"_s,
          u"line 9: more cells than headings, from \"G\" on"_s}},
        {"NIP,GP,RateOT\n0013,150.000,12.5\n",
         {u"line 2: GP \"150.000\" can be read in two ways: say how the file writes numbers"_s}},
        {"NIP,Masuk,Keluar\n0013,1/2/2026,\n0014,2026-02-30,\n0015,2026-02-02,2026-02-01\n",
         {u"line 2: Masuk \"1/2/2026\" can be read in two ways: say how the file writes dates"_s,
          u"line 3: Masuk \"2026-02-30\" is not a date"_s,
          u"line 4: Keluar \"2026-02-01\" is before Masuk"_s}},
        {"NIP,Dept,Divisi\n0013,XYZ,prd\n",
         {u"line 2: unknown department \"XYZ\""_s, u"line 2: unknown division \"prd\""_s}},
        {"NIP,GP\n0012,99000\n",
         {u"line 2: pay of \"0012\": other pay is set from 2026-12-15 on already; the change must count from "
          u"that "
          "day or later"_s}},
    };
    for (const auto& [text, findings] : cases) {
        QStringList lines;
        const EmployeePlan plan = Plan(text);
        for (const ImportFinding& finding : plan.findings)
            lines << EnglishText(finding);
        EXPECT_EQ(lines, findings) << text.toStdString();
        EXPECT_THROW(RunImport(Db(), plan), std::logic_error);
    }
}

TEST_F(EmployeeImport, ThoseWhoAreThereAreChangedInTheColumnsOfTheFileOnly) {
    options.makeMissing = true;
    const EmployeePlan plan = Plan("NIK;Nama;Gaji Pokok;Dept;Agama;Tgl. Masuk;No. Mesin;Password\n"
                                   "0011;Budi S.;Rp 165.000,00;;x;;7;\n"
                                   "0012; ;;gudang;x;;;\n"
                                   "0013;Citra;95.000,50;QC;x;31/01/2026;;rahasia\n");
    EXPECT_EQ(plan.numbers, NumberForm::CommaDecimals);
    EXPECT_EQ(plan.newDepartments, QStringList{u"QC"_s});
    EXPECT_EQ(plan.added, 1);
    EXPECT_EQ(plan.changed, 2);
    ASSERT_TRUE(RunImport(Db(), plan));
    EXPECT_EQ(Rows(), (QStringList{u"0011|Budi S.|PRD|HRN|150000|10000|2020-01-05|7"_s,
                                   u"0012| Ayu |G|hrn|90000.125|1|-|-"_s,
                                   u"0013|Citra|QC|-|95000.5|-|2026-01-31|-"_s}));
    // A raise leaves what was paid before its day.
    EXPECT_EQ(PayRows(),
              (QStringList{u"0011|2026-12-01|HRN|165000|10000"_s, u"0012|2026-12-15|HRN|95000|-"_s}));
    const QString stored = RowsOf(u"select [Password] from [User] where UserID='0013'"_s).value(0);
    EXPECT_TRUE(Passwords::MatchesAnyCase(u"RAHASIA"_s, stored));
    EXPECT_EQ(Plan("NIP,Nama,Password\n0011,Budi S.,\n").unchanged, 1);
}

TEST_F(EmployeeImport, AnEmptyCellEmptiesOnlyWhenAsked) {
    const QByteArray text = "NIP,Nama,Masuk,RateOT,EmpType\n0011,,,,\n";
    EXPECT_EQ(Plan(text).unchanged, 1);
    options.emptyClears = true;
    ASSERT_TRUE(RunImport(Db(), Plan(text)));
    EXPECT_EQ(Rows()[0], u"0011|-|PRD|HRN|150000|10000|-|-"_s);
    EXPECT_EQ(PayRows()[0], u"0011|2026-12-01|-|150000|-"_s);
}

TEST_F(EmployeeImport, WhatIsExportedComesInAgainUnchanged) {
    Run(u"INSERT INTO Employee (NIP,Nama,PathImage,sc,IdMesin) VALUES "
        "('=1','+62','foto\\a,b.jpg',-2,'''007')"_s);
    today = DayOf(Moment(u"2026-12-20"));
    const QString path = folder.filePath(u"out.csv"_s);
    ExportDatabaseTable(Db(), u"Employee"_s, path, today);
    const EmployeePlan plan = Plan(BytesOf(path));
    EXPECT_EQ(plan.unchanged, 3);
    EXPECT_TRUE(plan.findings.empty() && plan.changes.empty() && plan.pay.empty());
}

TEST_F(EmployeeImport, AnotherDesksChangeIsNotOverwritten) {
    options.makeMissing = true;
    const EmployeePlan plan = Plan("NIP,Nama,Dept\n0011,Budi S.,QC\n0013,Citra,QC\n");
    OtherDesk()->Execute(u"UPDATE Employee SET Nama='Budiman' WHERE NIP='0011'"_s);
    EXPECT_THROW(RunImport(Db(), plan), ConflictError);
    EXPECT_EQ(RowsOf(u"select Nama from Employee order by NIP"_s), (QStringList{u"Budiman"_s, u" Ayu "_s}));
    EXPECT_EQ(RowsOf(u"select count(*) from Departments"_s), QStringList{u"2"_s});
}
