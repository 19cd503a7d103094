#include "company/employee_photo.h"

#include "database/database_error.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int PhotoNumber = 90035;
constexpr QSize Largest(800, 800);
constexpr int Quality = 85;

QImage Read(const QString& picture) {
    QImageReader reader(picture);
    reader.setAutoTransform(true);
    if (reader.size().width() > Largest.width() || reader.size().height() > Largest.height())
        reader.setScaledSize(reader.size().scaled(Largest, Qt::KeepAspectRatio));
    return reader.read();
}

QString FileFor(const QString& databaseFile, const QString& nip) {
    // A number may hold what no file's name can.
    const QString name = QString::fromLatin1(QUrl::toPercentEncoding(nip));
    return QFileInfo(databaseFile).absolutePath() + u"/photos/"_s + name + u".jpg"_s;
}

} // namespace

NewPhoto::NewPhoto(const QString& picture, const QString& databaseFile, const QString& nip)
    : file_(FileFor(databaseFile, nip)) {
    const QImage photo = Read(picture);
    if (photo.isNull())
        throw ProgramError(PhotoNumber, u"Foto %1 tidak dapat dibaca."_s.arg(picture));
    QDir().mkpath(QFileInfo(file_.fileName()).path());
    if (!file_.open(QIODevice::WriteOnly) || !photo.save(&file_, "JPG", Quality))
        Refuse();
}

QString NewPhoto::PathFrom(const ProgramFolder& folder) const {
    return QDir(folder.Path()).relativeFilePath(file_.fileName());
}

void NewPhoto::Keep() {
    if (!file_.commit())
        Refuse();
}

void NewPhoto::Refuse() const {
    throw ProgramError(PhotoNumber, u"Foto %1 tidak dapat ditulis: %2"_s.arg(
                                        QDir::toNativeSeparators(file_.fileName()), file_.errorString()));
}
