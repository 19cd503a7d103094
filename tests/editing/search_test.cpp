#include "editing/grid_row.h"
#include "editing/search_criteria.h"
#include "editing/search_model.h"
#include "support/failures.h"
#include "support/recording_engine.h"
#include "support/test_company.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

const QString Card = u"T202611220012"_s;
const QString Stored =
    u"select NIP, Status, Keterangan, NormalHours, OTHours, NormalAmount, OTAmount, Tanggal, "
    "TimeIN, TimeOUT, TimeINOT, TimeOutOT, BeriUangMakan from TimeCardHeader h left join "
    "TimeCardDetail d on d.TCID=h.TCID order by h.TCID, Tanggal"_s;
/// The card of a night shift, as Stored finds it.
const QString Before = u"0012|IN|catatan|9.15|-|150000|1e-04|2026-11-22|2026-11-22 22:00:05|"
                       "2026-11-23 06:30:12|1899-12-30 00:00:00|-|1"_s;

/// A company with one night shift's card.
class Search : public CompanyTest {
protected:
    Search() {
        AddEmployee(u"0012"_s, u"Siti"_s, u"x"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"Budi"_s, u"x"_s, u"GA"_s, u"B"_s);
        AddCard(Card, u"0012"_s);
        tester.setUseFetchMore(false); // it would fetch from within the model's own signals
    }

    void AddCard(const QString& tcid, const QString& nip) {
        Db().Execute(u"INSERT INTO TimeCardHeader VALUES (?,?,'IN','catatan',9.15,NULL,150000,0.0001,7)"_s,
                     {tcid, nip});
        Db().Execute(u"INSERT INTO TimeCardDetail VALUES (?,'2026-11-22','2026-11-22 22:00:05',"
                     "'2026-11-23 06:30:12','1899-12-30 00:00:00',NULL,'M',1)"_s,
                     {tcid});
    }
    /// Cards with the identifiers T2020... of the given count, each with this many days.
    void AddCards(int count, int days) {
        const QString numbers =
            u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<%1) INSERT INTO "_s;
        Run(numbers.arg(count)
            + u"TimeCardHeader (TCID,NIP) SELECT 'T2020'||printf('%04d',i),'0013' FROM n"_s);
        Run(numbers.arg(days)
            + u"TimeCardDetail (TCID,Tanggal) SELECT TCID,date('2020-01-01',i||' days') "
              "FROM TimeCardHeader, n WHERE TCID LIKE 'T2020%'"_s);
    }
    /// The one row of the card, with texts typed into columns.
    void Type(const std::vector<std::pair<SearchRow::Column, QString>>& texts) {
        for (const auto& [column, text] : texts)
            EXPECT_TRUE(model.setData(model.index(0, column), text));
    }
    void FetchAll() {
        while (model.canFetchMore({}))
            model.fetchMore({});
    }
    qsizetype Computed() {
        return RowsOf(
                   u"select 1 from TimeCardHeader where NormalHours is not null and TCID<>'T202611220012'"_s)
            .size();
    }
    QString Shown(int row) const { return model.Elements(row).join(u'|'); }

    SearchModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

} // namespace

TEST_F(Search, ShowsEveryColumnAndFiltersByEach) {
    AddCard(u"T202610010013"_s, u"0013"_s);
    AddCard(u"T202611220099"_s, u"0099"_s); // no such employee
    const std::pair<QString, QStringList> cases[] = {
        {WhereClause(EqualFragment(u"Dept"_s, u""_s)), {u"0013"_s, u"0012"_s}},
        {WhereClause(PrefixFragment(u"TCID"_s, u"T202611"_s)), {u"0012"_s}},
        {WhereClause(PrefixFragment(u"TCID"_s, u"T______2"_s)), {u"0012"_s}},
        {WhereClause(PrefixFragment(u"TCID"_s, u"t202611"_s)), {}},
        {WhereClause(EqualFragment(u"Dept"_s, u"GA"_s)), {u"0013"_s}},
        {WhereClause(EqualFragment(u"Divisi"_s, u"A"_s) + EqualFragment(u"NIP"_s, u"0012"_s)), {u"0012"_s}}};
    for (const auto& [clause, found] : cases) {
        model.Search(Db(), clause);
        QStringList shown;
        for (const FoundDay& row : model.FetchedRows())
            shown << row.header.nip;
        EXPECT_EQ(shown, found) << clause.toStdString();
    }
    EXPECT_EQ(Shown(0), u"IN|0012|Siti|catatan|PROD|T202611220012|A|22-Nov-2026|22:00:05|06:30:12 (+1)|||"
                        "True|9.15||150000|0.0001"_s);
    EXPECT_EQ(WhereClause(EqualFragment(u"Divisi"_s, u"and"_s)), u" Where Divisi='and'"_s);
    EXPECT_NE(FailureOf([] { EqualFragment(u"NIP"_s, u"x' or '1'='1"_s); }), QString());
    Run(u"UPDATE TimeCardHeader SET NormalAmount=1e15, OTAmount=-2.5e14"_s);
    model.Search(Db(), cases[1].first);
    EXPECT_TRUE(Shown(0).endsWith(u"|9.15||1000000000000000|-250000000000000"_s)) << "no amount, but shown";
    QStringList headers;
    for (int column = Status; column < model.columnCount(); ++column)
        headers << model.headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headers, Db().Query(u"Select * from qry_TimeCardAll"_s).ColumnNames());
}

