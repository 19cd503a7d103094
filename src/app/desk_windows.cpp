#include "app/desk_windows.h"

#include "company/frmMaster.h"
#include "company/frmPengaturan.h"
#include "company/frmSetup.h"
#include "editing/frmAbsensi.h"
#include "editing/frmEditAbsensi.h"
#include "editing/frmEditAbsensiOne.h"
#include "editing/frmImporAbsen.h"
#include "editing/frmKartuBermasalah.h"
#include "exchange/access_file.h"
#include "exchange/database_import.h"
#include "reports/frmRptCriteria.h"
#include "shifts/frmShiftCode.h"
#include "shifts/frmShiftEmployee.h"
#include "tools/demo_company.h"
#include "ui/work_progress.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int NotTakenNumber = 90036;

/// What the user is told when not everything could be taken over, table by table.
QString Differences(const DatabaseImport& import) {
    QStringList lines;
    for (const TableAccount& table : import.tables) {
        if (!table.Agrees())
            lines << u"%1: %2 baris dibaca, %3 ditulis"_s.arg(table.name, QString::number(table.rowsRead),
                                                              QString::number(table.rowsWritten));
    }
    for (const LeftRow& row : import.refused)
        lines << u"%1 %2: %3"_s.arg(row.table, row.key, row.why);
    if (!import.missing.isEmpty())
        lines << u"Tidak ada di berkas: %1"_s.arg(import.missing.join(u", "));
    return lines.mid(0, 20).join(u'\n');
}

bool TakeFromAccess(const QString& file, QWidget* over) {
    const QString old =
        QFileDialog::getOpenFileName(over, u"Ambil dari file Access"_s, {}, u"Access (*.mdb *.accdb)"_s);
    if (old.isEmpty())
        return false;
    WorkProgress progress(over, u"Mengambil data ..."_s);
    AccessFile source(old);
    const DatabaseImport import = ImportDatabase(source, file, WhenMissing::Refuse, std::ref(progress));
    if (!import.Agrees() && !import.cancelled)
        throw ProgramError(NotTakenNumber,
                           u"Tidak semua data dapat diambil dari %1, jadi tidak ada yang disimpan.\n%2"_s.arg(
                               old, Differences(import)));
    return import.Agrees();
}

} // namespace

DeskWindows::DeskWindows(Program& program, b_form_skin::Backgrounds& skin,
                         std::function<QString()> userCountry)
    : program_(program), skin_(skin) {
    MainWindowNeeds needs;
    needs.editCard = [this](const QString& tcid, const QString& nip) {
        if (EditCard(tcid, nip, desk_.get()))
            desk_->RefreshSheetNow();
    };
    needs.openSettings = [this] { OpenSettings(); };
    needs.openProblems = [this] { MakeProblems(desk_.get())->exec(); };
    needs.countProblems = CountProblems;
    needs.userCountry = std::move(userCountry);
    needs.setUp = [this] { return SetUp(); };
    desk_ = std::make_unique<frmMain>(program, skin, std::move(needs));
}

bool DeskWindows::Start() {
    if (!desk_->Form_Load())
        return false;
    desk_->show();
    if (founded_)
        QTimer::singleShot(0, desk_.get(), [this] {
            frmMaster(program_, skin_, desk_.get()).exec();
            desk_->RefreshSheetNow();
        });
    return true;
}

bool DeskWindows::SetUp() {
    const QString existing = b_global::DatabaseFile(program_.folder);
    SetupNeeds needs;
    needs.makeDemo = [this](const QString& file, const Progress& progress) {
        MakeDemoCompany(file, {.until = program_.clock.Today() - std::chrono::days{1}},
                        [&progress](int percent) { progress(percent, 100); });
    };
    needs.fromAccess = TakeFromAccess;
    frmSetup setUp(program_, existing.isEmpty() ? program_.folder.Path() + u"/DATA.mdb"_s : existing,
                   std::move(needs), QApplication::activeWindow());
    const bool goOn = setUp.exec() == QDialog::Accepted;
    founded_ = setUp.HasFounded();
    return goOn;
}

void DeskWindows::OpenSettings() {
    if (!settings_) {
        SettingNeeds needs;
        needs.browser = [this](QWidget* over) { return MakeBrowser(over); };
        needs.roster = [this](QWidget* over) {
            return std::make_unique<frmShiftEmployee>(program_, skin_, over);
        };
        needs.shiftCodes = [this](QWidget* over) {
            return std::make_unique<frmShiftCode>(program_, skin_, over);
        };
        needs.search = [this](QWidget* over) {
            return std::make_unique<frmEditAbsensi>(program_, skin_, over);
        };
        needs.masterData = [this](QWidget* over) {
            return std::make_unique<frmMaster>(program_, skin_, over);
        };
        needs.companySettings = [this](QWidget* over) {
            return std::make_unique<frmPengaturan>(program_, skin_, over);
        };
        needs.problems = [this](QWidget* over) { return MakeProblems(over); };
        needs.setAdminMode = [this](bool on) { desk_->SetAdminMode(on); };
        settings_ = std::make_unique<frmSetting>(std::move(needs), skin_, desk_.get());
    }
    settings_->exec();
}

std::unique_ptr<QDialog> DeskWindows::MakeBrowser(QWidget* over) {
    AttendanceBrowserNeeds needs;
    needs.openReport = [this](const QString& name) {
        frmRptCriteria(program_, name, skin_, QApplication::activeWindow()).exec();
    };
    needs.editCard = [this](const QString& tcid, const QString& nip) {
        return EditCard(tcid, nip, QApplication::activeWindow());
    };
    return std::make_unique<frmAbsensi>(program_, std::move(needs), skin_, over);
}

std::unique_ptr<QDialog> DeskWindows::MakeProblems(QWidget* over) {
    ProblemWindowNeeds needs;
    needs.editCard = [this](const QString& tcid, const QString& nip) {
        return EditCard(tcid, nip, QApplication::activeWindow());
    };
    needs.importPunches = [this] {
        frmImporAbsen punches(program_, skin_, QApplication::activeWindow());
        punches.exec();
        return punches.HasWritten();
    };
    return std::make_unique<frmKartuBermasalah>(program_, std::move(needs), skin_, over);
}

bool DeskWindows::EditCard(const QString& tcid, const QString& nip, QWidget* over) {
    bool saved = false;
    frmEditAbsensiOne editor(program_, tcid, nip, skin_, over);
    QObject::connect(&editor, &frmEditAbsensiOne::Saved, &editor, [&saved] { saved = true; });
    editor.exec();
    return saved;
}
