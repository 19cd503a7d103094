#include "ui/code_tint.h"

#include "ui/theme.h"

namespace {

constexpr quint32 Hues = 12;
constexpr int FirstHue = 100; // in degrees
constexpr float Saturation = 0.60F;
/// Codes that share a hue still differ.
constexpr float Lightness[] = {0.92F, 0.87F};

/// The same in every program and on every machine, unlike the hash tables' own.
quint32 NumberOf(const QString& code) {
    quint32 number = 5381;
    for (const QChar letter : code)
        number = (number ^ letter.unicode()) * 33;
    return number ^ (number >> 16);
}

/// As if one were painted through the other.
QColor Over(const QColor& below, const QColor& above) {
    return QColor::fromRgbF(below.redF() * above.redF(), below.greenF() * above.greenF(),
                            below.blueF() * above.blueF());
}

} // namespace

QColor CodeTint(const QString& code) {
    if (code.isEmpty())
        return {};
    const quint32 place = NumberOf(code) % (Hues * static_cast<quint32>(std::size(Lightness)));
    const int hue = (FirstHue + static_cast<int>(place % Hues * (360 / Hues))) % 360;
    return QColor::fromHslF(static_cast<float>(hue) / 360, Saturation, Lightness[place / Hues]);
}

std::optional<QColor> TintedFill(const QColor& tint, CellLook look) {
    if (!tint.isValid())
        return std::nullopt;
    switch (look) {
    case CellLook::Plain:
        return tint;
    case CellLook::Quiet:
        return QColor::fromHslF(tint.hslHueF(), tint.hslSaturationF(), (1 + tint.lightnessF()) / 2);
    case CellLook::Tinted:
    case CellLook::Marked:
        return Over(Theme::LookColours(look)->fill, tint);
    default:
        return std::nullopt;
    }
}
