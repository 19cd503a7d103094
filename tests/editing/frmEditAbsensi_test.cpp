#include "editing/frmEditAbsensi.h"

#include "support/window_company.h"
#include "ui/data_grid.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using enum SearchRow::Column;

namespace {

const QString Cards =
    u"select h.TCID, Status, Keterangan, NormalHours, TimeIN, TimeOUT from TimeCardHeader h left "
    "join TimeCardDetail d on d.TCID=h.TCID order by h.TCID"_s;

/// The search window over the cards of two employees on two days, worked at by keyboard.
class SearchWindow : public WindowFixture {
public:
    SearchWindow() {
        AddEmployee(u"0012"_s, u"Siti"_s, u"x"_s, u"PROD"_s, u"A"_s);
        AddEmployee(u"0013"_s, u"李小龍"_s, u"x"_s, u"GA"_s, u"B"_s);
        AddUser(u"pelon"_s, u"pelon"_s, u"SPV"_s);
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00')"_s);
        Run(u"INSERT INTO [Employee Status] VALUES (1,'IN','Masuk'),(2,'TL','Tugas luar')"_s);
        for (const QString& day : {u"2026-11-21"_s, u"2026-11-22"_s}) {
            for (const QString& nip : {u"0012"_s, u"0013"_s}) {
                const QString tcid = u'T' + QString(day).remove(u'-') + nip;
                AddCard(tcid, nip, u"OUT"_s, day, day + u" 07:45:00"_s, day + u" 16:30:00"_s);
            }
        }
        window = std::make_unique<frmEditAbsensi>(program, skin, nullptr);
        Show(*window);
    }

    void Type(int row, int column, const QString& text) {
        Go(row, column);
        Keys(text + u'⏎');
    }
    /// Presses a button by its mnemonic and waits for what it says when it is done.
    void Do(Qt::Key mnemonic) {
        Part<QLabel>("lblDone").clear();
        KeyboardUser::Press(mnemonic, Qt::AltModifier);
        KeyboardUser::WaitUntil([this] { return !Said("lblDone").isEmpty(); });
    }

    std::unique_ptr<frmEditAbsensi> window;
};

} // namespace

TEST(frmEditAbsensi, SearchesWithEnterFromEveryBox) {
    SearchWindow search;
    EXPECT_FALSE(search.Part<QPushButton>("cmdPrintGrid").isEnabled());
    const std::tuple<const char*, QString, int> cases[] = {{"txtTCID", u"t20261122"_s, 2},
                                                           {"txtNIK", u"0012"_s, 1},
                                                           {"txtDept", u"PROD"_s, 1},
                                                           {"txtDivisi", u"B"_s, 0}};
    EXPECT_EQ(search.window->focusWidget()->objectName(), u"txtTCID"_s);
    for (const auto& [box, text, rows] : cases) {
        search.Part<QLineEdit>(box).setFocus();
        Keys(text + u'⏎');
        EXPECT_EQ(search.Grid().model()->rowCount(), rows) << box;
        EXPECT_EQ(search.Grid().hasFocus(), rows > 0) << box;
    }
    EXPECT_EQ(search.Said("lblRows"), u"0 baris · Dept PROD, Divisi B, NIK 0012, TCID T20261122"_s);
    Keys(u"'");
    for (int time = 1; time <= 2; ++time)
        Keys(u"⏎");
    EXPECT_EQ(search.dialogs.texts.size(), 1) << "a text that cannot be searched for is told once";
    EXPECT_TRUE(search.Part<QLineEdit>("txtDivisi").hasFocus());
    EXPECT_TRUE(search.Said("lblRows").startsWith(u"0 baris"_s));
    search.window->resize(900, 500);
    Keys(u"⎋");
    search.window->QWidget::setVisible(true); // a dialog without the focus selects the text by itself
    Keys(u"t2025");
    EXPECT_EQ(search.Said("txtTCID"), u"T2025"_s) << "in place of the text before";
    Keys(u"⎋");
    EXPECT_EQ(frmEditAbsensi(search.program, search.skin, nullptr).size(), QSize(900, 500));
    search.window->show();
    Keys(u"'");
    search.window.reset();
    EXPECT_EQ(search.dialogs.texts.size(), 1) << "a window that goes checks nothing more";
}

