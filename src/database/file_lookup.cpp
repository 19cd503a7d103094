#include "database/file_lookup.h"

#include <QFileInfo>

namespace {

QString EntryOf(const QString& folder, const QString& name, QDir::Filters filter) {
    const QDir dir(folder);
    if (QFileInfo::exists(dir.filePath(name)))
        return dir.filePath(name);
    const QStringList entries = dir.entryList(filter | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
    for (const QString& entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return dir.filePath(entry);
    }
    return {};
}

} // namespace

QString ToLocalPath(const QString& path) {
    QString local = path;
#ifndef Q_OS_WIN
    local.replace(u'\\', u'/');
#endif
    return QDir::cleanPath(local);
}

QString FindFile(const QString& path) {
    const QFileInfo wanted(ToLocalPath(path));
    const QFileInfo folder(wanted.absolutePath());
    const QString existingFolder = folder.exists()
                                       ? folder.absoluteFilePath()
                                       : EntryOf(folder.absolutePath(), folder.fileName(), QDir::Dirs);
    if (existingFolder.isEmpty())
        return {};
    const QString file = EntryOf(existingFolder, wanted.fileName(), QDir::Files);
    return QFileInfo(file).isFile() ? file : QString();
}
