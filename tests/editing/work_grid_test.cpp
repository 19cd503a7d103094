#include "editing/work_grid.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

namespace {

/// The rows as the result of a search.
FoundRows Result(const std::vector<FoundDay>& rows) {
    return [&rows](const auto& take) {
        std::ranges::for_each(rows, take);
        return true;
    };
}

} // namespace

TEST(WorkGrid, PrintsMonthsOfSheetsAndOfEmployees) {
    const auto row = [](const QString& tcid, const QString& nip, const QString& nama, const QString& status) {
        FoundDay made;
        made.header.tcid = tcid;
        made.header.nip = nip;
        made.nama = nama;
        made.header.status = status;
        return made;
    };
    const QString wide = u"李小龍 Muhammad Ramadhan"_s;
    const std::vector<FoundDay> rows{row(u"T200603010012"_s, u"0012"_s, wide, u"IN"_s),
                                     row(u"T200603310013"_s, u"0013"_s, u"Siti Aminah binti Abd"_s, u"OUT"_s),
                                     row(u"T200603310012"_s, u"0012"_s, wide, u"A"_s),
                                     row(u"T200602280012"_s, u"0012"_s, wide, u"TL"_s),
                                     row(u"T20060228-20012"_s, u"0012"_s, wide, u"KI"_s)};
    const QString blank = u"   |"_s;
    QStringList sheets;
    EXPECT_TRUE(SheetPrint(Result(rows), u"Dicetak: x"_s, Into(sheets)));
    const QString rule(5 + 1 + 8 + 1 + 20 + 1 + 31 * 4, u'-');
    ASSERT_EQ(sheets.size(), 8 + 1 + 9);
    EXPECT_EQ(
        sheets.mid(9, 5),
        (QStringList{u"DATA ABSENSI PER LEMBAR"_s, u"Lembar: T200603"_s, u"Dicetak: x"_s, rule,
                     u"Sr.No|NIK     |Nama                |1  |2  |3  |4  |5  |6  |7  |8  |9  |10 |11 |12 |"
                     "13 |14 |15 |16 |17 |18 |19 |20 |21 |22 |23 |24 |25 |26 |27 |28 |29 |30 |31 |"_s}));
    EXPECT_EQ(
        sheets.mid(14),
        (QStringList{rule, u"1    |0012    |李小龍 Muhammad Ramadha|IN |"_s + blank.repeated(29) + u"A  |"_s,
                     u"2    |0013    |Siti Aminah binti Ab|"_s + blank.repeated(30) + u"OUT|"_s, rule}));
    EXPECT_TRUE(sheets[6].contains(u"|TL/KI|"_s)) << "two sheets on one day";

    QStringList employees;
    EXPECT_TRUE(EmployeePrint(Result(rows), u"Dicetak: x"_s, Into(employees)));
    EXPECT_EQ(employees[1], u"NIK: 0012  "_s + wide);
    EXPECT_TRUE(employees[6].startsWith(u"1    |T200603 |Mar-2006            |IN   |"_s));
    EXPECT_TRUE(employees[7].startsWith(u"2    |T200602 |Feb-2006            |"_s));
    EXPECT_EQ(employees.count(QString()), 1);
}

TEST(WorkGrid, CutsNoKeyCountsCharactersAndStopsWhenToldTo) {
    FoundDay row;
    row.header.tcid = u"T202603010123456789"_s;
    row.header.nip = u"0123456789"_s;
    row.nama = u"Siti\nAminah"_s;
    row.header.status = u"e\u0301\u0302"_s;     // one character
    const std::vector<FoundDay> days{row, row}; // two days of one card
    QStringList lines;
    EXPECT_TRUE(SheetPrint(Result(days), {}, Into(lines), [](qsizetype, qsizetype) { return true; }));
    EXPECT_TRUE(lines[4].startsWith(u"Sr.No|NIK       |Nama                |1  |"_s));
    EXPECT_TRUE(lines[6].startsWith(u"1    |0123456789|Siti Aminah         |e\u0301\u0302  |   |"_s));
    const FoundRows stopped = [](const auto&) { return false; };
    for (const auto& print : {SheetPrint, EmployeePrint}) {
        EXPECT_FALSE(print(stopped, {}, Into(lines), {}));
        EXPECT_FALSE(print(Result(days), {}, Into(lines), [](qsizetype, qsizetype) { return false; }));
    }
    EXPECT_FALSE(GridPrint(stopped, Into(lines)));
}

TEST(WorkGrid, FindsItsRowsByKeyAndKeepsTheColumnsOfTenThousand) {
    NumberedTexts texts;
    WorkGrid grid(u"NIK"_s, u"Nama"_s, texts);
    for (int time = 1; time <= 2; ++time) {
        for (int i = 1; i <= 10'000; ++i)
            grid.PlaceInWorkGrid(QString::number(i), u"x"_s, time, u"A"_s);
    }
    QStringList lines;
    grid.Print({}, Into(lines));
    ASSERT_EQ(lines.size(), 10'004);
    EXPECT_TRUE(lines[10'002].startsWith(u"10000|10000   |x                   |A  |A  |   |"_s));
    EXPECT_EQ(lines[3].size(), lines[10'002].size());
}
