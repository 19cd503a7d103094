#include "reports/report_file.h"

#include "core/platform_files.h"
#include "support/failures.h"
#include "support/test_company.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_LINUX
#include <optional>
#include <sys/resource.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

void WriteLines(const ProgramFolder& folder, const QStringList& lines) {
    WriteReportFile(folder, [&lines](const LineSink& sink) {
        std::ranges::for_each(lines, sink);
        return true;
    });
}

} // namespace

TEST(ReportFile, IsReplacedWholeOrNotAtAll) {
    const QTemporaryDir folder;
    const ProgramFolder program(folder.path());
    const QString path = folder.filePath(u"PRINT.TXT"_s);
    EXPECT_EQ(ReportFilePath(program), path);
    WriteLines(program, {u"a longer first report"_s, u"x"_s});
    WriteLines(program, {u"|Mü 工場|"_s, u""_s, u"--"_s});
    const auto stopped = [](const LineSink& sink) {
        sink(QString(100'000, u'x'));
        return false;
    };
    EXPECT_FALSE(WriteReportFile(program, stopped));
    EXPECT_EQ(BytesOf(path), "|M\xC3\xBC \xE5\xB7\xA5\xE5\xA0\xB4|\r\n\r\n--\r\n");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"PRINT.TXT"_s});

    const ProgramFolder gone(folder.filePath(u"gone"_s));
    EXPECT_THROW(WriteLines(gone, {u"x"_s}), ProgramError);
    ASSERT_TRUE(QFile::remove(path) && QDir(folder.path()).mkdir(u"PRINT.TXT"_s));
    EXPECT_THROW(WriteLines(program, {u"x"_s}), ProgramError) << "something else has its name";
}

#ifdef Q_OS_LINUX
namespace {

/// The folder takes no new files while this stands, not even from an administrator.
class LockedFolder {
public:
    explicit LockedFolder(const QString& path) : path_(path.toLocal8Bit()) {
        chmod(path_.constData(), 0555);
        EXPECT_EQ(seteuid(user_ == 0 ? nobody_ : user_), 0);
    }
    ~LockedFolder() {
        EXPECT_EQ(seteuid(user_), 0);
        chmod(path_.constData(), 0777);
    }

private:
    static constexpr uid_t nobody_ = 65534;
    QByteArray path_;
    uid_t user_ = geteuid();
};

} // namespace

TEST(ReportFile, StaysWhereTheNewOneFindsNoRoom) {
    TellFileSizeLimitAsError();
    const QTemporaryDir folder;
    const ProgramFolder program(folder.path());
    const QString path = ReportFilePath(program);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    // Qt gathers 16 KiB before it writes: the last byte's failure comes early or late.
    for (const auto& [room, length, locked] : {std::tuple{11, 10, false},
                                               {70'000, 100'000, false},
                                               {100'001, 100'000, false},
                                               {100'001, 100'000, true}}) {
        SCOPED_TRACE(testing::Message()
                     << length << " letters, " << room << " bytes of room, locked: " << locked);
        const QString line(length, u'y');
        WriteLines(program, {u"former"_s});
        QFile::setPermissions(path, QFile::Permissions(0x6666));
        std::optional<LockedFolder> lock;
        if (locked)
            lock.emplace(folder.path());
        const rlimit full{static_cast<rlim_t>(room), usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        EXPECT_THROW(WriteLines(program, {line}), ProgramError);
        setrlimit(RLIMIT_FSIZE, &usual);
        EXPECT_EQ(BytesOf(path), "former\r\n");
        for (const QString& later : {line, u"later"_s}) {
            WriteLines(program, {later, later});
            EXPECT_EQ(BytesOf(path), (later + u"\r\n"_s).repeated(2).toUtf8());
        }
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"PRINT.TXT"_s});
    }
}
#endif
