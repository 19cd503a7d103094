#include "cards/card_lines.h"

#include "database/statement.h"

using namespace Qt::StringLiterals;

namespace {

/// The tables of a filter and its conditions, with a for headers, b for days and c for employees. Employees
/// are joined only where the filter needs them.
struct Selection {
    QString tables = u" FROM TimeCardHeader a INNER JOIN TimeCardDetail b ON a.TCID=b.TCID"_s;
    QStringList conditions;

    QString Text() const {
        return conditions.isEmpty() ? tables : tables + u" WHERE "_s + conditions.join(u" AND "_s);
    }
};

Selection SelectionOf(const CardFilter& filter) {
    Selection selection;
    if (filter.dept || filter.divisi)
        selection.tables += u" INNER JOIN Employee c ON a.NIP=c.NIP"_s;
    if (filter.days)
        selection.conditions << u"b.Tanggal BETWEEN #"_s + StoredDay(filter.days->first) + u"# AND #"_s
                                    + StoredDay(filter.days->last) + u'#';
    if (filter.nip)
        selection.conditions << u"a.NIP="_s + Quoted(*filter.nip);
    if (filter.dept)
        selection.conditions << u"c.Dept="_s + Quoted(*filter.dept);
    if (filter.divisi)
        selection.conditions << u"c.Divisi="_s + Quoted(*filter.divisi);
    return selection;
}

/// Reads stored moments that mostly fall on the same days: a day's text is read once.
class TimeReader {
public:
    std::optional<WallTime> Read(const QString& text) {
        if (text.isEmpty())
            return std::nullopt;
        if (text.size() != 19 || QStringView(text).first(10) != day_) {
            const std::optional<WallTime> time = ReadStored(text);
            midnight_ = time ? DayOf(*time) : Day{};
            day_ = time ? text.first(10) : QString();
            return TimeIfSet(time);
        }
        const auto timeOfDay = ReadStoredClock(QStringView(text).sliced(11));
        return timeOfDay ? TimeIfSet(midnight_ + *timeOfDay) : std::nullopt;
    }

private:
    QString day_;
    Day midnight_{};
};

} // namespace

bool EachCardLine(Connection& connection, const CardFilter& filter, WithIdentifier with,
                  const std::function<bool(const CardLine&)>& visit) {
    enum Column { Nip, TimeIn, TimeOut, Status, Keterangan, Tanggal, Tcid };
    const bool ofOneDay = filter.days && filter.days->first == filter.days->last;
    const bool withDay = !ofOneDay || with == WithIdentifier::Yes;
    QString statement = u"SELECT a.NIP, b.TimeIN, b.TimeOUT, a.Status, a.Keterangan"_s;
    if (withDay)
        statement += u", b.Tanggal"_s;
    if (with == WithIdentifier::Yes)
        statement += u", a.TCID"_s;
    Cursor rows = connection.Query(statement + SelectionOf(filter).Text() + u" ORDER BY b.Tanggal, b.TCID"_s);
    CardLine line;
    if (ofOneDay)
        line.day = filter.days->first;
    QString dayText;
    TimeReader arrivals;
    TimeReader departures;
    while (rows.Next()) {
        if (const QString text = withDay ? rows.Text(Tanggal) : QString(); text != dayText) {
            const std::optional<WallTime> day = ReadStored(text);
            if (!day)
                continue;
            line.day = DayOf(*day);
            dayText = text;
        }
        if (with == WithIdentifier::Yes)
            line.tcid = rows.Text(Tcid);
        line.nip = rows.Text(Nip);
        line.timeIn = arrivals.Read(rows.Text(TimeIn));
        line.timeOut = departures.Read(rows.Text(TimeOut));
        line.status = rows.Text(Status);
        line.keterangan = rows.Text(Keterangan);
        if (!visit(line))
            return false;
    }
    return true;
}

std::vector<StatusCount> CountStatuses(Connection& connection, const CardFilter& filter) {
    Selection selection = SelectionOf(filter);
    selection.conditions << u"a.Status IS NOT NULL"_s;
    return connection
        .Query(u"SELECT a.NIP, a.Status, Count(*)"_s + selection.Text() + u" GROUP BY a.NIP, a.Status"_s)
        .All([](const Cursor& row) {
            return StatusCount{row.Text(0), row.Text(1), static_cast<qint64>(row.Value(2).Number())};
        });
}