TEST(frmEditAbsensi, TypedRowsAreSettledBeforeAnythingIsDoneWithTheResult) {
    for (const Qt::Key work : {Qt::Key_R, Qt::Key_H, Qt::Key_G}) {
        SearchWindow search;
        Keys(u"⏎");
        search.Type(0, TimeIn, u"pagi"_s);
        Keys(u"↓"); // refused
        const auto& grid = search.Part<DataGrid>("MSHFlexGrid1");
        EXPECT_TRUE(grid.IsMarkedUnsaved(search.At(0, 0)));
        search.dialogs.texts.clear();
        search.dialogs.answers = {Dialogs::Answer::Cancel, Dialogs::Answer::No};
        for (qsizetype time = 1; time <= 2; ++time) {
            EXPECT_EQ(search.Cell(0, TimeIn), u"pagi"_s) << work;
            KeyboardUser::Press(work, Qt::AltModifier);
            EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return search.dialogs.questions.size() >= time; }));
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(search.Cell(0, TimeIn), u"07:45:00"_s) << work;
        EXPECT_FALSE(grid.IsMarkedUnsaved(search.At(0, 0))) << work;
        EXPECT_EQ(search.shownReports.size(), work == Qt::Key_G ? 1 : 0);
        Keys(u"⎋");
        // The computation itself asks, once the rows are settled.
        EXPECT_EQ(search.dialogs.questions.size(), work == Qt::Key_H ? 3 : 2)
            << "nothing is left to be asked for";
    }
}

TEST(frmEditAbsensi, SavesARowWhenTheCursorLeavesItAndTakesCodesFromTheList) {
    SearchWindow search;
    Keys(u"⏎");
    ASSERT_EQ(search.Grid().model()->rowCount(), 4);
    for (const int column : {Nama, Tcid, Dept, Divisi}) {
        search.Go(0, column);
        Keys(u"x");
        EXPECT_TRUE(search.Part<QLineEdit>("Text1").isHidden());
        EXPECT_FALSE(search.Said("lblDone").isEmpty());
    }
    search.Type(0, TimeOut, u"23:15"_s);
    search.Type(0, Keterangan, u"lupa"_s);
    EXPECT_EQ(search.RowsOf(Cards)[0], u"T202611210012|OUT|-|-|2026-11-21 07:45:00|2026-11-21 16:30:00"_s);
    search.user.WhenIn(u"PickList"_s, [&](QWidget&) {
        Keys(u"⏎⎋"); // nothing is chosen yet
        EXPECT_EQ(search.Part<QLineEdit>("Text1").text(), u"zz"_s);
        search.user.WhenIn(u"PickList"_s, [](QWidget&) { Keys(u"luar⏎"); });
        Keys(u"⏎");
    });
    search.Type(0, Status, u"zz"_s); // is no status: the list opens
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return search.Cell(0, Status) == u"TL"_s; }));
    Keys(u"↓");
    EXPECT_EQ(search.RowsOf(Cards)[0], u"T202611210012|TL|lupa|0|2026-11-21 07:45:00|2026-11-21 23:15:00"_s);
    EXPECT_EQ(search.Said("lblDone"), u"Baris 1 disimpan."_s);

    search.Type(1, TimeIn, u"pagi"_s);
    Keys(u"↓");
    EXPECT_TRUE(search.dialogs.Last().contains(u"\"pagi\" bukan jam"_s));
    EXPECT_EQ(search.Cell(1, TimeIn), u"pagi"_s);
    search.dialogs.answers = {Dialogs::Answer::Cancel, Dialogs::Answer::No};
    Keys(u"⎋");
    EXPECT_TRUE(search.window->isVisible());
    search.Part<QWidget>("cmdTutup").setFocus();
    Keys(u" ");
    EXPECT_FALSE(search.window->isVisible());
    EXPECT_EQ(search.dialogs.questions.size(), 2);
    EXPECT_EQ(search.RowsOf(Cards)[1], u"T202611210013|OUT|-|-|2026-11-21 07:45:00|2026-11-21 16:30:00"_s);

    search.OtherDesk()->Execute(u"UPDATE TimeCardHeader SET Keterangan='sementara ini'"_s);
    search.window->show();
    EXPECT_EQ(search.Cell(1, TimeIn), u"07:45:00"_s) << "what was thrown away does not come back";
    EXPECT_EQ(search.Cell(3, Keterangan), u"sementara ini"_s);
    Keys(u"⎋");
    EXPECT_EQ(search.dialogs.questions.size(), 2);
}

