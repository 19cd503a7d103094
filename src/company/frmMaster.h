#pragma once

#include "company/employee_model.h"
#include "company/master_files.h"
#include "company/master_kind.h"
#include "core/program.h"
#include "ui/form_skin.h"

#include <QDialog>
#include <QTimer>

#include <memory>
#include <vector>

class CellEditor;

namespace Ui {
class frmMaster;
}

/// The company's master data: employees, codes and users, one grid each.
class frmMaster : public QDialog {
    Q_OBJECT
public:
    frmMaster(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent,
              MasterFiles files = AskForFiles());
    ~frmMaster() override;

    /// Reads what other desks have written since, unless something is being typed here.
    void Timer1_Timer();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct Kind : MasterKind {
        CellEditor* editor = nullptr; ///< employees are edited in their form
    };

    void AddKind(const QString& name, const char* gridName, MasterModel* model);
    void MakeEditor(Kind& kind);
    void ConnectControls();
    void Form_Load();
    /// Goes to another kind, unless what is typed into the form holds it.
    void ShowKind(int index);
    void EnterKind(int index);
    /// Reads the rows of the kind that is shown anew.
    void RefreshShown(const QString& key);
    void cmdTambah_Click();
    void cmdHapus_Click();
    void cmdPassword_Click();
    void cmdImpor_Click();
    void cmdEkspor_Click();
    void Grid_RowChanged();
    void RemoveEmployee(int row);
    /// Asks what becomes of the rows that name a key which is changed; false when it stays as it is.
    bool MayChangeKey(const MasterModel& model, int row, const QString& text);
    void SaveCell(Kind& kind, const QModelIndex& cell, const QString& text);
    void Employee_Saved(const QString& nip);
    void Employee_Left();
    void ShowEmployee();
    void ShowCount();
    void Tell(const QString& text);

    Kind& Shown();
    bool ShowsEmployees();
    bool ShowsUsers();
    bool IsBusy();

    Program& program_;
    MasterFiles files_;
    EmployeeModel* employees_;
    std::vector<Kind> kinds_;
    CarryAlong carry_ = CarryAlong::No;
    QString formOf_; ///< whose record the form shows
    ChangeStamp read_;
    QTimer Timer1;
    std::unique_ptr<Ui::frmMaster> ui_;
};
