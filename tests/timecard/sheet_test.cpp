#include "cards/sheet_cards.h"
#include "cards/sheet_identifier.h"
#include "timecard/sheet_choice.h"
#include "timecard/sheet_lifecycle.h"

#include "support/failures.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(SheetIdentifier, IsComposedOfMonthDayAndExtension) {
    const Day day = DayOf(Moment(u"2004-05-05"));
    EXPECT_EQ(SheetIdentifierOf(day), u"T20040505"_s);
    EXPECT_EQ(MonthPartOf(day), u"T200405"_s);
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {u"5"_s, u""_s, u"T20040505"_s, u"05"_s},         {u"05"_s, u"  "_s, u"T20040505"_s, u"05"_s},
        {u" 5 "_s, u" 1 "_s, u"T20040505-1"_s, u"05"_s},  {u"31"_s, u"a"_s, u"T20040531-a"_s, u"31"_s},
        {u"15"_s, u"1-2"_s, u"T20040515-1-2"_s, u"15"_s},
    };
    for (const auto& [typed, extension, sheet, dayPart] : cases) {
        EXPECT_EQ(ComposeSheetIdentifier(u"T200405"_s, typed, extension), sheet);
        EXPECT_EQ(DayPartOf(sheet), dayPart) << sheet.toStdString();
    }
    EXPECT_EQ(TwoDigitDay(u"x"_s), u"x"_s);
    EXPECT_EQ(TwoDigitDay(u"100"_s), u"100"_s);
    EXPECT_EQ(DayPartOf(u"7"_s), u"07"_s);
    EXPECT_EQ(DayPartOf(u""_s), u""_s);
    EXPECT_EQ(CardIdentifier(u"t20040515-a"_s, u"ab12"_s), u"T20040515-AAB12"_s);

    for (const auto& [text, names] : {std::pair{u"T20261122"_s, true},
                                      {u"T20261131"_s, true},
                                      {u"T20261122-A"_s, true},
                                      {u"T2026112"_s, false},
                                      {u"TX"_s, false},
                                      {u""_s, false},
                                      {u"T202611220"_s, false},
                                      {u"T20261100"_s, false},
                                      {u"T20261132"_s, false},
                                      {u"T20261301"_s, false},
                                      {u"T20261122-"_s, false}})
        EXPECT_EQ(IsSheetIdentifier(text), names) << text.toStdString();

    for (const QString& named : {u"T20040515"_s, u"T20040515-A"_s, u"T200405151001"_s})
        EXPECT_EQ(DayOfIdentifier(named), DayOf(Moment(u"2004-05-15"))) << named.toStdString();
    for (const QString& none : {u""_s, u"T"_s, u"T2004051"_s, u"T20040431"_s, u"X20040515"_s, u"T2004-A"_s})
        EXPECT_FALSE(DayOfIdentifier(none)) << none.toStdString();
}

TEST(SheetChoice, IsOfThisMonthAndAnotherDayIsForSupervisorsUnlessUnlocked) {
    const Day today = DayOf(Moment(u"2026-11-22"));
    struct Case {
        QString before, day, extension;
        QString sheet, dayText;
        int marked;
    };
    const Case cases[] = {
        {u"T20261122"_s, u" 5 "_s, u""_s, u"T20261105"_s, u"05"_s, 5},
        {u"T20261122"_s, u"7"_s, u" A "_s, u"T20261107-A"_s, u"07"_s, 7},
        {u"T20261107-A"_s, u""_s, u""_s, u"T20261107-A"_s, u"07"_s, 7},
        {u"T20261122"_s, u"31"_s, u""_s, u"T20261131"_s, u"31"_s, 31},
        {u"T20261022"_s, u""_s, u"A"_s, u"T20261022"_s, u"22"_s, 0},
        {u"T20261022"_s, u"22"_s, u""_s, u"T20261122"_s, u"22"_s, 22},
    };
    for (const Case& c : cases) {
        SheetChoice choice;
        choice.SetSheet(today, c.before);
        choice.Compose(today, c.day, c.extension);
        EXPECT_EQ(choice.Sheet(), c.sheet);
        EXPECT_EQ(choice.DayText(), c.dayText) << c.sheet.toStdString();
        EXPECT_EQ(choice.MarkedDay(today), c.marked) << c.sheet.toStdString();
        EXPECT_EQ(choice.IsOfDay(today, c.dayText), c.marked > 0) << c.sheet.toStdString();
        EXPECT_EQ(choice.IsOfToday(today), c.marked == 22) << c.sheet.toStdString();
    }
    // When the sheet was set, which, and whether it is left over on the day after today.
    const Day yesterday = today - std::chrono::days{1};
    for (const auto& [on, sheet, leftOver] : {std::tuple{today, u"T20261122"_s, true},
                                              {yesterday, u"T20261121"_s, true},
                                              {today, u"T20261121"_s, false},
                                              {today, u"T20261122-A"_s, false},
                                              {today + std::chrono::days{1}, u"T20261123"_s, false}}) {
        SheetChoice choice;
        choice.SetSheet(on, sheet);
        EXPECT_EQ(choice.IsLeftOver(today + std::chrono::days{1}), leftOver) << sheet.toStdString();
        EXPECT_FALSE(choice.IsLeftOver(on)) << sheet.toStdString();
    }
    SheetChoice choice;
    EXPECT_TRUE(choice.NeedsSupervisor(today, u"05"_s));
    EXPECT_FALSE(choice.NeedsSupervisor(today, u"22"_s));
    choice.SetUnlocked(true);
    EXPECT_FALSE(choice.NeedsSupervisor(today, u"05"_s));
    for (const auto& [day, days, next] :
         {std::tuple{u"30"_s, 1, u"31"_s}, {u"31"_s, 1, u""_s}, {u"02"_s, -1, u"01"_s}, {u"1"_s, -1, u""_s}})
        EXPECT_EQ(SheetChoice::Step(day, days).value_or(u""_s), next) << day.toStdString();
}

