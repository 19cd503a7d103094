#include "cards/card_computation.h"
#include "shifts/roster_window.h"
#include "ui/foot_rows.h"

namespace {

/// The roster window and the boxes that fill it. Stored() tells November 2026.
class Filling : public Roster {
public:
    /// Opens a box by its mnemonic, and does the work in it.
    void InBox(QChar mnemonic, const Work& work, const QString& box = u"RosterFillBox"_s) {
        bool done = false;
        user.WhenIn(box, [&](QWidget& window) {
            work(window);
            EXPECT_FALSE(window.isVisible());
            window.close();
            done = true;
        });
        Keys(u"⎇"_s + mnemonic);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return done; }));
        shown->activateWindow(); // no window manager does it here
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return shown->isActiveWindow(); }));
    }
    /// Types into a box, and says what it told before the last key.
    QString Typed(QChar mnemonic, const QString& keys) {
        QString told;
        InBox(mnemonic, [&](QWidget& box) {
            Keys(keys.chopped(1));
            told = TextOf(box, "lblPlan");
            Keys(keys.last(1));
        });
        return told;
    }
    void Select(int row, int day, const QString& keys) {
        Go(row, day + Days);
        for (const QChar key : keys)
            KeyboardUser::Press(key == u'→' ? Qt::Key_Right : Qt::Key_Down, Qt::ShiftModifier);
    }
    QStringList All() { return RowsOf(u"select NIP, Tgl, ShiftCode from ShiftEmployee order by NIP, Tgl"_s); }
    /// What is counted under a day, by shift.
    QString Counted(int day) {
        const QAbstractItemModel& counts = *Part<FootRows>("grdCounts").model();
        QStringList told;
        for (int row = 0; row < counts.rowCount(); ++row) {
            const QModelIndex cell = counts.index(row, day - 1);
            const bool lacks = cell.data(CellLookRole).toInt() == static_cast<int>(CellLook::Lacking);
            told << counts.headerData(row, Qt::Vertical).toString() + u' ' + cell.data().toString()
                        + (lacks ? u"!"_s : QString());
        }
        return told.join(u", "_s);
    }
};

} // namespace

TEST(RosterFill, EightyFiveEmployeesGetAMonthInFewKeysAndLoseItAgain) {
    Filling roster;
    for (int i = 100; i < 182; ++i)
        roster.AddEmployee(QString::number(i), u"Nama %1"_s.arg(i), u"x"_s);
    const QStringList before = roster.All();
    roster.Open([&](QWidget&) {
        const QString keys = u"PAGIx3 MALAMx3 Ox2⎇g1⎇j⏎"_s; // and Alt+O: 25 keys
        roster.dialogs.answers = {Dialogs::Answer::Yes};
        roster.Typed(u'o', keys);
        EXPECT_TRUE(roster.dialogs.questions.value(0).contains(u"Kode PAGI tidak ada"_s));
        const QStringList filled = roster.All();
        QStringList expected;
        const QStringList cycle{u"PAGI"_s,  u"PAGI"_s,  u"PAGI"_s, u"MALAM"_s,
                                u"MALAM"_s, u"MALAM"_s, u"O"_s,    u"O"_s};
        for (int row = 0; row < 85; ++row) {
            for (int day = 1; day <= 30; ++day)
                expected << u"%1|2026-11-%2|%3"_s
                                .arg(roster.Cell(row, 1).siblingAtColumn(RosterModel::Nip).data().toString())
                                .arg(day, 2, 10, QChar(u'0'))
                                .arg(cycle[(row + day - 1) % 8]);
        }
        for (const QString& other : before) {
            if (!other.contains(u"2026-11"_s) || other.startsWith(u"9999"_s))
                expected << other;
        }
        expected.sort();
        EXPECT_EQ(filled, expected);
        Keys(u"⎈z");
        EXPECT_EQ(roster.All(), before);
        Keys(u"⎈y");
        EXPECT_EQ(roster.All(), filled);
    });
    EXPECT_TRUE(roster.dialogs.texts.isEmpty()) << roster.dialogs.Last().toStdString();
}

