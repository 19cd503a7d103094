#include "soak/account.h"

#include "cards/card_computation.h"
#include "database/database_file.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTextStream>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

enum WritingField {
    Word,
    KindField,
    NipField,
    KeyField,
    ValueField,
    BeganField,
    EndedField,
    CertainField,
    FieldCount
};

const QStringList KindNames{u"arrival"_s, u"departure"_s, u"status"_s,
                            u"remark"_s,  u"roster"_s,    u"results"_s};

using Place = std::pair<int, QString>; ///< kind, and number and key

Place PlaceOf(Writing::Kind kind, const QString& nip, const QString& key) {
    return {kind, nip + u' ' + key};
}

QString TimeOfDayText(const std::optional<WallTime>& time) {
    return time ? StoredTime(*time).right(8) : QString();
}

std::map<Place, QString> StoredValues(Connection& connection) {
    std::map<Place, QString> values;
    Cursor cards = connection.Query(
        u"select NIP, TCID, Tanggal, Status, Keterangan, TimeIN, TimeOUT from qry_TimeCardAll"_s);
    while (cards.Next()) {
        const QString nip = cards.Text(0);
        const QString card = cards.Text(1);
        values[PlaceOf(Writing::Status, nip, cards.Text(2))] = cards.Text(3);
        values[PlaceOf(Writing::Remark, nip, card)] = cards.Text(4);
        values[PlaceOf(Writing::Arrival, nip, card)] = TimeOfDayText(cards.Time(5));
        values[PlaceOf(Writing::Departure, nip, card)] = TimeOfDayText(cards.Time(6));
    }
    Cursor shifts = connection.Query(u"select NIP, Tgl, ShiftCode from ShiftEmployee"_s);
    while (shifts.Next())
        values[PlaceOf(Writing::Roster, shifts.Text(0), shifts.Text(1))] = shifts.Text(2);
    return values;
}

/// The values one of which must stand there: those of writings after whose end no other began.
QStringList PossibleValues(const std::vector<const Writing*>& writings) {
    QStringList values;
    for (const Writing* writing : writings) {
        const bool overwritten = std::ranges::any_of(writings, [writing](const Writing* other) {
            return other->certain && other->began > writing->ended;
        });
        if (!overwritten || !writing->certain)
            values << writing->value;
    }
    return values;
}

using ResultsByCard = std::map<QString, QStringList>;

ResultsByCard StoredResults(Connection& connection) {
    ResultsByCard results;
    Cursor rows = connection.Query(
        u"select h.TCID, h.NormalHours, h.OTHours, h.NormalAmount, h.OTAmount, h.TotalUangMakan, "
        u"d.ShiftCode, "
        "d.TimeINOT, d.TimeOutOT from TimeCardHeader h inner join TimeCardDetail d on d.TCID=h.TCID"_s);
    constexpr int fields = 9;
    while (rows.Next()) {
        QStringList& texts = results[rows.Text(0)];
        for (int i = 1; i < fields; ++i)
            texts << rows.Text(i);
    }
    return results;
}

QStringList SettledCards(const std::vector<Writing>& writings) {
    std::map<QString, const Writing*> computed;
    for (const Writing& writing : writings) {
        if (writing.kind == Writing::Results && writing.certain) {
            const Writing*& last = computed[writing.key];
            if (!last || last->began < writing.began)
                last = &writing;
        }
    }
    std::map<QString, qint64> lastWritten;
    for (const Writing& writing : writings) {
        if (writing.kind != Writing::Results && writing.kind != Writing::Remark)
            lastWritten[writing.nip] =
                qMax(lastWritten[writing.nip], writing.certain ? writing.ended : SharedMoment());
    }
    QStringList settled;
    for (const auto& [card, results] : computed) {
        if (results->began > lastWritten[results->nip])
            settled << card;
    }
    return settled;
}

} // namespace

qint64 SharedMoment() {
    QElapsedTimer now;
    now.start();
    return now.msecsSinceReference();
}

void Say(const QString& line) {
    QTextStream(stdout) << line << Qt::endl;
}

void Tell(const Writing& writing) {
    Say(QStringList{u"wrote"_s, QString::number(writing.kind), writing.nip, writing.key, writing.value,
                    QString::number(writing.began), QString::number(writing.ended),
                    QString::number(int(writing.certain))}
            .join(u'\t'));
}

void TellProblem(const QString& what) {
    Say(u"problem\t"_s + what);
}

void ReadAccount(const QString& file, const QString& worker, Account& account) {
    QFile lines(file);
    if (!lines.open(QIODevice::ReadOnly))
        account.problems << file + u": "_s + lines.errorString();
    while (!lines.atEnd()) {
        const QString line = QString::fromUtf8(lines.readLine()).trimmed();
        const QStringList fields = line.split(u'\t');
        if (fields[Word] == u"wrote"_s && fields.size() == FieldCount)
            account.writings.push_back({static_cast<Writing::Kind>(fields[KindField].toInt()),
                                        fields[NipField], fields[KeyField], fields[ValueField],
                                        fields[BeganField].toLongLong(), fields[EndedField].toLongLong(),
                                        fields[CertainField] == u"1"_s});
        else if (fields[Word] == u"problem"_s)
            account.problems << worker + u": "_s + fields.last();
        else
            Say(worker + u": "_s + line);
    }
}

QStringList LostWritings(Connection& connection, const std::vector<Writing>& writings) {
    std::map<Place, std::vector<const Writing*>> byPlace;
    for (const Writing& writing : writings) {
        if (writing.kind != Writing::Results)
            byPlace[PlaceOf(writing.kind, writing.nip, writing.key)].push_back(&writing);
    }
    std::map<Place, QString> stored = StoredValues(connection);
    QStringList lost;
    for (const auto& [place, written] : byPlace) {
        const bool told = std::ranges::any_of(written, [](const Writing* one) { return one->certain; });
        const QStringList possible = PossibleValues(written);
        const QString what = KindNames[place.first] + u' ' + place.second;
        if (told && !possible.contains(stored[place]))
            lost << u"%1: \"%2\" was recorded, \"%3\" is stored"_s.arg(what, possible.join(u'|'),
                                                                       stored[place]);
        if (place.first == Writing::Arrival && written.size() > 1)
            lost << u"%1 was recorded %2 times"_s.arg(what).arg(written.size());
    }
    return lost;
}

QStringList WrongResults(Connection& connection, const std::vector<Writing>& writings, const QString& copy,
                         int& compared) {
    const QStringList cards = SettledCards(writings);
    compared = static_cast<int>(cards.size());
    connection.ExecuteNative(u"VACUUM INTO '%1'"_s.arg(QString(copy).replace(u'\'', u"''"_s)));
    const auto fresh = OpenDatabaseFile(copy);
    QStringList triggers;
    for (Cursor rows = fresh->QueryNative(u"SELECT name FROM sqlite_master WHERE type='trigger'"_s);
         rows.Next();)
        triggers << rows.Text(0);
    for (const QString& trigger : triggers)
        fresh->ExecuteNative(u"DROP TRIGGER "_s + trigger);
    ResultsByCard stored = StoredResults(*fresh);
    modAbsen::CalculateTimeCards(*fresh, cards);
    ResultsByCard right = StoredResults(*fresh);
    QStringList wrong;
    for (const QString& card : cards) {
        if (stored[card] != right[card])
            wrong << u"results of %1: \"%2\" are stored, \"%3\" are right"_s.arg(
                card, stored[card].join(u' '), right[card].join(u' '));
    }
    return wrong;
}
