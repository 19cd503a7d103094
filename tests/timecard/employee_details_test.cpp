#include "timecard/employee_details.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(PhotoFile, IsFoundBesideTheProgramInAnyLetterCaseOrElseIsThePictureForNone) {
    const QTemporaryDir home;
    const QDir folder(home.path());
    ASSERT_TRUE(folder.mkpath(u"Foto/Karyawan"_s));
    const QString none = u"NOIMAGE.gif"_s;
    const QString siti = u"Foto/Karyawan/Siti.GIF"_s;
    for (const QString& name : {none, siti}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const ProgramFolder program(home.path());
    // The path that the employee's row holds and the file below the program folder that is shown.
    for (const auto& [path, shown] : {std::pair{u""_s, none},
                                      {u"Foto/Karyawan/Siti.GIF"_s, siti},
                                      {u"foto\\KARYAWAN\\siti.gif"_s, siti},
                                      {u"Foto\\..\\foto\\karyawan\\siti.gif"_s, siti},
                                      {folder.filePath(u"foto/karyawan/SITI.gif"_s), siti},
                                      {u"Foto\\Karyawan\\Budi.gif"_s, none},
                                      {u"Foto\\Karyawan"_s, none},
                                      {u"Lain\\Karyawan\\Siti.gif"_s, none},
                                      {u"/nowhere/at/all.gif"_s, none}}) {
        EXPECT_EQ(PhotoFile(program, path), folder.filePath(shown)) << path.toStdString();
        EXPECT_EQ(NamesNoFile(program, path), path == u"Foto\\Karyawan"_s) << path.toStdString();
    }

    ASSERT_TRUE(QFile::remove(folder.filePath(none)));
    EXPECT_EQ(PhotoFile(program, u"missing.gif"_s), QString());
}
