#include "timecard/frmMain.h"

#include "support/window_company.h"

#include <QPushButton>
#include <QTabBar>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select h.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT, d.BeriUangMakan "
                      "from TimeCardHeader h left join TimeCardDetail d on d.TCID=h.TCID order by h.TCID"_s;
const QString Sheets = u"select TCID, Status from timecardmaster order by TCID"_s;

} // namespace

TEST(frmMain, AnEmployeeClocksInAndOutByKeyboardAlone) {
    WindowCompany desk;
    EXPECT_EQ(desk.Cell(2, SheetModel::Nama), u"Siti Aminah"_s);
    EXPECT_EQ(desk.Cell(2, SheetModel::Status), u"A"_s);

    desk.Record(Qt::Key_F2, u"0012"_s, u"RAHASIA"_s);
    EXPECT_EQ(desk.company.RowsOf(Cards),
              QStringList{u"T202611220012|0012|IN|2026-11-22|2026-11-22 07:58:12|-|1"_s});
    EXPECT_EQ(desk.Cell(2, SheetModel::Status), u"IN"_s);
    EXPECT_EQ(desk.Cell(2, SheetModel::TimeIn), u"07:58:12"_s);

    desk.company.clock.now = Moment(u"2026-11-22 16:30:42");
    desk.Record(Qt::Key_F8, u"0012"_s, u"rahasia"_s);
    EXPECT_EQ(desk.company.RowsOf(Cards),
              QStringList{u"T202611220012|0012|OUT|2026-11-22|2026-11-22 07:58:12|2026-11-22 16:30:42|1"_s});
    EXPECT_EQ(desk.Cell(2, SheetModel::Status), u"OUT"_s);
    EXPECT_EQ(desk.Cell(2, SheetModel::Hours), u"8:32:30"_s);
    EXPECT_TRUE(desk.company.dialogs.texts.isEmpty());
}

TEST(frmMain, ASupervisorClosesAndReopensTheSheet) {
    WindowCompany desk;
    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    desk.ChooseFromMenu(u"Tutup Lembar ini"_s);
    EXPECT_EQ(desk.company.RowsOf(Sheets), QStringList{u"T20261122|1"_s});
    EXPECT_TRUE(desk.Part<QWidget>("picCloseTcid").isVisible());

    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_TRUE(desk.company.RowsOf(Cards).isEmpty());

    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    desk.ChooseFromMenu(u"Buka lagi lembar ini"_s);
    EXPECT_EQ(desk.company.RowsOf(Sheets), QStringList{u"T20261122|0"_s});
    EXPECT_FALSE(desk.Part<QWidget>("picCloseTcid").isVisible());
    desk.Record(Qt::Key_F2, u"0013"_s, u"kunci1"_s);
    EXPECT_EQ(desk.company.RowsOf(Cards).size(), 1);
}
