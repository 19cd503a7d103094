#include "compute/dotted_hours.h"

#include "core/time_text.h"

using namespace Qt::StringLiterals;

namespace {

DottedHours Read(QString durationText) {
    return DottedHours::FromText(durationText.replace(u':', u'.'));
}

} // namespace

DottedHours NormalHoursOf(Seconds duration) {
    return Read(modGeneral::SecondsToTimeText(duration));
}

DottedHours OvertimeHoursOf(Seconds duration) {
    const QString text = modGeneral::SecondsToTimeText(duration);
    return Read(text.size() < 6 ? u"0:"_s + text : text);
}

qint64 WholeHoursBetween(WallTime from, WallTime to) {
    using std::chrono::floor;
    using std::chrono::minutes;
    return RoundedQuotient((floor<minutes>(to) - floor<minutes>(from)).count(), 60);
}
