#pragma once

#include "core/program.h"
#include "shifts/shift_code_model.h"
#include "ui/form_skin.h"

#include <QAbstractItemDelegate>
#include <QDialog>

#include <memory>

class GridBlocks;

namespace Ui {
class frmShiftCode;
}

/// The table of the shift codes. A row that was edited is written when it is left.
class frmShiftCode : public QDialog {
    Q_OBJECT
public:
    frmShiftCode(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmShiftCode() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void SetUpGrid();
    void SetUpBlocks();
    void cmdButtons_Click(int index);
    void cmdTambah_Click();
    void cmdHapus_Click();
    void DataGrid1_RowColChange();
    void DataGrid1_AfterEdit(QAbstractItemDelegate::EndEditHint hint);

    /// Writes the row in edit, or takes it back when the user does not want its code renamed; false when it
    /// stays, or was read anew.
    bool UpdateRow();
    bool MayLeave();
    /// Asks before a code goes that rows may still name; `question` asks it of a code that none does, and is
    /// not asked then when it is empty.
    Dialogs::Answer MayVanish(const QString& code, const QString& question, const QString& questionIfUsed);
    /// What is typed in a cell counts from here on.
    void CommitCell();
    void GoTo(int row, int column);
    void ShowCount();

    Program& program_;
    ShiftCodeModel rstShift_;
    std::unique_ptr<Ui::frmShiftCode> ui_;
    GridBlocks* blocks_ = nullptr;
};
