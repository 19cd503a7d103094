#include "timecard/frmAED_Absen.h"

#include "support/window_company.h"
#include "timecard/sheet_lifecycle.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImageReader>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select TCID, NIP, Status from TimeCardHeader order by TCID"_s;

} // namespace

TEST(frmAED_Absen, WhatIsTypedIsRecordedOrRefused) {
    const QString notClockedIn =
        u"Belum isi absen masuk.\nAtau beda lembaran.\nHubungi petugas absen sekarang.!!!"_s;
    const QString quoted = u"\nDatabase Errors: \n----------------------------------------\n[90002]-Time "
                           "Attendance\nPerintah database ditolak: isian mengandung tanda kutip (').\n\n"_s;
    const QString in = u"T202611220013|0013|IN"_s;
    const QString out = u"T202611220013|0013|OUT"_s;
    // Each line goes on with the cards of the one before it.
    const std::tuple<Qt::Key, QString, QStringList, QStringList> typings[] = {
        {Qt::Key_F2, u"0012⏎salah⏎⎋"_s, {u"Password salah !"_s}, {}},
        {Qt::Key_F2, u"0012⏎⏎⎋"_s, {}, {}},
        {Qt::Key_F2, u"9999⏎⎋"_s, {u"NIK tidak ada !"_s}, {}},
        {Qt::Key_F2, u"' or '1'='1⏎⎋"_s, {quoted}, {}},
        {Qt::Key_F2, u"0012⏎' or '1'='1⏎⎋"_s, {u"Password salah !"_s}, {}},
        {Qt::Key_F2, u"9999⏎0013⏎KUNCI1⏎⎋"_s, {u"NIK tidak ada !"_s}, {in}},
        {Qt::Key_F8, u"0012⏎rahasia⏎⎋"_s, {notClockedIn}, {in}},
        {Qt::Key_F2, u"0013⏎kunci1⏎⎋"_s, {u"Tidak bisa absen dua kali."_s}, {in}},
        {Qt::Key_F8, u"0013⏎kunci1⏎⎋"_s, {}, {out}},
        {Qt::Key_F2, u"0012⎋"_s, {}, {out}},
    };
    WindowCompany desk;
    for (const auto& [open, keys, messages, cards] : typings) {
        SCOPED_TRACE(keys.toStdString());
        desk.dialogs.texts.clear();
        desk.user.WhenIn(u"frmAED_Absen"_s, [keys = keys](QWidget&) { Keys(keys); });
        KeyboardUser::Press(open);
        EXPECT_EQ(desk.dialogs.texts, messages);
        EXPECT_EQ(desk.RowsOf(Cards), cards);
        EXPECT_EQ(desk.Cell(1, SheetModel::Status), cards.value(0, u"||A"_s).section(u'|', 2));
    }
}

TEST(frmAED_Absen, TheTimeIsThatOfTheOpeningAndTheEmployeeIsShown) {
    WindowCompany desk;
    desk.Run(u"UPDATE Employee SET PathImage='DATA.mdb'"_s);
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        EXPECT_EQ(TextOf(entry, {"lblMode", "lblMoment"}), u"ABSEN MASUK|22-Nov-2026   07:58:12"_s);
        EXPECT_FALSE(Part<QWidget>(entry, "picDetail").isVisible());
        const int smallHeight = entry.height();
        desk.clock.now += Seconds{45};
        Keys(u"0012⏎rahasia⏎");
        EXPECT_EQ(TextOf(entry, {"txtNama", "txtDept", "txtDivisi", "txtPassword"}),
                  u"Siti Aminah|PROD|A|"_s);
        EXPECT_GT(entry.height(), smallHeight);
        EXPECT_EQ(TextOf(entry, "lblDone"), u"✓  Masuk tercatat pukul 07:58:12"_s);
        EXPECT_FALSE(Part<QLabel>(entry, "imgEmp").pixmap().isNull()) << "in place of a damaged photo";
        // Nothing is chosen or recorded a second time while the window waits to close itself.
        Keys(u"⑨");
        EXPECT_FALSE(QApplication::activePopupWidget());
        Keys(u"⏎");
        EXPECT_FALSE(entry.isVisible());
    });
    Keys(u"②");
    EXPECT_EQ(desk.RowsOf(u"select TimeIN from TimeCardDetail"_s), QStringList{u"2026-11-22 07:58:12"_s});
    EXPECT_TRUE(desk.dialogs.texts.isEmpty());
}

