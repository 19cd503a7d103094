#pragma once

#include "core/progress.h"
#include "database/connection.h"
#include "exchange/punch_pairing.h"

#include <QString>

#include <array>
#include <vector>

/// A line of a device's file and what became of it.
struct PunchLine {
    QString file;
    int line = 0; ///< counted from 1
    QString content;
    std::optional<PunchReading> reading = {};
    QString nip = {}; ///< of the employee whose number it is; empty when nobody's is
    QString tcid = {};
    PunchOutcome outcome = PunchOutcome::Unreadable;

    /// Whether a person has to look at it.
    bool IsListed() const { return outcome >= PunchOutcome::NoArrival; }
    QString Text() const;
};

/// How a clock's files are read.
struct PunchProfile {
    QString name; ///< of the clock
    PunchForm form;
    bool firstAndLast = false; ///< its directions are not believed
};

/// The file's first lines, for recognising its form. Throws ProgramError when it cannot be read.
QStringList FirstLinesOf(const QString& path);
/// Every line that is not blank. Throws ProgramError when the file cannot be read.
std::vector<PunchLine> ReadPunchFile(const QString& path, const PunchForm& form);

struct PunchReport {
    std::array<int, PunchOutcomeCount> counts{};
    int newCards = 0;
    int changedCards = 0;
    std::vector<PunchLine> listed;

    int Count(PunchOutcome outcome) const { return counts[static_cast<size_t>(outcome)]; }
    /// One line for people.
    QString Summary() const;
};

enum class PunchRun { Write, Dry };

/// Brings the punches onto the cards and keeps every line, in one transaction. A time that stands already is
/// not changed. Kept lines whose number was unknown, and is no longer, are worked off with them. In a dry run
/// nothing is written. Throws DatabaseError, and ProgramError when the progress asked to stop; nothing is
/// written then.
PunchReport ImportPunches(Connection& connection, std::vector<PunchLine> lines, bool firstAndLast,
                          PunchRun run, const Progress& progress = {});

/// The profiles by name. All three throw DatabaseError.
std::vector<PunchProfile> PunchProfiles(Connection& connection);
void KeepPunchProfile(Connection& connection, const PunchProfile& profile);
/// How far apart two punches of one person may lie that are one; two minutes unless the company says other.
Seconds PunchDoubles(Connection& connection);

/// "ganda"
QString OutcomeText(PunchOutcome outcome);