TEST_F(Search, PagesHoldEveryDayOnceAndReadNoMoreThanTheyShow) {
    AddCards(301, 3);
    QStringList statements;
    Connection desk(std::make_unique<RecordingEngine>(statements), DatabaseFile());
    model.Search(desk, u""_s);
    EXPECT_EQ(model.rowCount(), 198) << "the last card of the page would be cut";
    EXPECT_FALSE(model.IsWhole());
    EXPECT_EQ(CountCards(desk, {}), 302);
    ASSERT_TRUE(model.canFetchMore({}));
    FetchAll();
    ASSERT_EQ(model.rowCount(), 301 * 3 + 1);
    EXPECT_FALSE(model.canFetchMore({}));
    std::set<std::pair<QString, Day>> days;
    for (const FoundDay& row : model.FetchedRows())
        days.emplace(row.header.tcid, row.day->tanggal);
    EXPECT_EQ(days.size(), model.FetchedRows().size());
    qsizetype total = -1;
    WholeResult whole(desk, {}, [&total](qsizetype, qsizetype of) {
        total = of;
        return true;
    });
    for (const qsizetype known : {0, 301 * 3 + 1}) {
        size_t row = 0;
        EXPECT_TRUE(whole([&](const FoundDay& found) { EXPECT_EQ(found, model.FetchedRows()[row++]); }));
        EXPECT_EQ(row, model.FetchedRows().size());
        EXPECT_EQ(total, known);
    }
    EXPECT_FALSE(WholeResult(desk, {}, [](auto, auto) { return false; })([](const FoundDay&) {}));
    for (const QString& clause :
         {u""_s, u" Where Dept='GA'"_s, u" Where TCID like 'T2020%'"_s, u" Where TCID like 'T_020%1%'"_s,
          u" Where NIP='0013' and TCID like 'T%'"_s}) {
        statements.clear();
        CardSearch pages(clause);
        size_t rows = 0;
        while (!pages.AtEnd())
            rows += pages.Next(desk).size();
        EXPECT_EQ(RowsOf(u"Select count(*) from qry_TimeCardAll"_s + clause),
                  QStringList{QString::number(rows)});
        EXPECT_TRUE(statements.value(0).startsWith(u"Select * from qry_TimeCardAll  "_s + clause));
        ASSERT_EQ(statements.size(), 2);
        for (QString statement : QStringList(statements)) {
            statement.replace(u'?', u"'T2'"_s);
            EXPECT_TRUE(::RowsOf(desk, u"EXPLAIN QUERY PLAN "_s + statement).filter(u"TEMP"_s).isEmpty());
            // A further page is sought where it begins, not where the prefix does.
            EXPECT_EQ(::RowsOf(desk, u"EXPLAIN "_s + statement).filter(u"|SeekGT|"_s).size(),
                      statement.contains(u"TCID>"_s) ? 1 : 0)
                << statement.toStdString();
        }
    }
}

