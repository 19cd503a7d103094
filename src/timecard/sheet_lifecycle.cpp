#include "timecard/sheet_lifecycle.h"

#include "cards/sheet_identifier.h"
#include "core/query_values.h"
#include "database/recordset.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

namespace {

void WriteStatus(Connection& connection, const QString& sheet, SheetStatus status) {
    if (sheet.isEmpty())
        return;
    connection.InTransaction([&] {
        Recordset master(connection, u"select * from timecardmaster where tcid="_s + Quoted(sheet));
        if (master.AtEnd()) {
            master.AddNew();
            master.Set(u"TCID"_s, sheet);
        }
        master.Set(u"Status"_s, static_cast<int>(status));
        master.Update();
    });
}

} // namespace

bool IsSheetClosed(Connection& connection, const QString& sheet) {
    const QString status = b_stored_procedure::GetFirstValue(
        connection, u"select status from timecardmaster where tcid="_s + Quoted(sheet));
    return status.toDouble() == static_cast<double>(SheetStatus::Closed);
}

QSet<QString> ClosedSheets(Connection& connection, Day first, Day last) {
    Cursor rows =
        connection.Query(u"select TCID from timecardmaster where Status=? and TCID between ? and ?"_s,
                         {static_cast<int>(SheetStatus::Closed), SheetIdentifierOf(first),
                          CardRange(SheetIdentifierOf(last)).second});
    QSet<QString> sheets;
    while (rows.Next())
        sheets << rows.Text(0).toUpper();
    return sheets;
}

void CloseSheet(Connection& connection, const QString& sheet) {
    WriteStatus(connection, sheet, SheetStatus::Closed);
}

void ReopenSheet(Connection& connection, const QString& sheet) {
    WriteStatus(connection, sheet, SheetStatus::Open);
}
