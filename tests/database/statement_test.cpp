#include "database/statement.h"

#include "support/failures.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

/// Statements are judged by the rows that the engine finds with them.
class Statements : public CompanyTest {
protected:
    Statements() {
        for (const auto& statement :
             {u"INSERT INTO Employee (NIP,Nama,Dept) VALUES ('0012','Budi','PROD'),('0013','Siti','GA')"_s,
              u"INSERT INTO TimeCardHeader (TCID,NIP,Status,NormalHours,Keterangan) VALUES "
              "('T202611220012','0012','IN',8.3,'a -- b; [c] /* #d# \"e\" `f`')"_s,
              u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES "
              "('T202512010012','2025-12-01','2025-12-01 07:00:00'),"
              "('T202611220012','2026-11-22','2026-11-22 07:58:12'),"
              "('T20261122-10012','2026-11-22','2026-11-22 13:00:00'),"
              "('T202611230012','2026-11-23',NULL)"_s,
              u"INSERT INTO ShiftEmployee (NIP,Tgl,ShiftCode) VALUES "
              "('0012','2025-11-22','A'),('0012','2026-11-22','B'),('0012','2026-12-01','C')"_s,
              u"INSERT INTO [User] (UserID,[Password]) VALUES ('0012','rahasia')"_s})
            Run(statement);
    }

    void Expect(const QString& statement, const QStringList& rows) {
        SCOPED_TRACE(statement.toStdString());
        EXPECT_EQ(FailureOf([&] { EXPECT_EQ(RowsOf(statement), rows); }), QString());
    }
};

} // namespace

TEST_F(Statements, NamesInEveryQuotingAndCaseFindTheSameData) {
    for (const auto& statement :
         {u"select nama from employee where nip='0012'"_s, u"SELECT NAMA FROM EMPLOYEE WHERE NIP='0012'"_s,
          u"Select [Nama] From [Employee] Where [Nip]='0012'"_s,
          u"select `nama` from `Employee` where `NIP`='0012'"_s,
          u"select \"Nama\" from \"employee\" where \"nip\"='0012'"_s,
          u" \r\n select\te.[NAMA]\n from Employee e where e.`nip` = '0012' "_s})
        Expect(statement, {u"Budi"_s});
    Expect(u"select * from `user` where UserId='0012'"_s, {u"0012|rahasia"_s});
    Expect(u"Select * from [User] Where `UserID`='0012'"_s, {u"0012|rahasia"_s});
    Expect(u"select count(1) from user where userid='0012'"_s, {u"1"_s});
    Expect(u"select NIP from Employee where Nama='budi'"_s, {}); // values keep their letter case
    // Whatever stands inside a text is text.
    Expect(u"select NIP from TimeCardHeader where Keterangan='a -- b; [c] /* #d# \"e\" `f`'"_s, {u"0012"_s});
}

TEST_F(Statements, AnUnknownNameFailsHoweverItIsQuoted) {
    for (const auto& name : {u"\"Tidak Ada\""_s, u"[Tidak Ada]"_s, u"`Tidak Ada`"_s, u"\"0012\""_s, u"[]"_s})
        EXPECT_NE(FailureOf([&] { RowsOf(u"select NIP from Employee where NIP="_s + name); }), QString())
            << name.toStdString();
}

TEST_F(Statements, DatesInEveryFormSelectTheSameRows) {
    for (const auto& date :
         {u"#2026-11-22#"_s, u"#11-22-2026#"_s, u"#11/22/2026#"_s, u"#2026/11/22#"_s, u"# 2026-11-22 #"_s,
          u"'2026-11-22'"_s, u"CDATE('2026-11-22')"_s, u"cdate( '11/22/2026' )"_s, u"CDate(#2026-11-22#)"_s,
          u"CDATE(CDATE('2026-11-22'))"_s})
        Expect(u"select TCID from TimeCardDetail where Tanggal=%1 order by TCID"_s.arg(date),
               {u"T20261122-10012"_s, u"T202611220012"_s});
    for (const auto& moment : {u"#2026-11-22 07:58:12#"_s, u"#11-22-2026 7:58:12#"_s,
                               u"'2026-11-22 07:58:12'"_s, u"CDATE('11/22/2026 07:58:12')"_s})
        Expect(u"select TCID from TimeCardDetail where TimeIN="_s + moment, {u"T202611220012"_s});
    Expect(u"select count(1) from TimeCardDetail b WHERE b.Tanggal BETWEEN #2026-11-22# AND '2026-11-23'"_s,
           {u"3"_s});
    Expect(u"select NIP from TimeCardDetail b, Employee c where CDATE(b.Tanggal)=#2025-12-01# order by NIP"_s,
           {u"0012"_s, u"0013"_s});
}

