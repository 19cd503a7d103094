#include "ui/text_viewer.h"
#include "ui/work_progress.h"

#include "support/window_company.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

TEST(WorkProgress, LetsTheUserStopLongWorkAndNothingElse) {
    QWidget window;
    QLineEdit field(&window);
    window.show();
    KeyboardUser user;
    user.WhenIn(u"WorkProgress"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_Escape); });
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

TEST(TextViewer, ShowsTheFileAsItStands) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"PRINT.TXT"_s);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("|M\xC3\xBC      |\r\n|--------|\r\n");
    file.close();
    TextViewer viewer(path, nullptr);
    viewer.show();
    const auto& text = WindowCompany::Part<QPlainTextEdit>(viewer, "text");
    EXPECT_EQ(text.toPlainText(), u"|Mü      |\n|--------|\n"_s);
    EXPECT_TRUE(text.isReadOnly());
    EXPECT_TRUE(text.font().fixedPitch() || QFontInfo(text.font()).fixedPitch());
    KeyboardUser::Press(Qt::Key_Escape);
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return viewer.isHidden(); }));
    EXPECT_THROW(TextViewer(folder.filePath(u"gone.txt"_s), nullptr), std::runtime_error);
}
