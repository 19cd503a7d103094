#include "tour/tour.h"

#include "cards/card_fields.h"
#include "cards/card_store.h"
#include "cards/sheet_identifier.h"
#include "core/status_codes.h"
#include "shell/frmLogin.h"
#include "timecard/clock_recording.h"
#include "timecard/sheet_lifecycle.h"
#include "ui/text_viewer.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTextStream>
#include <QWidget>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString Employee = u"0007"_s;
/// Comes in the morning and forgets to clock out.
const QString Forgetful = u"0001"_s;

void Print(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

template<class Row, class Each>
QString FieldsOf(const Row& row, Each each) {
    QStringList fields;
    each([&](QStringView name, auto member) {
        fields << name.toString() + u'=' + Stored(row.*member).Text();
    });
    return fields.join(u"  "_s);
}

} // namespace

Tour::Tour(GuardedApplication& application, const QString& programFolder, const QString& pictureFolder)
    : pictures_(pictureFolder), log_(programFolder + u"/VELTLOG.TXT"_s),
      program_{ProgramFolder(programFolder),
               clock_,
               dialogs_,
               log_,
               database_,
               [this](LoginHandOver& channel) {
                   frmLogin(clock_, channel, skin_, QApplication::activeWindow()).exec();
               },
               OpenTextViewer},
      windows_(program_, skin_, [] { return u"United States"_s; }), desk_(&windows_.Desk()),
      guard_(application.ReportTo(program_)) {
    clock_.now = TimeOnDay(*MakeDay(2026, 11, 23), 7h + 41min + 5s);
}

bool Tour::Run() {
    if (!desk_->Form_Load())
        return false;
    desk_->resize(1366, 768);
    desk_->show();

    ShowSetup();
    RecordColleagues();
    clock_.now += 4s;
    Type(u"⎈⇱[desk]"_s);
    PunchInAndOut();
    CloseAndReopenSheet();
    TurnAdminModeOn();
    CorrectACard();
    FillForgottenDeparture();
    VisitOffice();
    PrintRows();

    Expect(user_.IsDone(), u"a window that should have opened did not"_s);
    for (const QString& failure : failures_)
        Print(u"FAILED: "_s + failure);
    Print(u"Pictures of the windows: "_s + QDir::toNativeSeparators(pictures_.absolutePath()));
    return failures_.isEmpty();
}

/// The sheet as it stands at seven in the morning: most colleagues have come, some have gone out.
void Tour::RecordColleagues() {
    const Day today = DayOf(clock_.now);
    const QString sheet = SheetIdentifierOf(today);
    for (int number = 1; number <= 42; ++number) {
        const QString nip = QString::number(number).rightJustified(4, u'0');
        if (nip == Employee || number % 6 == 0)
            continue;
        const WallTime arrival = TimeOnDay(today, 7h + 20min + Seconds{number * 37});
        RecordClockEntry(program_.Db(), {sheet, today, ClockMode::In.toString(), arrival}, nip);
        if (number % 13 == 0)
            RecordClockEntry(program_.Db(), {sheet, today, ClockMode::Out.toString(), arrival + 15min}, nip);
    }
}

void Tour::PunchInAndOut() {
    const QString entry = u"frmAED_Absen"_s;
    const QString typed = Employee + u'⏎' + Employee;
    clock_.now = TimeOnDay(DayOf(clock_.now), 7h + 58min + 12s);
    In(entry, typed + u"[clock-in]⏎[clock-in-recorded]"_s);
    Type(u"②[desk-after-clock-in]"_s); // the entry window closes itself

    clock_.now += 90s;
    In(entry, typed + u'⏎');
    In(u"MessageBox"_s, u"[second-clock-in-refused]⏎⎋"_s);
    Keys(u"②");

    In(entry, u"⑨"_s);
    In(u"PickList"_s, u"an↓[pick-list]⎋⎋"_s);
    Keys(u"②");

    clock_.now = TimeOnDay(DayOf(clock_.now), 17h + 3min + 30s);
    In(entry, typed + u"[clock-out]⏎[clock-out-recorded]⏎"_s);
    Keys(u"⑧");
}

void Tour::LogInAsSupervisor(const QString& pictureName) {
    In(u"frmLogin"_s, u"pelon⏎pelon"_s + pictureName + u'⑥');
}

void Tour::ChooseFromMenu(MenuEntry entry, const QString& pictureName) {
    Type(u'⑩' + QString(entry, u'↓') + pictureName + u'⏎');
}

