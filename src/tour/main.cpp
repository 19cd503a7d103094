#include "tools/demo_company.h"
#include "tour/quiet_platform.h"
#include "tour/tour.h"
#include "ui/guarded_application.h"
#include "ui/standard_texts.h"
#include "ui/theme.h"

#include <QCommandLineParser>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

/// A program folder of the tour's own: the demo company of its time and the program's pictures.
void FillProgramFolder(const QDir& folder, const QDir& assets) {
    MakeDemoCompany(folder.filePath(u"DATA.mdb"_s),
                    {.employees = 42, .months = 3, .until = *MakeDay(2026, 11, 22)});
    folder.mkpath(u"images"_s);
    for (const QString& file : {u"NoImage.gif"_s, u"setting.ini"_s, u"images/back_big.gif"_s,
                                u"images/back_litle.gif"_s, u"images/back_midle.gif"_s, u"images/back.gif"_s})
        QFile::copy(assets.filePath(file), folder.filePath(file));
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QuietPlatform();
    GuardedApplication application(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    Theme::Apply(application);
    StandardTexts texts;
    QApplication::installTranslator(&texts);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Walks through the program by keystrokes and keeps pictures of its windows."_s);
    parser.addHelpOption();
    const QCommandLineOption pictures(u"pictures"_s, u"Where the pictures are left."_s, u"DIR"_s, u"tour"_s);
    const QCommandLineOption assets(u"assets"_s, u"The folder with the program's pictures."_s, u"DIR"_s,
                                    QApplication::applicationDirPath());
    parser.addOptions({pictures, assets});
    parser.process(application);

    try {
        const QTemporaryDir folder;
        FillProgramFolder(QDir(folder.path()), QDir(parser.value(assets)));
        QDir().mkpath(parser.value(pictures));
        return Tour(application, folder.path(), parser.value(pictures)).Run() ? 0 : 1;
    } catch (const std::exception& error) {
        QTextStream(stderr) << error.what() << Qt::endl;
        return 2;
    }
}
