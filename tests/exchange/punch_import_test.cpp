#include "exchange/punch_import.h"

#include "editing/card_problems.h"
#include "timecard/sheet_lifecycle.h"
#include "tools/data_check.h"

#include "support/test_company.h"

#include <QFile>

#include <random>

using namespace Qt::StringLiterals;

namespace {

const QString Cards =
    u"select h.TCID, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT from TimeCardHeader h inner join "
    "TimeCardDetail d on d.TCID=h.TCID order by h.TCID"_s;

class PunchImport : public CompanyTest {
protected:
    PunchImport() {
        Run(u"INSERT INTO Shift VALUES ('D','1899-12-30 08:00:00','1899-12-30 16:00:00'),"
            "('E','1899-12-30 14:00:00','1899-12-30 22:00:00'),"
            "('M','1899-12-30 22:00:00','1899-12-31 06:00:00'),"
            "('P','1899-12-30 06:00:00','1899-12-30 14:00:00'),('O',NULL,NULL)"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'IN','Masuk'),(2,'OUT','Keluar')"_s);
    }
    void Employ(const QString& nip, const QString& number = {}) {
        Db().Execute(u"INSERT INTO Employee (NIP, Nama, IdMesin) VALUES (?,?,?)"_s,
                     {nip, nip, OrNull(number)});
    }
    void Roster(const QString& nip, Day day, const QString& code) {
        Db().Execute(u"INSERT INTO ShiftEmployee VALUES (?,?,?)"_s, {nip, StoredDay(day), code});
    }
    PunchReport Import(const QStringList& lines, const QString& name = u"mesin.txt"_s,
                       const QString& form = u"nip,moment,direction"_s, PunchRun run = PunchRun::Write) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(lines.join(u"\r\n").toUtf8());
        file.close();
        return ImportPunches(Db(), ReadPunchFile(file.fileName(), *PunchForm::FromText(form)), false, run);
    }
    QString All() {
        return (RowsOf(Cards) + RowsOf(u"select * from DevicePunch order by File, Line"_s)).join(u'\n');
    }
    static QString Line(const QString& nip, WallTime moment, QStringView direction = {}) {
        return u"%1,%2,%3"_s.arg(nip, StoredTime(moment), direction);
    }
};

} // namespace

TEST_F(PunchImport, ThreeDaysOfAnOfficeLeaveOnlyTheForgottenDeparturesToDo) {
    const Day first = DayOf(Moment(u"2026-11-18"));
    QStringList lines;
    int worked = 0;
    Connection& db = Db();
    db.InTransaction([&] {
        for (int i = 0; i < 85; ++i) {
            const QString nip = u"%1"_s.arg(i + 1, 4, 10, QChar(u'0'));
            Employ(nip, QString::number(i + 500));
            const bool night = i >= 70;
            for (int d = 0; d < 3; ++d) {
                const Day day = first + std::chrono::days{d};
                const bool off = (i * 3 + d) % 7 == 3;
                Roster(nip, day, off ? u"O"_s : night ? u"M"_s : u"D"_s);
                if (off)
                    continue;
                const WallTime start = day + std::chrono::hours{night ? 22 : 8};
                const QString number = QString::number(i + 500);
                lines << Line(number, start - Seconds{60 * (i % 30)});
                if (worked < 32)
                    lines << Line(number, start - Seconds{60 * (i % 30) - 90}); // pressed twice
                if (worked++ % 16 != 7)
                    lines << Line(number, start + std::chrono::hours{8} + Seconds{47 * (i % 40)});
            }
        }
    });
    ASSERT_EQ(lines.size(), 456);
    clock.now = Moment(u"2026-11-22 07:00:00");
    EXPECT_EQ(Import(lines, u"mesin.txt"_s, u"nip,moment"_s, PunchRun::Dry).newCards, 219);
    EXPECT_EQ(RowsOf(Cards), QStringList());
    const PunchReport report = Import(lines, u"mesin.txt"_s, u"nip,moment"_s);
    EXPECT_EQ(report.Summary(), u"219 kartu baru, 0 kartu dilengkapi; 219 masuk; 205 keluar; 32 ganda"_s);
    EXPECT_TRUE(report.listed.empty());

    const CardFilter days{.days = DayRange{first, first + std::chrono::days{2}}};
    std::vector<CardProblem> problems = FindProblems(db, days, clock.now);
    EXPECT_EQ(std::ranges::count(problems, ProblemKind::NoDeparture, &CardProblem::kind), 14);
    EXPECT_EQ(problems.size(), 219U) << "the others wait for their hours";
    EXPECT_EQ(TakeProposals(db, problems).completed, 14);
    EXPECT_TRUE(FindProblems(db, days, clock.now).empty());

    const QString before = All();
    EXPECT_EQ(Import(lines, u"mesin.txt"_s, u"nip,moment"_s).Summary(),
              u"0 kartu baru, 0 kartu dilengkapi; 424 sudah tercatat; 32 ganda"_s);
    EXPECT_EQ(All(), before);
    CheckData(db, [](const Finding& finding) { ADD_FAILURE() << finding.Line().toStdString(); });
}