TEST(frmEditAbsensi, AConflictShowsTheRowAsItIsAndLeavesNothingToSave) {
    SearchWindow search;
    Keys(u"⏎");
    search.Type(0, Keterangan, u"dari sini"_s);
    search.OtherDesk()->Execute(u"UPDATE TimeCardHeader SET Keterangan='dari sana'"_s);
    Keys(u"↓");
    EXPECT_TRUE(search.dialogs.Last().contains(
        u"Kartu T202611210012 (0012, 21-Nov-2026): Keterangan sudah diganti komputer lain menjadi dari sana. "
        "Yang Anda ketik (dari sini) tidak disimpan."_s))
        << search.dialogs.Last().toStdString();
    EXPECT_EQ(search.Cell(0, Keterangan), u"dari sana"_s);
    EXPECT_TRUE(search.RowsOf(Cards)[0].contains(u"|dari sana|"_s));
    Keys(u"⎋");
    EXPECT_FALSE(search.window->isVisible());
    EXPECT_TRUE(search.dialogs.questions.isEmpty());
}

TEST(frmEditAbsensi, ADepartureBeforeTheArrivalIsStoredOnlyWhenWanted) {
    SearchWindow search;
    Keys(u"⏎");
    for (const auto& [answer, stored] :
         {std::pair{Dialogs::Answer::No, u"16:30:00"_s}, std::pair{Dialogs::Answer::Yes, u"05:00:00"_s}}) {
        search.dialogs.answers = {answer};
        search.Type(0, TimeOut, u"21-Nov-2026 0500"_s);
        Keys(u"↓");
        EXPECT_TRUE(search.RowsOf(Cards)[0].endsWith(stored));
        EXPECT_TRUE(search.dialogs.questions.last().startsWith(u"Kartu T202611210012:\nTimeOUT"_s));
    }
    EXPECT_EQ(search.dialogs.questions.size(), 2);
}

TEST(frmEditAbsensi, ANumberIsCutOnlyWhenWanted) {
    SearchWindow search;
    search.Run(u"UPDATE TimeCardHeader SET NormalAmount=1e15"_s);
    Keys(u"⏎");
    EXPECT_EQ(search.Cell(0, NormalAmount), u"1000000000000000"_s);
    using Answer = Dialogs::Answer;
    const std::tuple<QString, Answer, qsizetype, QString> cases[] = {
        {u"150,000"_s, Answer::No, 1, u"1000000000000000"_s},
        {u"150,000"_s, Answer::Yes, 1, u"150"_s},
        {u"-1,5"_s, Answer::Yes, 1, u"-1"_s},
        {u"1.2.3"_s, Answer::Cancel, 1, u"-1"_s},
        {u"150.50"_s, Answer::No, 0, u"150.5"_s},
        {u"9000 rupiah"_s, Answer::No, 0, u"9000"_s}};
    for (const auto& [typed, answer, asked, shown] : cases) {
        search.dialogs.questions.clear();
        search.dialogs.answers = {answer};
        search.Type(0, NormalAmount, typed);
        EXPECT_EQ(search.dialogs.questions.size(), asked) << typed.toStdString();
        const bool refused = asked > 0 && answer != Answer::Yes;
        EXPECT_EQ(search.Part<QLineEdit>("Text1").isVisible(), refused);
        if (refused)
            Keys(u"⎋");
        EXPECT_EQ(search.Cell(0, NormalAmount), shown) << typed.toStdString();
    }
}

TEST(frmEditAbsensi, ADepartureOffersOut) {
    SearchWindow search;
    search.Run(u"UPDATE TimeCardHeader SET Status='IN'"_s);
    Keys(u"⏎");
    search.Type(0, Keterangan, u"x"_s);
    search.dialogs.answers = {Dialogs::Answer::Yes};
    Keys(u"↓");
    EXPECT_TRUE(search.dialogs.questions.isEmpty()) << "no departure was typed";
    search.Type(1, TimeOut, u"1700"_s);
    Keys(u"↓");
    EXPECT_TRUE(search.RowsOf(Cards)[1].startsWith(u"T202611210013|OUT|"_s));
}

