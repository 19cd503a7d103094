#pragma once

#include "company/new_company.h"
#include "core/program.h"
#include "core/progress.h"

#include <QDialog>

#include <functional>
#include <memory>

class QCheckBox;
class QLineEdit;

namespace Ui {
class frmSetup;
}

/// The ways to a company that the window offers besides a new one. A way that is not given is not offered.
struct SetupNeeds {
    /// Makes the demo company's database file. Throws ProgramError.
    std::function<void(const QString& file, const Progress& progress)> makeDemo = {};
    /// Makes the database file of what another file holds, after asking for it; false when it was called off.
    /// Throws ProgramError.
    std::function<bool(const QString& file, QWidget* over)> fromAccess = {};
};

/// Where the program starts without a company: makes one in a few steps, opens the demo, or gives up. Nothing
/// is written before the last step.
class frmSetup : public QDialog {
    Q_OBJECT
public:
    /// The database file may exist and lack a supervisor: then only a new company can be made in it.
    frmSetup(Program& program, const QString& databaseFile, SetupNeeds needs, QWidget* parent);
    ~frmSetup() override;

    /// Whether a new company was founded, which has nobody in it yet.
    bool HasFounded() const { return founded_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    enum Page { Offer, Company, Shifts, Codes };

    struct ShiftFields {
        QCheckBox* taken;
        QLineEdit* from;
        QLineEdit* to;
    };

    void ShowPage(int page);
    void FillShifts();
    void cmdNew_Click();
    void cmdDemo_Click();
    void cmdAccess_Click();
    void cmdNext_Click();
    void cmdBack_Click();
    /// Throws ProgramError with the user's text, the focus on the field, where the page cannot be left.
    void CheckPage() const;
    std::vector<ShiftRow> TypedShifts() const;
    NewCompany Typed() const;
    void Found();

    Program& program_;
    const QString file_;
    SetupNeeds needs_;
    std::vector<ShiftFields> shifts_;
    bool founded_ = false;
    std::unique_ptr<Ui::frmSetup> ui_;
};
