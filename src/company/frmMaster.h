#pragma once

#include "company/employee_model.h"
#include "core/program.h"
#include "ui/form_skin.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class CellEditor;
class DataGrid;
class QSortFilterProxyModel;

namespace Ui {
class frmMaster;
}

/// What the window needs of its surroundings.
struct MasterNeeds {
    /// Asks for a picture file; empty when none was chosen. Without it, a file dialog does.
    std::function<QString(QWidget* over)> choosePhoto = {};
};

/// The company's master data: employees, codes and users, one grid each.
class frmMaster : public QDialog {
    Q_OBJECT
public:
    frmMaster(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent,
              MasterNeeds needs = {});
    ~frmMaster() override;

    /// Reads what other desks have written since, unless something is being typed here.
    void Timer1_Timer();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    /// One kind of master data.
    struct Kind {
        MasterModel* model;
        QSortFilterProxyModel* rows; ///< those that the filter leaves
        DataGrid* grid;
        CellEditor* editor = nullptr; ///< employees are edited in their form
    };

    void AddKind(const QString& name, const char* gridName, MasterModel* model);
    void MakeEditor(Kind& kind);
    void ConnectControls();
    void Form_Load();
    void ShowKind(int index);
    /// Reads the kind's rows anew and stays on the row of the key.
    void Refresh(Kind& kind, const QString& key);
    void RefreshShown(const QString& key);
    void cmdTambah_Click();
    void cmdHapus_Click();
    void cmdPassword_Click();
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
    /// The row of the model under the cursor; -1 for none.
    int CurrentRow();
    QString CurrentKey();
    void GoTo(Kind& kind, int row, int column);
    bool IsBusy();

    Program& program_;
    MasterNeeds needs_;
    EmployeeModel* employees_;
    std::vector<Kind> kinds_;
    CarryAlong carry_ = CarryAlong::No;
    QString formOf_; ///< whose record the form shows
    ChangeStamp read_;
    QTimer Timer1;
    std::unique_ptr<Ui::frmMaster> ui_;
};