TEST(Sheet, OnlyStatusOneIsClosedAndClosingAndReopeningKeepOneRow) {
    TestCompany company;
    EXPECT_FALSE(IsSheetClosed(company.Db(), u"T1"_s)); // no row
    const std::pair<QString, bool> cases[] = {{u"0"_s, false},    {u"1"_s, true},   {u"2"_s, false},
                                              {u"NULL"_s, false}, {u"''"_s, false}, {u"'x'"_s, false},
                                              {u"-1"_s, false},   {u"1.0"_s, true}};
    for (const auto& [status, closed] : cases) {
        company.Db().ExecuteNative(u"INSERT OR REPLACE INTO timecardmaster VALUES ('T1',%1)"_s.arg(status));
        EXPECT_EQ(IsSheetClosed(company.Db(), u"T1"_s), closed) << status.toStdString();
    }
    EXPECT_FALSE(IsSheetClosed(company.Db(), u"T1-1"_s));

    company.Db().ExecuteNative(u"DELETE FROM timecardmaster"_s);
    const auto master = [&] { return company.RowsOf(u"select * from timecardmaster"_s); };
    ReopenSheet(company.Db(), u"T20261122"_s);
    EXPECT_EQ(master(), QStringList{u"T20261122|0"_s});
    for (int round = 0; round < 2; ++round) {
        CloseSheet(company.Db(), u"T20261122"_s);
        CloseSheet(company.Db(), u"T20261122"_s);
        EXPECT_EQ(master(), QStringList{u"T20261122|1"_s});
        EXPECT_TRUE(IsSheetClosed(company.Db(), u"T20261122"_s));
        ReopenSheet(company.Db(), u"T20261122"_s);
        EXPECT_EQ(master(), QStringList{u"T20261122|0"_s});
    }
    CloseSheet(company.Db(), u""_s);
    EXPECT_NE(FailureOf([&] { CloseSheet(company.Db(), u"T'"_s); }), QString());
    EXPECT_EQ(master(), QStringList{u"T20261122|0"_s});
}

TEST(Sheet, ItsDateIsThatOfItsCards) {
    TestCompany company;
    const auto date = [&](const QString& sheet) {
        return StoredDay(SheetDate(company.Db(), sheet, DayOf(Moment(u"2026-12-31"))));
    };
    EXPECT_EQ(date(u"T20261122"_s), u"2026-12-31"_s); // no card yet
    company.Db().ExecuteNative(
        u"INSERT INTO TimeCardDetail (TCID,Tanggal) VALUES ('T20261120-A0012','2026-11-20'),"
        "('T202611210012','2026-11-21')"_s);
    const std::pair<QString, QString> cases[] = {
        {u"T20261121"_s, u"2026-11-21"_s},   {u"T20261121-1"_s, u"2026-12-31"_s},
        {u"T20261120"_s, u"2026-11-20"_s}, // the extended sheet's cards count for the plain one
        {u"T20261120-A"_s, u"2026-11-20"_s}, {u"T20261120-a"_s, u"2026-11-20"_s},
        {u"T20261120-B"_s, u"2026-12-31"_s}, {u"T2026112"_s, u"2026-12-31"_s},
    };
    for (const auto& [sheet, day] : cases)
        EXPECT_EQ(date(sheet), day) << sheet.toStdString();
}
