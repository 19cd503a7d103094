#pragma once

#include "core/program.h"
#include "shifts/fill_wish.h"
#include "shifts/roster_model.h"

#include <QDialog>

#include <memory>

class QLabel;
class QLineEdit;

namespace Ui {
class RosterFillBox;
}

/// Fills many days of the roster at once: by a cycle, by what the month before was, by exchanging two
/// employees' days, or by copying one employee's. While it is open, the roster shows what would be filled.
class RosterFillBox : public QDialog {
    Q_OBJECT
public:
    /// Writes the cells as one step; false when none was written and the user was told why.
    using Write = std::function<bool(const std::vector<CellChange>&, const QString& what)>;

    /// The block is what is chosen in the grid: employees and days.
    RosterFillBox(Program& program, RosterModel& roster, FillWay way, const FillArea& block, Write write,
                  QWidget* parent);
    ~RosterFillBox() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Load();
    void ShowFieldsOf(FillWay way);
    void OfferTargets();
    void OfferPatterns();
    void ConnectControls();
    FillWish Wish() const;
    /// Works out what would be filled and shows it in the grid.
    void ShowPlan();
    void ShowName(const QLineEdit& nip, QLabel& name);
    void ReadMonthBefore();
    bool MayUseUnlisted();
    std::optional<KeptPattern> PatternToKeep();
    void cmbKept_Click();
    void cmdForget_Click();
    void cmdFill_Click();

    Program& program_;
    RosterModel& roster_;
    const FillWay way_;
    const FillArea block_;
    const Write write_;
    RosterMonth before_;
    /// In the order in which they are offered.
    std::vector<std::vector<int>> targets_;
    QStringList unlisted_;
    std::vector<KeptPattern> patterns_;
    std::unique_ptr<Ui::RosterFillBox> ui_;
};
