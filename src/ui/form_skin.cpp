#include "ui/form_skin.h"

#include "database/database_error.h"

#include <QApplication>
#include <QFileInfo>
#include <QPalette>

using namespace Qt::StringLiterals;

namespace {
constexpr int FileNotFoundNumber = 53;
}

void b_form_skin::Backgrounds::SetHourglass(bool on) {
    if (on)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void b_form_skin::Backgrounds::LoadPicture(modAbsen::Background which, const QString& path) {
    QPixmap& picture = pictures_[static_cast<size_t>(which)];
    // A pipe would be waited for.
    if (!QFileInfo(path).isFile() || !picture.load(path))
        throw ProgramError(
            FileNotFoundNumber,
            u"Gambar latar tidak dapat dimuat: %1\nSalin kembali file itu dari paket program."_s.arg(path));
}

void b_form_skin::SkinWindow(QWidget& window, const QPixmap& picture) {
    if (picture.isNull())
        return;
    QPalette palette = window.palette();
    palette.setBrush(QPalette::Window, picture);
    window.setPalette(palette);
}
