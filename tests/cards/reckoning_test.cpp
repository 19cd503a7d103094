#include "cards/card_computation.h"
#include "support/test_company.h"

#include <QRandomGenerator>

#include <cmath>
#include <map>

using namespace Qt::StringLiterals;
using modAbsen::CalculateTimeCard;
using modAbsen::CalculateTimeCards;

namespace {

using Texts = QStringList;

struct ShiftTimes {
    QString in, out;
};
/// Amounts and rates as digits.
struct Pay {
    QString basic, rate, meal, type;
};
/// A card as it is written into the database; empty texts are nulls.
struct Card {
    QString tcid, nip, status, day, in, out, meal;
};

/// A company made of random cards that dwell on the borders of the rules.
struct RandomCompany {
    std::map<QString, ShiftTimes> shifts{
        {u"M"_s, {u"1899-12-30 22:00:00"_s, u"1899-12-31 06:00:00"_s}},
        {u"N"_s, {u"1899-12-30 21:00:00"_s, u"1899-12-30 05:00:00"_s}},
        {u"O"_s, {u"1899-12-30 00:00:00"_s, u"1899-12-30 04:00:00"_s}},
        {u"P"_s, {u"1899-12-30 08:00:00"_s, u"1899-12-30 17:00:00"_s}},
        {u"Q"_s, {u""_s, u""_s}},
        {u"R"_s, {u"1899-12-31 20:00:00"_s, u"1899-12-30 04:00:00"_s}},
        {u"S"_s, {u"1899-12-30 15:00:00"_s, u"1899-12-30 23:30:45"_s}},
        {u"k"_s, {u"1899-12-30 05:00:00"_s, u"1899-12-30 09:30:00"_s}},
    };
    std::map<QString, Pay> employees;
    std::map<std::pair<QString, QString>, QString> roster;
    std::vector<Card> cards;
};

class Maker {
public:
    explicit Maker(quint32 seed) : random_(seed) {}

    RandomCompany Make(int cards) {
        for (int i = 0; i < 300; ++i)
            company_.employees[Nip(i)] = {
                Any({u""_s, u"0"_s, u"98765"_s, u"125000.1234"_s, u"3500000.5"_s}),
                Any({u""_s, u"10000"_s, u"12500.5"_s, u"333.3333"_s, u"0.0125"_s, u"7"_s}),
                Any({u""_s, u"15000"_s, u"7500.25"_s}),
                Any({u"HRN"_s, u"hrn"_s, u" Hrn  "_s, u"BLN"_s, u""_s, u"HRNX"_s})};
        for (int i = 0; i < cards; ++i)
            MakeCard(i);
        return company_;
    }

private:
    int Below(int end) { return static_cast<int>(random_.bounded(end)); }
    QString Any(const Texts& texts) { return texts[Below(static_cast<int>(texts.size()))]; }
    /// Numbers from 300 on belong to nobody.
    static QString Nip(int i) { return QString::number(1000 + i); }

    QString Moment(QDate day, int second) {
        const int days = static_cast<int>(std::floor(second / 86400.0));
        return day.addDays(days).toString(u"yyyy-MM-dd "_s)
               + QTime(0, 0).addSecs(second - days * 86400).toString(u"hh:mm:ss"_s);
    }

