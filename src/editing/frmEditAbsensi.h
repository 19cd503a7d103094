#pragma once

#include "core/line_sink.h"
#include "core/program.h"
#include "editing/search_model.h"
#include "ui/form_skin.h"

#include <QDialog>

#include <array>
#include <memory>

class CellEditor;
class QLineEdit;
struct CellEditing;

namespace Ui {
class frmEditAbsensi;
}

/// Finds days of time cards, corrects them in the grid, computes them anew and prints them.
class frmEditAbsensi : public QDialog {
    Q_OBJECT
public:
    frmEditAbsensi(Program& program, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmEditAbsensi() override;

    /// Every way of closing the window comes through here.
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// One box and what it adds to the search.
    struct Criterion {
        QLineEdit* box;
        QString field;
        QString (*fragmentOf)(const QString& field, const QString& text);
        QString text = {};
        QString fragment = {};
        bool valid = true;
    };
    using ResultPrint = std::function<bool(const FoundRows&, const LineSink&, const Progress&)>;
    using DatedPrint =
        std::function<bool(const FoundRows&, const QString& printedAt, const LineSink&, const Progress&)>;

    void ConnectControls();
    void SetUpGrid();
    CellEditing GridEditing();

    /// Rebuilds the box's fragment when its text has changed; false when the text cannot be searched for.
    bool Validate(Criterion& criterion);
    /// Shows what is found, the first cell being the current one; false when it cannot be read.
    bool Search(const QString& clause, const QString& filter);
    void cmdRefresh_Click();
    void cmdCalcHrs_Click();
    /// Asks before what would be a long computation.
    bool MayCalculate(qsizetype cards);
    void cmdPrintGrid_Click();
    void cmdPrintTCID_Click();
    void cmdPrintNIK_Click();
    void MSHFlexGrid1_DblClick(const QModelIndex& cell);
    void GridEnterKey(const QModelIndex& cell);
    void GridDeleteKey(const QModelIndex& cell);
    void cmdLov_Click(QLineEdit& anchor, const QString& reason);

    bool MayTypeInto(const QModelIndex& cell);
    /// Asks before a row is saved that says what can hardly be meant.
    bool MaySave(int row);
    bool SaveGridRow(int row);
    void LoadRowFromDb(int row);
    /// Asks what becomes of unsaved rows; after that there are none. False: everything stays.
    bool SettleRows();
    void Print(const QString& procedure, const ResultPrint& print);
    void PrintMatrix(const QString& procedure, const DatedPrint& print);
    void TellLater(const std::exception_ptr& failure);
    QString Filter() const;
    void ShowState(const QString& done = {});
    void ShowCard();

    Program& program_;
    SearchModel model_;
    std::array<Criterion, 4> criteria_;
    std::unique_ptr<Ui::frmEditAbsensi> ui_;
    /// What the shown rows were searched for, in the user's words.
    QString shownFilter_;
    CellEditor* editor_ = nullptr;
};
