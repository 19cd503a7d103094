#pragma once

#include "core/program.h"
#include "editing/attendance_cards.h"
#include "editing/attendance_model.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

class CellEditor;
class QLineEdit;
namespace Ui {
class frmAbsensi;
}

/// What the attendance browser needs of other windows. What is missing is not offered.
struct AttendanceBrowserNeeds {
    std::function<void(const QString& reportName)> openReport;
    std::function<bool(const QString& tcid, const QString& nip)> editCard; ///< true: it was written
};

/// Shows every employee on every day of a period; a status typed into a day without a card makes one.
class frmAbsensi : public QDialog {
    Q_OBJECT
public:
    frmAbsensi(Program& program, AttendanceBrowserNeeds needs, const b_form_skin::Backgrounds& skin,
               QWidget* parent);
    ~frmAbsensi() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void cmdEmpl_Click();
    void cmdLov_Click(QLineEdit& anchor, const QString& reason);
    void cmdRefresh_Click();
    void cmdPrintGrid_Click();
    void cmdOpenCard_Click();
    void MSHFlexGrid1_DblClick(const QModelIndex& cell);
    void GridEnterKey(const QModelIndex& cell);
    void GridDeleteKey(const QModelIndex& cell);
    void ConnectControls();
    void SetUpGrid();
    AttendanceCriteria Criteria() const;
    bool RefreshAttendance(); ///< false: it failed or was stopped, and what was shown stays
    void ShowState();
    void GoTo(int row);
    ShownDayRow RowAt(int row) const;
    void LoadRow(int row);
    bool SaveStatusCell(int row, const QString& status);

    Program& program_;
    AttendanceBrowserNeeds needs_;
    AttendanceModel rows_;
    QString filter_; ///< who the rows that are shown were chosen by
    Day openedOn_ = DayZero;
    std::unique_ptr<Ui::frmAbsensi> ui_;
    CellEditor* editor_ = nullptr;
};
