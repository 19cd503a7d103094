#pragma once

#include "core/program.h"
#include "editing/edited_card.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <array>
#include <memory>

class MomentBox;

namespace Ui {
class frmEditAbsensiOne;
}

/// Corrects one time card and its day in a form, and recomputes it.
class frmEditAbsensiOne : public QDialog {
    Q_OBJECT
public:
    frmEditAbsensiOne(Program& program, const QString& tcid, const QString& nip,
                      const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmEditAbsensiOne() override;

Q_SIGNALS:
    /// The card was written.
    void Saved();

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void Form_Activate();
    void chkTimeIO_Click();
    void chkOTIO_Click();
    void cmdCalcHrs_Click();
    void cmdButtons_Click(int index);

    void LoadTimeCard();
    bool MaySave(const CardFields& fields);
    QStringList ReversedTimes(const CardFields& fields) const;
    /// True when the card was written.
    bool SaveTimeCard();
    void FillStatusList();
    void ShowStatus(const QString& status);
    void EnableTimes(bool given, const std::array<MomentBox*, 2>& boxes, QWidget& hours);
    void ShowFields(const CardFields& fields);
    CardFields TypedFields() const;
    bool IsChanged() const;
    /// Asks what becomes of unsaved changes; false when the window must stay.
    bool MayLeave();
    void ShowStatusText();
    void ShowHints();

    Program& program_;
    QString tcid_;
    QString nip_;
    std::unique_ptr<EditedCard> card_;
    /// What the form held before anything was typed.
    CardFields untouched_;
    bool activated_ = false;
    std::unique_ptr<Ui::frmEditAbsensiOne> ui_;
};