TEST(frmAED_Absen, TheNextEntryBeginsWhileTheLastIsConfirmed) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        // The key that begins the next entry, and what is typed then.
        const std::tuple<Qt::Key, QString, QString> entries[] = {
            {Qt::Key_F2, u"0013⏎kunci1⏎"_s, u"ABSEN MASUK|22-Nov-2026   07:58:17"_s},
            {Qt::Key_0, u"014⏎agus⏎"_s, u"ABSEN MASUK|22-Nov-2026   07:58:22"_s},
            {Qt::Key_F8, u"0012⏎rahasia⏎"_s, u"ABSEN KELUAR|22-Nov-2026   07:58:27"_s},
            {Qt::Key_0, u"014⏎agus⏎"_s, u"ABSEN KELUAR|22-Nov-2026   07:58:32"_s},
        };
        Keys(u"0012⏎rahasia⏎");
        for (const auto& [key, typed, shown] : entries) {
            desk.clock.now += Seconds{5};
            KeyboardUser::Press(key);
            EXPECT_EQ(TextOf(entry, {"lblMode", "lblMoment"}), shown);
            EXPECT_EQ(TextOf(entry, {"txtNama", "txtPassword"}), u"|"_s);
            Keys(typed);
        }
        CloseSheet(*desk.OtherDesk(), u"T20261122"_s);
        Keys(u"②");
        EXPECT_FALSE(entry.isVisible());
    });
    Keys(u"②");
    EXPECT_TRUE(desk.Part<QWidget>("picCloseTcid").isVisible());
    EXPECT_EQ(
        desk.RowsOf(u"select TCID, Mid(TimeIN,18,2), Mid(TimeOUT,18,2) from TimeCardDetail order by TCID"_s),
        (QStringList{u"T202611220012|12|27"_s, u"T202611220013|17|-"_s, u"T202611220014|22|32"_s}));
}

TEST(frmAED_Absen, AWindowLeftForAMinuteClosesItself) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        for (const auto& key : {u"0"_s, u"0"_s, u"1"_s}) {
            desk.clock.now += Seconds{59};
            Keys(key);
        }
        EXPECT_EQ(TextOf(entry, "txtNIK"), u"001"_s);
        desk.clock.now += Seconds{60};
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !entry.isVisible(); }));
    });
    Keys(u"②");
}

TEST(frmAED_Absen, ASheetThatIsClosedMeanwhileTakesNothingAndTheDeskSaysSo) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget&) {
        CloseSheet(*desk.OtherDesk(), u"T20261122"_s);
        Keys(u"0012⏎rahasia⏎");
    });
    Keys(u"②");
    EXPECT_EQ(desk.dialogs.texts, QStringList{RefusalText(Refusal::SheetClosed)});
    EXPECT_TRUE(desk.Part<QWidget>("picCloseTcid").isVisible());
    EXPECT_EQ(desk.Said("lblCloseTcid"), desk.dialogs.Last());
    EXPECT_TRUE(desk.RowsOf(Cards).isEmpty());
}

