#pragma once

#include "database/schema.h"
#include "support/test_company.h"
#include "tools/data_check.h"
#include "tools/demo_company.h"

#include <QDir>
#include <QFile>

/// The rows of a query, fields joined by "|", null as "-".
inline QStringList RowsOf(Connection& connection, const QString& query) {
    Rows rows = connection.Query(query);
    const int columns = static_cast<int>(rows.ColumnNames().size());
    QStringList found;
    while (rows.Next()) {
        QStringList fields;
        for (int i = 0; i < columns; ++i)
            fields << (rows.Value(i).IsNull() ? QStringLiteral("-") : rows.Text(i));
        found << fields.join(u'|');
    }
    return found;
}

inline QStringList FindingsOf(Connection& connection) {
    QStringList lines;
    CheckData(connection, [&](const Finding& finding) { lines << finding.Line(); });
    return lines;
}

inline DemoOptions DemoUntil(QStringView day, int employees = 42, int months = 3) {
    return {employees, months, DayOf(Moment(day))};
}

inline QByteArray BytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

/// All that stands in a folder, hidden entries too.
inline QStringList EntriesOf(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

/// The rows of all tables of a database, table by table.
inline QStringList ContentOf(const QString& path) {
    const std::unique_ptr<Connection> connection = OpenDatabaseFile(path);
    QStringList content;
    for (const QString& table : RowsOf(
             *connection, QStringLiteral("select name from sqlite_master where type='table' order by name")))
        content += table + QStringLiteral(":\n")
                   + RowsOf(*connection, QStringLiteral("select * from [%1]").arg(table)).join(u'\n');
    return content;
}
