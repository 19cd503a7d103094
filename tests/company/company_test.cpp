#include "company/amount_text.h"
#include "company/code_table.h"
#include "company/employee_checks.h"
#include "company/new_company.h"
#include "company/users.h"
#include "company/usual_codes.h"
#include "core/passwords.h"
#include "core/supervisor_check.h"

#include "support/failures.h"
#include "support/test_company.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

/// What the user is told of a failure; "" when the action goes through.
template<class Action>
QString Told(Action&& action) {
    try {
        action();
    } catch (const ProgramError& error) {
        return UserText(error);
    }
    return {};
}

Employee Numbered(const QString& nip, const QString& dept = {}) {
    Employee employee;
    employee.nip = nip;
    employee.dept = dept;
    return employee;
}

/// Three employees, of whom one has a card, two departments and a division.
class Company : public CompanyTest {
protected:
    Company() {
        Run(u"INSERT INTO Departments (DeptCode, DeptName) VALUES ('PROD','Produksi'),('ADM','Kantor')"_s);
        Run(u"INSERT INTO Division VALUES ('A','Regu A')"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'IN','Masuk'),(2,'OUT','Keluar'),(3,'S','Sakit')"_s);
        Run(u"INSERT INTO AbsenTipe VALUES ('S','Sakit'),('C','Cuti')"_s);
        AddEmployee(u"0012"_s, u"Siti"_s, u"siti"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Budi"_s, u"budi"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"a14"_s, u"Agus"_s, u"agus"_s, u"GONE"_s);
        AddUser(u"pelon"_s, u"pelon"_s, u"SPV"_s);
        AddCard(u"T202611200012"_s, u"0012"_s, u"S"_s, u"2026-11-20"_s);
    }
    EmployeeStore Store() { return EmployeeStore(Db()); }
    Employee Stored(const QString& nip) { return Store().Read(nip).value(); }
    QStringList Employees() { return RowsOf(u"select * from Employee order by NIP"_s); }
};

} // namespace

