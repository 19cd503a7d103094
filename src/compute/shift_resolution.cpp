#include "compute/shift_resolution.h"

#include "compute/time_card_rules.h"
#include "core/query_values.h"
#include "database/database_error.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;
using b_stored_procedure::GetFirstValue;

namespace {

Seconds ReadTimeOfDay(const QString& text) {
    std::optional<DateText> time = ReadDateText(text);
    if (!time)
        time = ReadDateText(StoredDay(DayZero) + u' ' + text.trimmed());
    if (!time)
        throw StatementError(ErrorKind::NotATime, u"\"%1\" is no time"_s.arg(text), {text});
    return TimeOfDay(time->time);
}

} // namespace

QString modAbsen::ResolveShift(Connection& connection, const QString& nip, Day day, const QString& clockIn) {
    QString code = GetFirstValue(connection, u"select ShiftCode From ShiftEmployee Where NIP="_s + Quoted(nip)
                                                 + u" AND Tgl=#"_s + StoredDay(day) + u'#');
    if (code.isEmpty() && !clockIn.isEmpty()) {
        const QString time = StoredTime(TimeOnDay(DayZero, ReadTimeOfDay(clockIn)));
        code = GetFirstValue(connection,
                             u"select Code from Shift where #"_s + time + u"# between TimeIN and TimeOut"_s);
    }
    return code.isEmpty() ? DefaultShift.toString() : code;
}
