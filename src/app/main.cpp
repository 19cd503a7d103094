#include "app/desk_windows.h"
#include "core/platform_files.h"
#include "core/supervisor_check.h"
#include "core/version.h"
#include "shell/frmLogin.h"
#include "ui/guarded_application.h"
#include "ui/message_dialogs.h"
#include "ui/standard_texts.h"
#include "ui/text_viewer.h"
#include "ui/theme.h"

#include <QCommandLineParser>

using namespace Qt::StringLiterals;

namespace {

QString HomeFolder(const QApplication& application) {
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Time attendance for a payroll office."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(u"home"_s,
                                  u"The program folder: database, settings and pictures (default: the "
                                  "program's own)."_s,
                                  u"DIR"_s, QApplication::applicationDirPath());
    parser.addOption(home);
    parser.process(application);
    return parser.value(home);
}

} // namespace

int main(int argc, char** argv) {
    TellFileSizeLimitAsError();
    GuardedApplication application(argc, argv);
    QApplication::setApplicationName(u"timeattendance"_s);
    QApplication::setApplicationVersion(ProgramVersion());
    Theme::Apply(application);
    StandardTexts texts;
    QApplication::installTranslator(&texts);

    const SystemClock clock;
    MessageDialogs dialogs;
    modGeneral::ErrorLog log;
    b_global::SharedConnection database;
    b_form_skin::Backgrounds skin;
    Program program{ProgramFolder(HomeFolder(application)),
                    clock,
                    dialogs,
                    log,
                    database,
                    [&](LoginHandOver& channel) {
                        const bool demo = modGeneral::HasDemoUser(database.Get());
                        frmLogin(clock, channel, skin, QApplication::activeWindow(), demo).exec();
                    },
                    ShowTextFile};

    const auto guard = application.ReportTo(program);
    DeskWindows windows(program, skin);
    if (!windows.Start())
        return 1;
    return QApplication::exec();
}
