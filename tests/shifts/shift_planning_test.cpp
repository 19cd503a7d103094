#include "database/database_file.h"
#include "shifts/roster_store.h"
#include "shifts/shift_rhythm.h"
#include "support/failures.h"
#include "support/recording_engine.h"
#include "support/test_company.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

/// A company of the shifts P, PAGI, MALAM and MX3.
class ShiftPlanning : public CompanyTest {
protected:
    ShiftPlanning() {
        Run(u"INSERT INTO Shift VALUES ('P','1899-12-30 08:00:00','1899-12-30 17:00:00'),('PAGI',NULL,NULL),"
            "('MALAM',NULL,NULL),('MX3',NULL,NULL)"_s);
        shifts.Read(Db());
    }

    /// One word for each day; "." is a day without a shift.
    static std::vector<QString> DaysOf(const QString& text) {
        std::vector<QString> days;
        for (const QString& day : text.split(u' ', Qt::SkipEmptyParts))
            days.push_back(day == u"."_s ? QString() : day);
        return days;
    }
    QStringList Rows() {
        return RowsOf(u"select NIP, Mid(Tgl,6,5), ShiftCode from ShiftEmployee order by NIP, Tgl"_s);
    }

    KnownShifts shifts;
};

constexpr Day Nov(int day) {
    return Day{year{2026} / 11 / day};
}

} // namespace

TEST_F(ShiftPlanning, ReadsACycleAsItIsTyped) {
    const struct {
        QString typed;
        QString read; ///< the codes, or what the refusal names
    } cases[] = {
        {u"P P P O"_s, u"P P P O"_s},
        {u" p,pagi ; o\tMalam "_s, u"P PAGI O MALAM"_s},
        {u"PAGI x3 MALAM x2 O"_s, u"PAGI PAGI PAGI MALAM MALAM O"_s},
        {u"pagiX2,O×2,p*1"_s, u"PAGI PAGI O O P"_s},
        {u"MX3 mx3 x2"_s, u"MX3 MX3 MX3"_s},
        {u"NX3"_s, u"N N N"_s},
        {u"CUTI X x2"_s, u"CUTI X X"_s},
        {u""_s, u"!masih kosong"_s},
        {u"x3 P"_s, u"!tempat ke-1"_s},
        {u"P x2 x2"_s, u"!tempat ke-3"_s},
        {u"Px2 x2"_s, u"!tempat ke-2"_s},
        {u"P Px0"_s, u"!tempat ke-2"_s},
        {u"P Ox99999999999"_s, u"!tempat ke-2"_s},
        {u"Px400 P"_s, u"!tempat ke-2"_s},
        {u"P O'1"_s, u"!tempat ke-2: kode \"O'1\" mengandung tanda kutip"_s},
    };
    for (const auto& c : cases) {
        QString read;
        try {
            read = ReadShiftCycle(c.typed, shifts).codes.join(u' ');
        } catch (const ProgramError& error) {
            read = u'!' + error.Description();
        }
        if (c.read.startsWith(u'!'))
            EXPECT_TRUE(read.startsWith(u'!') && read.contains(c.read.sliced(1)))
                << c.typed.toStdString() << read.toStdString();
        else
            EXPECT_EQ(read, c.read) << c.typed.toStdString();
    }
    EXPECT_EQ(ReadShiftCycle(u"P O cuti Px2 cuti"_s, shifts).Unlisted(shifts), QStringList{u"cuti"_s});
}

TEST_F(ShiftPlanning, EachEmployeeStartsWhereTheStepSays) {
    const ShiftCycle cycle = ReadShiftCycle(u"A B C"_s, shifts);
    for (const auto& [firstDay, step, employee, later, code] :
         {std::tuple{1, 0, 5, 0, u"A"_s}, std::tuple{1, 0, 5, 4, u"B"_s}, std::tuple{3, 0, 0, 1, u"A"_s},
          std::tuple{1, 1, 2, 0, u"C"_s}, std::tuple{1, -1, 1, 0, u"C"_s}, std::tuple{2, -2, 4, 30, u"C"_s}})
        EXPECT_EQ(cycle.On(CycleStart{firstDay, step}.DayOf(employee, later)), code)
            << firstDay << step << employee << later;
}

TEST_F(ShiftPlanning, RecognisesTheShortestCycleThatExplainsAMonth) {
    const QString week = u"P P P P P O O "_s;
    const struct {
        const char* what;
        QString days;
        QString cycle; ///< "" for none
        int exceptions = 0;
    } cases[] = {
        {"one code", u"P "_s.repeated(30), u"P"_s},
        {"a week", week.repeated(4), u"P P P P P O O"_s},
        {"begun in its middle", u"O O "_s + week.repeated(4), u"O O P P P P P"_s},
        {"with gaps", u"P . P P . O O . P P P P . O P P P P P O O ."_s, u"P P P P P O O"_s},
        {"that hide one of its days", u"P P . P P . P P . P P ."_s, u"P"_s},
        {"three weeks, come round once and a half",
         u"A "_s.repeated(7) + u"B "_s.repeated(7) + u"C "_s.repeated(7) + u"A "_s.repeated(7) + u"B B"_s,
         u"A A A A A A A B B B B B B B C C C C C C C"_s},
        {"two different weeks", (u"P P P P P P O P P P P P O O "_s).repeated(2),
         u"P P P P P P O P P P P P O O"_s},
        {"a day of leave", week + u"P P C P P O O "_s + week.repeated(2), u"P P P P P O O"_s, 1},
        {"too many exceptions", u"P O C P P C O O P C P O C C P O P"_s, u""_s},
        {"too few days", u"P . . . . . . . P . . ."_s, u""_s},
        {"nothing", u". . . . . . . . . ."_s, u""_s},
    };
    for (const auto& c : cases) {
        const auto rhythm = RecogniseRhythm(DaysOf(c.days));
        EXPECT_EQ(rhythm ? rhythm->cycle.codes.join(u' ') : QString(), c.cycle) << c.what;
        EXPECT_EQ(rhythm ? rhythm->exceptions : 0, c.exceptions) << c.what;
    }
}

