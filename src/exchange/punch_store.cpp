#include "exchange/punch_store.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString DoublesName = u"AbsenGandaMenit"_s;
const QString ProfilePrefix = u"Mesin:"_s;
const QString FirstAndLastMark = u"pertama-terakhir "_s;

constexpr QStringView In = u"IN";
constexpr QStringView Out = u"OUT";

QVariant StoredDirection(PunchDirection direction) {
    if (direction == PunchDirection::None)
        return {};
    return (direction == PunchDirection::In ? In : Out).toString();
}

PunchDirection DirectionOf(const QString& stored) {
    if (stored == In)
        return PunchDirection::In;
    return stored == Out ? PunchDirection::Out : PunchDirection::None;
}

/// Whether nothing will become of the line any more, whoever gets its number or opens its sheet.
bool IsSettled(const QString& outcome) {
    return std::ranges::any_of(std::array{PunchOutcome::Arrival, PunchOutcome::Departure,
                                          PunchOutcome::Stored, PunchOutcome::Double, PunchOutcome::Between},
                               [&](PunchOutcome settled) { return outcome == OutcomeText(settled); });
}

QVariant OrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

} // namespace

QHash<QString, QString> NumberOwners(Connection& connection) {
    QHash<QString, QString> own;
    QHash<QString, QString> ofDevices;
    Cursor rows = connection.Query(u"select NIP, IdMesin from Employee"_s);
    while (rows.Next()) {
        const QString nip = rows.Text(0);
        own.insert(nip, nip);
        const QString number = rows.Text(1);
        if (!number.isEmpty())
            ofDevices.insert(number, ofDevices.contains(number) ? QString() : nip);
    }
    own.insert(ofDevices);
    return own;
}

KeptPunches::KeptPunches(Connection& connection, const QString& file) {
    Cursor lines = connection.Query(u"select Line, Content, Outcome from DevicePunch where File=?"_s, {file});
    while (lines.Next())
        ofFile_.insert(static_cast<int>(lines.Value(0).Number()), {lines.Text(1), lines.Text(2)});
    Cursor unknown = connection.Query(
        u"select File, Line, Content, Number, Moment, Direction from DevicePunch where NIP is null"_s);
    while (unknown.Next()) {
        const std::optional<WallTime> moment = unknown.Time(4);
        if (moment && unknown.Text(0) != file)
            unknown_.push_back({unknown.Text(0), static_cast<int>(unknown.Value(1).Number()), unknown.Text(2),
                                PunchReading{unknown.Text(3), *moment, DirectionOf(unknown.Text(5))}});
    }
}

std::vector<PunchLine> KeptPunches::Unknown(const QHash<QString, QString>& owners) const {
    std::vector<PunchLine> known;
    std::ranges::copy_if(unknown_, std::back_inserter(known), [&](const PunchLine& line) {
        return !owners.value(line.reading->number).isEmpty();
    });
    return known;
}

void KeptPunches::Write(Connection& connection, const std::vector<PunchLine>& lines, size_t ownLines) const {
    QList<QVariantList> added;
    QList<QVariantList> settled;
    for (size_t i = 0; i < lines.size(); ++i) {
        const PunchLine& line = lines[i];
        const QString outcome = OutcomeText(line.outcome);
        std::optional<QString> before;
        if (i >= ownLines)
            before = OutcomeText(PunchOutcome::UnknownNumber);
        for (auto it = ofFile_.constFind(line.line); !before && it != ofFile_.cend() && it.key() == line.line;
             ++it) {
            if (it->content == line.content)
                before = it->outcome;
        }
        if (!before) {
            const auto& reading = line.reading;
            added.push_back(
                {line.file, line.line, line.content, reading ? QVariant(reading->number) : QVariant(),
                 reading ? QVariant(StoredTime(reading->moment)) : QVariant(),
                 reading ? StoredDirection(reading->direction) : QVariant(), OrNull(line.nip), outcome});
        } else if (*before != outcome && !IsSettled(*before)) {
            settled.push_back({OrNull(line.nip), outcome, line.file, line.line, line.content});
        }
    }
    connection.ExecuteMany(
        u"insert into DevicePunch (File, Line, Content, Number, Moment, Direction, NIP, Outcome) "
        "values (?,?,?,?,?,?,?,?)"_s,
        added);
    connection.ExecuteMany(u"update DevicePunch set NIP=?, Outcome=? where File=? and Line=? and Content=?"_s,
                           settled);
}

std::vector<PunchProfile> PunchProfiles(Connection& connection) {
    Cursor rows = connection.Query(u"select Name, Value from Setting order by Name"_s);
    std::vector<PunchProfile> profiles;
    while (rows.Next()) {
        const QString value = rows.Text(1);
        const bool firstAndLast = value.startsWith(FirstAndLastMark);
        const auto form = PunchForm::FromText(firstAndLast ? value.sliced(FirstAndLastMark.size()) : value);
        if (rows.Text(0).startsWith(ProfilePrefix) && form)
            profiles.push_back({rows.Text(0).sliced(ProfilePrefix.size()), *form, firstAndLast});
    }
    return profiles;
}

void KeepPunchProfile(Connection& connection, const PunchProfile& profile) {
    const QString name = ProfilePrefix + profile.name;
    const QString value = (profile.firstAndLast ? FirstAndLastMark : QString()) + profile.form.Text();
    connection.InTransaction([&] {
        connection.Execute(u"delete from Setting where Name=?"_s, {name});
        connection.Execute(u"insert into Setting (Name, Value) values (?,?)"_s, {name, value});
    });
}

Seconds PunchDoubles(Connection& connection) {
    Cursor rows = connection.Query(u"select Value from Setting where Name=?"_s, {DoublesName});
    constexpr std::chrono::minutes usual{2};
    return rows.Next() ? std::chrono::minutes{rows.Text(0).toInt()} : usual;
}
