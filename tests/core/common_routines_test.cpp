#include "core/query_values.h"
#include "core/text_table.h"
#include "core/time_text.h"

#include "support/failures.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using namespace modGeneral;

TEST(SecondsToTimeText, KeepsItsOddCases) {
    const std::pair<int, QString> cases[] = {
        {0, u"0:00"_s},         {5, u"0:05"_s},          {59, u"0:59"_s},       {-1, u"0:-01"_s},
        {-120, u"0:-120"_s},    {-40000, u"0:-40000"_s}, {60, u"00:1:00"_s},    {125, u"00:2:05"_s},
        {599, u"00:9:59"_s},    {3599, u"00:59:59"_s},   {3600, u"1:00:00"_s},  {3629, u"1:00:29"_s},
        {3630, u"1:00:30"_s},   {3631, u"1:01:31"_s},    {3690, u"1:02:30"_s},  {3691, u"1:02:31"_s},
        {7199, u"1:60:59"_s},   {7200, u"2:00:00"_s},    {30600, u"8:30:00"_s}, {30645, u"8:31:45"_s},
        {86399, u"23:60:59"_s}, {360000, u"100:00:00"_s}};
    for (const auto& [seconds, text] : cases)
        EXPECT_EQ(SecondsToTimeText(Seconds{seconds}), text) << seconds;
}

TEST(PadText, GivesExactlyTheWidthInCharactersAsAReaderSeesThem) {
    const std::tuple<QString, int, QString> cases[] = {
        {u"Budi"_s, 6, u"Budi  "_s},
        {u"Budi Santoso"_s, 6, u"Budi S"_s},
        {u"Budi"_s, 4, u"Budi"_s},
        {u""_s, 3, u"   "_s},
        {u"Budi"_s, 0, u""_s},
        {u"Budi"_s, -1, u""_s},
        {u"e\u0301e\u0301e\u0301"_s, 2, u"e\u0301e\u0301"_s}, // a letter keeps its accent
        {u"e\u0301"_s, 3, u"e\u0301  "_s},
        {u"工場"_s, 3, u"工場 "_s},
        {u"\U0001F600\U0001F600"_s, 1, u"\U0001F600"_s},
    };
    for (const auto& [text, width, padded] : cases)
        EXPECT_EQ(PadText(text, width), padded) << text.toStdString() << ' ' << width;
}

TEST(TextTable, LinesAreAsLongAsTheRule) {
    QStringList names{u"Budi Santoso"_s, u"e\u0301"_s};
    const auto rows = [&names](const RowSink& take) {
        take({u"1"_s, names[0], u"GA"_s});
        take({u"2"_s, names[1], u"PROD"_s});
        return true;
    };
    const QStringList titles = SetupGrid({u"Nama"_s, u"Dept"_s});
    QStringList lines;
    EXPECT_TRUE(GridToTextTable(titles, rows, {5, 6}, {u"Judul"_s}, Into(lines)));
    EXPECT_EQ(lines, (QStringList{u"Judul"_s, u"-------------"_s, u"Sr.No|Nama  |"_s, u"-------------"_s,
                                  u"1    |Budi S|"_s, u"2    |e\u0301     |"_s, u"-------------"_s}));
    lines.clear();
    EXPECT_TRUE(GridToTextTableAll(titles, rows, Into(lines)));
    const QStringList whole{u"------------------------"_s,       u"Sr.No|Nama        |Dept|"_s,
                            u"------------------------"_s,       u"1    |Budi Santoso|GA  |"_s,
                            u"2    |e\u0301           |PROD|"_s, u"------------------------"_s};
    EXPECT_EQ(lines, whole);
    lines.clear();
    const auto growing = [&](const RowSink& take) {
        const bool goOn = rows(take);
        names[1] = u"Siti Rahmawati"_s;
        return goOn;
    };
    EXPECT_TRUE(GridToTextTableAll(titles, growing, Into(lines)));
    EXPECT_EQ(lines, QStringList(whole).replaceInStrings(u"e\u0301           "_s, names[1]))
        << "nothing is cut";
    lines.clear();
    EXPECT_TRUE(GridToTextTableAll(
        titles, [](const RowSink&) { return true; }, Into(lines)));
    EXPECT_EQ(lines.size(), 4);
}

TEST(QueryValues, CopiesTheFirstRowByTheVariablesTypes) {
    TestCompany company;
    company.Run(
        u"INSERT INTO TimeCardHeader (TCID,NIP,NormalHours,OTHours) VALUES ('T1','0012',9.15,8),('T2','9',1,1)"_s);
    QString text, hours, none = u"x"_s;
    int count = 7;
    EXPECT_TRUE(QueryValues(
        company.Db(), u"select NIP, NormalHours, OTHours, Keterangan from TimeCardHeader order by TCID"_s,
        text, hours, count, none));
    EXPECT_EQ(text + u'|' + hours + u'|' + none, u"0012|9.15|"_s);
    EXPECT_EQ(count, 8);
    EXPECT_FALSE(QueryValues(company.Db(), u"select 1 from TimeCardHeader where NIP='x'"_s, count));
    EXPECT_EQ(count, 8);
    EXPECT_NE(FailureOf([&] { QueryValues(company.Db(), u"select x from y"_s, count); }), QString());
}
