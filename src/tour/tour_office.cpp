#include "company/frmSetup.h"
#include "editing/attendance_model.h"
#include "editing/search_row.h"
#include "shifts/roster_model.h"
#include "tour/tour.h"

#include <QLabel>
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

} // namespace

/// Admin mode opens the door without asking.
void Tour::VisitOffice() {
    const QString office = u"frmSetting"_s;
    In(office, u"[setting]⎇c"_s);
    In(u"frmShiftCode"_s, u"[shift-codes]⎋"_s);
    In(office, u"⎇s"_s);
    PlanRoster();
    In(office, u"⎇d"_s);
    PlanSearch();
    In(office, u"⎇b"_s);
    In(u"frmKartuBermasalah"_s, u"[problems]⎋"_s);
    In(office, u"⎇e"_s);
    PlanBrowser();
    PlanReport();
    In(office, u"⎇m"_s);
    PlanMasterData();
    In(office, u"⎇p"_s);
    In(u"frmPengaturan"_s, u"[company-settings]⎋"_s);
    In(office, u"⎋"_s);
    ChooseFromMenu(OfficeEntry);
}

/// What a program without a database offers, up to the last step.
void Tour::ShowSetup() {
    SetupNeeds needs;
    needs.makeDemo = [](const QString&, const Progress&) {};
    In(u"frmSetup"_s, u"[setup]⏎PT Maju Jaya⏎bos⏎Kunci7⏎Kunci7[setup-company]⑥[setup-shifts]⑥"
                      "PROD Produksi⏎ADM Administrasi↹A Regu A⏎B Regu B[setup-codes]⎋⎋⎋⎋"_s);
    frmSetup(program_, program_.folder.Path() + u"/New.mdb"_s, std::move(needs), nullptr).exec();
}

/// Raises somebody's pay from the first of next month on, then looks at codes and users.
void Tour::PlanMasterData() {
    user_.WhenIn(u"frmMaster"_s, [this](QWidget& master) {
        master.resize(OfficeSize);
        Type(u"↓[master-employees]⏎⏎⏎⏎⏎6500000⑥"_s);
        Expect(!master.findChild<QLabel*>(u"lblState"_s)->text().isEmpty(), u"the raise was not kept"_s);
        Type(u"[master-raise]⎇2↓[master-departments]⎇6[master-users]⎋"_s);
    });
    In(u"frmPayFrom"_s, u"1/12/2026[pay-from]⏎"_s);
}

/// Gives three employees their shift of the first day, and everyone the next month by a pattern.
void Tour::PlanRoster() {
    user_.WhenIn(u"frmShiftEmployee"_s, [this](QWidget& roster) {
        roster.resize(OfficeSize);
        Keys(u"PAGI⏎←↓SIANG⏎←↓P⏎←↓");
        const QAbstractItemModel& cells = *GridOf(roster).model();
        Expect(cells.index(1, RosterModel::FirstDay).data() == u"SIANG"_s,
               u"the roster did not take a code"_s);
        Type(u"[roster]⎈⇟⎇o"_s);
        const QModelIndex last = cells.index(41, RosterModel::FirstDay + 30);
        Expect(KeyboardUser::WaitUntil([&] { return last.data() == u"O"_s; }),
               u"the pattern did not fill December"_s);
        Type(u"[roster-filled]⎋"_s);
    });
    In(u"RosterFillBox"_s, u"PAGIx3 MALAMx3 Ox2⎇g1[roster-pattern]⏎"_s);
}

/// Finds the month's cards of the employee and types a remark onto the last one.
void Tour::PlanSearch() {
    user_.WhenIn(u"frmEditAbsensi"_s, [this](QWidget& search) {
        search.resize(OfficeSize);
        search.findChild<QLineEdit*>(u"txtNIK"_s)->setText(u"0007"_s);
        Keys(u"t2026⏎");
        Expect(GridOf(search).model()->rowCount() > 0, u"the search finds no card"_s);
        Keys(u"⎈⇲⇱"_s + QString(SearchRow::Keterangan, u'→'));
        Type(u"Surat dokter[search-typing]⏎↑[search]⎋"_s);
    });
}

/// Begins to give a day its status, then goes on to the reports by the menu.
void Tour::PlanBrowser() {
    user_.WhenIn(u"frmAbsensi"_s, [this](QWidget& browser) {
        browser.resize(OfficeSize);
        GridOf(browser).setFocus();
        Keys(u"⎈⇲⇱"_s + QString(AttendanceModel::Status, u'→'));
        Type(u"TL[browser]⎋⎇l[report-menu]⏎⎋"_s);
    });
}

void Tour::PlanReport() {
    In(u"frmRptCriteria"_s, u"[report-criteria]⏎⏎⏎"_s);
    user_.WhenIn(u"TextViewer"_s, [this](QWidget& report) {
        report.resize(ReportSize);
        Type(u"[report]⎋"_s);
    });
    In(u"frmRptCriteria"_s, u"⎋"_s);
}
