#pragma once

#include "core/dialogs.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPassword;
}

/// Asks for somebody's new password, twice.
class frmPassword : public QDialog {
    Q_OBJECT
public:
    frmPassword(Dialogs& dialogs, const QString& whose, QWidget* parent);
    ~frmPassword() override;

    QString Password() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdOK_Click();

    Dialogs& dialogs_;
    std::unique_ptr<Ui::frmPassword> ui_;
};
