#include "shifts/roster_window.h"
#include "support/failures.h"
#include "ui/frozen_columns.h"

#include <QCoreApplication>
#include <QScrollBar>

using namespace Qt::StringLiterals;

TEST(frmShiftEmployee, ShowsTheMonthWithThirtyOneDays) {
    Roster roster;
    roster.Open([&](QWidget& window) {
        const QAbstractItemModel& model = *roster.Grid().model();
        for (int day = 1; day <= 31; ++day)
            EXPECT_EQ(model.headerData(day + Days, Qt::Horizontal).toInt(), day);
        EXPECT_EQ(model.columnCount(), 34);
        EXPECT_EQ(model.rowCount(), 3);
        EXPECT_EQ(model.index(1, 0).data().toString() + model.index(1, 1).data().toString()
                      + model.index(1, 2).data().toString(),
                  u"20013Budi Santoso"_s);
        EXPECT_EQ(TextOf(window, "txtPeriode"), u"202611"_s);
        EXPECT_EQ(roster.Codes(0), u"1 P"_s);
        EXPECT_EQ(roster.Codes(1), u"30 MALAM"_s);
        const std::pair<int, CellLook> looks[] = {{21, CellLook::Plain},
                                                  {22, CellLook::Marked},
                                                  {29, CellLook::Tinted},
                                                  {30, CellLook::Plain},
                                                  {31, CellLook::Hatched}};
        for (const auto& [day, look] : looks)
            EXPECT_EQ(roster.Look(1, day), look) << day;
    });
}

TEST(frmShiftEmployee, WritesEachChangedCellAtOnce) {
    const struct {
        const char* what;
        QString keys;
        QString stored;
    } cases[] = {
        {"another code over the first", u"MALAM⏎"_s, u"01 MALAM"_s},
        {"a day that had none, then the next", u"→P⏎MALAM⏎"_s, u"01 P, 02 P, 03 MALAM"_s},
        {"twice the same day", u"→P⏎←MALAM⏎"_s, u"01 P, 02 MALAM"_s},
        {"a code that is not listed", u"→cuti⏎"_s, u"01 P, 02 cuti"_s},
        {"the spelling of the shift codes", u"→p⏎p ⏎o⏎malam⏎"_s, u"01 P, 02 P, 03 P, 04 O, 05 MALAM"_s},
        {"a change taken back", u"MALAM⎋"_s, u"01 P"_s},
        {"a change not entered", u"MALAM"_s, u"01 P"_s},
        {"an emptied cell", u"⌦"_s, u"01 "_s},
        {"a cell that was empty", u"→⌦"_s, u"01 P"_s},
        {"the present text changed", u"⏎⇲1⏎"_s, u"01 P1"_s},
        {"the fixed columns are not entered", u"←←MALAM⏎"_s, u"01 MALAM"_s},
    };
    for (const auto& c : cases) {
        Roster roster;
        roster.Open([&](QWidget&) {
            Keys(c.keys);
            EXPECT_EQ(roster.Stored(u"0012"_s), c.stored) << c.what;
        });
        EXPECT_TRUE(roster.dialogs.texts.isEmpty()) << c.what;
        EXPECT_EQ(roster.Stored(u"0013"_s), u"30 MALAM"_s) << c.what;
        EXPECT_EQ(roster.Stored(u"9999"_s), u"01 P"_s) << c.what;
    }
}

TEST(frmShiftEmployee, AnUnchangedTextIsNotWrittenAndAChangedOneOverwrites) {
    for (const auto& [keys, stored] :
         {std::pair{u"P⏎"_s, u"01 LAIN"_s}, std::pair{u"MALAM⏎"_s, u"01 MALAM"_s}}) {
        Roster roster;
        const auto other = roster.OtherDesk();
        roster.Open([&, typed = keys](QWidget&) {
            other->Execute(u"UPDATE ShiftEmployee SET ShiftCode='LAIN' WHERE NIP='0012'"_s);
            Keys(typed);
        });
        EXPECT_EQ(roster.Stored(u"0012"_s), stored);
        EXPECT_TRUE(roster.dialogs.texts.isEmpty());
    }
}

