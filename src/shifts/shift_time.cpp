#include "shifts/shift_time.h"

using namespace Qt::StringLiterals;

QString ShownShiftTime(WallTime time, Day base) {
    const QString clock =
        time == std::chrono::floor<std::chrono::minutes>(time) ? ShownMinute(time) : ShownTime(time);
    const auto later = (DayOf(time) - base).count();
    return later > 0 ? u"%1 (+%2)"_s.arg(clock).arg(later) : clock;
}
