#include "core/status_codes.h"
#include "editing/attendance_model.h"
#include "editing/search_row.h"
#include "shifts/roster_model.h"
#include "tour/tour.h"

#include <QLineEdit>
#include <QTableView>

using namespace Qt::StringLiterals;

namespace {

/// The windows are pictured as they are on an ordinary screen.
constexpr QSize OfficeSize(1300, 700);
constexpr QSize ReportSize(900, 560);

QTableView& GridOf(QWidget& window) {
    return *window.findChild<QTableView*>(u"MSHFlexGrid1"_s);
}

void Walk(Qt::Key key, int steps) {
    for (int i = 0; i < steps; ++i)
        KeyboardUser::Press(key);
}

} // namespace

/// Admin mode opens the door without asking.
void Tour::VisitOffice() {
    PlanOffice(Qt::Key_C, u"setting"_s);
    PlanShiftCodes();
    PlanOffice(Qt::Key_S);
    PlanRoster();
    PlanOffice(Qt::Key_D);
    PlanSearch();
    PlanOffice(Qt::Key_E);
    PlanBrowser();
    PlanReport();
    user_.WhenIn(u"frmSetting"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_Escape); });
    ChooseFromMenu(OfficeEntry, {});
}

void Tour::PlanOffice(Qt::Key mnemonic, const QString& pictureName) {
    user_.WhenIn(u"frmSetting"_s, [this, mnemonic, pictureName](QWidget& office) {
        if (!pictureName.isEmpty())
            Picture(office, pictureName);
        KeyboardUser::Press(mnemonic, Qt::AltModifier);
    });
}

void Tour::PlanShiftCodes() {
    user_.WhenIn(u"frmShiftCode"_s, [this](QWidget& codes) {
        Picture(codes, u"shift-codes"_s);
        KeyboardUser::Press(Qt::Key_Escape);
    });
}

/// Gives three employees their shift of the first day.
void Tour::PlanRoster() {
    user_.WhenIn(u"frmShiftEmployee"_s, [this](QWidget& roster) {
        roster.resize(OfficeSize);
        for (const QString& code : {u"PAGI"_s, u"SIANG"_s, ShiftCode::Default.toString()}) {
            KeyboardUser::Type(code);
            KeyboardUser::Press(Qt::Key_Return);
            KeyboardUser::Press(Qt::Key_Down);
        }
        const QAbstractItemModel& cells = *GridOf(roster).model();
        Expect(cells.index(1, RosterModel::FirstDay).data() == u"SIANG"_s,
               u"the roster did not take a code"_s);
        Picture(roster, u"roster"_s);
        KeyboardUser::Press(Qt::Key_Escape);
    });
}

/// Finds the month's cards of the employee and types a remark onto the last one.
void Tour::PlanSearch() {
    user_.WhenIn(u"frmEditAbsensi"_s, [this](QWidget& search) {
        search.resize(OfficeSize);
        search.findChild<QLineEdit*>(u"txtNIK"_s)->setText(u"0007"_s);
        KeyboardUser::Type(u"t2026"_s);
        KeyboardUser::Press(Qt::Key_Return);
        Expect(GridOf(search).model()->rowCount() > 0, u"the search finds no card"_s);
        KeyboardUser::Press(Qt::Key_End, Qt::ControlModifier);
        KeyboardUser::Press(Qt::Key_Home);
        Walk(Qt::Key_Right, SearchRow::Keterangan);
        KeyboardUser::Type(u"Surat dokter"_s);
        Picture(search, u"search-typing"_s);
        KeyboardUser::Press(Qt::Key_Return);
        KeyboardUser::Press(Qt::Key_Up);
        Picture(search, u"search"_s);
        KeyboardUser::Press(Qt::Key_Escape);
    });
}

/// Begins to give a day its status, then goes on to the reports by the menu.
void Tour::PlanBrowser() {
    user_.WhenIn(u"frmAbsensi"_s, [this](QWidget& browser) {
        browser.resize(OfficeSize);
        GridOf(browser).setFocus();
        KeyboardUser::Press(Qt::Key_End, Qt::ControlModifier);
        KeyboardUser::Press(Qt::Key_Home);
        Walk(Qt::Key_Right, AttendanceModel::Status);
        KeyboardUser::Type(CardStatus::OnDuty.toString());
        Picture(browser, u"browser"_s);
        KeyboardUser::Press(Qt::Key_Escape);
        KeyboardUser::Press(Qt::Key_L, Qt::AltModifier);
        Picture(*KeyboardUser::InFront(), u"report-menu"_s);
        KeyboardUser::Press(Qt::Key_Return);
        KeyboardUser::Press(Qt::Key_Escape);
    });
}

void Tour::PlanReport() {
    user_.WhenIn(u"frmRptCriteria"_s, [this](QWidget& criteria) {
        Picture(criteria, u"report-criteria"_s);
        KeyboardUser::Press(Qt::Key_Return);
        KeyboardUser::Press(Qt::Key_Return);
        KeyboardUser::Press(Qt::Key_Return);
    });
    user_.WhenIn(u"TextViewer"_s, [this](QWidget& report) {
        report.resize(ReportSize);
        Picture(report, u"report"_s);
        KeyboardUser::Press(Qt::Key_Escape);
    });
    user_.WhenIn(u"frmRptCriteria"_s, [](QWidget&) { KeyboardUser::Press(Qt::Key_Escape); });
}
