#include "database/file_lookup.h"

#include <QDir>
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

QString ExistingFolder(const QString& path) {
    const QFileInfo folder(path);
    if (folder.isDir() || folder.isRoot())
        return folder.absoluteFilePath();
    const QString parent = ExistingFolder(folder.absolutePath());
    return parent.isEmpty() ? QString() : EntryOf(parent, folder.fileName(), QDir::Dirs);
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
    const QString folder = ExistingFolder(wanted.absolutePath());
    if (folder.isEmpty())
        return {};
    const QString file = EntryOf(folder, wanted.fileName(), QDir::Files);
    return QFileInfo(file).isFile() ? file : QString();
}
