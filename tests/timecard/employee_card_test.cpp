#include "timecard/employee_card.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

struct Photo {
    QString path;
    /// The file below the program folder that is shown.
    QString shown;
};

void MakeFile(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
}

} // namespace

TEST(PhotoFile, IsFoundBesideTheProgramInAnyLetterCaseOrElseIsThePictureForNone) {
    const QTemporaryDir home;
    const QDir folder(home.path());
    ASSERT_TRUE(folder.mkpath(u"Foto/Karyawan"_s));
    MakeFile(folder.filePath(u"Foto/Karyawan/Siti.GIF"_s));
    MakeFile(folder.filePath(u"NOIMAGE.gif"_s));
    const QString none = u"NOIMAGE.gif"_s;
    const QString siti = u"Foto/Karyawan/Siti.GIF"_s;
    const ProgramFolder program(home.path());
    for (const Photo& photo : {Photo{u""_s, none},
                               {u"Foto/Karyawan/Siti.GIF"_s, siti},
                               {u"foto\\KARYAWAN\\siti.gif"_s, siti},
                               {u"Foto\\..\\foto\\karyawan\\siti.gif"_s, siti},
                               {folder.filePath(u"foto/karyawan/SITI.gif"_s), siti},
                               {u"Foto\\Karyawan\\Budi.gif"_s, none},
                               {u"Foto\\Karyawan"_s, none},
                               {u"Lain\\Karyawan\\Siti.gif"_s, none},
                               {u"/nowhere/at/all.gif"_s, none}})
        EXPECT_EQ(PhotoFile(program, photo.path), folder.filePath(photo.shown)) << photo.path.toStdString();

    ASSERT_TRUE(QFile::remove(folder.filePath(none)));
    EXPECT_EQ(PhotoFile(program, u"missing.gif"_s), QString());
}
