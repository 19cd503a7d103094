#include "exchange/punch_pairing.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView Letters = u"AD=2-?!CUX"; ///< of the outcomes, in their order

WallTime DayZeroAt(QStringView time) {
    return Moment(u"1899-12-30 %1:00"_s.arg(time));
}

PairingRules Rules() {
    PairingRules rules;
    rules.shifts = {{u"D"_s, DayZeroAt(u"08:00"), DayZeroAt(u"16:00")},
                    {u"E"_s, DayZeroAt(u"14:00"), DayZeroAt(u"22:00")},
                    {u"M"_s, DayZeroAt(u"22:00"), DayZeroAt(u"06:00") + std::chrono::days{1}},
                    {u"P"_s, DayZeroAt(u"06:00"), DayZeroAt(u"14:00")}};
    return rules;
}

/// "18 22:50 I" is an arrival of the 18th, "18 22:50" a punch without direction, "*18 22:50" the arrival of
/// the stored card of the 18th.
std::vector<Punch> PunchesOf(const QString& text) {
    std::vector<Punch> punches;
    for (QString part : text.split(u", "_s, Qt::SkipEmptyParts)) {
        Punch punch;
        const bool stored = part.startsWith(u'*');
        if (stored)
            part.remove(0, 1);
        const QStringList words = part.split(u' ');
        punch.moment =
            Moment(u"2026-11-%1 %2"_s.arg(words[0], words[1].size() == 5 ? words[1] + u":00"_s : words[1]));
        if (words.size() > 2)
            punch.direction = words[2] == u"I"_s ? PunchDirection::In : PunchDirection::Out;
        if (stored) {
            punch.direction = PunchDirection::In;
            punch.storedDay = DayOf(punch.moment);
        }
        punches.push_back(punch);
    }
    return punches;
}

QString TextOf(const Pairing& pairing, const std::vector<Punch>& punches) {
    const auto shown = [&](const std::optional<size_t>& place) {
        return place ? ShownMinute(punches[*place].moment) : u"-----"_s;
    };
    QStringList days;
    for (const WorkedDay& day : pairing.days)
        days << u"%1 %2-%3"_s.arg(ShownDay(day.day).first(2), shown(day.arrival), shown(day.departure));
    QString outcomes;
    for (const PunchOutcome outcome : pairing.outcomes)
        outcomes += Letters[static_cast<qsizetype>(outcome)];
    return days.join(u", "_s) + u" "_s + outcomes;
}

} // namespace

