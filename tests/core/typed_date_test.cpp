#include "core/typed_date.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(TypedDate, IsReadDayFirstAndIsNothingWhereTheCalendarLacksIt) {
    const Day shown = DayOf(Moment(u"2026-02-28"));
    const Day today = DayOf(Moment(u"2026-11-23"));
    const std::pair<QString, const char*> cases[] = {
        {u"2026-01-31"_s,
         "31Jan2026|31-jan-2026| 31  Januari 26 |31/1/2026|31-01-2026|31.1.26|31012026|310126|"
         "2026-01-31|2026/1/31|31/1|-28"},
        {u"2025-12-31"_s, "31Dec2025|31122025"},
        {u"2026-12-01"_s, "01122026|01/12|0112|1Des|1 december"},
        {u"2026-08-17"_s, "17 agt|17Agu2026|17aug"},
        {u"2026-05-01"_s, "1mei|1may"},
        {u"2026-10-01"_s, "1okt|1Oct26"},
        {u"2026-02-07"_s, "7|07"},
        {u"2026-03-01"_s, "+1"},
        {u"2026-11-23"_s, "t|H"},
        {u"2028-02-29"_s, "29/2/2028"},
        {u"1900-01-01"_s, "1/1/1900"},
        {u"2999-12-31"_s, "31/12/2999"},
        // February is shown, which has no 31st.
        {QString(),
         "31/12/1899|1/1/3000|-99999|31|31/2/2026|30Feb2026|29Feb2026|12/31/2026|99|0|311|1/1/026|1Ja|"
         "1Foo2026|31Janx|besok|31/1/2026 x|٣١/١/٢٠٢٦|"},
    };
    for (const auto& [day, texts] : cases) {
        for (const QString& typed : QString::fromUtf8(texts).split(u'|')) {
            const auto read = ReadTypedDate(typed, shown, today);
            EXPECT_EQ(read ? StoredDay(*read) : QString(), day) << typed.toStdString();
        }
    }
}

TEST(TypedDate, ATimeBeforeTheArrivalIsOfTheNextDay) {
    const Day day = DayOf(Moment(u"2026-11-03"));
    const std::tuple<QString, QStringView, QString> cases[] = {
        {u"0605"_s, u"2026-11-03 21:51:00", u"2026-11-04 06:05:00"_s},
        {u"2151"_s, u"2026-11-03 21:51:00", u"2026-11-03 21:51:00"_s},
        {u"22.00 (+1)"_s, u"2026-11-03 21:51:00", u"2026-11-04 22:00:00"_s},
        {u"9"_s, u"2026-11-04 00:30:00", u"2026-11-04 09:00:00"_s},
        {u"0:10"_s, u"2026-11-04 00:30:00", u"2026-11-05 00:10:00"_s},
        {u"6:05"_s, u"", u"2026-11-03 06:05:00"_s},
    };
    for (const auto& [typed, arrival, moment] : cases)
        EXPECT_EQ(StoredTime(ReadTypedTime(typed)->On(day, ReadStored(arrival))), moment);
}

TEST(TypedDate, AMomentKeepsWhatIsNotTypedOfItAndIsNeverGuessed) {
    const WallTime shown = Moment(u"2026-11-22 17:03:30");
    const Day today = DayOf(Moment(u"2026-11-25"));
    const std::pair<QString, const char*> cases[] = {
        {u"2026-11-22 07:45:00"_s, "7:45|07.45|0745|745"},
        {u"2026-11-22 07:45:30"_s, "7:45:30|22-Nov-2026 07:45:30"},
        {u"2026-11-23 06:05:00"_s, "6:05 (+1)|0605+1|06.05 +1"},
        {u"2020-12-10 17:03:30"_s, "10.12.20"},
        {u"2026-11-22 07:00:00"_s, "7|22-Nov-2026 7"},
        {u"2026-11-22 07:11:00"_s, "7.11"}, // not the 7th of November
        {u"2026-11-23 17:03:30"_s, "23/11|+1|23.11.26"},
        {u"2026-11-23 06:05:00"_s, "+1 6:05|23Nov2026 0605|23-11 6.05"},
        {u"2026-11-25 06:05:00"_s, "t 0605"},
        // Neither the 25th of December nor one of two readings is meant.
        {QString(),
         "25.12|2512|31 Jan 2026|22/11 2015|24:00|7:60|7:4|31/2 7:45|22-Nov-2026 17:|7:45:60|6:05 (+2)|"},
    };
    for (const auto& [moment, texts] : cases) {
        for (const QString& typed : QString::fromUtf8(texts).split(u'|')) {
            const auto read = ReadTypedMoment(typed, shown, today);
            EXPECT_EQ(read ? StoredTime(*read) : QString(), moment) << typed.toStdString();
        }
    }
}
