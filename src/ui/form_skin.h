#pragma once

#include "core/start_up.h"

#include <QPixmap>
#include <QWidget>

#include <array>

namespace b_form_skin {

/// The four background pictures of the program, loaded once at the start, and the pointer while they load.
class Backgrounds : public modAbsen::StartScreen {
public:
    void SetHourglass(bool on) override;
    void LoadPicture(modAbsen::Background which, const QString& path) override;

    const QPixmap& Picture(modAbsen::Background which) const { return pictures_[static_cast<size_t>(which)]; }

private:
    std::array<QPixmap, 4> pictures_;
};

/// Lets a window stand on one of the pictures.
void SkinWindow(QWidget& window, const QPixmap& picture);

} // namespace b_form_skin
