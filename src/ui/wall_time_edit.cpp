#include "ui/wall_time_edit.h"

using namespace Qt::StringLiterals;

WallTimeEdit::WallTimeEdit(QWidget* parent) : QDateTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    setDisplayFormat(u"dd-MMM-yyyy hh:mm"_s);
    setAlignment(Qt::AlignRight);
    setButtonSymbols(NoButtons);
}

void WallTimeEdit::SetValue(WallTime time) {
    setDateTime(QDateTime(ToQDate(DayOf(time)),
                          QTime(0, 0).addSecs(static_cast<int>(TimeOfDay(time).count())), Qt::UTC));
}

WallTime WallTimeEdit::Value() const {
    return FromQDateTime(dateTime());
}
