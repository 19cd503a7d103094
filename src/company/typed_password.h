#pragma once

#include <QString>

/// Why a password that was typed twice cannot be set, in the user's words; null when it can.
inline QString PasswordRefusal(const QString& typed, const QString& again) {
    constexpr int shortest = 4;
    if (typed != again)
        return QStringLiteral("Kedua password tidak sama. Ketik lagi.");
    if (typed.size() < shortest)
        return QStringLiteral("Password terlalu pendek: paling sedikit %1 huruf atau angka.").arg(shortest);
    return {};
}
