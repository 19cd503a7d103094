#pragma once

#include "core/program.h"
#include "timecard/sheet_choice.h"

#include <QWidget>

#include <memory>

class DayTabs;

namespace Ui {
class SheetIdentifierBox;
}

/// The fields that show and compose the sheet's identifier, their lock and the spinner of the day, together
/// with the tabs of the days, which stand elsewhere in the window.
class SheetIdentifierBox : public QWidget {
    Q_OBJECT
public:
    explicit SheetIdentifierBox(QWidget* parent = nullptr);
    ~SheetIdentifierBox() override;

    /// To be called once, before anything else.
    void Connect(Program& program, DayTabs& tabs);

    void SetSheet(const QString& sheet);
    const QString& Sheet() const { return choice_.Sheet(); }
    bool IsOfToday() const { return choice_.IsOfToday(Today()); }
    bool IsLeftOver() const { return choice_.IsLeftOver(Today()); }
    /// The month of every sheet that is chosen from now on is that of this day.
    void StartDay(Day today);

Q_SIGNALS:
    /// The user has finished an entry, also one that left the sheet as it was: it is to be read again.
    void SheetEntered();

private:
    void cmdTCID_Click();
    void txtTCID_Change(const QString& sheet);
    void txtTCID_LostFocus();
    void txtTcIDRight_LostFocus();
    void tabTgl_Click(int day);
    void UpDown1_Change(int step);

    Day Today() const { return program_->clock.Today(); }
    void SizeFields();
    void ShowLock();
    void Compose(const QString& day);
    void SwitchToDay(const QString& day);
    void ShowDayTab();

    Program* program_ = nullptr;
    DayTabs* tabTgl_ = nullptr;
    SheetChoice choice_;
    std::unique_ptr<Ui::SheetIdentifierBox> ui_;
};
