#include "ui/form_skin.h"

#include "database/database_error.h"
#include "support/test_company.h"

#include <sys/stat.h>

TEST(Backgrounds, APipeOrAFolderIsRefusedAndNotWaitedFor) {
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(QStringLiteral("back.gif")).toUtf8();
    for (const auto make : {mkfifo, mkdir}) {
        ASSERT_EQ(make(path.constData(), 0700), 0);
        EXPECT_THROW(
            b_form_skin::Backgrounds().LoadPicture(modAbsen::Background::Big, QString::fromUtf8(path)),
            ProgramError);
        ASSERT_EQ(remove(path.constData()), 0);
    }
}
