#include "core/time_text.h"

using namespace Qt::StringLiterals;

namespace {

QString TwoDigits(qint64 value) {
    const QString digits = QString::number(qAbs(value)).rightJustified(2, u'0');
    return value < 0 ? u'-' + digits : digits;
}

/// A count of seconds in minutes, rounded to the nearest minute, halves to the even one.
qint64 RoundedMinutes(qint64 seconds) {
    const qint64 whole = seconds / 60;
    const qint64 rest = seconds % 60;
    const bool up = rest > 30 || (rest == 30 && whole % 2 != 0);
    return up ? whole + 1 : whole;
}

} // namespace

QString modGeneral::SecondsToTimeText(Seconds duration) {
    const qint64 seconds = duration.count();
    if (seconds <= 59)
        return u"0:"_s + TwoDigits(seconds);
    if (seconds <= 3599)
        return u"00:"_s + QString::number(seconds / 60) + u':' + TwoDigits(seconds % 60);
    const qint64 hours = seconds / 3600;
    // An hour has an even number of minutes: leaving the hours out does not change which half is even.
    const qint64 minutes = RoundedMinutes(seconds - hours * 3600);
    return QString::number(hours) + u':' + TwoDigits(minutes) + u':' + TwoDigits(seconds % 60);
}