TEST_F(Company, ChangesAreWrittenTogetherOrTheirFaultsNamedOneByOne) {
    const auto changed = [this](const QString& nip, auto change) {
        Employee after = Stored(nip);
        change(after);
        return EmployeeChange{Stored(nip), after};
    };
    const auto added = [](const QString& nip, const QString& dept = {}) {
        return EmployeeChange{std::nullopt, Numbered(nip, dept)};
    };
    EmployeeChange stale = changed(u"0013"_s, [](Employee& e) { e.nama = u"Budi S"_s; });
    stale.before->nama = u"Budiman"_s;
    using enum EmployeeProblem;
    const std::pair<EmployeeChange, std::optional<EmployeeProblem>> cases[] = {
        {added(u"0015"_s, u"ADM"_s), std::nullopt},
        {added(u" "_s), NoNumber},
        {added(u"00'1"_s), BadNumber},
        {added(u"-1"_s), BadNumber},
        {added(u"A14"_s), NumberTaken},
        {added(u"0015"_s), NumberTaken}, // by the first of these
        {added(u"0016"_s, u"QC"_s), UnknownDept},
        {changed(u"a14"_s, [](Employee& e) { e.nama = u"Agus S"_s; }),
         std::nullopt}, // its department stood so
        {changed(u"0013"_s, [](Employee& e) { e.divisi = u"Z"_s; }), UnknownDivisi},
        {changed(u"0013"_s,
                 [](Employee& e) { e.masuk = *MakeDay(2026, 2, 1), e.keluar = *MakeDay(2026, 1, 1); }),
         LeftBeforeComing},
        {stale, ChangedElsewhere},
        {{Numbered(u"99"_s), Numbered(u"99"_s)}, GoneElsewhere},
        {changed(u"0012"_s, [](Employee& e) { e.nip = u"0099"_s; }), HasCards},
        {{Stored(u"0012"_s), std::nullopt}, HasCards},
    };
    std::vector<EmployeeChange> changes;
    std::vector<std::pair<size_t, EmployeeProblem>> expected;
    for (const auto& [change, problem] : cases) {
        if (problem)
            expected.emplace_back(changes.size(), *problem);
        changes.push_back(change);
    }
    const QStringList before = Employees();
    std::vector<std::pair<size_t, EmployeeProblem>> found;
    for (const EmployeeFinding& finding : Store().Save(changes)) {
        found.emplace_back(finding.change, finding.problem);
        EXPECT_FALSE(FindingText(finding).isEmpty());
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(Employees(), before);

    Employee whole{u"0015"_s, u"Jum'at"_s,         u"ADM"_s,
                   u"A"_s,    u"photos/x.jpg"_s,   {u"HRN"_s, 150000.5, 1.5, {}},
                   3.0,       MakeDay(2026, 1, 5), MakeDay(2026, 12, 31),
                   u"77"_s};
    EXPECT_TRUE(Store().Save({{std::nullopt, whole}, changes[7]}).empty());
    EXPECT_EQ(Stored(u"0015"_s), whole);
    EXPECT_EQ(Stored(u"a14"_s).nama, u"Agus S"_s);
}

TEST_F(Company, ANewNumberTakesItsRowsAlongAndARemovedOneToo) {
    Run(u"INSERT INTO ShiftEmployee VALUES ('0013','2026-11-20','P')"_s);
    Run(u"INSERT INTO User_Job VALUES ('0013','SPV'),('a14','ADM')"_s);
    Store().SavePay({{u"0013"_s, *MakeDay(2026, 12, 1), {u"HRN"_s, 9, 9, 9}}});
    Employee budi = Stored(u"0013"_s);
    budi.nip = u"0113"_s;
    ASSERT_TRUE(Store().Save({{Stored(u"0013"_s), budi}, {Stored(u"a14"_s), std::nullopt}}).empty());
    EXPECT_EQ(RowsOf(u"select NIP from ShiftEmployee"_s), QStringList{u"0113"_s});
    EXPECT_EQ(RowsOf(u"select NIP from EmployeePay"_s), QStringList{u"0113"_s});
    EXPECT_EQ(RowsOf(u"select UserID from [User] order by UserID"_s),
              (QStringList{u"0012"_s, u"0113"_s, u"pelon"_s}));
    ASSERT_TRUE(Store().Save({{budi, std::nullopt}}).empty());
    EXPECT_EQ(RowsOf(u"select UserID from User_Job order by UserID"_s), (QStringList{u"0113"_s, u"pelon"_s}))
        << "a supervisor stays one";
    EXPECT_EQ(RowsOf(u"select count(1) from EmployeePay"_s), QStringList{u"0"_s});
}

TEST_F(Company, PayCountsFromItsDay) {
    const auto row = [](int month, double gp) {
        return PayRow{u"0013"_s, *MakeDay(2026, month, 1), {u"BLN"_s, gp, {}, {}}};
    };
    Store().SavePay({row(12, 200), row(6, 150)});
    Store().SavePay({row(12, 250)});
    const std::pair<Day, std::optional<double>> days[] = {{*MakeDay(2026, 5, 31), std::nullopt},
                                                          {*MakeDay(2026, 6, 1), 150},
                                                          {*MakeDay(2026, 11, 30), 150},
                                                          {*MakeDay(2027, 1, 1), 250}};
    for (const auto& [day, gp] : days) {
        const auto inForce = Store().PayInForce(day);
        EXPECT_EQ(inForce.contains(u"0013"_s) ? inForce[u"0013"_s].pay.gp : std::nullopt, gp);
    }
}

TEST_F(Company, CodesAreRenamedWithWhatNamesThemIfWanted) {
    const CodeTable departments(Db(), CodeKind::Department);
    const CodeTable statuses(Db(), CodeKind::Status);
    EXPECT_EQ(departments.UseOf(u"PROD"_s), 2);
    EXPECT_EQ(statuses.UseOf(u"S"_s), 1);
    departments.Rename(u"PROD"_s, u"PRD"_s, CarryAlong::Yes);
    departments.Rename(u"ADM"_s, u"adm"_s, CarryAlong::No);
    statuses.Rename(u"S"_s, u"SKT"_s, CarryAlong::Yes);
    statuses.Add({{u"TL"_s, u"Tugas luar"_s}, {u"KI"_s, u"Istirahat"_s}});
    EXPECT_EQ(RowsOf(u"select Dept from Employee order by NIP"_s),
              (QStringList{u"PRD"_s, u"PRD"_s, u"GONE"_s}));
    EXPECT_EQ(RowsOf(u"select Status from TimeCardHeader"_s), QStringList{u"SKT"_s});
    EXPECT_EQ(RowsOf(u"select Kode from AbsenTipe order by Kode"_s), (QStringList{u"C"_s, u"SKT"_s}));
    EXPECT_EQ(RowsOf(u"select ID, Status from [Employee Status] order by ID"_s),
              (QStringList{u"1|IN"_s, u"2|OUT"_s, u"3|SKT"_s, u"4|TL"_s, u"5|KI"_s}));

    const QStringList before =
        RowsOf(u"select * from Departments"_s) + RowsOf(u"select * from [Employee Status]"_s);
    const std::function<void()> refused[] = {
        [&] {
            departments.Add({{u"QC"_s, {}}, {u"prd"_s, {}}});
        },
        [&] { departments.Rename(u"PRD"_s, u"ADM"_s, CarryAlong::No); },
        [&] { departments.Rename(u"PRD"_s, u" "_s, CarryAlong::No); },
        [&] { departments.Rename(u"PROD"_s, u"X"_s, CarryAlong::No); }, // another desk was faster
        [&] {
            departments.ChangeName({u"PRD"_s, u"Pabrik"_s}, u"X"_s);
        },
        [&] { departments.Remove(u"PROD"_s); },
        [&] { statuses.Rename(u"IN"_s, u"MSK"_s, CarryAlong::Yes); },
        [&] { statuses.Remove(u"OUT"_s); },
    };
    for (const auto& attempt : refused)
        EXPECT_FALSE(Told(attempt).isEmpty()) << &attempt - refused;
    EXPECT_EQ(RowsOf(u"select * from Departments"_s) + RowsOf(u"select * from [Employee Status]"_s), before);
}

TEST_F(Company, SomebodyStaysSupervisor) {
    const Users users(Db());
    const QString last = u"pelon adalah supervisor terakhir."_s;
    EXPECT_TRUE(Told([&] { users.SetSupervisor(u"pelon"_s, false); }).startsWith(last));
    EXPECT_TRUE(Told([&] { users.Remove(u"pelon"_s); }).startsWith(last));
    EXPECT_FALSE(Told([&] { users.Add(u"PELON"_s); }).isEmpty());
    EXPECT_FALSE(Told([&] { users.Add(u"a~b"_s); }).isEmpty());
    users.Add(u"bos"_s);
    users.SetSupervisor(u"bos"_s, true);
    users.Write(*users.Hash({{u"bos"_s, u"Kunci"_s}}));
    users.Remove(u"pelon"_s);
    EXPECT_EQ(RowsOf(u"select * from User_Job"_s), QStringList{u"bos|SPV"_s});
    EXPECT_EQ(users.HashPlainTexts(), 3);
    EXPECT_EQ(users.HashPlainTexts(), 0);
    EXPECT_TRUE(modGeneral::CheckUserPassword(Db(), u"0012"_s, u"siti"_s));
    EXPECT_FALSE(modGeneral::CheckUserPassword(Db(), u"bos"_s, u"kunci"_s));
}

TEST(NewCompany, IsMadeWholeOrNotAtAll) {
    TestCompany company(TestCompany::Database::Closed);
    QFile::remove(company.DatabaseFile());
    NewCompany fresh{{.name = u"PT Maju"_s, .saveWithoutPassword = false, .workDays = 5},
                     u"bos"_s,
                     u"Kunci"_s,
                     UsualCodes::Shifts(),
                     UsualCodes::Statuses(),
                     UsualCodes::AbsenceTypes(),
                     ReadCodeLines(u"PROD Produksi\n\n ADM;Kantor \nQC"_s),
                     ReadCodeLines(u"A\tRegu A"_s)};
    NewCompany nobody = fresh;
    nobody.supervisor.clear();
    EXPECT_FALSE(Told([&] { FoundCompany(company.DatabaseFile(), nobody); }).isEmpty());
    EXPECT_FALSE(QFile::exists(company.DatabaseFile()));

    FoundCompany(company.DatabaseFile(), fresh);
    const auto db = company.OtherDesk();
    EXPECT_EQ(::RowsOf(*db, u"select DeptCode, DeptName from Departments order by DeptCode"_s),
              (QStringList{u"ADM|Kantor"_s, u"PROD|Produksi"_s, u"QC|QC"_s}));
    EXPECT_EQ(::RowsOf(*db, u"select TimeIn, TimeOut from Shift where Code='MALAM'"_s),
              QStringList{u"1899-12-30 23:00:00|1899-12-31 07:00:00"_s});
    EXPECT_EQ(ReadCompanySettings(*db), fresh.settings);
    EXPECT_TRUE(modGeneral::AnySupervisor(*db));
    EXPECT_FALSE(
        QFile::permissions(company.DatabaseFile()).testAnyFlags({QFile::ReadOther | QFile::WriteOther}));
    // A second one adds what is missing and changes nothing that stands there.
    db->Execute(u"update Departments set DeptName='Pabrik' where DeptCode='PROD'"_s);
    FoundCompany(company.DatabaseFile(), fresh);
    EXPECT_EQ(::RowsOf(*db, u"select DeptName from Departments where DeptCode='PROD'"_s),
              QStringList{u"Pabrik"_s});

    for (const QString& lines : {u"PROD\nprod"_s, u"'X"_s, u"; Kantor"_s})
        EXPECT_TRUE(Told([&] { ReadCodeLines(lines); }).startsWith(u"Baris "_s)) << lines.toStdString();
}

TEST(AmountText, IsReadAsPeopleTypeIt) {
    const std::pair<QString, std::optional<double>> cases[] = {
        {u"150000"_s, 150000},    {u"150.000"_s, 150000},    {u" 150,000 "_s, 150000},
        {u"1.250,50"_s, 1250.5},  {u"1,250.50"_s, 1250.5},   {u"1.500"_s, 1500},
        {u"1.5"_s, 1.5},          {u"0,75"_s, 0.75},         {u"1.000.000"_s, 1000000},
        {u"12a"_s, std::nullopt}, {u"-5"_s, std::nullopt},   {u"1.00.000"_s, std::nullopt},
        {u""_s, std::nullopt},    {u"1,5.0"_s, std::nullopt}};
    for (const auto& [typed, amount] : cases) {
        EXPECT_EQ(ReadAmount(typed), amount) << typed.toStdString();
        EXPECT_EQ(ReadAmount(ShownAmount(amount)), amount) << typed.toStdString();
    }
}
