#include "database/new_database_file.h"

#include "database/database_file.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

void MakeDatabaseFile(const QString& path, const std::function<void(Connection&)>& fill) {
    const QFileInfo wanted(path);
    if (wanted.exists() || wanted.isSymLink())
        RefuseExisting(path);
    const QTemporaryDir workshop(wanted.absolutePath() + u"/.database-XXXXXX"_s);
    if (!workshop.isValid())
        RefuseUnmade(path, workshop.errorString());

    QFile file(workshop.filePath(u"DATA.mdb"_s));
    CreateDatabase(file.fileName());
    fill(*OpenDatabaseFile(file.fileName()));
    if (!file.rename(wanted.absoluteFilePath()))
        RefuseUnmade(path, file.errorString());
}