TEST(frmShiftEmployee, WhatCannotBeSavedIsToldAndTheTextStaysMarked) {
    const struct {
        const char* what;
        int row;
        int day;
        QString code;
        bool wiped; ///< else the month is read anew
    } cases[] = {{"a day that the month lacks", 0, 31, u"cuti"_s, true},
                 {"a number that no statement can hold", 2, 5, u"P"_s, false},
                 {"the database refuses", 1, 30, u"GAGAL"_s, false}};
    for (const auto& c : cases) {
        Roster roster;
        roster.Run(u"CREATE TRIGGER refuse BEFORE UPDATE ON ShiftEmployee WHEN NEW.ShiftCode='GAGAL' "
                   "BEGIN SELECT RAISE(ABORT,'disk on fire'); END"_s);
        const QStringList before = roster.RowsOf(u"select * from ShiftEmployee"_s);
        roster.Open([&](QWidget&) {
            DataGrid& grid = roster.Grid();
            const QModelIndex cell = roster.Cell(c.row, c.day);
            grid.setCurrentIndex(cell);
            Keys(c.code + u'⏎');
            EXPECT_EQ(roster.dialogs.texts.size(), 1) << c.what;
            EXPECT_EQ(roster.RowsOf(u"select * from ShiftEmployee"_s), before) << c.what;
            EXPECT_EQ(cell.data().toString(), c.code) << c.what;
            EXPECT_TRUE(grid.IsMarkedUnsaved(cell)) << c.what;
            EXPECT_TRUE(roster.IsLogged("frmShiftEmployee.SaveCell"));
            Keys(u"⏎⏎");
            EXPECT_EQ(roster.dialogs.texts.size(), 2) << c.what << ", entered again";
            roster.SetPeriod(u"1"_s);
            EXPECT_TRUE(grid.IsMarkedUnsaved(cell)) << c.what << ", after a month that is none";
            EXPECT_EQ(roster.Look(0, 31), CellLook::Hatched) << c.what;
            roster.SetPeriod(c.wiped ? u"2"_s : u"202611"_s);
            grid.setFocus();
            if (c.wiped)
                Keys(u"⌦");
            EXPECT_FALSE(grid.IsMarkedUnsaved(cell)) << c.what;
            EXPECT_NE(cell.data().toString(), c.code) << c.what;
            EXPECT_EQ(roster.dialogs.texts.size(), c.wiped ? 4 : 3) << c.what;
        });
    }
    Roster roster;
    roster.Run(
        u"CREATE TRIGGER refuse BEFORE UPDATE ON ShiftEmployee BEGIN SELECT RAISE(ABORT,'full'); END"_s);
    roster.Open([&](QWidget&) {
        Keys(u"⌦⌦");
        EXPECT_EQ(roster.dialogs.texts.size(), 2) << "emptied again";
    });
}

TEST(frmShiftEmployee, AQuoteIsRefusedInTheEditor) {
    Roster roster;
    roster.Open([&](QWidget& window) {
        Keys(u"P'⏎");
        EXPECT_TRUE(roster.dialogs.Last().contains(u"tanda kutip"_s));
        EXPECT_EQ(Part<QLineEdit>(window, "Text1").text(), u"P'"_s);
        Keys(u"⎋");
        EXPECT_EQ(roster.Codes(0) + u'/' + roster.Stored(u"0012"_s), u"1 P/01 P"_s);
    });
}

TEST(frmShiftEmployee, APeriodThatIsNoneKeepsTheMonthAndItsSaves) {
    for (const QString& period :
         {u"2026-1"_s, u"20261"_s, u"202613"_s, u"202600"_s, u"abcdef"_s, u"1or1=1"_s, u"⌦"_s}) {
        Roster roster;
        roster.Open([&](QWidget& window) {
            roster.SetPeriod(period);
            EXPECT_EQ(roster.dialogs.texts.size(), 1) << period.toStdString();
            EXPECT_EQ(roster.Codes(0), u"1 P"_s);
            EXPECT_EQ(TextOf(window, "lblMonth"), u"November 2026"_s);
            const auto& typed = Part<QLineEdit>(window, "txtPeriode");
            EXPECT_EQ(typed.selectedText(), typed.text()) << "ready to be typed anew";
            Keys(u"↹↹↹MALAM⏎");
            EXPECT_EQ(roster.Stored(u"0012"_s), u"01 MALAM"_s);
        });
    }
}

