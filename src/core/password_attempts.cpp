#include "core/password_attempts.h"

using namespace Qt::StringLiterals;

void PasswordAttempts::NoteWrong(const QString& user, WallTime now) {
    // A clock that was set back must not keep anybody waiting for hours.
    const auto isOld = [now](WallTime moment) { return now - moment >= Within || moment > now; };
    wrong_.removeIf([&](const auto& entry) { return isOld(entry.value().back()); });
    std::vector<WallTime>& moments = wrong_[user];
    std::erase_if(moments, isOld);
    moments.push_back(now);
}

Seconds PasswordAttempts::Wait(const QString& user, WallTime now) const {
    const auto moments = wrong_.constFind(user);
    if (moments == wrong_.cend() || moments->size() < Allowed || moments->back() > now)
        return Seconds{0};
    return std::max(Seconds{0}, moments->back() + WaitFor - now);
}

QString PasswordAttempts::WaitText(const QString& user, WallTime now) const {
    const Seconds wait = Wait(user, now);
    if (wait <= Seconds{0})
        return {};
    return u"Password untuk %1 salah %2 kali berturut-turut.\nTunggu %3 detik, lalu coba lagi."_s.arg(
        user, QString::number(Allowed), QString::number(wait.count()));
}
