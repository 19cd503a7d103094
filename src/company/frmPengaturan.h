#pragma once

#include "core/company_settings.h"
#include "core/program.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPengaturan;
}

/// What the company decides for all its desks.
class frmPengaturan : public QDialog {
    Q_OBJECT
public:
    frmPengaturan(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmPengaturan() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void cmdOK_Click();

    Program& program_;
    std::unique_ptr<Ui::frmPengaturan> ui_;
};