TEST(frmEditAbsensi, EnterF5AndDoubleClickDoWhatTheColumnIsFor) {
    SearchWindow search;
    Keys(u"⏎");
    auto& text1 = search.Part<QLineEdit>("Text1");
    const auto doubleClick = [&](int column) {
        search.Go(0, column);
        const QPoint place = search.Grid().visualRect(search.Grid().currentIndex()).center();
        QTest::mouseClick(search.Grid().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(search.Grid().viewport(), Qt::LeftButton, {}, place);
    };
    const std::tuple<SearchRow::Column, bool> cases[] = {
        {Status, false}, {TimeIn, true}, {Dept, false}, {OtAmount, false}};
    for (const auto& [column, opens] : cases) {
        doubleClick(column);
        EXPECT_EQ(text1.isVisible(), opens) << column;
        if (opens) {
            EXPECT_EQ(text1.selectedText(), u"07:45:00"_s);
        }
        KeyboardUser::Press(opens ? Qt::Key_Escape : Qt::Key_Right);
    }
    search.Run(u"UPDATE TimeCardDetail SET TimeOUT=datetime(TimeOUT,'1 days')"_s);
    search.Type(0, Keterangan, u"dibuang"_s);
    doubleClick(SerialNo);
    EXPECT_EQ(search.Cell(0, TimeOut), u"16:30:00 (+1)"_s);
    EXPECT_EQ(search.Cell(0, Keterangan), QString());
    search.Run(u"DELETE FROM TimeCardHeader WHERE TCID='T202611210013'"_s);
    search.Go(1, TimeIn);
    EXPECT_EQ(search.Said("lblDone"), u"Baris 1 dimuat ulang."_s) << "there was nothing to save";
    EXPECT_EQ(search.Said("lblCard"), u"T202611210013 · 李小龍"_s);
    Keys(u"⑤");
    EXPECT_EQ(search.dialogs.texts, QStringList{u"Please refresh."_s});
    EXPECT_EQ(search.dialogs.icons.back(), Dialogs::Icon::Information);
    EXPECT_EQ(search.Cell(1, TimeOut), u"16:30:00"_s);
    Keys(u"⎋");
    EXPECT_TRUE(search.dialogs.questions.isEmpty()) << "nothing typed is left";
}

TEST(frmEditAbsensi, OnlyASupervisorDeletes) {
    SearchWindow search;
    Keys(u"⏎");
    for (const QString& login : {u"<CANCEL>"_s, u"pelon~pelon~1"_s}) {
        search.login = login;
        search.Go(2, TimeIn);
        Keys(u"⌦");
    }
    EXPECT_EQ(search.RowsOf(u"select TCID from TimeCardDetail order by TCID"_s),
              (QStringList{u"T202611210012"_s, u"T202611210013"_s, u"T202611220013"_s}));
    EXPECT_EQ(search.Cell(2, TimeIn), QString());
    EXPECT_EQ(search.Cell(2, Status), u"OUT"_s);
    search.login = u"<CANCEL>"_s;
    Keys(u"⌦");
    EXPECT_EQ(search.dialogs.texts.size(), 1) << "there is nothing to log in for";
    search.login = u"pelon~pelon~1"_s;
    EXPECT_TRUE(search.Grid().hasFocus());

    search.Type(3, Keterangan, u"dari sini"_s);
    search.OtherDesk()->Execute(u"UPDATE TimeCardHeader SET Keterangan='dari sana'"_s);
    Keys(u"⌦");
    EXPECT_EQ(search.Cell(3, Keterangan), u"dari sana"_s);
    Keys(u"⎋");
    EXPECT_TRUE(search.dialogs.questions.isEmpty()) << "the row was read anew";
}

TEST(frmEditAbsensi, ComputesAllCardsOfTheResult) {
    SearchWindow search;
    search.Part<QLineEdit>("txtNIK").setText(u"0012"_s);
    Keys(u"⏎");
    search.Go(1, NormalHours);
    search.Part<QPushButton>("cmdCalcHrs").setFocus();
    Keys(u"⏎");
    EXPECT_EQ(search.Said("lblDone"), u"2 kartu dihitung."_s);
    EXPECT_EQ(search.Cell(0, NormalHours), u"9.15"_s);
    EXPECT_EQ(search.Grid().currentIndex().row(), 1);
    EXPECT_EQ(search.RowsOf(u"select NormalHours from TimeCardHeader order by TCID"_s),
              (QStringList{u"9.15"_s, u"-"_s, u"9.15"_s, u"-"_s}));
    EXPECT_TRUE(search.dialogs.texts.isEmpty());
    search.Run(u"INSERT INTO ShiftEmployee VALUES ('0012','2026-11-22','XX')"_s);
    Keys(u"⏎");
    EXPECT_EQ(search.dialogs.Last().section(u'\n', 1),
              u"T202611220012: shift XX tidak ada di Master Shift Code"_s);
    search.Part<QLineEdit>("txtNIK").setText({});
    Keys(u"⎇r");
    search.dialogs.answers = {Dialogs::Answer::No, Dialogs::Answer::Yes};
    for (const QString& done : {u"Tidak ada kartu yang dihitung."_s, u"4 kartu dihitung."_s}) {
        search.Do(Qt::Key_H);
        EXPECT_EQ(search.Said("lblDone"), done);
    }
    EXPECT_EQ(search.dialogs.questions, QStringList(2, u"Hitung 4 kartu?\nHasil pencarian: semua data."_s));
    for (const auto& table : {u"TimeCardHeader (TCID,NIP) SELECT 'T2020'||i,'0012'"_s,
                              u"TimeCardDetail (TCID,Tanggal) SELECT 'T2020'||i,'2020-01-01'"_s})
        search.Run(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<10001) "
                   "INSERT INTO %1 FROM n"_s.arg(table));
    Keys(u"⎇tT2020⏎");
    search.dialogs.answers = {Dialogs::Answer::No};
    search.Do(Qt::Key_H);
    EXPECT_TRUE(search.dialogs.questions.last().endsWith(u"TCID T2020."_s)) << "long, though searched for";
}