    void MakeCard(int i) {
        // Around a leap day, a daylight-saving night and the turn of a year.
        const QDate day = QDate(2028, 2, 27).addDays(Below(40) + (Below(3) == 0 ? 300 : 0));
        const QString date = day.toString(Qt::ISODate);
        const QString nip = Nip(Below(310));
        // Each shift with the second of the card's day at which it ends.
        static const std::vector<std::pair<QString, int>> shifts = {
            {u"P"_s, 61200}, {u"P"_s, 61200}, {u"S"_s, 84645}, {u"M"_s, 108000}, {u"M"_s, 108000},
            {u"k"_s, 34200}, {u"N"_s, 18000}, {u"R"_s, 14400}, {u"O"_s, 14400},  {u"o"_s, 61200},
            {u"XX"_s, 0},    {u"Q"_s, 0},     {u""_s, 61200}};
        const auto& [code, end] = shifts[random_.bounded(static_cast<quint32>(shifts.size()))];
        if (Below(3) > 0)
            company_.roster.try_emplace({nip, date}, code);
        // Every third arrival is on the hour, as the borders of the shifts are.
        const int in = Below(3) == 0 ? Below(24) * 3600
                       : Below(2)    ? Below(86400)
                                     : end - 9 * 3600 - 4000 + Below(8000);
        const int out = end + (Below(2) ? -100 + Below(200) : -8000 + Below(16000));
        const QString status =
            Below(4) ? u"OUT"_s : Any({u"OU"_s, u"PC"_s, u"IN"_s, u"A"_s, u"out"_s, u""_s});
        const Texts missing{u""_s, u"1899-12-30 00:00:00"_s};
        company_.cards.push_back({u'T' + QString::number(i).rightJustified(8, u'0') + nip, nip, status, date,
                                  Below(20) ? Moment(day, in) : Any(missing),
                                  Below(20) ? Moment(day, out) : Any(missing),
                                  Any({u"1"_s, u"1"_s, u"0"_s, u""_s})});
    }

    QRandomGenerator random_;
    RandomCompany company_;
};

void Store(Connection& db, const RandomCompany& company) {
    db.ExecuteNative(u"PRAGMA synchronous=OFF"_s);
    db.InTransaction([&] {
        for (const auto& [code, shift] : company.shifts)
            db.Execute(u"INSERT INTO Shift VALUES (?,?,?)"_s, {code, OrNull(shift.in), OrNull(shift.out)});
        for (const auto& [nip, pay] : company.employees)
            db.Execute(u"INSERT INTO Employee (NIP,GP,RateOT,TMakan,EmpType) VALUES (?,?,?,?,?)"_s,
                       {nip, OrNull(pay.basic), OrNull(pay.rate), OrNull(pay.meal), OrNull(pay.type)});
        for (const auto& [key, code] : company.roster)
            db.Execute(u"INSERT INTO ShiftEmployee VALUES (?,?,?)"_s, {key.first, key.second, OrNull(code)});
        for (const Card& card : company.cards) {
            db.Execute(u"INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)"_s,
                       {card.tcid, card.nip, OrNull(card.status)});
            db.Execute(
                u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT,BeriUangMakan) VALUES (?,?,?,?,?)"_s,
                {card.tcid, card.day, OrNull(card.in), OrNull(card.out), OrNull(card.meal)});
        }
    });
}

/// The rules once more, on the texts that stand in the database.
class Reckoner {
public:
    explicit Reckoner(const RandomCompany& company) : company_(company) {}

    /// "NormalHours|OTHours|NormalAmount|OTAmount|TotalUangMakan|TimeINOT|TimeOutOT|ShiftCode"
    QString Reckon(const Card& card) const {
        const auto employee = company_.employees.find(card.nip);
        const Pay pay = employee == company_.employees.end() ? Pay() : employee->second;
        QString day = u"-|-|-"_s;
        qint64 normal = 0;
        qint64 overtime = 0;
        bool meal = false;
        const QString code = ShiftCode(card);
        const bool left = card.status == u"OUT"_s || card.status == u"OU"_s || card.status == u"PC"_s;
        if (code != u"O"_s && left && card.in.startsWith(u'2') && card.out.startsWith(u'2')) {
            const auto shift = company_.shifts.find(code);
            const QString start = shift == company_.shifts.end() ? QString() : shift->second.in;
            const QString end = shift == company_.shifts.end() ? QString() : shift->second.out;
            const bool overnight = end.mid(8, 2).toInt() - start.mid(8, 2).toInt() > 0;
            const QString scheduled =
                (overnight ? card.out : card.in).left(11) + (end.isEmpty() ? u"00:00:00"_s : end.mid(11));
            normal = Hundredths(Between(card.in, scheduled));
            overtime = Between(card.out, scheduled) < 60 ? 0 : Hundredths(Between(card.out, scheduled));
            meal = card.meal == u"1"_s;
            day = scheduled + u'|' + card.out + u'|' + code.toUpper();
        }
        const bool daily = pay.type.simplified().compare(u"hrn"_s, Qt::CaseInsensitive) == 0;
        return Digits(normal * 100) + u'|' + Digits(overtime * 100) + u'|'
               + Digits(daily ? TenThousandths(pay.basic) : 0) + u'|'
               + Digits(static_cast<qint64>(
                   std::nearbyint(static_cast<long double>(overtime * TenThousandths(pay.rate)) / 100)))
               + u'|' + Digits(meal ? TenThousandths(pay.meal) : 0) + u'|' + day;
    }

private:
    QString ShiftCode(const Card& card) const {
        const auto entry = company_.roster.find({card.nip, card.day});
        if (entry != company_.roster.end() && !entry->second.isEmpty())
            return entry->second;
        const QString time = u"1899-12-30 "_s + card.in.mid(11);
        for (const auto& [code, shift] : company_.shifts) {
            if (!card.in.isEmpty() && !shift.in.isEmpty() && shift.in <= time && time <= shift.out)
                return code;
        }
        return u"P"_s;
    }