TEST_F(Search, ComputesEveryCardOncePageByPageUntilStopped) {
    AddCards(7'000, 2);
    const auto otherDesk = OtherDesk(); // it writes between two batches
    const QString clause = u" Where TCID like 'T2020%'"_s;
    for (const qsizetype stopAt : {500, 5'000, 7'000}) {
        qsizetype last = 0;
        const auto report = CalculateFoundCards(Db(), clause, 7'000, [&](auto done, auto total) {
            EXPECT_EQ(total, 7'000);
            EXPECT_EQ(done, last + 500);
            last = done;
            otherDesk->Execute(u"UPDATE TimeCardHeader SET Status='A' WHERE TCID='T20207000'"_s);
            EXPECT_EQ(Computed(), done);
            return done < stopAt;
        });
        EXPECT_EQ(report.computed, stopAt);
        EXPECT_EQ(Computed(), stopAt);
        Run(u"UPDATE TimeCardHeader SET NormalHours=NULL"_s);
        EXPECT_EQ(report.cancelled, stopAt < 7'000);
    }
}

TEST_F(Search, ACardWithMoreDaysThanAPageEndsNothing) {
    AddCards(2, 450);
    model.Search(Db(), u""_s);
    EXPECT_EQ(model.rowCount(), 450);
    FetchAll();
    EXPECT_EQ(model.rowCount(), 901);
}

TEST_F(Search, AFailedFetchIsToldOnceAndAStoppedOneKeepsItsRows) {
    AddCards(2000, 1);
    model.Search(Db(), u""_s);
    const int first = model.rowCount();
    int told = 0;
    QObject::connect(&model, &SearchModel::FetchFailed, &model, [&told] { ++told; });
    Run(u"ALTER TABLE Employee RENAME COLUMN Divisi TO Gone"_s);
    Run(u"DROP VIEW qry_TimeCardAll"_s);
    for (int i = 0; i < 3; ++i)
        model.fetchMore({});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(model.rowCount(), first);
    EXPECT_NE(FailureOf([&] { model.Search(Db(), u" Where NIP='0012'"_s); }), QString());
    EXPECT_EQ(model.rowCount(), first) << "a search that fails leaves the grid as it was";
}

TEST_F(Search, StoppedFetchingKeepsWhatIsThere) {
    AddCards(2000, 1);
    model.Search(Db(), u""_s);
    model.fetchMore({});
    EXPECT_EQ(model.rowCount(), 199 + 799);
    Run(u"UPDATE TimeCardHeader SET NormalHours=1.3 WHERE NIP='0013'"_s);
    Type({{Keterangan, u"dibuang"_s}});
    model.Reread({});
    EXPECT_EQ(model.rowCount(), 199 + 799);
    EXPECT_EQ(model.index(500, NormalHours).data().toString(), u"1.3"_s);
    EXPECT_FALSE(model.IsEdited(0));
    Run(u"DELETE FROM TimeCardDetail WHERE TCID<'T20201500'"_s);
    model.Reread([](qsizetype, qsizetype) { return false; });
    EXPECT_EQ(model.rowCount(), 199);
    FetchAll();
    EXPECT_EQ(model.rowCount(), 502);
}

TEST_F(Search, SavesWhatWasTypedAndNothingElse) {
    struct Case {
        const char* what;
        std::vector<std::pair<SearchRow::Column, QString>> typed;
        QString stored;
    };
    const Case cases[] = {
        {"a remark; hours that were never computed become 0",
         {{Keterangan, u"Lupa 'absen' — é"_s}},
         u"0012|IN|Lupa 'absen' — é|9.15|0|150000|1e-04|2026-11-22|2026-11-22 22:00:05|2026-11-23 06:30:12|"
         "1899-12-30 00:00:00|-|1"_s},
        {"times of the card's day and of another, and the flag",
         {{TimeIn, u"21:45"_s},
          {TimeOut, u"0700"_s},
          {TimeInOt, u"22-Nov-2026 6:00:30"_s},
          {BeriUangMakan, u"tidak"_s}},
         u"0012|IN|catatan|9.15|0|150000|1e-04|2026-11-22|2026-11-22 21:45:00|2026-11-23 07:00:00|"
         "2026-11-22 06:00:30|-|0"_s},
        {"numbers as far as they are numbers",
         {{NormalHours, u"8.3 jam"_s}, {OtHours, u"x"_s}, {NormalAmount, u"1,500"_s}, {OtAmount, u"-2.50"_s}},
         u"0012|IN|catatan|8.3|0|1|-2.5|2026-11-22|2026-11-22 22:00:05|2026-11-23 06:30:12|1899-12-30 00:00:00|-|1"_s},
        {"another employee, status and day: the times stay the moments that they are",
         {{Nip, u"0013"_s}, {Status, u"OUT"_s}, {Tanggal, u"+1"_s}, {BeriUangMakan, u"ya"_s}},
         u"0013|OUT|catatan|9.15|0|150000|1e-04|2026-11-23|2026-11-22 22:00:05|2026-11-23 06:30:12|"
         "1899-12-30 00:00:00|-|1"_s},
        {"an emptied time stays",
         {{TimeOut, u""_s}},
         u"0012|IN|catatan|9.15|0|150000|1e-04|2026-11-22|2026-11-22 22:00:05|2026-11-23 06:30:12|"
         "1899-12-30 00:00:00|-|1"_s}};
    for (const Case& c : cases) {
        RemoveCards();
        AddCard(Card, u"0012"_s);
        model.Search(Db(), u""_s);
        Type(c.typed);
        model.SaveRow(0);
        EXPECT_FALSE(model.IsEdited(0)) << c.what;
        EXPECT_EQ(RowsOf(Stored), QStringList{c.stored}) << c.what;
        EXPECT_EQ(RowsOf(u"select ShiftCode, TotalUangMakan from TimeCardDetail, TimeCardHeader"_s),
                  QStringList{u"M|7"_s});
        const QString shown = Shown(0);
        model.Search(Db(), u""_s);
        EXPECT_EQ(Shown(0), shown) << c.what;
    }
}

TEST_F(Search, ACellShowsWhatWillBeStoredAndADepartureBeforeItsArrivalIsPointedOut) {
    const std::tuple<SearchRow::Column, QString, QString, QString> cases[] = {
        {TimeOut, u"6.05"_s, u"06:05:00 (+1)"_s, u""_s},
        {TimeOut, u"2330"_s, u"23:30:00"_s, u""_s},
        {TimeOut, u"23 0630"_s, u"06:30:00 (+1)"_s, u""_s},
        {TimeOut, u"11/12/2026 07:00"_s, u"11-Dec-2026 07:00:00"_s, u""_s},
        {TimeOut, u"22-Nov-2026 6:05"_s, u"06:05:00"_s, u"TimeOUT 06:05:00 mendahului TimeIN 22:00:05."_s},
        {TimeIn, u"7:00 +1"_s, u"07:00:00 (+1)"_s,
         u"TimeOUT 06:30:12 (+1) mendahului TimeIN 07:00:00 (+1)."_s},
        {TimeIn, u"24-Nov-2026 0:00"_s, u"24-Nov-2026 00:00:00"_s,
         u"TimeOUT 06:30:12 (+1) mendahului TimeIN 24-Nov-2026 00:00:00."_s},
        {TimeOutOt, u"0600"_s, u"06:00:00 (+1)"_s,
         u"TimeOutOT 06:00:00 (+1) mendahului TimeINOT 24-Nov-2026 01:00:00."_s},
        {Tanggal, u"23/11"_s, u"23-Nov-2026"_s, u""_s},
        {Keterangan, u"0600"_s, u"0600"_s, u""_s},
        {NormalHours, u"8.30 jam"_s, u"8.3"_s, u""_s},
        {NormalAmount, u"150,000"_s, u"150"_s, u""_s},
        {OtAmount, u"1000000000000000"_s, u"1000000000000000"_s, u""_s},
    };
    Run(u"UPDATE TimeCardDetail SET TimeINOT='2026-11-24 01:00:00'"_s);
    for (const auto& [column, typed, shown, reversed] : cases) {
        model.Search(Db(), u""_s);
        Type({{column, typed}});
        EXPECT_EQ(model.index(0, column).data().toString(), shown);
        EXPECT_EQ(model.ReversedTimes(0).join(u'/'), reversed);
    }
}

TEST_F(Search, RefusesWhatIsNoTimeOrNoEmployee) {
    const std::pair<SearchRow::Column, QString> cases[] = {
        {TimeIn, u"pagi"_s},        {TimeIn, u"29-Feb-2026 07:00"_s},
        {TimeIn, u"23-Nov-2026"_s}, {TimeIn, u"22/11 2015"_s},
        {TimeIn, u"t 07:00"_s},     {TimeOutOt, u"25:00"_s},
        {Tanggal, u"31/11/2026"_s}, {Nip, u"0099"_s},
        {Nip, u"00'12"_s}};
    for (const auto& [column, text] : cases) {
        model.Search(Db(), u""_s);
        Type({{Keterangan, u"baru"_s}, {column, text}});
        EXPECT_THROW(model.SaveRow(0), ProgramError) << text.toStdString();
        EXPECT_TRUE(model.IsEdited(0));
        EXPECT_EQ(model.index(0, column).data().toString(), text) << "the typing stays";
        EXPECT_EQ(RowsOf(Stored), QStringList{Before});
    }
    EXPECT_FALSE(SaveGridRow(Db(), model.FetchedRows()[0], QStringList(6)));
    EXPECT_FALSE(model.setData(model.index(0, Tcid), u"T1"_s));
}

TEST_F(Search, AnotherDesksChangeIsNeitherOverwrittenNorDeleted) {
    const auto other = OtherDesk();
    for (const QString& change :
         {u"UPDATE TimeCardHeader SET OTHours=1"_s, u"UPDATE TimeCardHeader SET NIP='0013'"_s,
          u"UPDATE TimeCardDetail SET TimeINOT=NULL"_s, u"UPDATE TimeCardDetail SET BeriUangMakan=0"_s,
          u"UPDATE TimeCardDetail SET Tanggal='2026-11-23'"_s, u"DELETE FROM TimeCardDetail"_s}) {
        for (const bool save : {true, false}) {
            RemoveCards();
            AddCard(Card, u"0012"_s);
            model.Search(Db(), u""_s);
            Type({{TimeOut, u"23:00"_s}});
            other->Execute(change);
            const QStringList changed = RowsOf(Stored);
            EXPECT_THROW(save ? void(model.SaveRow(0)) : model.DeleteRow(0), ConflictError)
                << change.toStdString();
            EXPECT_EQ(RowsOf(Stored), changed) << change.toStdString();
            EXPECT_FALSE(model.IsEdited(0)) << "the row is read anew";
            Type({{Keterangan, u"sekali lagi"_s}});
            model.SaveRow(0);
            EXPECT_TRUE(RowsOf(Stored)[0].contains(u"sekali lagi|"_s));
        }
    }
}

TEST_F(Search, DeletingEmptiesTheRowWhichCanBeFilledAgain) {
    model.Search(Db(), u""_s);
    model.DeleteRow(0);
    EXPECT_EQ(RowsOf(u"select count(*) from TimeCardDetail"_s), QStringList{u"0"_s});
    EXPECT_EQ(Shown(0), u"IN|0012|Siti|catatan|PROD|T202611220012|A|||||||9.15||150000|0.0001"_s);
    model.DeleteRow(0);
    Type({{TimeIn, u"07:00"_s}});
    model.SaveRow(0);
    EXPECT_EQ(RowsOf(Stored),
              QStringList{u"0012|IN|catatan|9.15|0|150000|1e-04|2026-11-22|2026-11-22 07:00:00|-|-|-|0"_s});
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal) VALUES ('T202611220012','2026-11-23')"_s);
    model.Search(Db(), u""_s);
    model.DeleteRow(1);
    EXPECT_EQ(RowsOf(u"select Tanggal from TimeCardDetail"_s), QStringList{u"2026-11-22"_s});
    EXPECT_EQ(model.index(1, Tanggal).data().toString(), QString()) << "not the card's other day";
}

TEST_F(Search, ReloadsTheRowsOwnDayUnlessTheCardIsGone) {
    Run(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN) VALUES ('T202611220012','2026-11-23',"
        "'2026-11-23 08:00:00')"_s);
    model.Search(Db(), u""_s);
    Run(u"UPDATE TimeCardDetail SET TimeIN=datetime(TimeIN,'1 hours')"_s);
    Run(u"UPDATE TimeCardHeader SET NIP='0013', OTAmount=2.5"_s);
    EXPECT_TRUE(model.LoadRow(0) && model.LoadRow(1));
    EXPECT_EQ(Shown(1),
              u"IN|0013|Budi|catatan|GA|T202611220012|B|23-Nov-2026|09:00:00|||||9.15||150000|2.5"_s);
    model.setData(model.index(1, Tanggal), u"24-Nov-2026"_s);
    model.SaveRow(1);
    EXPECT_EQ(model.index(1, Tanggal).data(), u"24-Nov-2026"_s) << "the row's own day, not the card's first";
    Run(u"DELETE FROM TimeCardHeader"_s);
    const QString shown = Shown(0);
    EXPECT_FALSE(model.LoadRow(0));
    EXPECT_EQ(Shown(0), shown);
    Type({{Keterangan, u"baru"_s}});
    model.SaveRow(0); // a header that is gone is added, with all that the row shows
    EXPECT_EQ(RowsOf(u"select NIP, Status, Keterangan, NormalHours, OTHours from TimeCardHeader"_s),
              QStringList{u"0013|IN|baru|9.15|0"_s});
}