TEST_F(Statements, FunctionsOfTheDialectWorkInAnyCaseAndNested) {
    const QStringList both{u"T20261122-10012"_s, u"T202611220012"_s};
    const auto select = u"select TCID from TimeCardDetail where %1 order by TCID"_s;
    Expect(select.arg(u"Left(TCID,9)='T20261122'"_s), both);
    Expect(select.arg(u"Left(TCID,9)='T20261122-'"_s), {});
    Expect(select.arg(u"LEFT ( [TCID] , 9 )='T20261122'"_s), both);
    Expect(select.arg(u"Left(Left(TCID,11),5)='T2025'"_s), {u"T202512010012"_s});
    Expect(select.arg(u"Mid(TCID, 2, Left('41',1))='2025'"_s), {u"T202512010012"_s});
    Expect(select.arg(u"left((TCID),(4+5))=Left('T20261122xyz',9)"_s), both);
    Expect(select.arg(u"YEAR(Tanggal)=2025"_s), {u"T202512010012"_s});
    Expect(select.arg(u"Same(TimeIN,null) and not same('x',null)"_s), {u"T202611230012"_s});
    Expect(select.arg(u"month(Tanggal)=12 and Year(TimeIN)=2025"_s), {u"T202512010012"_s});
    Expect(select.arg(u"year(CDATE('12/01/2025'))=Year(Tanggal)"_s), {u"T202512010012"_s});
    Expect(select.arg(u"Left(TCID,9) in ('T20261122',Left('T20261122-1',9))"_s), both);
    Expect(u"select ShiftCode from ShiftEmployee where year(Tgl)=2026 and Month(Tgl)=11"_s, {u"B"_s});
    Expect(
        u"select ShiftCode from ShiftEmployee s left join Employee e on s.NIP=e.NIP where Month(s.Tgl)=12"_s,
        {u"C"_s});
}

TEST_F(Statements, SavedQueriesAreCalledByNameWithAQuotedArgument) {
    for (const auto& call :
         {u"sp_TimeCardDetail 'T202611220012'"_s, u"SP_TIMECARDDETAIL 'T202611220012'"_s,
          u"  [sp_timecarddetail]   'T202611220012'  "_s, u"exec sp_TimeCardDetail 'T202611220012'"_s}) {
        Expect(call, {u"2026-11-22|2026-11-22 07:58:12|-|-|-|-|-"_s});
    }
    Expect(u"sp_sel_TimeCard 'T202611220012'"_s, {u"IN|-|-|a -- b; [c] /* #d# \"e\" `f`|8.3|-|0012|-"_s});
    Expect(u"sp_sel_timecard 'T20261122'"_s, {});
    for (const auto& call : {u"sp_TimeCardDetail"_s, u"sp_TimeCardDetail T1"_s,
                             u"sp_sel_TimeCard 'T1','T2'"_s, u"sp_sel_TimeCard 'T1' or 1=1"_s})
        EXPECT_NE(FailureOf([&] { RowsOf(call); }), QString()) << call.toStdString();
}

TEST_F(Statements, WhatCouldSmuggleInAnotherMeaningIsRefused) {
    const std::tuple<QString, QString> refused[] = {
        {u"select 1; delete from Employee"_s, u"hanya satu perintah"_s},
        {u"select 1;"_s, u"hanya satu perintah"_s},
        {u"select NIP from Employee -- where"_s, u"komentar"_s},
        {u"select NIP /* all */ from Employee"_s, u"komentar"_s},
        {u"select NIP from Employee where Nama='O''Brien'"_s, u"tanda kutip"_s},
        {u"select NIP from Employee where Nama='Budi"_s, u"tanda kutip tidak ditutup"_s},
        {u"select NIP from [Employee"_s, u"nama tidak ditutup dengan ]"_s},
        {u"select NIP from `Employee"_s, u"nama tidak ditutup"_s},
        {u"select NIP from \"Employee"_s, u"nama tidak ditutup"_s},
        {u"select `a]b` from Employee"_s, u"nama mengandung ]"_s},
        {u"select * from ShiftEmployee where Tgl=#2026-11-22"_s, u"tanggal tidak ditutup"_s},
        {u"select * from ShiftEmployee where Tgl=##"_s, u"bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=#2026-02-29#"_s, u"\"2026-02-29\" bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=#22-11-2026#"_s, u"bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=#2026-11/22#"_s, u"bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=#2026-11-22 24:00#"_s, u"bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=#2026-11-22' or '1'='1#"_s, u"bukan tanggal"_s},
        {u"select * from ShiftEmployee where Tgl=CDATE('kemarin')"_s, u"bukan tanggal"_s},
    };
    for (const auto& [statement, reason] : refused) {
        SCOPED_TRACE(statement.toStdString());
        EXPECT_THROW(RowsOf(statement), StatementError);
        EXPECT_TRUE(FailureOf([&, &statement = statement] { RowsOf(statement); }).contains(reason));
    }
    Expect(u"select count(1) from Employee"_s, {u"2"_s});
}

TEST_F(Statements, AValueWithAQuoteNeverReachesTheEngine) {
    for (const auto& value : {u"' or '1'='1"_s, u"'"_s, u"O'Brien"_s, u"''"_s, u"x\0y"_s})
        EXPECT_THROW(Quoted(value), StatementError) << value.toStdString();
    for (const auto& value : {u""_s, u"Müller 工場"_s, u"\"; -- [x] #y# %1 ?"_s})
        Expect(u"select "_s + Quoted(value), {value});
}