TEST(frmEditAbsensi, PrintsTheGridAndTheTwoMatrices) {
    SearchWindow search;
    search.Part<QLineEdit>("txtTCID").setText(u"T20261122"_s);
    Keys(u"⏎");
    const QString path = search.folder.filePath(u"PRINT.TXT"_s);
    search.Do(Qt::Key_G);
    EXPECT_EQ(search.shownReports.size(), 1);
    const QString titles =
        u"Sr.No|Status|NIP |Nama|Keterangan|Dept|TCID         |Divisi|Tanggal    |TimeIN  |TimeOUT |"
        "TimeINOT|TimeOutOT|BeriUangMakan|NormalHours|OTHours|NormalAmount|OTAmount|"_s;
    const QString rule(titles.size(), u'-');
    EXPECT_EQ(
        search.ReportLines(),
        (QStringList{
            rule, titles, rule,
            u"1    |OUT   |0012|Siti|          |PROD|T202611220012|A     |22-Nov-2026|07:45:00|16:30:00|"
            "        |         |             |           |       |            |        |"_s,
            u"2    |OUT   |0013|李小龍 |          |GA  |T202611220013|B     |22-Nov-2026|07:45:00|16:30:00|"
            "        |         |             |           |       |            |        |"_s,
            rule, QString()}));
    search.Do(Qt::Key_L);
    EXPECT_EQ(search.ReportLines().mid(0, 3), (QStringList{u"DATA ABSENSI PER LEMBAR"_s, u"Lembar: T202611"_s,
                                                           u"Dicetak: 22-Nov-2026 07:58"_s}));
    search.Do(Qt::Key_K);
    EXPECT_EQ(search.ReportLines()[1], u"NIK: 0012  Siti"_s);
    EXPECT_EQ(search.dialogs.texts,
              QStringList(
                  3, u"Data akan dicetak ke NOTEPAD,\nTolong format Wordwrap di notepad di non aktifkan."_s));
    EXPECT_EQ(search.dialogs.icons.back(), Dialogs::Icon::Exclamation);
    EXPECT_EQ(search.shownReports, QStringList(3, path));
}

