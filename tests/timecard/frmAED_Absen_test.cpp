#include "timecard/frmAED_Absen.h"

#include "support/window_company.h"

#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString Cards = u"select TCID, NIP, Status from TimeCardHeader order by TCID"_s;

/// What is typed into an entry window opened with a key, in order; "\n" is Enter, "\x1b" Esc.
struct Typing {
    const char* what;
    Qt::Key open;
    QString keys;
    QStringList messages;
    QStringList cards;
};

void TypeKeys(const QString& keys) {
    for (const QChar key : keys) {
        if (key == u'\n')
            KeyboardUser::Press(Qt::Key_Return);
        else if (key == u'\x1b')
            KeyboardUser::Press(Qt::Key_Escape);
        else
            KeyboardUser::Type(key);
        QApplication::processEvents();
    }
}

const QString NotClockedIn =
    u"Belum isi absen masuk.\nAtau beda lembaran.\nHubungi petugas absen sekarang.!!!"_s;

} // namespace

TEST(frmAED_Absen, WhatIsTypedIsRecordedOrRefused) {
    const Typing typings[] = {
        {"wrong password", Qt::Key_F2, u"0012\nsalah\n\x1b"_s, {u"Password salah !"_s}, {}},
        {"empty password", Qt::Key_F2, u"0012\n\n\x1b"_s, {}, {}},
        {"unknown number", Qt::Key_F2, u"9999\n\x1b"_s, {u"NIK tidak ada !"_s}, {}},
        {"unknown number, then the right one",
         Qt::Key_F2,
         u"9999\n0013\nKUNCI1\n\x1b"_s,
         {u"NIK tidak ada !"_s},
         {u"T202611220013|0013|IN"_s}},
        {"out without in",
         Qt::Key_F8,
         u"0012\nrahasia\n\x1b"_s,
         {NotClockedIn},
         {u"T202611220013|0013|IN"_s}},
        {"in twice",
         Qt::Key_F2,
         u"0013\nkunci1\n\x1b"_s,
         {u"Tidak bisa absen dua kali."_s},
         {u"T202611220013|0013|IN"_s}},
        {"out", Qt::Key_F8, u"0013\nkunci1\n\x1b"_s, {}, {u"T202611220013|0013|OUT"_s}},
        {"escape", Qt::Key_F2, u"0012\x1b"_s, {}, {u"T202611220013|0013|OUT"_s}},
    };
    WindowCompany desk;
    for (const Typing& typing : typings) {
        desk.company.dialogs.texts.clear();
        desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget&) { TypeKeys(typing.keys); });
        KeyboardUser::Press(typing.open);
        EXPECT_EQ(desk.company.dialogs.texts, typing.messages) << typing.what;
        EXPECT_EQ(desk.company.RowsOf(Cards), typing.cards) << typing.what;
    }
}

TEST(frmAED_Absen, AQuoteInAnyFieldRecordsNothing) {
    WindowCompany desk;
    for (const auto& keys : {u"' or '1'='1\n\x1b"_s, u"0012\n' or '1'='1\n\x1b"_s}) {
        desk.company.dialogs.texts.clear();
        desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget&) { TypeKeys(keys); });
        KeyboardUser::Press(Qt::Key_F2);
        EXPECT_EQ(desk.company.dialogs.texts.size(), 1);
        EXPECT_TRUE(desk.company.RowsOf(Cards).isEmpty());
    }
}

TEST(frmAED_Absen, TheTimeIsThatOfTheOpeningAndTheEmployeeIsShown) {
    WindowCompany desk;
    desk.company.Db().Execute(u"UPDATE Employee SET PathImage='photo.gif' WHERE NIP='0012'"_s);
    ASSERT_TRUE(QFile::copy(desk.company.folder.filePath(u"NoImage.gif"_s),
                            desk.company.folder.filePath(u"photo.gif"_s)));
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        EXPECT_EQ(WindowCompany::Part<QLabel>(entry, "lblMode").text(), u"ABSEN MASUK"_s);
        EXPECT_EQ(WindowCompany::Part<QLabel>(entry, "lblMoment").text(), u"22-Nov-2026   07:58:12"_s);
        EXPECT_FALSE(WindowCompany::Part<QWidget>(entry, "picDetail").isVisible());
        const int smallHeight = entry.height();
        desk.company.clock.now += Seconds{65};
        TypeKeys(u"0012\nrahasia\n"_s);
        EXPECT_EQ(WindowCompany::Part<QLineEdit>(entry, "txtNama").text(), u"Siti Aminah"_s);
        EXPECT_EQ(WindowCompany::Part<QLineEdit>(entry, "txtDept").text(), u"PROD"_s);
        EXPECT_EQ(WindowCompany::Part<QLineEdit>(entry, "txtDivisi").text(), u"A"_s);
        EXPECT_GT(entry.height(), smallHeight);
        EXPECT_TRUE(WindowCompany::Part<QLineEdit>(entry, "txtPassword").text().isEmpty());
        // Nothing is recorded a second time while the window waits to close itself.
        TypeKeys(u"\n"_s);
    });
    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_EQ(desk.company.RowsOf(u"select TimeIN from TimeCardDetail"_s),
              QStringList{u"2026-11-22 07:58:12"_s});
    EXPECT_TRUE(desk.company.dialogs.texts.isEmpty());
}

