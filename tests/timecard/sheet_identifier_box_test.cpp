#include "timecard/sheet_identifier_box.h"

#include "support/window_company.h"

#include <QAbstractButton>
#include <QStatusBar>
#include <QTabBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select h.TCID, h.NIP, h.Status, d.Tanggal, d.TimeIN, d.TimeOUT, d.BeriUangMakan "
                      "from TimeCardHeader h left join TimeCardDetail d on d.TCID=h.TCID order by h.TCID"_s;
const QString Sheets = u"select TCID, Status from timecardmaster order by TCID"_s;

void TypeOver(QLineEdit& box, const QString& text) {
    box.setFocus();
    box.selectAll();
    Keys(u'⌦' + text);
}

} // namespace

TEST(SheetIdentifierBox, TheUnlockedIdentifierIsComposedFromItsFields) {
    WindowCompany desk;
    desk.Unlock();
    auto& day = desk.Part<QLineEdit>("txtTcIDRight");
    auto& extension = desk.Part<QLineEdit>("txtExt");
    auto& sheet = desk.Part<QLineEdit>("txtTCID");
    ASSERT_TRUE(day.isEnabled() && extension.isEnabled() && sheet.isEnabled());
    EXPECT_EQ(desk.window->focusWidget(), &day);
    EXPECT_FALSE(desk.Part<QLineEdit>("txtTcIDLeft").isEnabled());

    TypeOver(extension, u"a"_s);
    TypeOver(day, u"7↹"_s);
    EXPECT_EQ(sheet.text(), u"T20261107-A"_s);
    TypeOver(day, u"↹"_s);
    EXPECT_EQ(day.text() + sheet.text(), u"07T20261107-A"_s);
    TypeOver(day, u"22↹"_s);
    EXPECT_FALSE(desk.Part<QLabel>("lblOtherDay").isVisible()) << "another sheet of today";
    TypeOver(extension, u""_s);
    TypeOver(day, u"1↹"_s);
    desk.Part<QAbstractButton>("UpDown1_Down").click();
    EXPECT_EQ(sheet.text(), u"T20261101"_s);
    TypeOver(day, u"30↹"_s);
    for (int i = 0; i < 2; ++i)
        desk.Part<QAbstractButton>("UpDown1_Up").click();
    EXPECT_EQ(sheet.text(), u"T20261131"_s) << "the last day that the spinner gives";
    // A day that the month lacks leaves every tab to be chosen.
    auto& tabs = desk.Part<QTabBar>("tabTgl");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(29).center());
    EXPECT_EQ(sheet.text(), u"T20261130"_s);
    tabs.setFocus();
    Keys(u"←");
    EXPECT_EQ(sheet.text(), u"T20261129"_s);
    desk.Part<QPushButton>("cmdTCID").click();
    EXPECT_FALSE(day.isEnabled() || extension.isEnabled() || sheet.isEnabled());
    EXPECT_EQ(sheet.text(), u"T20261129"_s);
}

