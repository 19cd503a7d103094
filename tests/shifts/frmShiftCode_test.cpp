#include "shifts/frmShiftCode.h"

#include "support/window_company.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using Answer = Dialogs::Answer;

namespace {

const QString Night = u"MALAM|1899-12-30 22:00:00|1899-12-31 06:00:00"_s;
const QString RenamedNight = u"MLM"_s + Night.sliced(5);
const QString Daily = u"P|1899-12-30 08:00:00|1899-12-30 17:00:00"_s;

/// The window over a night and a day shift, worked at by keyboard while it is open.
class ShiftCodes : public WindowFixture {
public:
    ShiftCodes() {
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00'),"
            "('MALAM','1899-12-30 22:00:00','1899-12-31 06:00:00')"_s);
    }

    /// Opens the window and does the work in it. What is left open is closed, unsaved.
    void Open(const std::function<void(QWidget&)>& work) {
        frmShiftCode codes(program, skin, nullptr);
        WindowFixture::Open(codes, work, [this](QWidget&) {
            dialogs.answers = {Answer::No};
            Keys(u"⎇k");
        });
    }
    QTableView& Grid() { return Part<QTableView>("DataGrid1"); }
    QStringList Shown() {
        const QAbstractItemModel& model = *Grid().model();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto cell = [&](int column) { return model.index(row, column).data().toString(); };
            rows << cell(0) + u'|' + cell(1) + u'|' + cell(2);
        }
        return rows;
    }
    QStringList Rows() { return RowsOf(u"select Code, TimeIn, TimeOut from Shift order by Code"_s); }
};

} // namespace

TEST(frmShiftCode, WritesARowWhenItIsLeftOrFinished) {
    const QString onDayZero = u"|1899-12-30 %1:00|1899-12-30 %2:00"_s;
    const struct {
        const char* what;
        QString keys;
        QStringList rows;
    } cases[] = {
        {"a new row, finished",
         u"⎀SORE⏎14:00⏎22:00⏎"_s,
         {Night, Daily, u"SORE"_s + onDayZero.arg(u"14:00"_s, u"22:00"_s)}},
        {"an end before the start is of the next day",
         u"⎀X⏎2330⏎7.15⏎"_s,
         {Night, Daily, u"X|1899-12-30 23:30:00|1899-12-31 07:15:00"_s}},
        {"a day off has no hours",
         u"⎀X⏎00:00⏎0:00⏎"_s,
         {Night, Daily, u"X"_s + onDayZero.arg(u"00:00"_s, u"00:00"_s)}},
        {"a whole day and night, said so",
         u"⎀X⏎07:00⏎07:00+1⏎"_s,
         {Night, Daily, u"X|1899-12-30 07:00:00|1899-12-31 07:00:00"_s}},
        {"without hours", u"⎀X⏎⏎⏎⏎⏎"_s, {Night, Daily, u"X|-|-"_s}},
        {"an earlier start makes a night a day",
         u"→05:00⏎⏎⏎"_s,
         {u"MALAM"_s + onDayZero.arg(u"05:00"_s, u"06:00"_s), Daily}},
        {"the code alone, left by the arrow", u"MLM⏎↓"_s, {RenamedNight, Daily}},
        {"left by Tab", u"→→05:30↹"_s, {u"MALAM|1899-12-30 22:00:00|1899-12-31 05:30:00"_s, Daily}},
        {"not yet left", u"MLM⏎"_s, {Night, Daily}},
        {"a cell taken back", u"MLM⎋↓"_s, {Night, Daily}},
        {"a row in edit, deleted", u"MLM⏎⌦↓"_s, {Night, Daily}},
        {"a row taken back", u"MLM⏎21:00⏎⎋↓"_s, {Night, Daily}},
        {"a blank new row", u"⎀⎋↑"_s, {Night, Daily}},
        {"a new row taken back", u"⎀X⏎⎋↑"_s, {Night, Daily}},
    };
    for (const auto& c : cases) {
        ShiftCodes codes;
        codes.Open([&](QWidget&) {
            const QAbstractItemModelTester tester(codes.Grid().model(),
                                                  QAbstractItemModelTester::FailureReportingMode::Fatal);
            Keys(c.keys);
            EXPECT_EQ(codes.Rows(), c.rows) << c.what;
            EXPECT_FALSE(codes.Said("lblStatus").startsWith(u"Shift  "_s)) << c.what;
        });
        EXPECT_TRUE(codes.dialogs.texts.isEmpty()) << c.what;
    }
}