    static qint64 Between(const QString& from, const QString& to) {
        const auto count = [](const QString& moment) {
            return QDate::fromString(moment.left(10), Qt::ISODate).toJulianDay() * 86400
                   + QTime::fromString(moment.mid(11), u"hh:mm:ss"_s).msecsSinceStartOfDay() / 1000;
        };
        return count(to) - count(from);
    }

    /// Hours-dot-minutes in hundredths.
    static qint64 Hundredths(qint64 seconds) {
        if (seconds < 60)
            return seconds < 0 ? 0 : seconds;
        const qint64 minutes = seconds / 60;
        if (seconds < 3600)
            return minutes < 10 ? minutes * 10 : minutes;
        const qint64 hours = seconds / 3600;
        const double restMinutes = static_cast<double>(seconds - hours * 3600) / 60;
        return hours * 100 + static_cast<qint64>(std::nearbyint(restMinutes));
    }

    static qint64 TenThousandths(const QString& digits) { return std::llround(digits.toDouble() * 10000); }

    static QString Digits(qint64 tenThousandths) {
        QString text = QString::number(static_cast<double>(tenThousandths) / 10000, 'f', 4);
        while (text.endsWith(u'0'))
            text.chop(1);
        return text.endsWith(u'.') ? text.chopped(1) : text;
    }

    const RandomCompany& company_;
};

Texts StoredResults(TestCompany& company) {
    return company.RowsOf(u"select h.NormalHours, h.OTHours, h.NormalAmount, h.OTAmount, h.TotalUangMakan, "
                          "d.TimeINOT, d.TimeOutOT, d.ShiftCode from TimeCardHeader h inner join "
                          "TimeCardDetail d on d.TCID=h.TCID order by h.TCID, d.Tanggal"_s);
}

Texts Identifiers(const RandomCompany& company) {
    Texts tcids;
    for (const Card& card : company.cards)
        tcids << card.tcid;
    return tcids;
}

} // namespace

TEST(Reckoning, ThousandsOfRandomCardsComeOutAsReckonedByHand) {
    const RandomCompany random = Maker(20280229).Make(4000);
    TestCompany company;
    Store(company.Db(), random);
    EXPECT_EQ(CalculateTimeCards(company.Db(), Identifiers(random)).computed, 4000);
    const Texts stored = StoredResults(company);
    ASSERT_EQ(stored.size(), 4000);
    const Reckoner reckoner(random);
    int withOvertime = 0;
    for (qsizetype i = 0; i < stored.size(); ++i) {
        const Card& card = random.cards[static_cast<size_t>(i)];
        const QString expected = reckoner.Reckon(card);
        EXPECT_EQ(stored[i], expected) << card.nip.toStdString() << ' ' << card.in.toStdString() << ' '
                                       << card.out.toStdString() << ' ' << card.status.toStdString();
        withOvertime += expected.section(u'|', 1, 1) != u"0"_s;
    }
    EXPECT_GT(withOvertime, 600) << "the cards are to reach into the rules";
}
