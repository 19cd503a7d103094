#pragma once

#include "core/program.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPayFrom;
}

/// Asks from which day on a changed pay counts: the first of this month, unless another day is typed.
class frmPayFrom : public QDialog {
    Q_OBJECT
public:
    frmPayFrom(Program& program, const QString& name, QWidget* parent);
    ~frmPayFrom() override;

    Day From() const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdOK_Click();

    std::unique_ptr<Ui::frmPayFrom> ui_;
};
