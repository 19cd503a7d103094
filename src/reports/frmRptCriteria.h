#pragma once

#include "core/program.h"
#include "reports/report_list.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmRptCriteria;
}

/// Asks for what a report is to be made of, makes it and shows it. It stays open for further reports with
/// other criteria. For a report that is not known there is nothing to choose.
class frmRptCriteria : public QDialog {
    Q_OBJECT
public:
    frmRptCriteria(Program& program, const QString& reportName, const b_form_skin::Backgrounds& skin,
                   QWidget* parent);
    ~frmRptCriteria() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdLov_Click();
    void txtEmpl_LostFocus();
    void txtDate_Change();
    void LOV_AfterListClose(const QVariantMap& values);

    void FillLists();
    void EnableCriteria();
    void ShowEmployeeName();
    ReportCriteria Criteria() const;
    void PrintReport();

    Program& program_;
    const Report* report_; ///< null when it is not known
    std::unique_ptr<Ui::frmRptCriteria> ui_;
};
