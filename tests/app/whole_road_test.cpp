#include "app/desk_windows.h"
#include "reports/report_file.h"
#include "support/keystrokes.h"
#include "support/window_company.h"

#include <QApplication>
#include <QFile>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

/// The whole program over one company, with everything that a supervisor and an employee do in it by
/// keyboard.
class WholeProgram {
public:
    WholeProgram() {
        company.window->hide();
        windows.Desk().Form_Load();
        windows.Desk().show();
        BringToFront(windows.Desk());
    }

    static void BringToFront(QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return window.isActiveWindow(); }));
    }
    /// What to do in a window when it comes.
    void In(const QString& window, const std::function<void()>& work) {
        company.user.WhenIn(window, [work](QWidget&) { work(); });
    }
    static void Mnemonic(Qt::Key key) { KeyboardUser::Press(key, Qt::AltModifier); }
    void Administer() {
        BringToFront(windows.Desk());
        company.ChooseFromMenu(u"Edit data master dan laporan"_s);
        EXPECT_TRUE(company.user.IsDone());
    }

    WindowCompany company;
    DeskWindows windows{company.company.program, company.skin, [] { return u"United States"_s; }};
};

} // namespace

TEST(WholeProgram, ANightGoesFromTheRosterThroughTheClockAndTheComputationIntoTheReport) {
    WholeProgram program;
    TestCompany& company = program.company.company;
    company.Db().Execute(u"UPDATE Employee SET EmpType='HRN', GP=150000, TMakan=12500"_s);

    // The supervisor makes the shift, gives it to Siti for the 22nd and leaves the desk in admin mode.
    program.company.WillLogIn(u"pelon"_s, u"pelon"_s);
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_C); });
    program.In(u"frmShiftCode"_s, [] { Keys(u"⎀MALAM⏎22:00⏎06:00⏎⎋"_s); });
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_S); });
    program.In(u"frmShiftEmployee"_s, [] { Keys(QString(21, u'→') + u"MALAM⏎⎋"_s); });
    program.In(u"frmSetting"_s, [] { Keys(u"↹↹↹↹ ⎋"_s); });
    program.Administer();
    ASSERT_TRUE(program.windows.Desk().AdminMode());

    company.clock.now = Moment(u"2026-11-22 21:50:00");
    program.company.Record(Qt::Key_F2, u"0012"_s, u"rahasia"_s);
    company.clock.now = Moment(u"2026-11-23 06:05:00");
    program.company.Record(Qt::Key_F8, u"0012"_s, u"rahasia"_s);

    // In admin mode Enter on her row opens the card; it is computed there.
    program.In(u"frmEditAbsensiOne"_s, [&company] {
        WholeProgram::Mnemonic(Qt::Key_H);
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] {
            return company.RowsOf(u"select NormalHours from TimeCardHeader"_s) != QStringList{u"-"_s};
        }));
        Keys(u"⎋"_s);
    });
    WholeProgram::BringToFront(program.windows.Desk());
    auto& sheet = WindowCompany::Part<QTableView>(program.windows.Desk(), "MSHFlexGrid1");
    sheet.setFocus();
    sheet.selectRow(sheet.model()->rowCount() - 1); // by name she is the last
    Keys(u"⏎"_s);
    EXPECT_EQ(
        company.RowsOf(u"select h.TCID, h.NormalHours, h.NormalAmount, h.TotalUangMakan, d.TimeINOT, "
                       "d.ShiftCode from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID"_s),
        QStringList{u"T202611220012|8.1|150000|12500|2026-11-23 06:00:00|MALAM"_s});

    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_E); });
    program.In(u"frmAbsensi"_s, [] {
        WholeProgram::Mnemonic(Qt::Key_L);
        Keys(u"⏎"_s);
    });
    program.In(u"frmRptCriteria"_s, [] { Keys(u"↓⏎⏎⏎⎋"_s); });
    program.In(u"frmAbsensi"_s, [] { Keys(u"⎋"_s); });
    program.In(u"frmSetting"_s, [] { Keys(u"⎋"_s); });
    program.Administer();
    ASSERT_EQ(company.shownReports.size(), 1);
    QFile report(ReportFilePath(company.program.folder));
    ASSERT_TRUE(report.open(QIODevice::ReadOnly));
    const QString printed = QString::fromUtf8(report.readAll());
    EXPECT_TRUE(printed.contains(u"|0012    |Siti Aminah         | 21:50 | 06:05 |OUT    |"_s))
        << printed.toStdString();
    EXPECT_TRUE(company.dialogs.texts.isEmpty());
}