void Tour::CloseAndReopenSheet() {
    LogInAsSupervisor(u"[login]"_s);
    ChooseFromMenu(CloseSheetEntry, u"[menu]"_s);
    auto* notice = desk_->findChild<QWidget*>(u"picCloseTcid"_s);
    Expect(notice && notice->isVisible(), u"the closed sheet is not announced"_s);
    Picture(*desk_, u"sheet-closed"_s);
    LogInAsSupervisor();
    ChooseFromMenu(ReopenSheetEntry);
}

void Tour::TurnAdminModeOn() {
    LogInAsSupervisor();
    ChooseFromMenu(AdminModeEntry);
    Expect(desk_->AdminMode(), u"admin mode is not on"_s);
    Picture(*desk_, u"admin-mode"_s);
}

void Tour::CorrectACard() {
    user_.WhenIn(u"frmEditAbsensiOne"_s, [this](QWidget& editor) {
        Picture(editor, u"card"_s);
        editor.findChild<QPushButton*>(u"cmdCalcHrs"_s)->setFocus();
        Type(u" [card-computed]⎋"_s);
    });
    OpenCardOf(Employee);
}

void Tour::FillForgottenDeparture() {
    user_.WhenIn(u"frmEditAbsensiOne"_s, [this](QWidget& editor) {
        const auto* given = editor.findChild<QCheckBox*>(u"chkTimeIO"_s);
        Keys(u"⎇i");
        KeyboardUser::WaitUntil([given] { return given->isChecked(); });
        Type(u"↹↹1705[forgotten-departure]⎇h"_s);
        const auto* hours = editor.findChild<QLineEdit*>(u"txtNHrs"_s);
        KeyboardUser::WaitUntil([hours] { return !hours->text().isEmpty(); });
        Type(u"[forgotten-departure-computed]⎋"_s);
    });
    In(u"MessageBox"_s, u"⏎"_s);
    In(u"MessageBox"_s, u"[status-out-offered]⏎"_s);
    OpenCardOf(Forgetful);
    const QString tcid = CardIdentifier(SheetIdentifierOf(DayOf(clock_.now)), Forgetful);
    const TimeCard card = CardStore(program_.Db()).Read(tcid);
    Expect(card.header && card.header->status == CardStatus::Out && TimeIfSet(card.days.front().timeOut),
           u"the forgotten departure was not filled in"_s);
}

void Tour::OpenCardOf(const QString& nip) {
    auto* grid = desk_->findChild<QTableView*>(u"MSHFlexGrid1"_s);
    grid->setFocus();
    Keys(u"⎈⇱");
    const auto isEmployee = [&] {
        return grid->currentIndex().siblingAtColumn(SheetModel::Nip).data() == nip;
    };
    for (int row = 0; row < grid->model()->rowCount() && !isEmployee(); ++row)
        Keys(u"↓");
    Keys(u"⏎");
}

void Tour::In(const QString& window, const QString& script) {
    user_.WhenIn(window, [this, script](QWidget&) { Type(script); });
}

void Tour::Type(const QString& script) {
    const QStringList parts = script.split(QRegularExpression(u"[][]"_s));
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i % 2 == 0)
            Keys(parts[i]);
        else
            Picture(*KeyboardUser::InFront(), parts[i]);
    }
}

void Tour::Picture(QWidget& window, const QString& name) {
    if (&window == desk_)
        desk_->Timer1_Timer();
    QApplication::processEvents();
    const QString file = u"%1-%2.png"_s.arg(QString::number(++pictureCount_).rightJustified(2, u'0'), name);
    Expect(window.grab().save(pictures_.filePath(file)), u"the picture %1 was not written"_s.arg(file));
}

void Tour::Expect(bool condition, const QString& what) {
    if (!condition)
        failures_ << what;
}

void Tour::PrintRows() {
    const QString sheet = SheetIdentifierOf(DayOf(clock_.now));
    const TimeCard card = CardStore(program_.Db()).Read(CardIdentifier(sheet, Employee));
    Expect(card.header && card.days.size() == 1, u"no card with one day on sheet "_s + sheet);
    if (card.header)
        Print(FieldsOf(*card.header, HeaderColumns));
    for (const CardDay& day : card.days)
        Print(FieldsOf(day, DayColumns));
    Print(u"sheet %1 is %2"_s.arg(sheet, IsSheetClosed(program_.Db(), sheet) ? u"closed"_s : u"open"_s));
}
