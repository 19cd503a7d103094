#include "core/error_log.h"

#include "core/error_words.h"
#include "support/test_company.h"

#include <QDir>

#include <csignal>

using namespace Qt::StringLiterals;
using modGeneral::ErrorLog;

namespace {

/// The lines of the log; on every system with "\n" at their end.
QByteArray LogOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll() : QByteArray("no log");
}

} // namespace

TEST(ShowDatabaseError, SaysWhatIsPendingWordForWord) {
    const DatabaseError three(QList<DatabaseFailure>{{-2147217900, u"Mesin"_s, u"Kalimat salah"_s},
                                                     {5, u"SQLite"_s, u"%1 %2\nbaris"_s},
                                                     {3, u"c"_s, u""_s}});
    const ProgramError general(13, u"Type mismatch"_s);
    const std::runtime_error unknown("halo");
    const DatabaseError none(QList<DatabaseFailure>{});
    const std::tuple<const std::exception*, QString, QString> cases[] = {
        {&three,
         u"\nDatabase Errors: \n----------------------------------------\n[-2147217900]-Mesin\nKalimat "
         u"salah\n\n"
         "[5]-SQLite\n%1 %2\nbaris\n\n[3]-c\n\n\n"_s,
         u"Kalimat salah"_s},
        {&general, u"This program has error: \n----------------------------------\n[13]\nType mismatch\n"_s,
         u"Type mismatch"_s},
        {&unknown, u"This program has error: \n----------------------------------\n[5]\nhalo\n"_s, u"halo"_s},
        {&none, u"This program has error: \n----------------------------------\n[0]\n\n"_s, u""_s},
    };
    TestCompany company;
    const b_global::SharedConnection unconnectedYet;
    for (const auto& [pending, connected, unconnected] : cases) {
        TestDialogs dialogs;
        ShowDatabaseError(company.database, dialogs, pending);
        ShowDatabaseError(unconnectedYet, dialogs, pending);
        EXPECT_EQ(dialogs.texts, (QStringList{connected, unconnected}));
        EXPECT_EQ(dialogs.icons, (std::vector{Dialogs::Icon::Exclamation, Dialogs::Icon::None}));
    }
    ShowDatabaseError(company.database, company.dialogs, nullptr);
    EXPECT_EQ(company.dialogs.texts, QStringList());
}

TEST(UserText, PutsTheDetailsIntoTheKindsWords) {
    using enum ErrorKind;
    const std::tuple<ErrorKind, QStringList, QString> cases[] = {
        {CardOfOther,
         {u"T1%2"_s, u"0012"_s},
         u"Kartu T1%2 adalah kartu karyawan 0012. Tidak ada yang disimpan."_s},
        {CardChanged,
         {u"T1"_s, u"0013"_s, u"01-Nov-2026"_s, u"Status"_s, u"TL"_s, u"A"_s},
         u"Kartu T1 (0013, 01-Nov-2026): Status sudah diganti komputer lain menjadi TL. Yang Anda ketik (A) "
         "tidak disimpan."_s},
        {CardChanged,
         {u"T1"_s, u"0013"_s, u"01-Nov-2026"_s, u"TimeOUT"_s, QString(), QString()},
         u"Kartu T1 (0013, 01-Nov-2026):\nTimeOUT sudah diganti komputer lain menjadi kosong.\nTidak ada "
         u"yang "
         "disimpan."_s},
        {CardInUse,
         {u"T1"_s, u"22-Nov-2026"_s},
         u"Kartu T1 sudah dipakai untuk tanggal 22-Nov-2026. Tidak ada yang disimpan."_s},
        {AmountTooLarge, {u"8.3"_s, u"1"_s}, u"Jumlah terlalu besar: 8.3 jam x 1."_s},
        {DiskFull,
         {u"database or disk is full"_s, u"/data/DATA.mdb"_s},
         u"Disk penuh. Kosongkan ruang pada disk lalu ulangi. (database or disk is full)\n/data/DATA.mdb"_s},
    };
    for (const auto& [kind, details, text] : cases)
        EXPECT_EQ(UserText(ProgramError(kind, 1, u"in English"_s, details)), text);
}

TEST(ErrorLog, HoldsOneLineForEachErrorOfTheRun) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"state/VELTLOG.TXT"_s);
    for (const char* run : {"first run", "second run"}) {
        ErrorLog log(path);
        if (QByteArrayView(run) == "second run") {
            EXPECT_EQ(LogOf(path).count('\n'), 4); // nothing is emptied before the first error
        }
        log.LogError(5, u"satu\r\ndua\ntiga"_s, u"EnterCell"_s);
        EXPECT_EQ(LogOf(path), "Error Number: 5.~Error Description: satu~dua tiga~Module Name: VELT~"
                               "Sub/Function: EnterCell~\n");
        log.LogError(-7, u"übung"_s, u"Scroll"_s, u"OTHER"_s);
        log.LogError(DatabaseError(ErrorKind::NumberTooLarge, 19, u"in English"_s, {u"9"_s}), u"Keypress"_s);
        log.LogError(std::logic_error("x"), u"OnEnter"_s);
        EXPECT_EQ(LogOf(path).split('\n').mid(1),
                  (QList<QByteArray>{
                      "Error Number: -7.~Error Description: übung~Module Name: OTHER~Sub/Function: Scroll~",
                      "Error Number: 19.~Error Description: Angka terlalu besar: 9.~Module Name: "
                      "VELT~Sub/Function: Keypress~",
                      "Error Number: 0.~Error Description: x~Module Name: VELT~Sub/Function: OnEnter~", ""}));
    }
}

TEST(ErrorLog, ProgramsSideBySideWriteAFileEach) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"VELTLOG.TXT"_s);
    const QString second = folder.filePath(u"VELTLOG-2.TXT"_s);
    ErrorLog desk(path);
    for (const QByteArray& run : {QByteArray("b"), QByteArray("c")}) {
        ErrorLog other(path);
        desk.WriteLog(u"a"_s);
        other.WriteLog(QString::fromLatin1(run));
        ErrorLog(path).WriteLog(u"third"_s);
        EXPECT_EQ(LogOf(second), run + '\n');
    }
    EXPECT_EQ(LogOf(path), "a\na\n");
    EXPECT_EQ(LogOf(folder.filePath(u"VELTLOG-3.TXT"_s)), "third\n");
}

#ifndef Q_OS_WIN
TEST(ErrorLog, AKilledProgramLeavesTheFileToTheNext) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"VELTLOG.TXT"_s);
    const auto dieWithTheFileOpen = [&path] {
        ErrorLog log(path);
        log.WriteLog(u"last words"_s);
        raise(SIGKILL);
    };
    EXPECT_EXIT(dieWithTheFileOpen(), testing::KilledBySignal(SIGKILL), "");
    EXPECT_EQ(LogOf(path), "last words\n");
    ErrorLog next(path);
    next.WriteLog(u"next"_s);
    EXPECT_EQ(LogOf(path), "next\n");
}
#endif
