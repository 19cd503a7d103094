#include "support/test_company.h"

#include <QProcess>
#include <QSet>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

/// Lets a desk record for a while, kills it and gives what it had confirmed, one "IN 1000" each.
QStringList RecordUntilKilled(const QString& database, int firstNip, int confirmations,
                              int extraMilliseconds) {
    QProcess desk;
    desk.start(QStringLiteral(PUNCH_LOOP), {database, QString::number(firstNip)});
    QByteArray told;
    while (told.count('\n') < confirmations && desk.waitForReadyRead(20'000))
        told += desk.readAllStandardOutput();
    QThread::msleep(static_cast<unsigned long>(extraMilliseconds));
    EXPECT_EQ(desk.state(), QProcess::Running) << desk.readAllStandardError().toStdString();
    desk.kill();
    desk.waitForFinished();
    told += desk.readAllStandardOutput();
    // What stands after the last line end was not told to the end.
    return QString::fromUtf8(told.first(told.lastIndexOf('\n') + 1)).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

TEST(KilledDesk, EveryConfirmedRecordingIsThereAndNoHalfOne) {
    TestCompany company;
    for (int round = 0; round < 24; ++round) {
        const QStringList confirmed =
            RecordUntilKilled(company.DatabaseFile(), 1000 + round * 10'000, 1 + round % 5, round * 7 % 43);
        ASSERT_FALSE(confirmed.isEmpty()) << round;

        const auto again = company.OtherDesk(); // what the next start of the program would find
        QSet<QString> found;
        Cursor rows = again->QueryNative(
            u"SELECT substr(d.TCID,10), h.Status, d.TimeIN, d.TimeOUT FROM TimeCardDetail d "
            "FULL JOIN TimeCardHeader h ON h.TCID=d.TCID"_s);
        while (rows.Next()) {
            ASSERT_FALSE(rows.Value(0).IsNull() || rows.Value(1).IsNull()) << "half a card";
            ASSERT_FALSE(rows.Value(2).IsNull());
            ASSERT_EQ(rows.Text(1) == u"OUT"_s, !rows.Value(3).IsNull()) << "half a departure";
            found << u"IN "_s + rows.Text(0);
            if (!rows.Value(3).IsNull())
                found << u"N "_s + rows.Text(0);
        }
        for (const QString& recording : confirmed)
            ASSERT_TRUE(found.contains(recording)) << recording.toStdString();
        Cursor check = again->QueryNative(u"PRAGMA integrity_check"_s);
        ASSERT_TRUE(check.Next());
        ASSERT_EQ(check.Text(0), u"ok"_s);
    }
}
