#include "ui/text_viewer.h"
#include "ui/work_progress.h"

#include "support/window_company.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QPlainTextEdit>
#include <QPointer>

using namespace Qt::StringLiterals;

TEST(WorkProgress, LetsTheUserStopLongWorkAndNothingElse) {
    QWidget window;
    QLineEdit field(&window);
    window.show();
    KeyboardUser user;
    user.WhenIn(u"WorkProgress"_s, [](QWidget&) { Keys(u"⎋"); });
    const QDeadlineTimer patience(10000);
    bool stopped = false;
    {
        WorkProgress progress(&window, u"Menghitung ..."_s);
        for (int done = 0; !stopped && !patience.hasExpired(); ++done)
            stopped = !progress(done % 1000, 1000);
    }
    EXPECT_TRUE(stopped);
    EXPECT_FALSE(QApplication::overrideCursor());
    EXPECT_TRUE(window.isEnabled());
}

namespace {

/// Writes a file that anybody may run.
void Write(const QString& path, const QByteArray& contents) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contents);
    file.setPermissions(file.permissions() | QFile::ExeOwner);
}

} // namespace

#ifdef Q_OS_UNIX
TEST(TextViewer, ShowsTheFileAsItStandsAndStaysWhenTheWindowBelowIsLeft) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"PRINT.TXT"_s);
    Write(path, "ABSENSI HARIAN\r\n|M\xC3\xBC      |\r\n|--------|\r\n");
    const QByteArray programs = qgetenv("PATH");
    qputenv("PATH", folder.path().toUtf8() + ':' + programs);
    Write(folder.filePath(u"xdg-mime"_s), "#!/bin/sh\necho editor.desktop\n");
    QWidget desk;
    desk.show();
    QDialog criteria(&desk);
    criteria.setModal(true);
    criteria.show();
    for (const char* exitCode : {"0", "4"}) {
        EXPECT_FALSE(criteria.findChild<TextViewer*>());
        Write(folder.filePath(u"xdg-open"_s), QByteArray("#!/bin/sh\nexit ") + exitCode + '\n');
        ShowTextFile(path);
    }
    qputenv("PATH", programs);
    const QPointer<TextViewer> viewer = criteria.findChild<TextViewer*>(); // goes when it is closed
    ASSERT_TRUE(viewer);
    EXPECT_TRUE(viewer->windowTitle().startsWith(u"ABSENSI HARIAN - "_s));
    criteria.hide();
    EXPECT_EQ(viewer->parentWidget(), &desk);
    EXPECT_TRUE(viewer->isVisible());
    const auto& text = Part<QPlainTextEdit>(*viewer, "text");
    EXPECT_EQ(text.toPlainText(), u"ABSENSI HARIAN\n|Mü      |\n|--------|\n"_s);
    EXPECT_TRUE(text.isReadOnly());
    const QFontMetrics metrics(text.font());
    for (const QString& letters : {u"iiii"_s, u"WWWW"_s, u"|-.|"_s})
        EXPECT_EQ(metrics.horizontalAdvance(letters), metrics.horizontalAdvance(u"0000"_s))
            << "columns stand in line";
    viewer->activateWindow();
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return viewer->isActiveWindow(); }));
    Keys(u"⎋");
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return viewer.isNull(); }));
    EXPECT_THROW(TextViewer(folder.filePath(u"gone.txt"_s), nullptr), std::runtime_error);
}
#endif
