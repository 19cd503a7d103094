#pragma once

#include "company/import_model.h"
#include "core/program.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmImpor;
}

/// A file of employees before it is taken in: what each column brings, and what is wrong on which line. All
/// of it is written, or nothing.
class frmImpor : public QDialog {
    Q_OBJECT
public:
    frmImpor(Program& program, EmployeeFile file, QWidget* parent);
    ~frmImpor() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void FillChoices();
    void cboColumn_Change();
    void cboField_Change();
    /// Plans anew with what is chosen.
    void Plan();
    void cmdOK_Click();
    ImportOptions Options() const;

    Program& program_;
    ImportModel rows_;
    std::vector<EmployeeField> fields_;
    EmployeePlan plan_;
    std::unique_ptr<Ui::frmImpor> ui_;
};
