#include "compute/dotted_hours.h"
#include "compute/money.h"
#include "database/database_error.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(FixedNumber, TextIsReadUpToWhatCannotBelongToANumber) {
    // Halves go to the even digit, by the digits.
    const std::pair<QString, QString> cases[] = {
        {u"0"_s, u"abc|-||0.-120|٥|0.00005|-0.00005"_s},
        {u"12"_s, u"12,5"_s},
        {u"-12.5"_s, u"  -12.5 ribu"_s},
        {u"7.1"_s, u"0007.1000|+7.1|7.1.00"_s},
        {u"0.5"_s, u".5"_s},
        {u"3"_s, u"3."_s},
        {u"0.0002"_s, u"0.00015"_s},
        {u"-0.0002"_s, u"-0.00015"_s},
        {u"1.0002"_s, u"1.00025|1.00024999"_s},
        {u"1.0003"_s, u"1.0002500001"_s},
        {u"100000"_s, u"99999.99995"_s},
        {u"900000000000000.1234"_s, u"900000000000000.1234"_s},
    };
    for (const auto& [money, texts] : cases) {
        for (const QString& text : texts.split(u'|'))
            EXPECT_EQ(Money::FromText(text).Text(), money) << text.toStdString();
    }
    EXPECT_THROW(Money::FromText(u"99999999999999999999"_s), ProgramError);
}

TEST(FixedNumber, WhatIsStoredReadsBackAsTheSameDigits) {
    TestCompany company;
    company.Db().Execute(u"INSERT INTO TimeCardHeader (TCID) VALUES ('X')"_s);
    for (const QString& digits :
         {u"9.15"_s, u"8.3"_s, u"0.05"_s, u"100000.59"_s, u"0"_s, u"3000"_s, u"-12.0001"_s,
          u"1234567890.1234"_s, u"99999999999.9999"_s, u"900000000000000"_s}) {
        company.Db().Execute(u"UPDATE TimeCardHeader SET NormalAmount=?"_s,
                             {Money::FromText(digits).Field().Stored()});
        Cursor rows = company.Db().Query(u"select NormalAmount from TimeCardHeader"_s);
        ASSERT_TRUE(rows.Next());
        EXPECT_EQ(Money::FromField(rows.Value(0)).Text(), digits);
        EXPECT_TRUE(digits.size() > 14 || rows.Text(0) == digits)
            << "printed by others: " << rows.Text(0).toStdString();
    }
    EXPECT_EQ(Money::FromField(FieldValue()).Text(), u"0"_s);
    EXPECT_EQ(Money::FromField(FieldValue(1.00025)).Text(), u"1.0002"_s);
    EXPECT_EQ(HourlyRate::FromField(FieldValue(0.0000125)).Text(), u"0.0000125"_s) << "no exponent is read";
    EXPECT_EQ(Money::FromField(u"17.5 (lama)"_s).Text(), u"17.5"_s);
}

TEST(DottedHours, FollowTheDurationTextWithItsOddCases) {
    // 3630 and 30645: half a minute goes to the even minute; 7185: 59:45 rounds to the 60th.
    const std::pair<QString, std::vector<qint64>> cases[] = {{u"0"_s, {0, -5, -120, -40000}},
                                                             {u"0.1"_s, {60}},
                                                             {u"0.2"_s, {125, 1200}},
                                                             {u"0.59"_s, {3599}},
                                                             {u"1"_s, {3600, 3630}},
                                                             {u"1.02"_s, {3690}},
                                                             {u"1.6"_s, {7185}},
                                                             {u"8.3"_s, {30600}},
                                                             {u"8.31"_s, {30645}},
                                                             {u"9.15"_s, {33300}},
                                                             {u"100000.09"_s, {360'000'540}}};
    for (const auto& [hours, durations] : cases) {
        for (const qint64 seconds : durations) {
            EXPECT_EQ(NormalHoursOf(Seconds{seconds}).Text(), hours) << seconds;
            EXPECT_EQ(OvertimeHoursOf(Seconds{seconds}).Text(), hours) << seconds;
        }
    }
    for (const auto& [seconds, normal] : {std::pair{5, u"0.05"_s}, {59, u"0.59"_s}}) {
        EXPECT_EQ(NormalHoursOf(Seconds{seconds}).Text(), normal);
        EXPECT_EQ(OvertimeHoursOf(Seconds{seconds}).Text(), u"0"_s);
    }
}

TEST(DottedHours, WholeHoursCountMinutesAndRoundHalvesToEven) {
    const std::tuple<QStringView, QStringView, int> cases[] = {
        {u"22 08:00:00", u"22 16:30:00", 8}, {u"22 08:00:00", u"22 17:30:00", 10},
        {u"22 08:00:59", u"22 16:31:00", 9}, {u"22 08:00:00", u"22 16:30:59", 8},
        {u"22 08:29:00", u"22 09:00:00", 1}, {u"22 08:30:00", u"22 09:00:00", 0},
        {u"22 22:00:00", u"23 06:00:00", 8}, {u"22 17:30:00", u"22 08:00:00", -10}};
    const auto moment = [](QStringView ofNovember) { return Moment(u"2026-11-"_s + ofNovember.toString()); };
    for (const auto& [from, to, hours] : cases)
        EXPECT_EQ(WholeHoursBetween(moment(from), moment(to)), hours) << hours;
}

TEST(Money, AmountIsTheExactProductOfTheDigits) {
    const std::tuple<QString, QString, QString> cases[] = {
        {u"0.3"_s, u"10000"_s, u"3000"_s},
        {u"9.15"_s, u"12345.6789"_s, u"112962.9619"_s},
        {u"0.05"_s, u"0.001"_s, u"0"_s},         // 0.00005 goes to the even 0
        {u"0.15"_s, u"0.001"_s, u"0.0002"_s},    // 0.00015 to the even 2
        {u"1.02"_s, u"0.33333333"_s, u"0.34"_s}, // 0.3399999966
        {u"0.59"_s, u"-15000.5"_s, u"-8850.295"_s},
        {u"100000.59"_s, u"9000000000"_s, u"900005310000000"_s},
        {u"8.3"_s, u"0"_s, u"0"_s},
    };
    for (const auto& [hours, rate, amount] : cases)
        EXPECT_EQ(AmountFor(DottedHours::FromText(hours), HourlyRate::FromText(rate)).Text(), amount)
            << hours.toStdString() << " x " << rate.toStdString();
    for (const auto& [hours, rate] :
         {std::pair{u"100000.59"_s, u"90000000000"_s}, std::pair{u"1000000000000000"_s, u"0.5"_s}})
        EXPECT_THROW(AmountFor(DottedHours::FromText(hours), HourlyRate::FromText(rate)), ProgramError);
}
