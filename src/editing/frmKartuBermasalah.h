#pragma once

#include "core/program.h"
#include "editing/problem_model.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class frmKartuBermasalah;
}

/// What the window of the problems needs of the windows around it.
struct ProblemWindowNeeds {
    /// Opens the editor of one card; true when it was written.
    std::function<bool(const QString& tcid, const QString& nip)> editCard = {};
    /// Opens the import of a clock device's file; true when cards were written.
    std::function<bool()> importPunches = {};
};

/// The days that a supervisor has to look at, and the way to put them right: one by one in the card's editor,
/// or many at once by their proposals.
class frmKartuBermasalah : public QDialog {
    Q_OBJECT
public:
    frmKartuBermasalah(Program& program, ProblemWindowNeeds needs, const b_form_skin::Backgrounds& skin,
                       QWidget* parent);
    ~frmKartuBermasalah() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void SetUpGrid();
    void cmdCari_Click();
    void cmdLengkapi_Click();
    void cmdBuka_Click();
    void cmdImpor_Click();
    void txtMasalah_Click();
    /// Reads the problems anew; the row that was chosen stays so where it can.
    void Find(const QString& done = {});
    /// The chosen rows whose proposal can be taken; told when there are none.
    std::vector<CardProblem> Chosen();
    void TellTaken(const TakenProposals& taken);

    Program& program_;
    ProblemWindowNeeds needs_;
    ProblemModel problems_;
    std::unique_ptr<Ui::frmKartuBermasalah> ui_;
};