TEST(RosterFill, FillsWhatWasAskedForAndKeepsWhatStands) {
    const struct {
        const char* what;
        QChar box;
        QString keys;
        QString siti; ///< 0012, who has P on the 1st and on 31 October
        QString budi; ///< 0013, who has MALAM on the 30th
    } cases[] = {
        {"all, what stands kept", u'o', u"O P⎇l29⏎"_s, u"01 P, 29 O, 30 P"_s, u"29 O, 30 MALAM"_s},
        {"what stands replaced", u'o', u"O P⎇l29⎇j⏎"_s, u"01 P, 29 O, 30 P"_s, u"29 O, 30 P"_s},
        {"begun later in the cycle, two steps for each row", u'o', u"O P MALAM⎇m2⎇g2⎇l29⎇j⏎"_s,
         u"01 P, 29 P, 30 MALAM"_s, u"29 O, 30 P"_s},
        {"a department", u'o', u"O⎇uDep⎇l29⎇p29⏎"_s, u"01 P"_s, u"29 O, 30 MALAM"_s},
        {"left", u'o', u"O⎋"_s, u"01 P"_s, u"30 MALAM"_s},
        {"what is no cycle", u'o', u"x3⏎⎋"_s, u"01 P"_s, u"30 MALAM"_s},
        {"two exchanged", u't', u"⎇d0013⏎"_s, u"01 , 30 MALAM"_s, u"01 P, 30 "_s},
        {"one copied", u'j', u"⎇n0013⎇j⏎"_s, u"01 , 30 MALAM"_s, u"30 MALAM"_s},
        {"last month by weekday", u'b', u"⎇cH⎇j⏎"_s, u"01 P, 28 P"_s, u"30 MALAM"_s},
    };
    for (const auto& c : cases) {
        Filling roster;
        roster.Run(u"UPDATE Employee SET Dept='DD' WHERE NIP='0013'"_s);
        roster.Run(u"INSERT INTO Departments (DeptCode,DeptName) VALUES ('DD','DD')"_s);
        roster.dialogs.answers = {Dialogs::Answer::Yes};
        roster.Open([&](QWidget&) {
            roster.Typed(c.box, c.keys);
            EXPECT_EQ(roster.Stored(u"0012"_s), c.siti) << c.what;
            EXPECT_EQ(roster.Stored(u"0013"_s), c.budi) << c.what;
        });
    }
}

TEST(RosterFill, CarriesOnEachOnesRhythmAndNamesWhoHasNone) {
    Filling roster;
    const QString week = u"PPPPPPO"_s;
    for (int day = 1; day <= 31; ++day)
        roster.Run(u"INSERT OR REPLACE INTO ShiftEmployee VALUES ('0013','2026-10-%1','%2')"_s
                       .arg(day, 2, 10, QChar(u'0'))
                       .arg(week[(day + 1) % 7]));
    roster.Open([&](QWidget&) {
        const QString told = roster.Typed(u'b', u"⎇p10⏎"_s);
        EXPECT_TRUE(told.contains(u"Irama tidak dikenali: 2 karyawan (Siti Aminah, Agus Salim)"_s))
            << told.toStdString();
        EXPECT_EQ(roster.Stored(u"0013"_s),
                  u"01 P, 02 O, 03 P, 04 P, 05 P, 06 P, 07 P, 08 P, 09 O, 10 P, 30 MALAM"_s);
        EXPECT_EQ(roster.Stored(u"0012"_s), u"01 P"_s);
    });
}

TEST(RosterFill, ABlockIsFilledAndItsPatternKeptUnderAName) {
    Filling roster;
    roster.Open([&](QWidget&) {
        roster.Select(0, 28, u"↓→→"_s);
        roster.Typed(u'o', u"P MALAM⎇nDua hari⏎"_s);
        EXPECT_EQ(roster.Stored(u"0012"_s) + u'/' + roster.Stored(u"0013"_s),
                  u"01 P, 28 P, 29 MALAM, 30 P/28 P, 29 MALAM, 30 MALAM"_s);
        EXPECT_EQ(roster.All().size(), 10) << "nobody else";
        roster.Select(0, 2, u"→"_s);
        roster.Typed(u'o', u"⎇tDua⏎"_s);
        EXPECT_TRUE(roster.Stored(u"0012"_s).startsWith(u"01 P, 02 P, 03 MALAM, 28"_s));
        roster.dialogs.answers = {Dialogs::Answer::Yes, Dialogs::Answer::Yes};
        roster.Select(0, 4, u"→"_s);
        roster.Typed(u'o', u"⎇tDua⎇sP P⏎"_s);
        EXPECT_TRUE(roster.dialogs.questions.value(0).contains(
            u"\"Dua hari\" sudah ada: P MALAM. Ganti dengan P P"_s));
        EXPECT_EQ(roster.RowsOf(u"select Name, Cycle from ShiftPattern"_s), QStringList{u"Dua hari|P P"_s});
        roster.InBox(u'o', [&](QWidget&) {
            Keys(u"⎇tDua⎇h");
            EXPECT_TRUE(KeyboardUser::WaitUntil(
                [&] { return roster.RowsOf(u"select Name from ShiftPattern"_s).isEmpty(); }));
            Keys(u"⎋");
        });
    });
}