TEST(frmAED_Absen, TheListGivesTheNumberAndTheWindowClosesTwoSecondsAfterRecording) {
    WindowCompany desk;
    QElapsedTimer sinceRecorded;
    desk.user.WhenIn(u"frmAED_Absen"_s, [](QWidget&) { Keys(u"⑨"); });
    desk.user.WhenIn(u"PickList"_s, [&](QWidget&) {
        Keys(u"siti⏎");
        QWidget* entry = KeyboardUser::InFront();
        EXPECT_EQ(Part<QLineEdit>(*entry, "txtNIK").text(), u"0012"_s);
        EXPECT_TRUE(Part<QLineEdit>(*entry, "txtPassword").hasFocus());
        Keys(u"rahasia⏎");
        sinceRecorded.start();
    });
    Keys(u"②");
    EXPECT_GE(sinceRecorded.elapsed(), 1000); // not at once
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return KeyboardUser::InFront() == desk.window.get(); }));
    EXPECT_EQ(desk.RowsOf(Cards), QStringList{u"T202611220012|0012|IN"_s});
}

TEST(frmAED_Absen, ALargePhotoIsShownScaledAndWhatIsNoFileIsToldAndNotOpened) {
    WindowCompany desk;
    constexpr int Megabytes = 4;
    const int usual = QImageReader::allocationLimit();
    QImage large(2400, 1800, QImage::Format_RGB32);
    large.fill(Qt::black);
    ASSERT_TRUE(large.save(desk.folder.filePath(u"large.jpg"_s)));
    ASSERT_EQ(mkfifo(desk.folder.filePath(u"pipe.jpg"_s).toUtf8().constData(), 0600), 0);
    QImageReader::setAllocationLimit(Megabytes);
    const QString told = u"Foto tidak dapat ditampilkan, bukan file gambar: "_s;
    for (const auto& [path, message] : {std::pair{u"large.jpg"_s, u""_s},
                                        {u"pipe.jpg"_s, told + u"pipe.jpg"_s},
                                        {u"images"_s, told + u"images"_s},
                                        {u"gone.jpg"_s, u""_s}}) {
        SCOPED_TRACE(path.toStdString());
        desk.RemoveCards();
        desk.Run(u"UPDATE Employee SET PathImage='%1' WHERE NIP='0012'"_s.arg(path));
        desk.user.WhenIn(u"frmAED_Absen"_s, [&, &path = path, &message = message](QWidget& entry) {
            Keys(u"0012⏎rahasia⏎");
            const auto& label = Part<QLabel>(entry, "lblPhoto");
            EXPECT_EQ(label.isVisible() ? label.text() : QString(), message);
            const QImage shown = Part<QLabel>(entry, "imgEmp").pixmap().toImage();
            EXPECT_EQ(shown.pixelColor(shown.rect().center()) == Qt::black, path == u"large.jpg"_s);
            EXPECT_EQ(shown.width(), 146);
            Keys(u"⎋");
        });
        Keys(u"②");
    }
    QImageReader::setAllocationLimit(usual);
}

TEST(frmAED_Absen, TheButtonsShowDetailsSaveWithoutPasswordAndClear) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        // A button that is pressed by its letter clicks a moment later.
        const auto& detail = Part<QWidget>(entry, "picDetail");
        Keys(u"⎇d");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return detail.isVisible(); }));
        Keys(u"⎇d");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !detail.isVisible(); }));

        Keys(u"⎇s");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !desk.dialogs.texts.isEmpty(); }));
        EXPECT_EQ(desk.dialogs.texts, QStringList{u"Gagal Simpan Record ini."_s});
        Keys(u"9999⎇s");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return desk.dialogs.texts.size() > 1; }));
        EXPECT_EQ(desk.dialogs.Last(), u"NIK tidak ada !"_s);
        EXPECT_TRUE(desk.RowsOf(Cards).isEmpty());
        auto& clear = Part<QPushButton>(entry, "cmdButtons_2");
        QTest::mousePress(&clear, Qt::LeftButton);
        QCoreApplication::processEvents();
        QTest::mouseRelease(&clear, Qt::LeftButton);
        EXPECT_EQ(desk.dialogs.texts.size(), 2) << "on the way out the number does not matter";
        Keys(u"0012⏎rahasia⎇b");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return TextOf(entry, "txtNIK").isEmpty(); }));
        EXPECT_EQ(TextOf(entry, "txtPassword"), QString());
        Keys(u"0014");
        for (int i = 0; i < 3; ++i)
            Keys(u"↹");
        EXPECT_TRUE(Part<QPushButton>(entry, "cmdButtons_1").hasFocus());
        Keys(u"⏎");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return detail.isVisible(); }));
        Keys(u"⎋");
    });
    Keys(u"②");
    EXPECT_EQ(desk.RowsOf(Cards), QStringList{u"T202611220014|0014|IN"_s});
}

