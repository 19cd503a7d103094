#include "core/clock.h"
#include "editing/card_problems.h"
#include "exchange/punch_import.h"
#include "tools/command.h"
#include "tools/data_check.h"

using namespace Qt::StringLiterals;

namespace {

int Problems(const QStringList& arguments, const QCommandLineParser& options) {
    const std::unique_ptr<Connection> connection = OpenUnchanged(arguments[0]);
    CardFilter filter;
    filter.days = DayRange{DayOption(options, u"from"_s), DayOption(options, u"to"_s)};
    const std::vector<CardProblem> problems = FindProblems(*connection, filter, SystemClock().Now());
    for (const CardProblem& problem : problems)
        Print(stdout, problem.Line() + u'\n');
    return problems.empty() ? Done : Findings;
}

PunchForm FormOf(const QString& file, const QCommandLineParser& options) {
    const QString typed = options.value(u"format"_s);
    const auto form =
        typed.isEmpty() ? PunchForm::Recognised(FirstLinesOf(file)) : PunchForm::FromText(typed);
    if (!form)
        throw UsageError(
            typed.isEmpty() ? u"the form of %1 is not known; tell it by --format"_s.arg(file)
                            : u"--format takes names of fields like \"nip,date,time,direction\" or \"nip tab "
                              "moment\", not \"%1\""_s.arg(typed));
    return *form;
}

int ImportPunchFile(const QStringList& arguments, const QCommandLineParser& options) {
    const PunchForm form = FormOf(arguments[1], options);
    const bool dry = options.isSet(u"dry-run"_s);
    const std::unique_ptr<Connection> connection = OpenUnchanged(arguments[0]);
    Print(stdout, u"form: %1\n"_s.arg(form.Text()));
    ProgressLine line;
    const PunchReport report =
        ImportPunches(*connection, ReadPunchFile(arguments[1], form), options.isSet(u"first-and-last"_s),
                      dry ? PunchRun::Dry : PunchRun::Write, [&line](qsizetype done, qsizetype total) {
                          line.Show(u"%1 of %2 people"_s.arg(done).arg(total));
                          return true;
                      });
    for (const PunchLine& listed : report.listed)
        Print(stdout, listed.Text() + u'\n');
    Print(stdout, report.Summary() + u'\n');
    if (dry)
        Print(stdout, u"dry run: nothing was written\n"_s);
    return report.listed.empty() ? Done : Findings;
}

} // namespace

std::vector<Command> CardCommands() {
    const QString yesterday = StoredDay(SystemClock().Today() - std::chrono::days{1});
    return {
        {u"problems"_s,
         u"Tells the days that a supervisor has to look at, one a line. Exit status 0: none, 1: some, 2: the "
         "file cannot be read."_s,
         {u"DB"_s},
         {{u"from"_s, u"The first day, as yyyy-mm-dd (the first of yesterday's month)."_s, u"DATE"_s,
           yesterday.first(8) + u"01"_s},
          {u"to"_s, u"The last day, as yyyy-mm-dd (yesterday)."_s, u"DATE"_s, yesterday}},
         Problems},
        {u"import punches"_s,
         u"Brings a clock device's file onto the cards. Exit status 0: all of it, 1: some lines are listed, "
         "2: nothing was written."_s,
         {u"DB"_s, u"FILE"_s},
         {{u"format"_s,
           u"The fields of a line and what parts them: \"nip,date,time,direction\", \"nip tab moment\", "
           "\"nip=1-8 moment=9-27\" (recognised from the first lines)."_s,
           u"FORM"_s},
          {u"first-and-last"_s, u"Does not believe the directions: the first arrival and the last departure "
                                "of a day count."_s},
          {u"dry-run"_s, u"Tells what would be done, and writes nothing."_s}},
         ImportPunchFile},
    };
}