TEST(frmShiftEmployee, AnotherMonthTakesThePlaceOfTheFirst) {
    Roster roster;
    roster.Run(u"INSERT INTO ShiftEmployee VALUES ('0012','2024-02-29','MALAM')"_s);
    const auto other = roster.OtherDesk();
    roster.Open([&](QWidget& window) {
        roster.SetPeriod(u"202402"_s);
        EXPECT_EQ(roster.Codes(0), u"29 MALAM"_s);
        EXPECT_EQ(roster.Look(0, 30), CellLook::Hatched);
        roster.SetPeriod(u"202612"_s);
        EXPECT_EQ(roster.Codes(0), QString());
        Keys(u"⎈⇞");
        EXPECT_EQ(roster.Codes(0), u"1 P"_s);
        Part<QWidget>(window, "txtPeriode").setFocus();
        for (const auto& [key, period] : {std::pair{Qt::Key_PageDown, u"202612"_s},
                                          {Qt::Key_PageUp, u"202611"_s},
                                          {Qt::Key_PageUp, u"202610"_s}}) {
            KeyboardUser::Press(key);
            EXPECT_EQ(TextOf(window, "txtPeriode"), period);
        }
        roster.Grid().setFocus();
        roster.Grid().setCurrentIndex(roster.Cell(0, 31));
        Keys(u"MALAM⏎");
        EXPECT_EQ(roster.RowsOf(u"select ShiftCode from ShiftEmployee where Tgl=#2026-10-31#"_s),
                  QStringList{u"MALAM"_s});
        other->Execute(u"DELETE FROM ShiftEmployee"_s);
        roster.SetPeriod(u"202611"_s);
        EXPECT_EQ(roster.Codes(0) + roster.Codes(1), QString());
        roster.SetPeriod(u"202610"_s);
        window.close();
        window.show();
        EXPECT_EQ(TextOf(window, {"txtPeriode", "lblMonth"}), u"202611|November 2026"_s) << "opened again";
    });
    EXPECT_TRUE(roster.dialogs.texts.isEmpty());
}

TEST(frmShiftEmployee, OffersTheShiftCodesAndPointsOutOthers) {
    Roster roster;
    roster.Open([&](QWidget& window) {
        auto& status = Part<QLabel>(window, "lblStatus");
        EXPECT_TRUE(Part<QWidget>(window, "cmdLov").isVisible());
        bool picked = false;
        roster.user.WhenIn(u"PickList"_s, [&picked](QWidget&) {
            Keys(u"mal⏎");
            picked = true;
        });
        Keys(u"⑨");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return picked; }));
        Keys(u"⏎");
        EXPECT_TRUE(status.text().contains(u"22:00 - 06:00 (+1)"_s)) << status.text().toStdString();
        Keys(u"⏎⏎");
        EXPECT_EQ(roster.Stored(u"0012"_s), u"01 MALAM"_s) << "an empty day stays empty";
        Keys(u"cuti⏎");
        EXPECT_EQ(roster.Look(0, 2), CellLook::Doubtful);
        EXPECT_TRUE(status.text().contains(u"tidak ada di Shift"_s));
        roster.SetPeriod(u"202611"_s);
        EXPECT_EQ(status.text(), u"3 karyawan · 1 hari dengan kode yang tidak ada di Shift"_s);
        roster.Run(u"INSERT INTO Shift VALUES ('cuti','1899-12-30 00:00:00','1899-12-30 00:00:00')"_s);
        roster.SetPeriod(u"202611"_s);
        EXPECT_TRUE(roster.Cell(0, 2).data(Qt::ToolTipRole).toString().endsWith(u" · cuti"_s)) << "no hours";
        EXPECT_EQ(roster.Look(0, 2), CellLook::Plain);
        roster.Run(u"DELETE FROM Shift WHERE Code='cuti'"_s);
        roster.SetPeriod(u"202611"_s);
        EXPECT_EQ(roster.Look(0, 2), CellLook::Doubtful) << "no shift any more";
    });
    EXPECT_EQ(roster.Stored(u"0012"_s), u"01 MALAM, 02 cuti"_s);
}

TEST(frmShiftEmployee, NamesStayInSightBesideTheirDays) {
    Roster roster;
    for (int i = 100; i < 160; ++i)
        roster.AddEmployee(QString::number(i), u"Nama %1"_s.arg(i), u"x"_s);
    roster.Open([&](QWidget& window) {
        window.resize(700, 400);
        DataGrid& grid = roster.Grid();
        auto* names = grid.findChild<FrozenColumns*>();
        ASSERT_TRUE(names);
        for (const auto& [row, day] : {std::pair{0, 1}, std::pair{61, 31}, std::pair{30, 2}}) {
            names->setColumnWidth(RosterModel::Nama, 150 + row); // as the mouse draws it
            grid.setCurrentIndex(roster.Cell(row, day));
            QCoreApplication::processEvents();
            const QRect code = grid.visualRect(grid.currentIndex());
            const QRect name = names->visualRect(names->model()->index(row, RosterModel::Nama));
            const auto onScreen = [](const QAbstractItemView& view, QRect cell) {
                return cell.translated(view.viewport()->mapToGlobal(QPoint(0, 0)));
            };
            EXPECT_TRUE(grid.viewport()->rect().contains(code)) << row;
            EXPECT_TRUE(names->viewport()->rect().contains(name)) << row;
            EXPECT_EQ(onScreen(grid, code).top(), onScreen(*names, name).top()) << row;
            EXPECT_LT(onScreen(*names, name).right(), onScreen(grid, code).left()) << row;
        }
        names->verticalScrollBar()->setValue(3);
        EXPECT_EQ(grid.verticalScrollBar()->value(), 3) << "the wheel over the names";
    });
}
