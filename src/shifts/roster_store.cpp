#include "shifts/roster_store.h"

#include <QHash>

#include <algorithm>
#include <numeric>
#include <span>

using namespace Qt::StringLiterals;

namespace {

/// So many employees' days are read by one statement.
constexpr int EmployeesAtOnce = 500;

/// Writes changes in portions of employees, inside a transaction.
class RosterWriter {
public:
    RosterWriter(Connection& connection, const std::vector<RosterChange>& changes)
        : connection_(connection), changes_(changes) {
        const auto [first, last] = std::ranges::minmax(changes, {}, &RosterChange::day);
        firstDay_ = first.day;
        for (Day day = first.day; day <= last.day; day += std::chrono::days{1})
            storedDays_ << StoredDay(day);
        saved_.before.resize(changes.size());
    }

    RosterSaved Write() {
        std::vector<size_t> order(changes_.size());
        std::iota(order.begin(), order.end(), size_t{0});
        std::ranges::stable_sort(order, {}, [this](size_t i) { return QStringView(changes_[i].nip); });
        for (size_t from = 0; from < order.size();) {
            const size_t to = EndOfPortion(order, from);
            WritePortion(std::span(order).subspan(from, to - from));
            from = to;
        }
        return std::move(saved_);
    }

private:
    using Standing = QHash<std::pair<QString, qsizetype>, QString>;

    qsizetype NumberOf(Day day) const { return (day - firstDay_).count(); }

    size_t EndOfPortion(const std::vector<size_t>& order, size_t from) const {
        int employees = 1;
        size_t to = from + 1;
        for (; to < order.size(); ++to) {
            if (changes_[order[to]].nip != changes_[order[to - 1]].nip && ++employees > EmployeesAtOnce)
                break;
        }
        return to;
    }

    /// The entries that stand in the days of the changes' employees.
    Standing Read(std::span<const size_t> portion) const {
        QVariantList values{storedDays_.first(), storedDays_.last()};
        for (const size_t i : portion) {
            if (values.size() == 2 || values.last() != changes_[i].nip)
                values << changes_[i].nip;
        }
        Cursor rows = connection_.Query(
            u"select NIP, Tgl, ShiftCode from ShiftEmployee where Tgl between ? and ? and NIP in (%1)"_s.arg(
                QStringList(values.size() - 2, u"?"_s).join(u',')),
            values);
        Standing standing;
        standing.reserve(static_cast<qsizetype>(portion.size()));
        while (rows.Next()) {
            const QString code = rows.Text(2);
            standing[{rows.Text(0), storedDays_.indexOf(rows.Text(1))}] = code.isNull() ? u""_s : code;
        }
        return standing;
    }

    void WritePortion(std::span<const size_t> portion) {
        const Standing standing = Read(portion);
        QList<QVariantList> added;
        QList<QVariantList> changed;
        QList<QVariantList> removed;
        for (const size_t i : portion) {
            const auto& [nip, day, code, expected] = changes_[i];
            const auto stands = standing.constFind({nip, NumberOf(day)});
            const bool exists = stands != standing.cend();
            const QString before = exists ? *stands : QString();
            saved_.before[i] = before;
            if (expected && *expected != before) // as texts: a null one is an empty one
                saved_.conflicts.push_back(i);
            const QString& storedDay = storedDays_.at(NumberOf(day));
            if (!exists && !code.isNull())
                added << QVariantList{nip, storedDay, code};
            else if (exists && code.isNull())
                removed << QVariantList{nip, storedDay};
            else if (exists && code != before)
                changed << QVariantList{code, nip, storedDay};
        }
        if (!saved_.conflicts.empty())
            return; // the other portions are looked at for further ones
        connection_.ExecuteMany(u"insert into ShiftEmployee(NIP,Tgl,ShiftCode) VALUES(?,?,?)"_s, added);
        connection_.ExecuteMany(u"update ShiftEmployee set ShiftCode=? where NIP=? and Tgl=?"_s, changed);
        connection_.ExecuteMany(u"delete from ShiftEmployee where NIP=? and Tgl=?"_s, removed);
    }

    Connection& connection_;
    const std::vector<RosterChange>& changes_;
    Day firstDay_;
    QStringList storedDays_; ///< all between the first and the last
    RosterSaved saved_;
};

} // namespace

RosterSaved RosterStore::Save(Connection& connection, const std::vector<RosterChange>& changes) {
    if (changes.empty())
        return {};
    struct Conflict {};
    RosterSaved saved;
    try {
        connection.InTransaction([&] {
            saved = RosterWriter(connection, changes).Write();
            if (!saved.conflicts.empty())
                throw Conflict();
        });
    } catch (const Conflict&) { // whatever portions were written are taken back
    }
    return saved;
}

std::vector<KeptPattern> RosterStore::Patterns(Connection& connection) {
    Cursor rows = connection.Query(u"select Name, Cycle from ShiftPattern order by Name"_s);
    std::vector<KeptPattern> patterns;
    while (rows.Next())
        patterns.push_back({rows.Text(0), rows.Text(1)});
    return patterns;
}

void RosterStore::KeepPattern(Connection& connection, const KeptPattern& pattern) {
    connection.InTransaction([&] {
        ForgetPattern(connection, pattern.name);
        connection.Execute(u"insert into ShiftPattern(Name,Cycle) VALUES(?,?)"_s,
                           {pattern.name, pattern.cycle});
    });
}

void RosterStore::ForgetPattern(Connection& connection, const QString& name) {
    connection.Execute(u"delete from ShiftPattern where Name=?"_s, {name});
}

ShiftNeeds RosterStore::Needs(Connection& connection) {
    Cursor rows = connection.Query(u"select ShiftCode, Weekday, Needed from ShiftNeed"_s);
    ShiftNeeds needs;
    while (rows.Next())
        needs[rows.Text(0)].at(static_cast<size_t>(rows.Value(1).Number()) - 1) =
            static_cast<int>(rows.Value(2).Number());
    return needs;
}

void RosterStore::KeepNeeds(Connection& connection, const std::vector<ShiftNeed>& needs) {
    QList<QVariantList> removed;
    QList<QVariantList> added;
    for (const auto& [code, weekday, needed] : needs) {
        removed << QVariantList{code, weekday};
        if (needed > 0)
            added << QVariantList{code, weekday, needed};
    }
    connection.InTransaction([&] {
        connection.ExecuteMany(u"delete from ShiftNeed where ShiftCode=? and Weekday=?"_s, removed);
        connection.ExecuteMany(u"insert into ShiftNeed(ShiftCode,Weekday,Needed) VALUES(?,?,?)"_s, added);
    });
}
