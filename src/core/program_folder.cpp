#include "core/program_folder.h"

#include "database/file_lookup.h"

#include <QDir>
#include <QFileInfo>

ProgramFolder::ProgramFolder(const QString& path)
    : path_(QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(path).absoluteFilePath()))) {}

QString ProgramFolder::Existing(QStringView name) const {
    return FindFile(Joined(name));
}
