// Records arrivals and departures without end and tells each one that is confirmed, until it is killed.
// Arguments: the database file and the number of the first employee.

#include "database/database_file.h"
#include "timecard/clock_recording.h"

#include <QCoreApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto connection = OpenDatabaseFile(arguments.at(1));
    const WallTime start = *ReadStored(u"2026-11-22 07:00:00");
    for (int nip = arguments.at(2).toInt();; ++nip) {
        for (const auto& mode : {u"IN"_s, u"N"_s}) {
            const ClockEntry entry{u"T20261122"_s, DayOf(start), mode, start + Seconds{nip % 3600}};
            if (RecordClockEntry(*connection, entry, QString::number(nip)))
                return 1;
            std::printf("%s %d\n", qPrintable(mode), nip);
            std::fflush(stdout);
        }
    }
}