TEST(frmShiftCode, WhatCannotStandThereIsToldAndStaysInEdit) {
    const struct {
        QString keys;
        QString row;
    } cases[] = {
        {u"⎀X⏎25:00⏎08:00⏎"_s, u"X|25:00|08:00"_s},
        {u"⎀X⏎08:00⏎pagi⏎"_s, u"X|08:00|pagi"_s},
        {u"⎀X⏎8:00+1⏎9:00⏎"_s, u"X|8:00+1|09:00"_s},
        {u"⎀P⏎08:00⏎09:00⏎"_s, u"P|08:00|09:00"_s},
        {u"⎀malam ⏎08:00⏎09:00⏎"_s, u"malam |08:00|09:00"_s},
        {u"⎀LAIN⏎08:00⏎09:00⏎"_s, u"LAIN|08:00|09:00"_s}, // another desk's, not read yet
        {u"⎀⎋→08:00⏎09:00⏎"_s, u"|08:00|09:00"_s},
        {u"⎀A'B⏎08:00⏎09:00⏎"_s, u"A'B|08:00|09:00"_s},
        {u"⎀X⏎08.60⏎↑"_s, u"X|08.60|"_s},
    };
    for (const auto& c : cases) {
        ShiftCodes codes;
        const auto other = codes.OtherDesk();
        codes.Open([&](QWidget&) {
            other->Execute(u"INSERT INTO Shift (Code) VALUES ('LAIN')"_s);
            Keys(c.keys);
            EXPECT_EQ(codes.dialogs.texts.size(), 1) << c.row.toStdString();
            EXPECT_EQ(codes.Rows(), (QStringList{u"LAIN|-|-"_s, Night, Daily}));
            EXPECT_EQ(codes.Shown().value(2), c.row);
            EXPECT_EQ(codes.Grid().currentIndex().row(), 2);
            Keys(u"⎀"); // not a further row beside it
            EXPECT_EQ(codes.dialogs.texts.size(), 2) << c.row.toStdString();
            EXPECT_EQ(codes.Shown().size(), 3);
            Keys(u"⎋");
            EXPECT_EQ(codes.Shown().size(), 2);
        });
    }
}

TEST(frmShiftCode, AnotherDesksChangeIsToldAndShown) {
    for (const QString& keys : {u"→21:00⏎⏎⏎"_s, u"⌦"_s}) {
        ShiftCodes codes;
        const auto other = codes.OtherDesk();
        other->Execute(u"INSERT INTO Shift VALUES ('Z','1899-12-30 22:00:00','1900-01-01 06:00:30')"_s);
        codes.Open([&](QWidget&) {
            other->Execute(u"UPDATE Shift SET TimeIn='1899-12-30 23:00:00' WHERE Code='MALAM'"_s);
            codes.dialogs.answers = {Answer::Yes};
            Keys(keys);
            EXPECT_TRUE(codes.dialogs.Last().contains(u"komputer lain"_s));
            EXPECT_EQ(codes.Shown(), (QStringList{u"MALAM|23:00|06:00 (+1)"_s, u"P|08:00|17:00"_s,
                                                  u"Z|22:00|06:00:30 (+2)"_s}));
            EXPECT_EQ(codes.Rows().first(), u"MALAM|1899-12-30 23:00:00|1899-12-31 06:00:00"_s);
            codes.Grid().setCurrentIndex(codes.Grid().model()->index(2, 0));
            Keys(u"ZZ⏎↑"); // times that cannot be typed stay as they are
            EXPECT_EQ(codes.Rows().last(), u"ZZ|1899-12-30 22:00:00|1900-01-01 06:00:30"_s);
        });
    }
}

TEST(frmShiftCode, DeletingSaysHowManyRowsUseTheCodeAndLeavesThemAlone) {
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        ShiftCodes codes;
        Connection& db = codes.Db();
        db.Execute(u"UPDATE Shift SET Code='Malam' WHERE Code='MALAM'"_s);
        db.Execute(u"INSERT INTO ShiftEmployee VALUES ('1','2026-11-01','Malam'),('1','2026-11-02','Malam'),"
                   "('1','2026-11-03','P')"_s);
        db.Execute(u"INSERT INTO TimeCardDetail (TCID,Tanggal,ShiftCode) VALUES "
                   "('T202611011','2026-11-01','MALAM')"_s);
        codes.dialogs.answers = {answer};
        codes.Open([&](QWidget&) {
            Keys(u"⌦");
            const QString question = codes.dialogs.questions.value(0);
            EXPECT_TRUE(question.contains(u"2 hari"_s) && question.contains(u"1 kartu"_s));
        });
        EXPECT_EQ(codes.Rows().size(), answer == Answer::Yes ? 1 : 2);
        EXPECT_EQ(codes.RowsOf(u"select ShiftCode from ShiftEmployee order by Tgl"_s),
                  (QStringList{u"Malam"_s, u"Malam"_s, u"P"_s}));
    }
}