TEST_F(PunchImport, TrueWorkingDaysComeBackFromTheirPunches) {
    struct Work {
        QString code;
        int start; ///< hours of the day
    };
    const Work shifts[] = {{u"P"_s, 6}, {u"D"_s, 8}, {u"E"_s, 14}, {u"M"_s, 22}};
    for (unsigned seed = 1; seed <= 30; ++seed) {
        SCOPED_TRACE(seed);
        RemoveCards();
        Run(u"DELETE FROM ShiftEmployee"_s);
        Run(u"DELETE FROM Employee"_s);
        std::mt19937 random(seed);
        const auto upTo = [&random](int most) {
            return Seconds{static_cast<int>(random() % static_cast<unsigned>(most + 1)) * 60};
        };
        QStringList lines;
        QStringList cards;
        const bool directed = seed % 2 == 0;
        Db().InTransaction([&] {
            for (const auto& nip : {u"1"_s, u"2"_s, u"3"_s}) {
                Employ(nip);
                WallTime free = EmptyTime;
                for (int d = 0; d < 20; ++d) {
                    const Day day = DayOf(Moment(u"2026-10-20")) + std::chrono::days{d};
                    const Work& shift = shifts[random() % std::size(shifts)];
                    const WallTime start = day + std::chrono::hours{shift.start};
                    if (start < free || random() % 5 == 0)
                        continue;
                    Roster(nip, day, shift.code);
                    const WallTime in = start + std::chrono::minutes{30} - upTo(120);
                    const WallTime out = start + std::chrono::minutes{7 * 60 + 30} + upTo(180);
                    free = start + std::chrono::hours{16};
                    lines << Line(nip, in, directed ? u"I" : u"");
                    if (random() % 4 == 0)
                        lines << Line(nip, in + upTo(2), directed ? u"I" : u"");
                    lines << Line(nip, out, directed ? u"O" : u"");
                    cards << u"%1|OUT|%2|%3|%4"_s.arg(u"T%1%2"_s.arg(StoredDay(day).remove(u'-'), nip),
                                                      StoredDay(day), StoredTime(in), StoredTime(out));
                }
            }
        });
        cards.sort();
        // The file comes in two parts, as a clock is read out twice.
        const qsizetype half = lines.size() / 2;
        lines.sort();
        std::ranges::sort(lines, {}, [](const QString& line) { return line.section(u',', 1, 1); });
        Import(lines.first(half), u"%1a"_s.arg(seed));
        const PunchReport report = Import(lines.sliced(half), u"%1b"_s.arg(seed));
        EXPECT_TRUE(report.listed.empty())
            << (report.listed.empty() ? "" : report.listed.front().Text().toStdString());
        EXPECT_EQ(RowsOf(Cards).join(u'\n').toStdString(), cards.join(u'\n').toStdString());
    }
}

