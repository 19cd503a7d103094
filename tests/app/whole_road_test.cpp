#include "app/desk_windows.h"
#include "support/window_company.h"

#include <QApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The whole program over one company, with everything that a supervisor and an employee do in it by
/// keyboard.
class WholeProgram : public WindowCompany {
public:
    WholeProgram() {
        window->hide();
        for (int i = 15; i < 22; ++i)
            AddEmployee(u"00%1"_s.arg(i), u"Karyawan %1"_s.arg(i), u"x"_s);
        Db().Execute(u"UPDATE [User] SET Password='x' WHERE UserID<>'pelon'"_s);
        windows.Desk().Form_Load();
        Show(windows.Desk());
    }

    /// What to do in a window when it comes.
    void In(const QString& name, const std::function<void()>& work) {
        user.WhenIn(name, [work](QWidget&) { work(); });
    }
    static void Mnemonic(Qt::Key key) { KeyboardUser::Press(key, Qt::AltModifier); }
    void RecordAll(Qt::Key key, const QString& moment) {
        clock.now = Moment(moment);
        for (const QString& nip : RowsOf(u"select NIP from Employee"_s))
            Record(key, nip, u"x"_s);
    }
    /// The report's lines of two employees, one that works by night on the 22nd and one that is off.
    QStringList Printed() const { return ReportLines().filter(QRegularExpression(u"\\|001[23] *\\|"_s)); }
    /// In admin mode Enter on a row opens the card; it is computed there.
    void ComputeLastCard() {
        In(u"frmEditAbsensiOne"_s, [this] {
            Mnemonic(Qt::Key_H);
            EXPECT_TRUE(KeyboardUser::WaitUntil(
                [this] { return !RowsOf(u"select 1 from TimeCardHeader where NormalHours>0"_s).isEmpty(); }));
            Keys(u"⎋");
        });
        Show(windows.Desk());
        auto& sheet = ::Part<QTableView>(windows.Desk(), "MSHFlexGrid1");
        sheet.setFocus();
        sheet.selectRow(sheet.model()->rowCount() - 1);
        clock.now += Seconds{1}; // no second at which the clock refreshes the sheet
        Keys(u"⏎");
        EXPECT_EQ(sheet.currentIndex().siblingAtColumn(SheetModel::OvertimeIn).data(), u"06:00:00"_s);
    }
    QStringList ComputeAndPrintAll() {
        Keys(u"t20261122⏎");
        Mnemonic(Qt::Key_H);
        EXPECT_TRUE(KeyboardUser::WaitUntil([this] {
            return RowsOf(u"select 1 from TimeCardHeader where NormalHours is null"_s).isEmpty();
        }));
        Mnemonic(Qt::Key_G);
        EXPECT_TRUE(KeyboardUser::WaitUntil([this] { return !shownReports.isEmpty(); }));
        QStringList printed = Printed();
        Keys(u"⎋");
        return printed;
    }
    void Administer() {
        Show(windows.Desk());
        ChooseFromMenu(u"Edit data master dan laporan"_s);
        EXPECT_TRUE(user.IsDone());
    }

    DeskWindows windows{program, skin, [] { return u"United States"_s; }};
};

/// Types a month, everybody's shifts in turn, and adds what must then be stored.
void TypeRoster(QStringList& typed) {
    const QStringList shifts{u"P"_s, u"MALAM"_s, u"O"_s};
    for (int employee = 12; employee < 22; ++employee) {
        for (int day = 1; day <= 30; ++day) {
            const QString& shift = shifts.at((employee + day) % 3);
            Keys(shift + u"⏎"_s);
            typed << u"00%1|2026-11-%2|%3"_s.arg(employee).arg(day, 2, 10, QChar(u'0')).arg(shift);
        }
        Keys(u"⇱↓");
    }
    Keys(u"⎋");
}

} // namespace

TEST(WholeProgram, AMonthGoesFromTheRosterThroughTheClockAndTheComputationIntoTheReport) {
    WholeProgram program;
    program.Db().Execute(u"UPDATE Employee SET EmpType='HRN', GP=150000, TMakan=12500"_s);

    // The supervisor makes the shifts, types the month's roster and leaves the desk in admin mode.
    QStringList typed;
    program.WillLogIn(u"pelon"_s, u"pelon"_s);
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_C); });
    program.In(u"frmShiftCode"_s, [] { Keys(u"⎀MALAM⏎22:00⏎06:00⏎⎀P⏎08:00⏎17:00⏎⎋"); });
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_S); });
    program.In(u"frmShiftEmployee"_s, [&typed] { TypeRoster(typed); });
    program.user.WhenIn(u"frmSetting"_s, [](QWidget& office) {
        ::Part<QWidget>(office, "chkAdminMode").setFocus();
        Keys(u" ⎋");
    });
    program.Administer();
    ASSERT_TRUE(program.windows.Desk().AdminMode());
    EXPECT_EQ(program.RowsOf(u"select NIP, Tgl, ShiftCode from ShiftEmployee"_s), typed);

    program.RecordAll(Qt::Key_F2, u"2026-11-22 21:50:00"_s);
    program.RecordAll(Qt::Key_F8, u"2026-11-23 06:05:00"_s);

    program.ComputeLastCard(); // by name it is Siti's
    EXPECT_EQ(
        program.RowsOf(
            u"select h.TCID, h.NormalHours, h.NormalAmount, h.TotalUangMakan, d.TimeINOT, "
            "d.ShiftCode from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID where h.NIP='0012'"_s),
        QStringList{u"T202611220012|8.1|150000|12500|2026-11-23 06:00:00|MALAM"_s});

    // All cards are computed and printed from the search, the day from the browser.
    QStringList printed;
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_D); });
    program.In(u"frmEditAbsensi"_s, [&] { printed = program.ComputeAndPrintAll(); });
    program.In(u"frmSetting"_s, [] { WholeProgram::Mnemonic(Qt::Key_E); });
    program.In(u"frmAbsensi"_s, [] {
        WholeProgram::Mnemonic(Qt::Key_L);
        Keys(u"⏎");
    });
    program.In(u"frmRptCriteria"_s, [] { Keys(u"↓⏎⏎⏎⎋"); });
    program.In(u"frmAbsensi"_s, [] { Keys(u"⎋"); });
    program.In(u"frmSetting"_s, [] { Keys(u"⎋"); });
    program.Administer();
    ASSERT_EQ(program.shownReports.size(), 2);
    printed << program.Printed();
    EXPECT_EQ(
        printed,
        (QStringList{
            u"1    |OUT   |0012|Siti Aminah |          |PROD|T202611220012|A     |22-Nov-2026|21:50:00|"
            "23-Nov-2026 06:05:00|23-Nov-2026 06:00:00|23-Nov-2026 06:05:00|"
            "True         |8.1        |0      |150000      |0       |"_s,
            u"2    |OUT   |0013|Budi Santoso|          |PROD|T202611220013|B     |22-Nov-2026|21:50:00|"
            "23-Nov-2026 06:05:00|                    |                    |"
            "True         |0          |0      |150000      |0       |"_s,
            u"|2   |0013    |Budi Santoso        | 21:50 | 06:05 |OUT    |                              |"_s,
            u"|10  |0012    |Siti Aminah         | 21:50 | 06:05 |OUT    |                              |"_s}));
    EXPECT_EQ(program.dialogs.texts.size(), 1) << "the print's own notice";
}
