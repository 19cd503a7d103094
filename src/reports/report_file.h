#pragma once

#include "core/program_folder.h"

#include <QString>
#include <QStringList>

/// The one report file, PRINT.TXT in the program folder; every report replaces it.
QString ReportFilePath(const ProgramFolder& folder);

/// Replaces the report file by these lines: UTF-8, each line ended by CR LF. The former file stays whole
/// until the new one is complete, unless the folder takes no new files. Throws ProgramError when it cannot be
/// written.
void WriteReportFile(const ProgramFolder& folder, const QStringList& lines);
