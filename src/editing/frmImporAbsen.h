#pragma once

#include "core/program.h"
#include "core/text_table.h"
#include "exchange/punch_import.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmImporAbsen;
}

/// Brings a clock device's file onto the cards: shows how its lines are read, tells what would be written,
/// asks, and lists what has to be looked at. Accepted when cards were written.
class frmImporAbsen : public QDialog {
    Q_OBJECT
public:
    frmImporAbsen(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmImporAbsen() override;

    /// Whether cards were written since the window was made.
    bool HasWritten() const { return written_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdPilih_Click();
    void txtFile_Enter();
    void txtMesin_Click();
    void txtForm_Change();
    void cmdImpor_Click();
    void cmdSimpan_Click();

    void OfferProfiles();
    /// What the window says of the file: the form typed, or nothing when it is none.
    std::optional<PunchForm> Form() const;
    PunchReport Run(const PunchForm& form, PunchRun run);
    void List(const PunchReport& report);

    Program& program_;
    std::vector<PunchProfile> profiles_;
    QStringList firstLines_;
    modGeneral::TextGrid listed_;
    bool written_ = false;
    std::unique_ptr<Ui::frmImporAbsen> ui_;
};
