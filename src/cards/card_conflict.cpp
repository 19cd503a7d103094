#include "cards/card_conflict.h"

#include "cards/card_fields.h"
#include "compute/money.h"

using namespace Qt::StringLiterals;

namespace {

QString Shown(const QString& text) {
    return text;
}
QString Shown(const std::optional<double>& number) {
    return DigitsOf(number);
}
QString Shown(const std::optional<bool>& flag) {
    if (!flag)
        return {};
    return *flag ? u"ya"_s : u"tidak"_s;
}
QString Shown(const std::optional<WallTime>& time) {
    return TimeIfSet(time) ? ShownDay(DayOf(*time)) + u' ' + ShownTime(*time) : QString();
}
QString Shown(Day day) {
    return ShownDay(day);
}

/// Saving writes 0 and no where nothing stood: nobody typed that.
bool IsTyped(const QString& read, const QString& wanted) {
    return wanted != read && !(read.isEmpty() && (wanted == u"0" || wanted == u"tidak"));
}

/// Appends name, stored and typed value of each field that was changed; the last is null where nothing was
/// typed.
template<class Row, class Each>
void AddChanges(QStringList& details, const Row& read, const Row& stored, const Row& wanted, Each each) {
    each([&](QStringView name, auto member) {
        if (!Differs(read.*member, stored.*member))
            return;
        const QString typed = Shown(wanted.*member);
        details << name.toString() << Shown(stored.*member)
                << (IsTyped(Shown(read.*member), typed) ? u""_s + typed : QString());
    });
}

} // namespace

ConflictError CardConflict(const QString& tcid, const QString& nip, const TimeCard& read,
                           const TimeCard& stored, const TimeCard& wanted) {
    const std::vector<CardDay>& days = read.days.empty() ? stored.days : read.days;
    const QString day = days.empty() ? u"-"_s : ShownDay(days.front().tanggal);
    QStringList details{tcid, nip, day};
    if (read.header && stored.header)
        AddChanges(details, *read.header, *stored.header, wanted.header.value_or(*read.header),
                   HeaderColumns);
    const bool sameDays = read.days.size() == stored.days.size();
    for (size_t i = 0; sameDays && i < read.days.size(); ++i)
        AddChanges(details, read.days[i], stored.days[i],
                   i < wanted.days.size() ? wanted.days[i] : read.days[i], DayColumns);
    // A header or a day that came or went has no fields to be compared.
    if (!sameDays || details.size() == 3)
        return ConflictError(u"%1 %2 (%3, %4)"_s.arg(CardThing, tcid, nip, day));
    return ConflictError(ErrorKind::CardChanged, u"fields of card %1 were changed"_s.arg(tcid), details);
}
