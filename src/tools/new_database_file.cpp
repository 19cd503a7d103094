#include "tools/new_database_file.h"

#include "database/database_file.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int FileNumber = 90010;

} // namespace

void MakeDatabaseFile(const QString& path, const std::function<void(Connection&)>& fill) {
    const QFileInfo wanted(path);
    if (wanted.exists() || wanted.isSymLink())
        throw ProgramError(FileNumber, u"%1 exists already"_s.arg(path));
    const QTemporaryDir workshop(wanted.absolutePath() + u"/.tadata-XXXXXX"_s);
    if (!workshop.isValid())
        throw ProgramError(FileNumber, u"%1 cannot be made: %2"_s.arg(path, workshop.errorString()));

    QFile file(workshop.filePath(u"DATA.mdb"_s));
    CreateDatabase(file.fileName());
    fill(*OpenDatabaseFile(file.fileName()));
    if (!file.rename(wanted.absoluteFilePath()))
        throw ProgramError(FileNumber, u"%1 cannot be made: %2"_s.arg(path, file.errorString()));
}
