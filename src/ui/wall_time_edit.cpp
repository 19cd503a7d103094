#include "ui/wall_time_edit.h"

using namespace Qt::StringLiterals;

WallTimeEdit::WallTimeEdit(QWidget* parent) : QDateTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    setDisplayFormat(u"dd-MMM-yyyy hh:mm"_s);
    setAlignment(Qt::AlignRight);
    setButtonSymbols(NoButtons);
}

void WallTimeEdit::SetValue(WallTime time) {
    set_ = time;
    suggested_ = false;
    setDateTime(QDateTime(ToQDate(DayOf(time)),
                          QTime(0, 0).addSecs(static_cast<int>(TimeOfDay(time).count())), Qt::UTC));
}

void WallTimeEdit::Suggest(WallTime time) {
    SetValue(time);
    suggested_ = true;
}

bool WallTimeEdit::HoldsSuggestion() const {
    return suggested_ && Value() == set_;
}

WallTime WallTimeEdit::Value() const {
    using std::chrono::floor;
    using std::chrono::minutes;
    const WallTime shown = floor<minutes>(FromQDateTime(dateTime()));
    const WallTime setMinute = floor<minutes>(set_);
    return TimeOfDay(shown) == TimeOfDay(setMinute) ? shown + (set_ - setMinute) : shown;
}
