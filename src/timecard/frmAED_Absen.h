#pragma once

#include "core/program.h"
#include "timecard/clock_recording.h"
#include "timecard/employee_details.h"
#include "ui/form_skin.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>

namespace Ui {
class frmAED_Absen;
}

/// Records one employee's arrival or departure, by its mode, on a sheet; the time recorded is that at which
/// the entry began. While a recording is confirmed, F2, F8 or the first character of a number begin the next
/// entry in the same window, so that no key is lost between two windows.
class frmAED_Absen : public QDialog {
    Q_OBJECT
public:
    /// What the next entry of a mode is recorded on; nothing when none may be begun.
    using Gate = std::function<std::optional<ClockEntry>(const QString& mode)>;

    frmAED_Absen(Program& program, const ClockEntry& entry, Gate gate, const b_form_skin::Backgrounds& skin,
                 QWidget* parent);
    ~frmAED_Absen() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Activate();
    void txtNIK_Enter();
    void txtNIK_LostFocus(Qt::FocusReason reason);
    /// False when the number is unknown, after which the focus is in the field again, or could not be looked
    /// up. The user was told.
    bool txtNIK_Validate();
    void txtPassword_Enter();
    /// Closes the window, and what stands over it, after a minute without a key. True when it did.
    bool CloseWhenLeft();
    void cmdButtons_Click(int index);
    void ShowEmployeeList();
    void LOV_AfterListClose(const QVariantMap& values);

    bool LoadPassword();
    /// Tells which night the departure of this number ends, if it ends one.
    void ShowNight();
    bool Record();
    bool MayRecord(const QString& nip);
    void ShowRecorded();
    /// True when the key began the next entry, or was refused it.
    bool BeginNext(const QKeyEvent& key);
    void SetRecorded(bool recorded);
    void ShowEmployee(const EmployeeDetails& employee);
    void ShowPhoto(const QString& pathImage);
    void ShowDetail(bool shown);
    void ClearEntry();

    Program& program_;
    ClockEntry entry_;
    Gate gate_;
    QString storedPassword_;
    bool activated_ = false;
    bool recorded_ = false;
    std::unique_ptr<Ui::frmAED_Absen> ui_;
    QTimer Timer1;
    WallTime lastKey_{};
    QTimer idle_;
};
