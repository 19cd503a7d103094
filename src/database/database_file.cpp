#include "database/database_file.h"

#include "database/schema.h"
#include "database/sqlite_engine.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int FileNumber = 90003;

} // namespace

void CreateDatabase(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw ProgramError(FileNumber, file.exists()
                                           ? u"%1 exists already"_s.arg(path)
                                           : u"%1 cannot be made: %2"_s.arg(path, file.errorString()));
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