TEST_F(ShiftPlanning, AMonthGoesOnByDateOrByWeekday) {
    const struct {
        Day day;
        unsigned date;    ///< of the month before, 0 for none
        unsigned weekday; ///< the same
    } cases[] = {
        {Day{year{2026} / 11 / 1}, 1, 4}, // a Sunday, as 4 October
        {Day{year{2026} / 11 / 28}, 28, 31}, {Day{year{2026} / 11 / 30}, 30, 26},
        {Day{year{2026} / 3 / 31}, 0, 24},   {Day{year{2026} / 3 / 28}, 28, 28}, // February has four weeks
        {Day{year{2027} / 1 / 1}, 1, 4},                                         // over the year's end
    };
    for (const auto& [day, date, weekday] : cases) {
        const year_month_day target{day};
        const year_month before = target.year() / target.month() - months{1};
        EXPECT_EQ(SameDate(day, before).value_or(0), date) << StoredDay(day).toStdString();
        EXPECT_EQ(SameWeekday(day, before).value_or(0), weekday) << StoredDay(day).toStdString();
        EXPECT_EQ(std::chrono::weekday{Day{before / std::chrono::day{weekday}}}, std::chrono::weekday{day});
    }
}

TEST_F(ShiftPlanning, WritesAllCellsOrNone) {
    Run(u"INSERT INTO ShiftEmployee VALUES ('1','2026-11-01','P'),('1','2026-11-02','P'),('2','2026-11-01','')"_s);
    const QStringList before = Rows();
    const struct {
        const char* what;
        std::vector<RosterChange> changes;
        QStringList rows; ///< empty: as before
        QStringList stood = {};
        std::vector<size_t> conflicts = {};
    } cases[] = {
        {"over, beside, emptied, taken away",
         {{u"1"_s, Nov(1), u"O"_s},
          {u"3"_s, Nov(30), u"O"_s, u""_s},
          {u"2"_s, Nov(1), u""_s, u""_s},
          {u"1"_s, Nov(2), QString(), u"P"_s}},
         {u"1|11-01|O"_s, u"2|11-01|"_s, u"3|11-30|O"_s},
         {u"P"_s, QString(), u""_s, u"P"_s}},
        {"two stand otherwise than expected",
         {{u"1"_s, Nov(1), u"O"_s, u"P"_s},
          {u"1"_s, Nov(2), u"O"_s, u""_s},
          {u"4"_s, Nov(2), u"O"_s, u"P"_s}},
         {},
         {u"P"_s, u"P"_s, QString()},
         {1, 2}},
    };
    for (const auto& c : cases) {
        TakenBack(Db(), [&] {
            const RosterSaved saved = RosterStore::Save(Db(), c.changes);
            EXPECT_EQ(saved.conflicts, c.conflicts) << c.what;
            EXPECT_EQ(Rows(), c.rows.isEmpty() ? before : c.rows) << c.what;
            for (size_t i = 0; i < saved.before.size(); ++i) {
                EXPECT_EQ(saved.before[i], c.stood[static_cast<qsizetype>(i)]) << c.what;
                EXPECT_EQ(saved.before[i].isNull(), c.stood[static_cast<qsizetype>(i)].isNull()) << c.what;
            }
        });
    }
    Run(u"CREATE TRIGGER refuse BEFORE INSERT ON ShiftEmployee WHEN NEW.NIP='9' BEGIN SELECT RAISE(ABORT,'full'); END"_s);
    EXPECT_NE(FailureOf([&] {
                  RosterStore::Save(Db(), {{u"1"_s, Nov(1), u"O"_s}, {u"9"_s, Nov(1), u"O"_s}});
              }),
              QString());
    EXPECT_EQ(Rows(), before) << "a failure writes nothing";
}

TEST_F(ShiftPlanning, AThousandEmployeesAreWrittenInAFewStatements) {
    QStringList statements;
    Connection recorded(std::make_unique<RecordingEngine>(statements), DatabaseFile());
    std::vector<RosterChange> changes;
    for (int day = 1; day <= 30; ++day) {
        for (int employee = 0; employee < 1000; ++employee)
            changes.push_back({QString::number(employee), Nov(day), u"P"_s});
    }
    EXPECT_TRUE(RosterStore::Save(recorded, changes).conflicts.empty());
    EXPECT_LE(statements.size(), 8);
    EXPECT_EQ(RowsOf(u"select count(1), min(Tgl), max(Tgl) from ShiftEmployee where ShiftCode='P'"_s),
              QStringList{u"30000|2026-11-01|2026-11-30"_s});
}