TEST(frmShiftCode, RenamingAUsedCodeAsks) {
    const struct {
        const char* what;
        QString keys;
        Answer answer;
        qsizetype asked;
        QStringList rows;
    } cases[] = {
        {"wanted", u"MLM⏎↓"_s, Answer::Yes, 1, {RenamedNight, Daily}},
        {"not wanted, taken back", u"MLM⏎21:00⏎↓"_s, Answer::No, 1, {Night, Daily}},
        {"not decided, asked again", u"MLM⏎↓↓"_s, Answer::Cancel, 2, {Night, Daily}},
        {"not renamed",
         u"→21:00⏎↓"_s,
         Answer::No,
         0,
         {u"MALAM|1899-12-30 21:00:00"_s + Night.sliced(25), Daily}},
        {"not used", u"↓PAGI⏎↑"_s, Answer::No, 0, {Night, u"PAGI"_s + Daily.sliced(1)}},
        {"cannot be", u"p⏎↓"_s, Answer::Yes, 0, {Night, Daily}},
    };
    for (const auto& c : cases) {
        ShiftCodes codes;
        codes.Run(u"INSERT INTO ShiftEmployee VALUES ('1','2026-11-01','MALAM')"_s);
        codes.dialogs.answers = {c.answer};
        codes.Open([&](QWidget&) {
            Keys(c.keys);
            EXPECT_EQ(codes.dialogs.questions.size(), c.asked) << c.what;
            EXPECT_TRUE(c.asked == 0 || codes.dialogs.questions[0].contains(u"1 hari"_s)) << c.what;
            EXPECT_EQ(codes.Rows(), c.rows) << c.what;
        });
    }
}

TEST(frmShiftCode, ClosingWithARowInEditAsks) {
    const struct {
        Answer answer;
        bool closes;
        QString row;
    } cases[] = {
        {Answer::Yes, true, RenamedNight}, {Answer::No, true, Night}, {Answer::Cancel, false, Night}};
    for (const auto& c : cases) {
        ShiftCodes codes;
        codes.dialogs.answers = {c.answer};
        codes.Open([&](QWidget& window) {
            Keys(u"MLM⎇k");
            EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !codes.dialogs.questions.isEmpty(); }));
            QCoreApplication::processEvents();
            EXPECT_EQ(window.isVisible(), !c.closes);
        });
        EXPECT_EQ(codes.Rows().first(), c.row);
    }
    for (const QString& nothing : {u"⎀⎋"_s, u"MALAM⏎"_s}) {
        ShiftCodes codes;
        codes.Open([&](QWidget&) { Keys(nothing); });
        EXPECT_TRUE(codes.dialogs.questions.isEmpty()) << nothing.toStdString();
    }
}

TEST(frmShiftCode, AnEmptyTableTakesAFirstRow) {
    ShiftCodes codes;
    codes.Run(u"DELETE FROM Shift"_s);
    codes.Open([&](QWidget&) {
        const QAbstractItemModel& model = *codes.Grid().model();
        EXPECT_EQ(model.rowCount(), 0);
        Keys(u"⎇t");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return model.rowCount() == 1; }));
        Keys(u"P⏎08:00⏎17:00⏎");
    });
    EXPECT_EQ(codes.Rows(), QStringList{Daily});
}

TEST(frmShiftCode, BlocksAreWrittenAllOrNoneAndTakenBack) {
    ShiftCodes codes;
    const QStringList before = codes.Rows();
    codes.Open([&](QWidget&) {
        QGuiApplication::clipboard()->setText(u"21:00\t05:00\n9:00\tpagi"_s);
        Keys(u"→⎈v");
        EXPECT_TRUE(codes.dialogs.Last().contains(u"\"pagi\" bukan jam"_s));
        EXPECT_EQ(codes.Rows(), before);
        QGuiApplication::clipboard()->setText(u"21:00\t05:00\n9:00\t18:00"_s);
        Keys(u"⎈v");
        EXPECT_EQ(codes.Rows(), (QStringList{u"MALAM|1899-12-30 21:00:00|1899-12-31 05:00:00"_s,
                                             u"P|1899-12-30 09:00:00|1899-12-30 18:00:00"_s}));
        codes.OtherDesk()->Execute(u"UPDATE Shift SET TimeIn='1899-12-30 10:00:00' WHERE Code='P'"_s);
        Keys(u"⎈z");
        EXPECT_EQ(codes.Rows(), (QStringList{Night, u"P|1899-12-30 10:00:00|1899-12-30 18:00:00"_s}));
        EXPECT_TRUE(codes.dialogs.Last().contains(u"P TimeIn: sekarang berisi \"10:00\""_s));
        Keys(u"⇱23:00↓⎈z"); // typed, entered by the arrow, saved as the row is left
        EXPECT_EQ(codes.Rows().first(), Night);
        EXPECT_EQ(codes.Said("lblStatus"), u"Dibatalkan: 1 sel."_s);
    });
}
