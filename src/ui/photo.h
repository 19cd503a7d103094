#pragma once

#include <QImage>
#include <QString>

/// The picture, no larger than the room for it: a camera's would take its full size in memory first. Cameras
/// store how the picture was held beside the picture itself. Null when the file is no picture.
QImage ReadPhoto(const QString& file, QSize room);