TEST(frmAED_Absen, ClosesItselfTwoSecondsAfterRecording) {
    WindowCompany desk;
    QElapsedTimer sinceRecorded;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget&) {
        TypeKeys(u"0012\nrahasia\n"_s);
        sinceRecorded.start();
    });
    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_GE(sinceRecorded.elapsed(), 1000); // not at once
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return KeyboardUser::InFront() == desk.window.get(); }));
}

TEST(frmAED_Absen, TheListGivesTheNumber) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_F9); });
    desk.user.WhenIn(u"PickList"_s, [&](QWidget&) {
        KeyboardUser::Type(u"siti"_s);
        KeyboardUser::Press(Qt::Key_Return);
        QWidget* entry = KeyboardUser::InFront();
        EXPECT_EQ(WindowCompany::Part<QLineEdit>(*entry, "txtNIK").text(), u"0012"_s);
        EXPECT_TRUE(WindowCompany::Part<QLineEdit>(*entry, "txtPassword").hasFocus());
        TypeKeys(u"rahasia\n\x1b"_s);
    });
    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_EQ(desk.company.RowsOf(Cards), QStringList{u"T202611220012|0012|IN"_s});
}

TEST(frmAED_Absen, TheButtonsShowDetailsSaveWithoutPasswordAndClear) {
    WindowCompany desk;
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        // A button that is pressed by its letter clicks a moment later.
        const auto& detail = WindowCompany::Part<QWidget>(entry, "picDetail");
        KeyboardUser::Press(Qt::Key_D, Qt::AltModifier);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return detail.isVisible(); }));
        KeyboardUser::Press(Qt::Key_D, Qt::AltModifier);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !detail.isVisible(); }));

        KeyboardUser::Press(Qt::Key_S, Qt::AltModifier);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !desk.company.dialogs.texts.isEmpty(); }));
        EXPECT_EQ(desk.company.dialogs.texts, QStringList{u"Gagal Simpan Record ini."_s});
        const auto& nik = WindowCompany::Part<QLineEdit>(entry, "txtNIK");
        KeyboardUser::Type(u"0012"_s);
        KeyboardUser::Press(Qt::Key_B, Qt::AltModifier);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return nik.text().isEmpty(); }));
        KeyboardUser::Type(u"0014"_s);
        for (int i = 0; i < 3; ++i)
            KeyboardUser::Press(Qt::Key_Tab);
        EXPECT_TRUE(WindowCompany::Part<QPushButton>(entry, "cmdButtons_1").hasFocus());
        KeyboardUser::Press(Qt::Key_Return);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return detail.isVisible(); }));
        KeyboardUser::Press(Qt::Key_Escape);
    });
    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_EQ(desk.company.RowsOf(Cards), QStringList{u"T202611220014|0014|IN"_s});
}

TEST(frmAED_Absen, AFailureIsReportedLoggedAndLeavesNothing) {
    WindowCompany desk;
    desk.company.Db().ExecuteNative(
        u"CREATE TRIGGER full BEFORE INSERT ON TimeCardDetail BEGIN SELECT RAISE(ABORT,'disk gone'); END"_s);
    desk.user.WhenIn(u"frmAED_Absen"_s, [&](QWidget& entry) {
        TypeKeys(u"0012\nrahasia\n"_s);
        EXPECT_EQ(WindowCompany::Part<QLineEdit>(entry, "txtNIK").text(), u"0012"_s);
        TypeKeys(u"\x1b"_s);
    });
    KeyboardUser::Press(Qt::Key_F2);
    EXPECT_TRUE(desk.company.dialogs.Last().contains(u"Database Errors: "_s));
    EXPECT_TRUE(desk.company.RowsOf(Cards).isEmpty());
    QFile log(desk.company.folder.filePath(u"VELTLOG.TXT"_s));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    const QByteArray record = log.readAll();
    EXPECT_TRUE(record.contains("disk gone") && record.endsWith("~Sub/Function: Record~\n"))
        << record.toStdString();
    EXPECT_FALSE(record.contains("rahasia"));
}
