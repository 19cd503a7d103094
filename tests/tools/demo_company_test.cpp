#include "core/query_values.h"
#include "tools/demo_support.h"

using namespace Qt::StringLiterals;

namespace {

int CountOf(Connection& connection, const QString& condition) {
    int count = -1;
    modGeneral::QueryValues(connection, u"select count(*) from "_s + condition, count);
    return count;
}

} // namespace

class DemoCompany : public testing::Test {
protected:
    QTemporaryDir folder;
    QString file = folder.filePath(u"DATA.mdb"_s);
};

TEST_F(DemoCompany, HoldsAPayrollOfficesDailyLife) {
    const DemoSummary summary = MakeDemoCompany(file, DemoUntil(u"2026-11-21"));
    const std::unique_ptr<Connection> db = OpenDatabaseFile(file);
    EXPECT_EQ(summary.firstDay, DayOf(Moment(u"2026-08-22")));
    EXPECT_EQ(CountOf(*db, u"TimeCardHeader"_s), summary.cards);
    EXPECT_EQ(CountOf(*db, u"TimeCardDetail"_s), summary.cards);
    EXPECT_EQ(CountOf(*db, u"timecardmaster"_s), summary.sheets);
    EXPECT_EQ(RowsOf(*db, u"select min(Tanggal), max(Tanggal) from TimeCardDetail"_s),
              QStringList{u"2026-08-22|2026-11-21"_s});

    EXPECT_EQ(CountOf(*db, u"Employee"_s), 42);
    EXPECT_EQ(CountOf(*db, u"Employee where GP>0 and RateOT>0 and TMakan>0"_s), 42);
    EXPECT_EQ(CountOf(*db, u"[User] where UserID=[Password]"_s), 42 + 2);
    EXPECT_EQ(RowsOf(*db, u"select UserID from User_Job where GroupID='SPV'"_s), QStringList{u"pelon"_s});
    EXPECT_EQ(RowsOf(*db, u"select Status from [Employee Status] order by ID"_s).first(3),
              (QStringList{u"IN"_s, u"OUT"_s, u"A"_s}));

    EXPECT_GT(CountOf(*db, u"TimeCardHeader where Status='OUT'"_s), summary.cards * 8 / 10);
    for (const QString& status : {u"S"_s, u"I"_s, u"C"_s, u"A"_s, u"PC"_s, u"TL"_s})
        EXPECT_GT(CountOf(*db, u"TimeCardHeader where Status='"_s + status + u'\''), 3)
            << status.toStdString();
    // Everybody has days of their own: hardly two arrive at the same second.
    EXPECT_GT(RowsOf(*db, u"select distinct TimeIN from TimeCardDetail"_s).size(), summary.cards * 9 / 10);
    EXPECT_GT(CountOf(*db, u"TimeCardHeader where Left(TCID,11)=Left(TCID,9)||'-1'"_s), 3);
    EXPECT_GT(CountOf(*db, u"TimeCardDetail where TimeINOT<TimeOutOT and TimeOutOT=TimeOUT"_s), 50);
    EXPECT_EQ(CountOf(*db, u"TimeCardHeader where NormalHours is not null or NormalAmount is not null"_s), 0);
}

TEST_F(DemoCompany, SameArgumentsGiveTheSameRows) {
    const auto contentFor = [this](const DemoOptions& options) {
        static int number = 0;
        const QString path = folder.filePath(QString::number(++number));
        MakeDemoCompany(path, options);
        return BytesOf(path);
    };
    const QByteArray content = contentFor(DemoUntil(u"2026-11-21", 20, 1));
    EXPECT_EQ(contentFor(DemoUntil(u"2026-11-21", 20, 1)), content);
    EXPECT_NE(contentFor(DemoUntil(u"2026-11-20", 20, 1)), content);
    EXPECT_NE(contentFor(DemoUntil(u"2026-11-21", 21, 1)), content);
    EXPECT_NE(contentFor(DemoUntil(u"2026-11-21", 20, 2)), content);
}

TEST_F(DemoCompany, PassesTheCheckInEverySize) {
    const struct {
        DemoOptions options;
        QStringView firstDay;
    } cases[] = {
        {DemoUntil(u"2026-11-21", 1, 0), u"2026-11-22"},  {DemoUntil(u"2026-11-21", 1, 1), u"2026-10-22"},
        {DemoUntil(u"2024-03-30", 7, 1), u"2024-02-29"},  {DemoUntil(u"2024-02-29", 7, 12), u"2023-03-01"},
        {DemoUntil(u"1950-01-01", 40, 1), u"1949-12-02"}, {DemoUntil(u"2026-12-31", 60, 6), u"2026-07-01"},
    };
    for (const auto& [options, firstDay] : cases) {
        const QString path = folder.filePath(firstDay.toString());
        EXPECT_EQ(MakeDemoCompany(path, options).firstDay, DayOf(Moment(firstDay)));
        EXPECT_EQ(FindingsOf(*OpenDatabaseFile(path)), QStringList()) << path.toStdString();
    }
}

TEST_F(DemoCompany, AFailureMakesNothingAndOverwritesNothing) {
    EXPECT_THROW(MakeDemoCompany(file, DemoUntil(u"2026-11-21"),
                                 [](int percent) {
                                     if (percent > 50)
                                         throw ProgramError(1, u"given up"_s);
                                 }),
                 ProgramError);
    EXPECT_EQ(EntriesOf(folder.path()), QStringList());

    for (const QString& name : {u"DATA.mdb"_s, u"photos"_s}) {
        QFile inTheWay(folder.filePath(name));
        ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly) && inTheWay.write("mine") && inTheWay.flush());
        EXPECT_THROW(MakeDemoCompany(file, DemoUntil(u"2026-11-21", 1, 0)), ProgramError);
        EXPECT_EQ(BytesOf(inTheWay.fileName()), "mine");
        EXPECT_EQ(EntriesOf(folder.path()), QStringList{name});
        EXPECT_TRUE(inTheWay.remove());
    }
}