TEST_F(PunchImport, WhatStandsIsNotChangedAndWhatCannotBeBroughtIsListed) {
    Employ(u"0012"_s, u"12"_s);
    Employ(u"0013"_s);
    AddCard(u"T202611180012"_s, u"0012"_s, u"OUT"_s, u"2026-11-18"_s, u"2026-11-18 07:30:00"_s,
            u"2026-11-18 16:00:30"_s);
    AddCard(u"T202611190012"_s, u"0012"_s, u"S"_s, u"2026-11-19"_s);
    AddCard(u"T20261120-10012"_s, u"0012"_s, u"A"_s, u"2026-11-20"_s);
    Run(u"INSERT INTO TimeCardHeader (TCID,NIP,Status,Keterangan) VALUES ('T202611200013','0013','','catatan')"_s);
    CloseSheet(Db(), u"T20261121"_s);
    const QStringList lines{
        u"12,2026-11-18 07:50:00,I"_s, // the card says 07:30
        u"12,2026-11-18 16:02:00,O"_s,   u"12,2026-11-19 07:50:00,I"_s, u"12,2026-11-20 07:50:00,I"_s,
        u"0013,2026-11-20 07:51:00,I"_s, u"12,2026-11-21 07:52:00,I"_s, u"99,2026-11-20 07:53:00,I"_s,
        u"12,2026-11-31 07:53:00,I"_s,
    };
    const PunchReport report = Import(lines);
    QStringList listed;
    for (const PunchLine& line : report.listed)
        listed << line.Text();
    EXPECT_EQ(
        listed.join(u'\n').toStdString(),
        "mesin.txt baris 1: bertentangan dengan kartu: NIK 0012, 18-Nov-2026 07:50:00\n"
        "mesin.txt baris 3: bertentangan dengan kartu: NIK 0012, 19-Nov-2026 07:50:00, kartu T202611190012\n"
        "mesin.txt baris 6: lembar ditutup: NIK 0012, 21-Nov-2026 07:52:00, kartu T202611210012\n"
        "mesin.txt baris 7: nomor tidak dikenal: nomor 99, 20-Nov-2026 07:53:00\n"
        "mesin.txt baris 8: tidak terbaca: 12,2026-11-31 07:53:00,I");
    const QStringList cards{u"T202611180012|OUT|2026-11-18|2026-11-18 07:30:00|2026-11-18 16:00:30"_s,
                            u"T202611190012|S|2026-11-19|-|-"_s,
                            u"T20261120-10012|IN|2026-11-20|2026-11-20 07:50:00|-"_s,
                            u"T202611200013|IN|2026-11-20|2026-11-20 07:51:00|-"_s};
    EXPECT_EQ(RowsOf(Cards), cards);
    const QString before = All();
    Import(lines);
    EXPECT_EQ(All(), before);

    // The number is somebody's now, and the sheet was opened again.
    Employ(u"0099"_s, u"99"_s);
    ReopenSheet(Db(), u"T20261121"_s);
    const PunchReport other = Import({u"0013,2026-11-20 16:00:00,O"_s}, u"lain.txt"_s);
    EXPECT_EQ(other.Summary(), u"1 kartu baru, 1 kartu dilengkapi; 1 masuk; 1 keluar"_s);
    EXPECT_EQ(RowsOf(u"select NIP, Outcome from DevicePunch where Number='99'"_s),
              QStringList{u"0099|masuk"_s});
    EXPECT_EQ(Import(lines).newCards, 1) << "on the sheet that was closed";
}

TEST_F(PunchImport, ProfilesAndTheMeasureOfDoublesAreKept) {
    KeepPunchProfile(Db(), {u"Gudang"_s, *PunchForm::FromText(u"nip tab moment"_s), true});
    KeepPunchProfile(Db(), {u"Kantor"_s, *PunchForm::FromText(u"nip;date;time"_s), true});
    KeepPunchProfile(Db(), {u"Kantor"_s, *PunchForm::FromText(u"nip=1-4 moment=5-23"_s), false});
    QStringList kept;
    for (const PunchProfile& profile : PunchProfiles(Db()))
        kept << u"%1|%2|%3"_s.arg(profile.name, profile.form.Text()).arg(profile.firstAndLast);
    EXPECT_EQ(kept, (QStringList{u"Gudang|nip tab moment|1"_s, u"Kantor|nip=1-4 moment=5-23|0"_s}));
    EXPECT_EQ(PunchDoubles(Db()), Seconds{120});
    Run(u"INSERT INTO Setting VALUES ('AbsenGandaMenit','5')"_s);
    EXPECT_EQ(PunchDoubles(Db()), Seconds{300});
}
