#include "reports/report_file.h"

#include "support/failures.h"
#include "support/test_company.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

TEST(ReportFile, IsReplacedWholeOrNotAtAll) {
    const QTemporaryDir folder;
    const ProgramFolder program(folder.path());
    const QString path = folder.filePath(u"PRINT.TXT"_s);
    EXPECT_EQ(ReportFilePath(program), path);
    WriteReportFile(program, {u"a longer first report"_s, u"x"_s});
    WriteReportFile(program, {u"|Mü 工場|"_s, u""_s, u"--"_s});
    EXPECT_EQ(BytesOf(path), "|M\xC3\xBC \xE5\xB7\xA5\xE5\xA0\xB4|\r\n\r\n--\r\n");

    const ProgramFolder gone(folder.filePath(u"gone"_s));
    EXPECT_THROW(WriteReportFile(gone, {u"x"_s}), ProgramError);
    ASSERT_TRUE(QFile::remove(path) && QDir(folder.path()).mkdir(u"PRINT.TXT"_s));
    EXPECT_THROW(WriteReportFile(program, {u"x"_s}), ProgramError) << "something else has its name";
}