TEST(PunchPairing, TellsWhichDayAPunchBelongsTo) {
    struct {
        const char* what;
        QString roster; ///< "18D 19M"
        QString punches;
        QString days; ///< and what became of each punch
    } const cases[] = {
        {"a day", u"18D"_s, u"18 07:50, 18 16:05"_s, u"18 07:50-16:05 AD"_s},
        {"without a roster",
         {},
         u"18 07:50, 18 16:05, 19 07:55, 19 16:00"_s,
         u"18 07:50-16:05, 19 07:55-16:00 ADAD"_s},
        {"a night", u"18M 19M"_s, u"18 21:50, 19 06:10, 19 21:55, 20 06:00"_s,
         u"18 21:50-06:10, 19 21:55-06:00 ADAD"_s},
        {"a night without a roster", {}, u"18 22:10, 19 06:10"_s, u"18 22:10-06:10 AD"_s},
        {"night, then morning", u"18M 19D"_s, u"18 21:50, 19 06:10, 19 07:50, 19 16:00"_s,
         u"18 21:50-06:10, 19 07:50-16:00 ADAD"_s},
        {"evening, then morning", u"18E 19P"_s, u"18 13:50, 18 22:10, 19 05:50, 19 14:00"_s,
         u"18 13:50-22:10, 19 05:50-14:00 ADAD"_s},
        {"the same, departure forgotten", u"18E 19P"_s, u"18 13:50, 19 05:50, 19 14:00"_s,
         u"18 13:50------, 19 05:50-14:00 AAD"_s},
        {"evening, then morning without a roster",
         {},
         u"18 14:10, 18 22:10, 19 05:50"_s,
         u"18 14:10-22:10, 19 05:50------ ADA"_s},
        {"four hours early", u"18M"_s, u"18 18:00, 19 06:00"_s, u"18 18:00-06:00 AD"_s},
        {"after midnight", u"18M"_s, u"19 00:20, 19 06:00"_s, u"18 00:20-06:00 AD"_s},
        {"within two minutes", u"18D"_s, u"18 07:50, 18 07:52, 18 16:00, 18 16:02:01"_s,
         u"18 07:50-16:02 A2-D"_s},
        {"breaks", u"18D"_s, u"18 07:50, 18 12:00, 18 12:45, 18 16:00"_s, u"18 07:50-16:00 A--D"_s},
        {"the arrival was forgotten", u"18D 18M"_s, u"18 16:05"_s, u"18 ------16:05 D"_s},
        {"the night's arrival was forgotten", u"18M 19M"_s, u"19 06:10, 19 21:50"_s,
         u"18 ------06:10, 19 21:50------ DA"_s},
        {"sixteen hours", u"18D"_s, u"18 07:00, 18 23:00"_s, u"18 07:00-23:00 AD"_s},
        {"longer than anyone works", {}, u"18 07:00, 18 23:00:01"_s, u"18 07:00------ A-"_s},
        {"directions", u"18D"_s, u"18 07:50 I, 18 16:05 O"_s, u"18 07:50-16:05 AD"_s},
        {"in and out in one second", u"18D"_s, u"18 07:50 I, 18 07:50 O"_s, u"18 07:50-07:50 AD"_s},
        {"out twice", u"18D"_s, u"18 07:50 I, 18 12:00 O, 18 12:45 I, 18 16:00 O"_s,
         u"18 07:50-16:00 A--D"_s},
        {"a night by directions", u"18M 19M"_s, u"18 22:50 I, 19 07:05 O, 19 22:00 I"_s,
         u"18 22:50-07:05, 19 22:00------ ADA"_s},
        {"in does not end a day", {}, u"18 07:50 I, 19 07:50 I"_s, u"18 07:50------, 19 07:50------ AA"_s},
        {"out that nothing claims", {}, u"18 16:00 O"_s, u" ?"_s},
        {"out too late", u"18D"_s, u"18 07:00 I, 19 01:00 O"_s, u"18 07:00------ A?"_s},
        {"out to a rostered shift", u"18M"_s, u"19 06:05 O"_s, u"18 ------06:05 D"_s},
        {"a stored evening", u"18M"_s, u"*18 22:50, 19 07:05"_s, u"18 22:50-07:05 AD"_s},
        {"a stored arrival that the device saw otherwise", u"18D"_s,
         u"*18 07:30, 18 07:50 I, 18 12:45 I, 18 16:00 O"_s, u"18 07:30-16:00 A!-D"_s},
        {"a stored arrival again", u"18D"_s, u"18 07:49:30, *18 07:50, 18 16:00"_s, u"18 07:49-16:00 A2D"_s},
    };
    for (const auto& [what, roster, text, days] : cases) {
        SCOPED_TRACE(what);
        const std::vector<Punch> punches = PunchesOf(text);
        const auto rosterOf = [&roster = roster](Day day) {
            const qsizetype at = roster.indexOf(ShownDay(day).first(2));
            return at < 0 ? QString() : roster.mid(at + 2, 1);
        };
        EXPECT_EQ(TextOf(PairPunches(punches, rosterOf, Rules()), punches), days);
    }
    // Who presses the wrong key is read by the clock.
    PairingRules rules = Rules();
    rules.firstAndLast = true;
    const std::vector<Punch> punches = PunchesOf(u"18 07:50 I, 18 07:51 O, 18 16:05 I"_s);
    EXPECT_EQ(TextOf(PairPunches(
                         punches, [](Day) { return u"D"_s; }, rules),
                     punches),
              u"18 07:50-16:05 A2D"_s);
}