TEST(frmEditAbsensi, ASavedRowIsOneStepAndABlockAllOrNone) {
    SearchWindow search;
    Keys(u"⏎");
    search.Run(u"UPDATE TimeCardDetail SET TimeOUT=NULL WHERE TCID='T202611210012'"_s);
    search.Part<QPushButton>("cmdRefresh").click();
    const QString open = u"T202611210012|OUT|-|-|2026-11-21 07:45:00|-"_s;
    search.Go(0, Keterangan);
    Keys(u"lupa⏎");
    search.Type(0, TimeOut, u"0130"_s); // in the morning after
    EXPECT_EQ(search.Cell(0, TimeOut), u"01:30:00 (+1)"_s);
    EXPECT_TRUE(search.Part<DataGrid>("MSHFlexGrid1").IsMarkedUnsaved(search.At(0, 0)));
    Keys(u"⎈s");
    EXPECT_EQ(search.RowsOf(Cards)[0], u"T202611210012|OUT|lupa|0|2026-11-21 07:45:00|2026-11-22 01:30:00"_s);
    Keys(u"⎈z");
    EXPECT_EQ(search.RowsOf(Cards)[0], open) << "also what the save made 0 of nothing";
    Keys(u"⎈y");
    EXPECT_EQ(search.Cell(0, TimeOut) + search.Cell(0, Keterangan), u"01:30:00 (+1)lupa"_s);
    search.OtherDesk()->Execute(u"UPDATE TimeCardHeader SET Keterangan='sana' WHERE TCID='T202611210012'"_s);
    Keys(u"⎈z"); // the time alone
    EXPECT_EQ(search.RowsOf(Cards)[0], QString(open).replace(u"|OUT|-|"_s, u"|OUT|sana|"_s));
    EXPECT_TRUE(search.dialogs.Last().contains(u"0012 Siti Keterangan: sekarang berisi \"sana\""_s));

    search.Go(1, TimeIn);
    const QStringList pasted = search.RowsOf(Cards);
    for (const auto& [clip, reason] : {std::pair{u"08:00\t17:00\npagi\t17:00"_s, u"\"pagi\" bukan jam"_s},
                                       {u"08:00\t21-Nov-2026 07:00"_s, u"mendahului"_s}}) {
        QGuiApplication::clipboard()->setText(clip);
        Keys(u"⎈v");
        EXPECT_TRUE(search.dialogs.Last().contains(reason)) << search.dialogs.Last().toStdString();
        EXPECT_EQ(search.RowsOf(Cards), pasted);
    }
    QGuiApplication::clipboard()->setText(u"08:00\t17:00\n8.15\t18:00"_s);
    Keys(u"⎈v");
    EXPECT_TRUE(search.RowsOf(Cards)[1].endsWith(u"|2026-11-21 08:00:00|2026-11-21 17:00:00"_s));
    EXPECT_TRUE(search.RowsOf(Cards)[2].endsWith(u"|2026-11-22 08:15:00|2026-11-22 18:00:00"_s));
    Keys(u"⎈z");
    EXPECT_EQ(search.RowsOf(u"select TimeIN, TimeOUT from TimeCardDetail order by TCID"_s)[1],
              u"2026-11-21 07:45:00|2026-11-21 16:30:00"_s);
    search.Go(0, Tcid);
    Keys(u"⎈v");
    EXPECT_TRUE(search.dialogs.Last().contains(u"TCID adalah kunci kartu"_s));
}

TEST(frmEditAbsensi, NumberAndNameStayInSightAndAreTypedInto) {
    SearchWindow search;
    Keys(u"⏎");
    search.window->resize(700, 400);
    search.Go(0, OtAmount);
    ASSERT_GT(search.Grid().horizontalScrollBar()->value(), 0);
    const QRect number = search.Grid().visualRect(search.At(0, Nip));
    EXPECT_GE(number.left(), 0);
    EXPECT_GE(search.Grid().visualRect(search.At(0, OtAmount)).left(),
              search.Grid().visualRect(search.At(0, Nama)).right());
    const auto widgetAt = [&] {
        return QApplication::widgetAt(search.Grid().viewport()->mapToGlobal(number.center()));
    };
    QTest::mouseClick(widgetAt(), Qt::LeftButton, {}, number.center());
    EXPECT_EQ(search.Grid().currentIndex(), search.At(0, Nip));
    Keys(u"0013");
    EXPECT_EQ(search.Part<QLineEdit>("Text1").geometry(), number);
    EXPECT_EQ(widgetAt(), &search.Part<QLineEdit>("Text1")) << "not under the column that stays";
    Keys(u"⏎↓");
    EXPECT_EQ(search.RowsOf(u"select NIP from TimeCardHeader order by TCID"_s)[0], u"0013"_s);
    search.Go(0, TimeInOt);
    Keys(u"⇱");
    for (int column = Keterangan; column <= TimeIn; ++column) {
        search.Go(0, column);
        EXPECT_GE(search.Grid().visualRect(search.At(0, column)).left(),
                  search.Grid().visualRect(search.At(0, Nama)).right())
            << column;
    }
}
