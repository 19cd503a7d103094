#include "core/program.h"

void ReportError(Program& program, const std::exception& error, const QString& procedure) {
    program.log.LogError(error, procedure);
    b_global::ShowDatabaseError(program.database, program.dialogs, &error);
}
