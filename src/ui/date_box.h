#pragma once

#include "core/program.h"
#include "database/wall_time.h"

#include <QLineEdit>

#include <optional>

class QLabel;

/// A box for a date, typed in any of the forms of core/typed_date. While it is typed a label under the box
/// says how it is understood; it is read when the box is left. A text that is no date stays in the box, which
/// says so and takes the focus back.
///
/// A button that leaves the window without using the date carries the property "leaves": on the way to it
/// nothing is refused.
class DateBox : public QLineEdit {
    Q_OBJECT
public:
    explicit DateBox(QWidget* parent = nullptr);

    /// Whose clock knows what today is, and whose dialogs refuse a text. To be called before the box is
    /// shown.
    void Use(Program& program) { program_ = &program; }

    /// Shows the date, in place of what was typed.
    void SetValue(WallTime value);
    /// The date as it was set or read last.
    WallTime Value() const { return value_; }
    /// Shows a date where there is none: a start for typing one.
    void Suggest(WallTime value);
    /// True until a date is set or another one typed.
    bool HoldsSuggestion() const { return suggested_ && value_ == set_; }

    /// Reads what is typed; false when it cannot be read and is left as it is.
    bool ReadText();
    /// Says that the text is no date, and takes the focus.
    void Refuse();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void Changed();

protected:
    /// For the value as its kind of box shows it.
    DateBox(const QString& sample, QWidget* parent);

    virtual std::optional<WallTime> Read(const QString& typed) const;
    virtual QString Shown(WallTime value) const;
    /// Selects what is most likely typed anew.
    virtual void SelectPart();
    /// One up or down, at the place of the cursor.
    virtual std::optional<WallTime> Stepped(int by) const;

    WallTime LastSet() const { return set_; }
    Day Today() const { return program_->clock.Today(); }

    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Hold(WallTime value);
    std::optional<WallTime> InMonth(int by) const;
    void ShowReading();
    void ForgetText();
    void RefuseIfLeft();
    void OpenCalendar();

    Program* program_ = nullptr;
    const QString sample_;
    WallTime value_ = EmptyTime;
    WallTime set_ = EmptyTime;
    bool suggested_ = false;
    bool hasCalendar_ = false;
    bool refusing_ = false;
    QLabel* reading_ = nullptr;
};

/// Hands the program to all date boxes of a window.
void SetUpDateBoxes(const QWidget& window, Program& program);

/// Whether a box that cannot be read says so and takes the focus.
enum class Unreadable { Told, Quiet };
/// Reads what is half typed in the window's date boxes, as leaving them would: a mnemonic leaves the focus
/// where it is. False when one cannot be read: what is done with dates is not done then.
bool ReadTypedBoxes(const QWidget& window, Unreadable unreadable = Unreadable::Told);
