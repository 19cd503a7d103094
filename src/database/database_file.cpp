#include "database/database_file.h"

#include "database/schema.h"
#include "database/sqlite_engine.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int FileNumber = 90010;

} // namespace

void RefuseExisting(const QString& path) {
    throw ProgramError(ErrorKind::FileExists, FileNumber, u"%1 exists already"_s.arg(path), {path});
}

void RefuseUnmade(const QString& path, const QString& reason) {
    throw ProgramError(ErrorKind::FileNotMade, FileNumber, u"%1 cannot be made: %2"_s.arg(path, reason),
                       {path, reason});
}

void CreateDatabase(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        if (file.exists())
            RefuseExisting(path);
        RefuseUnmade(path, file.errorString());
    }
    // Wages and passwords are nobody's business but the owner's and the group's.
    file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup
                        | QFileDevice::WriteGroup);
    file.close();
    const std::unique_ptr<Connection> connection = ConnectToFile(path);
    RunSchemaSteps(*connection, connection->UsedEngine().Schema().Steps());
}

std::unique_ptr<Connection> ConnectToFile(const QString& path, const QString& connectionText) {
    return std::make_unique<Connection>(std::make_unique<SqliteEngine>(), QFileInfo(path).absoluteFilePath(),
                                        connectionText);
}

std::unique_ptr<Connection> OpenDatabaseFile(const QString& path, const QString& connectionText) {
    std::unique_ptr<Connection> connection = ConnectToFile(path, connectionText);
    PrepareSchema(*connection);
    return connection;
}