TEST(PunchForm, IsRecognisedFromTheFirstLinesAndReadsThem) {
    struct {
        const char* what;
        QStringList lines;
        QString form; ///< empty: none
        QString last; ///< what the last line says
    } const cases[] = {
        {"a device's log",
         {u"  7\t2026-11-18 07:58:12\t1\t0\t1\t0"_s, u" 12\t2026-11-18 16:00:01\t1\t0\t1\t0"_s},
         u"nip tab moment"_s,
         u"12 2026-11-18 16:00:01 0"_s},
        {"headed",
         {u"NIP;Tanggal;Jam;Status"_s, u"0012;18/11/2026;07.58;Masuk"_s, u"0012;18/11/2026;7:59;Masuk"_s,
          u"0012;18/11/2026;16:05;Keluar"_s, u"0013;18/11/2026;16:05;Keluar"_s},
         u"nip;date;time;direction"_s,
         u"0013 2026-11-18 16:05:00 2"_s},
        {"day first",
         {u"0012;18/11/2026;07:58;Masuk"_s, u"0012;18/11/2026;16:05;Keluar"_s},
         u"nip;date;time;direction"_s,
         u"0012 2026-11-18 16:05:00 2"_s},
        {"month first",
         {u"0012,11/18/2026,07:58"_s, u"0012,11/19/2026,16:05"_s},
         u"nip,usdate,time"_s,
         u"0012 2026-11-19 16:05:00 0"_s},
        {"quoted, the number last",
         {u"\"2026-11-18 07:58:12\",\"IN\",\"0012\""_s},
         u"moment,direction,nip"_s,
         u"0012 2026-11-18 07:58:12 1"_s},
        {"fixed places",
         {u"00000012202611180758O"_s, u"00000013202611181605I"_s},
         u"nip=1-8 date=9-16 time=17-20 direction=21-21"_s,
         u"00000013 2026-11-18 16:05:00 1"_s},
        {"blanks",
         {u"12 2026-11-18 07:58:12 in"_s},
         u"nip space date space time space direction"_s,
         u"12 2026-11-18 07:58:12 1"_s},
        {"no device", {u"Laporan absensi"_s, u"bulan November"_s}, {}, {}},
    };
    for (const auto& [what, lines, text, last] : cases) {
        SCOPED_TRACE(what);
        const auto form = PunchForm::Recognised(lines);
        ASSERT_EQ(form ? form->Text() : QString(), text);
        if (!form)
            continue;
        const auto typed = PunchForm::FromText(text);
        ASSERT_TRUE(typed) << "a form can be typed as it is shown";
        const auto reading = typed->Read(lines.last());
        ASSERT_TRUE(reading);
        EXPECT_EQ(u"%1 %2 %3"_s.arg(reading->number, StoredTime(reading->moment))
                      .arg(static_cast<int>(reading->direction)),
                  last);
    }
    for (const auto& bad : {u"nip"_s, u"nip,date"_s, u"nip,moment,date"_s, u"nip,nip,moment"_s,
                            u"nip=1-0 moment=2-20"_s, u"nip,x,moment"_s})
        EXPECT_FALSE(PunchForm::FromText(bad)) << bad.toStdString();
    const auto form = PunchForm::FromText(u"nip,date,time,direction"_s);
    for (const auto& bad : {u"0012,2026-11-31,07:58,I"_s, u"0012,2026-11-18,24:00,I"_s,
                            u",2026-11-18,07:58,I"_s, u"0012"_s, u"0012,1899-12-30,07:58"_s})
        EXPECT_FALSE(form->Read(bad)) << bad.toStdString();
    EXPECT_EQ(form->Read(u"0012,2026-11-18,07:58,?")->direction, PunchDirection::None);
}