TEST(RosterFill, AnotherDeskThatWasQuickerIsNotOverwritten) {
    Filling roster;
    const auto other = roster.OtherDesk();
    roster.Open([&](QWidget&) {
        roster.InBox(u'o', [&](QWidget& box) {
            Keys(u"P⎇l5⎇p6");
            EXPECT_EQ(roster.Look(1, 5), CellLook::Quiet) << "the preview";
            EXPECT_EQ(roster.Codes(1), u"5 P, 6 P, 30 MALAM"_s);
            EXPECT_EQ(roster.Stored(u"0013"_s), u"30 MALAM"_s);
            other->Execute(u"INSERT INTO ShiftEmployee VALUES ('0013','2026-11-06','MALAM')"_s);
            Keys(u"⏎");
            EXPECT_TRUE(roster.dialogs.Last().contains(u"Budi Santoso"_s)
                        && roster.dialogs.Last().contains(u"sekarang MALAM"_s))
                << roster.dialogs.Last().toStdString();
            EXPECT_EQ(roster.Stored(u"0013"_s) + roster.Stored(u"0012"_s), u"06 MALAM, 30 MALAM01 P"_s);
            EXPECT_EQ(roster.Codes(1), u"5 P, 6 MALAM, 30 MALAM"_s) << "kept, as it stands";
            EXPECT_TRUE(box.isVisible());
            Keys(u"⏎");
        });
        EXPECT_EQ(roster.Stored(u"0013"_s) + roster.Stored(u"0012"_s),
                  u"05 P, 06 MALAM, 30 MALAM01 P, 05 P, 06 P"_s);
        other->Execute(u"UPDATE ShiftEmployee SET ShiftCode='MALAM' WHERE NIP='0012' AND Tgl='2026-11-05'"_s);
        Keys(u"⎈z");
        EXPECT_EQ(roster.Stored(u"0013"_s) + roster.Stored(u"0012"_s), u"06 MALAM, 30 MALAM01 P, 05 MALAM"_s)
            << "but for the other desk's";
    });
}

TEST(RosterFill, NobodyIsPlannedBeforeOrAfterTheirWork) {
    Filling roster;
    roster.Run(u"UPDATE Employee SET Masuk='2026-11-29' WHERE NIP='0013'"_s);
    roster.Run(u"UPDATE Employee SET Keluar='2026-11-02' WHERE NIP='0012'"_s);
    roster.Run(u"UPDATE Employee SET Keluar='2026-10-31' WHERE NIP<>'0012' AND NIP<>'0013'"_s);
    roster.Open([&](QWidget&) {
        EXPECT_TRUE(roster.Typed(u'o', u"P⏎"_s).startsWith(u"2 sel akan diisi"_s));
        EXPECT_EQ(roster.Counted(2), u"MALAM 0, P 1"_s);
    });
    EXPECT_EQ(roster.Stored(u"0012"_s) + u'/' + roster.Stored(u"0013"_s), u"01 P, 02 P/29 P, 30 MALAM"_s);
}

TEST(RosterFill, WhatIsTakenBackBelongsToItsMonth) {
    Filling roster;
    roster.Open([&](QWidget& window) {
        Keys(u"MALAM⏎⎈⇟");
        EXPECT_EQ(TextOf(window, "lblMonth"), u"Desember 2026"_s);
        roster.Grid().setFocus();
        Keys(u"⎈z");
        EXPECT_EQ(TextOf(window, {"txtPeriode", "lblMonth"}), u"202611|November 2026"_s);
        EXPECT_EQ(roster.Stored(u"0012"_s) + u'/' + roster.Codes(0), u"01 P/1 P"_s);
        EXPECT_EQ(roster.RowsOf(u"select count(1) from ShiftEmployee where Month(Tgl)=12"_s),
                  QStringList{u"0"_s});
    });
}