TEST(SheetIdentifierBox, OnlyASupervisorSwitchesToAnotherDayButAnybodyBackToTodayWhichTheTabsFollow) {
    WindowCompany desk;
    auto& tabs = desk.Part<QTabBar>("tabTgl");
    auto& sheet = desk.Part<QLineEdit>("txtTCID");
    EXPECT_EQ(tabs.count(), 30);
    EXPECT_EQ(tabs.currentIndex(), 21);
    desk.WillLogIn(u"budi"_s, u"budi"_s);
    tabs.setCurrentIndex(4);
    EXPECT_EQ(sheet.text(), u"T20261122"_s);
    EXPECT_EQ(tabs.currentIndex(), 21);

    desk.RecordElsewhere(u"T202611050013"_s, u"2026-11-05"_s);
    desk.WillLogIn(u"pelon"_s, u"pelon"_s);
    tabs.setCurrentIndex(4);
    EXPECT_EQ(sheet.text(), u"T20261105"_s);
    EXPECT_TRUE(desk.Part<QLabel>("lblOtherDay").isVisible());
    tabs.setFocus();
    Keys(u" "); // the day that is open already: no login
    EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());
    desk.user.WhenIn(u"frmAED_Absen"_s, [](QWidget&) { Keys(u"0012⏎rahasia⏎⎋"); });
    desk.Part<QPushButton>("cmdButtons_0").click(); // at once, before the clock's next tick
    EXPECT_EQ(desk.RowsOf(Cards).value(0), u"T202611050012|0012|IN|2026-11-05|2026-11-05 07:58:12|-|1"_s);
    tabs.setCurrentIndex(21);
    EXPECT_EQ(sheet.text(), u"T20261122"_s);
    EXPECT_FALSE(desk.Part<QLabel>("lblOtherDay").isVisible());

    desk.clock.now = Moment(u"2026-11-23 00:00:02");
    desk.Tick();
    EXPECT_EQ(tabs.currentIndex(), 21) << "the sheet is still that of the day before";
    EXPECT_EQ(tabs.tabText(22), u"•23"_s);
    desk.clock.now = Moment(u"2026-12-01 00:00:02");
    desk.Tick();
    EXPECT_EQ(tabs.count(), 31);
    EXPECT_EQ(sheet.text(), u"T20261122"_s);
    EXPECT_TRUE(desk.Part<QLabel>("lblOtherDay").isVisible());
    EXPECT_EQ(tabs.property("look"), u"unmarked"_s);
    // The bar has a current tab all the same: today's, by chance.
    QTest::mouseClick(&tabs, Qt::RightButton, {}, tabs.tabRect(0).center());
    EXPECT_EQ(sheet.text(), u"T20261122"_s);
    tabs.setFocus();
    Keys(u" ");
    EXPECT_EQ(sheet.text(), u"T20261201"_s);
    EXPECT_FALSE(desk.Part<QLabel>("lblOtherDay").isVisible());
}

TEST(SheetIdentifierBox, WhatIsNoSheetIdentifierOpensNoEntryAndSaysSo) {
    WindowCompany desk;
    desk.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    desk.Unlock();
    auto& sheet = desk.Part<QLineEdit>("txtTCID");
    for (const auto& typed : {u""_s, u"TX"_s, u"T2026112"_s}) {
        for (const auto key : {Qt::Key_F2, Qt::Key_F8}) {
            desk.dialogs.texts.clear();
            TypeOver(sheet, typed);
            KeyboardUser::Press(key);
            EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());
            EXPECT_TRUE(desk.dialogs.Last().startsWith(u"\"%1\" bukan kode lembar absen"_s.arg(typed)));
        }
    }
    for (const auto& [entry, undone] : {std::pair{u"Tutup Lembar ini"_s, u"ditutup"_s},
                                        std::pair{u"Buka lagi lembar ini"_s, u"dibuka"_s}}) {
        desk.WillLogIn(u"pelon"_s, u"pelon"_s);
        desk.ChooseFromMenu(entry);
        EXPECT_TRUE(desk.dialogs.Last().startsWith(
            u"\"T2026112\" bukan kode lembar absen, jadi tidak ada lembar yang %1."_s.arg(undone)));
    }
    TypeOver(sheet, u"t20261122-b"_s);
    EXPECT_EQ(sheet.text(), u"T20261122-B"_s);
    EXPECT_TRUE(ReadSheetCards(desk.Db(), u"T202611"_s).empty());
    EXPECT_EQ(ReadSheetCards(desk.Db(), u"T20261122"_s).size(), 1U);

    sheet.setText(u"T20261122-'or'1'='1"_s);
    Keys(u"②");
    EXPECT_EQ(KeyboardUser::InFront(), desk.window.get());
    EXPECT_TRUE(desk.dialogs.Last().contains(u"Perintah database ditolak"_s));
    desk.ChooseAsSupervisor(u"Tutup Lembar ini"_s);
    EXPECT_EQ(desk.Part<QStatusBar>("statusbar").currentMessage(), QString());
    EXPECT_TRUE(desk.RowsOf(Sheets).isEmpty());
    EXPECT_EQ(desk.RowsOf(Cards).size(), 1);
}
