#include "ui/caps_lock.h"

#include <QGuiApplication>
#include <QLibrary>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;

#if defined(Q_OS_WIN)

std::optional<bool> CapsLockIsOn() {
    return (GetKeyState(VK_CAPITAL) & 1) != 0;
}

#elif QT_CONFIG(xcb)

/// Qt keeps the lamps of the keyboard to itself. The X library is there whenever Qt shows windows by it.
std::optional<bool> CapsLockIsOn() {
    constexpr unsigned coreKeyboard = 0x100;
    constexpr unsigned capsLockLamp = 1;
    using ReadLamps = int (*)(Display*, unsigned, unsigned*);
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Without a screen there is the interface, but no display.
    if (!x11 || !x11->display())
        return std::nullopt;
    const auto read = reinterpret_cast<ReadLamps>(QLibrary::resolve(u"X11"_s, 6, "XkbGetIndicatorState"));
    unsigned lamps = 0;
    if (!read || read(x11->display(), coreKeyboard, &lamps) != 0)
        return std::nullopt;
    return (lamps & capsLockLamp) != 0;
}

#else

std::optional<bool> CapsLockIsOn() {
    return std::nullopt;
}

#endif