TEST(RosterFill, AFilterHidesNothingUnsavedAndABlockIsWhatIsSeen) {
    Filling roster;
    roster.Run(
        u"CREATE TRIGGER refuse BEFORE UPDATE ON ShiftEmployee BEGIN SELECT RAISE(ABORT,'full'); END"_s);
    roster.Open([&](QWidget& window) {
        const auto shown = [&] {
            QStringList names;
            for (int row = 0; row < roster.Grid().model()->rowCount(); ++row)
                names << roster.Cell(row, 0).data().toString();
            return names.join(u", "_s);
        };
        Keys(u"⎇ssalim⏎");
        EXPECT_EQ(shown(), u"Agus Salim"_s);
        Keys(u"⎇s⎋");
        EXPECT_TRUE(window.isVisible());
        roster.Go(0, 1 + Days);
        Keys(u"MALAM⏎⎇sbudi⏎");
        EXPECT_EQ(shown(), u"Siti Aminah, Budi Santoso"_s);
        EXPECT_TRUE(roster.Grid().IsMarkedUnsaved(roster.Cell(0, 1)));
        roster.SetPeriod(u"202611"_s);
        Keys(u"⎇s⌫0013⏎");
        EXPECT_EQ(shown(), u"Budi Santoso"_s);
        roster.Typed(u'o', u"P⎇l2⎇p2⏎"_s);
    });
    EXPECT_EQ(roster.Stored(u"0012"_s) + u'/' + roster.Stored(u"0013"_s), u"01 P/02 P, 30 MALAM"_s);
}

TEST(RosterFill, CountsEachShiftAndMarksADayThatLacksSomeone) {
    Filling roster;
    roster.Open([&](QWidget&) {
        EXPECT_EQ(roster.Counted(1), u"MALAM 0, P 1"_s);
        Keys(u"→P⏎");
        EXPECT_EQ(roster.Counted(2), u"MALAM 0, P 1"_s);
        Keys(u"MALAM⏎←⌦");
        EXPECT_EQ(roster.Counted(3), u"MALAM 0, P 0"_s);
        bool done = false;
        roster.user.WhenIn(u"ShiftNeedBox"_s, [&](QWidget&) {
            Keys(u"↓2⏎→→→→x⏎");
            EXPECT_TRUE(roster.dialogs.Last().contains(u"bukan jumlah karyawan"_s));
            Keys(u"⎋→1⏎⎋");
            done = true;
        });
        Keys(u"⎇u");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return done; }));
        EXPECT_EQ(roster.RowsOf(u"select * from ShiftNeed order by Weekday"_s),
                  (QStringList{u"P|1|2"_s, u"P|7|1"_s}));
        EXPECT_EQ(roster.Counted(1), u"MALAM 0, P 1"_s) << "enough on a Sunday";
        EXPECT_EQ(roster.Counted(2), u"MALAM 0, P 1/2!"_s);
        EXPECT_EQ(roster.Counted(3), u"MALAM 0, P 0"_s) << "nobody is needed";
        const auto& foot = roster.Part<FootRows>("grdCounts");
        for (int day = 1; day <= 31; ++day)
            EXPECT_EQ(foot.visualRect(foot.model()->index(0, day - 1)).left()
                          + foot.viewport()->mapToGlobal(QPoint()).x(),
                      roster.Grid().visualRect(roster.Cell(0, day)).left()
                          + roster.Grid().viewport()->mapToGlobal(QPoint()).x());
    });
}

TEST(RosterFill, AGeneratedCellPaysLikeATypedOne) {
    Filling roster;
    roster.Run(u"UPDATE Employee SET GP=150000, RateOT=20000, TMakan=15000, EmpType='HRN'"_s);
    for (const QString& nip : {u"0012"_s, u"0013"_s})
        roster.AddCard(u"T20261103"_s + nip, nip, u"OUT"_s, u"2026-11-03"_s, u"2026-11-03 21:50:00"_s,
                       u"2026-11-04 05:30:00"_s);
    roster.Open([&](QWidget&) {
        roster.Go(0, 3 + Days);
        Keys(u"malam⏎");
        roster.Go(1, 3 + Days);
        roster.Typed(u'o', u"malam⎇uHanya⎇l3⎇p3⏎"_s);
    });
    modAbsen::CalculateTimeCards(roster.Db(), {u"T202611030012"_s, u"T202611030013"_s});
    const QStringList results =
        roster.RowsOf(u"select h.NormalHours, h.OTHours, h.NormalAmount, h.OTAmount, h.TotalUangMakan, "
                      u"d.ShiftCode, d.TimeINOT, d.TimeOutOT "
                      "from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID order by h.TCID"_s);
    ASSERT_EQ(results.size(), 2);
    EXPECT_EQ(results[0], results[1]);
    EXPECT_TRUE(results[0].contains(u"|MALAM|2026-11-04 06:00:00"_s)) << results[0].toStdString();
}
