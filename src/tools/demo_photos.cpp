#include "tools/demo_photos.h"

#include "database/database_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int PhotoNumber = 90011;

} // namespace

DemoPhotos::DemoPhotos(const QString& databasePath)
    : folder_(QFileInfo(databasePath).absolutePath() + u"/photos"_s) {}

DemoPhotos::~DemoPhotos() {
    for (const QString& file : written_)
        QFile::remove(file);
    if (folderIsNew_)
        QDir().rmdir(folder_);
}

void DemoPhotos::Write() {
    folderIsNew_ = QDir().mkdir(folder_);
    const QDir portraits(u":/photos"_s);
    for (const QString& name : portraits.entryList()) {
        const QString path = folder_ + u'/' + name;
        if (QFile::exists(path))
            continue;
        QFile portrait(portraits.filePath(name));
        if (!portrait.copy(path))
            throw ProgramError(PhotoNumber, u"%1 cannot be written: %2"_s.arg(path, portrait.errorString()));
        written_ << path;
        // Pictures compiled in are read-only, and a copy would be too.
        QFile::setPermissions(path, QFile::permissions(path) | QFileDevice::WriteOwner);
    }
}

void DemoPhotos::Keep() {
    written_.clear();
    folderIsNew_ = false;
}
