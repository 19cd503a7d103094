#pragma once

#include <optional>

/// Whether Caps Lock is on; nothing where the window system does not tell.
std::optional<bool> CapsLockIsOn();