TEST(frmAED_Absen, ThePasswordIsThatOfTheNumberInTheFieldAtThatMoment) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget&) {
        Keys(u"0012⏎⇤0013↹rahasia⏎"); // that of the number before
        desk.Run(u"UPDATE [User] SET Password='baru' WHERE UserID='0013'"_s);
        Keys(u"kunci1⏎");
        EXPECT_EQ(desk.dialogs.texts, QStringList(2, u"Password salah !"_s));
        EXPECT_TRUE(desk.RowsOf(Cards).isEmpty());
        Keys(u"baru⏎⎋");
    });
    Keys(u"②");
    EXPECT_EQ(desk.RowsOf(Cards), QStringList{u"T202611220013|0013|IN"_s});
}

TEST(frmAED_Absen, AFailureIsReportedLoggedAndLeavesNothing) {
    WindowCompany desk;
    desk.Db().ExecuteNative(
        u"CREATE TRIGGER full BEFORE INSERT ON TimeCardDetail BEGIN SELECT RAISE(ABORT,'disk gone'); END"_s);
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        Keys(u"0012⏎rahasia⏎");
        EXPECT_EQ(TextOf(entry, "txtNIK"), u"0012"_s);
        Keys(u"⎋");
    });
    Keys(u"②");
    EXPECT_TRUE(desk.dialogs.Last().contains(u"Database Errors: "_s));
    EXPECT_TRUE(desk.RowsOf(Cards).isEmpty());
    QFile log(desk.folder.filePath(u"VELTLOG.TXT"_s));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray record = log.readAll();
    EXPECT_TRUE(record.contains("disk gone") && record.endsWith("~Sub/Function: Record~\n"))
        << record.toStdString();
    EXPECT_FALSE(record.contains("rahasia"));
}

TEST(frmAED_Absen, ANightWorkerIsToldOfTheEveningsSheetBeforeThePasswordAndAfterIt) {
    WindowCompany desk;
    desk.Run(u"INSERT INTO Shift VALUES ('M','1899-12-30 22:00:00','1899-12-31 06:00:00')"_s);
    desk.AddCard(u"T202611210013"_s, u"0013"_s, u"IN"_s, u"2026-11-21"_s, u"2026-11-21 22:50:00"_s);
    desk.user.WhenIn(u"frmAED_Absen"_s, [](QWidget& entry) {
        const auto& night = Part<QLabel>(entry, "lblNight");
        Keys(u"0012⏎");
        EXPECT_FALSE(night.isVisible()) << "a day worker";
        Keys(u"⇤0013⏎"); // going back to the number selects it
        EXPECT_TRUE(night.isVisible());
        Keys(u"kunci1⏎");
        EXPECT_TRUE(night.isVisible() && Part<QLabel>(entry, "lblDone").isVisible());
        EXPECT_EQ(night.text(), u"Keluar untuk lembar 21-Nov, masuk 22:50"_s);
        Keys(u"⎋");
    });
    Keys(u"⑧");
    EXPECT_EQ(desk.RowsOf(u"select TCID, TimeOUT from TimeCardDetail"_s),
              QStringList{u"T202611210013|2026-11-22 07:58:12"_s});
    EXPECT_TRUE(desk.dialogs.texts.isEmpty());
}
