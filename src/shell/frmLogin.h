#pragma once

#include "core/program.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmLogin;
}

/// Asks for a user ID and password. It checks nothing: what was typed goes into the channel, as user ID,
/// password and date joined by "~", or "<CANCEL>". It tells of the demo's user where there is one.
class frmLogin : public QDialog {
    Q_OBJECT
public:
    frmLogin(const Clock& clock, LoginHandOver& channel, const b_form_skin::Backgrounds& skin,
             QWidget* parent, bool tellsDemo = true);
    ~frmLogin() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load(const b_form_skin::Backgrounds& skin);
    bool Form_KeyDown(int key);
    void Form_Activate();
    void cmdOK_Click();
    void cmdCancel_Click();
    void txtUsername_Enter();

    const Clock& clock_;
    LoginHandOver& channel_;
    std::unique_ptr<Ui::frmLogin> ui_;
};
