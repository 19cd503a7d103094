#include "ui/photo.h"

#include <QImageReader>

QImage ReadPhoto(const QString& file, QSize room) {
    QImageReader reader(file);
    reader.setAutoTransform(true);
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    reader.setScaledSize(reader.size().scaled(turned ? room.transposed() : room, Qt::KeepAspectRatio));
    return reader.read();
}
