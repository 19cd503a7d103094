#include "editing/frmEditAbsensiOne.h"
#include "shell/frmLogin.h"
#include "shell/frmSetting.h"
#include "shifts/frmShiftCode.h"
#include "shifts/frmShiftEmployee.h"
#include "timecard/frmMain.h"
#include "ui/form_skin.h"
#include "ui/message_dialogs.h"
#include "ui/standard_texts.h"
#include "ui/text_viewer.h"
#include "ui/theme.h"

#include <QApplication>
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

SettingNeeds NeedsOfSetting(Program& program, const b_form_skin::Backgrounds& skin, frmMain& desk) {
    SettingNeeds needs;
    needs.roster = [&program, &skin](QWidget* over) {
        return std::make_unique<frmShiftEmployee>(program, skin, over);
    };
    needs.shiftCodes = [&program, &skin](QWidget* over) {
        return std::make_unique<frmShiftCode>(program, skin, over);
    };
    needs.setAdminMode = [&desk](bool on) { desk.SetAdminMode(on); };
    return needs;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"timeattendance"_s);
    QApplication::setApplicationVersion(u"1.0"_s);
    Theme::Apply(application);
    StandardTexts texts;
    QApplication::installTranslator(&texts);

    const SystemClock clock;
    MessageDialogs dialogs;
    modGeneral::ErrorLog log;
    b_global::SharedConnection database;
    b_form_skin::Backgrounds skin;
    Program program{
        ProgramFolder(HomeFolder(application)),
        clock,
        dialogs,
        log,
        database,
        [&](LoginHandOver& channel) { frmLogin(clock, channel, skin, QApplication::activeWindow()).exec(); },
        ShowTextFile};

    frmMain* desk = nullptr;
    frmSetting* setting = nullptr; // the desk's, made when it is first asked for
    MainWindowNeeds needs;
    needs.editCard = [&](const QString& tcid, const QString& nip) {
        frmEditAbsensiOne editor(program, tcid, nip, skin, desk);
        QObject::connect(&editor, &frmEditAbsensiOne::Saved, desk, &frmMain::RefreshSheetNow);
        editor.exec();
    };
    needs.openSettings = [&] {
        if (!setting)
            setting = new frmSetting(NeedsOfSetting(program, skin, *desk), skin, desk);
        setting->exec();
    };
    frmMain window(program, skin, std::move(needs));
    desk = &window;
    if (!window.Form_Load())
        return 1;
    window.show();
    return QApplication::exec();
}
