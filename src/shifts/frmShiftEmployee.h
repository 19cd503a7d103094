#pragma once

#include "core/program.h"
#include "shifts/fill_wish.h"
#include "shifts/roster_counts.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

class CellEditor;
class QLineEdit;

namespace Ui {
class frmShiftEmployee;
}

/// The shift roster of a month, edited cell by cell. Every changed cell is written at once.
class frmShiftEmployee : public QDialog {
    Q_OBJECT
public:
    frmShiftEmployee(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmShiftEmployee() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void ConnectControls();
    void InitGrid();
    void MakeEditor();
    void LoadEmployees();
    /// False when the month shown is still the one before.
    bool LoadRoster();
    void cmdRefresh_Click();
    void cmdLov_Click(QLineEdit& anchor, const QString& reason);
    /// False when the cell was not written.
    bool SaveCell(const QModelIndex& cell);
    void GridDeleteKey(const QModelIndex& cell);
    CellsOutcome WriteCells(const std::vector<CellChange>& changes);
    void txtFilter_Change();
    /// The employees and days that are chosen in the grid.
    FillArea Block() const;
    bool HoldsUnsaved() const;
    void OpenFillBox(FillWay way);
    void cmdKebutuhan_Click();
    void ShowNeeds();
    void StepMonth(int months);
    void ShowMonth();
    void ShowCell();

    Program& program_;
    RosterModel roster_;
    RosterCounts counts_;
    /// Whom a cell belongs to that could not be saved; their rows stay in sight.
    QSet<int> unsavedEmployees_;
    std::unique_ptr<Ui::frmShiftEmployee> ui_;
    CellEditor* editor_ = nullptr;
};
