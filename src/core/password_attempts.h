#pragma once

#include "database/wall_time.h"

#include <QHash>
#include <QString>

#include <vector>

/// Counts wrong passwords, so that none can be guessed at a desk: after five for one user within a minute
/// that user has to wait.
class PasswordAttempts {
public:
    static constexpr int Allowed = 5;
    static constexpr Seconds Within{60};
    static constexpr Seconds WaitFor{30};

    void NoteWrong(const QString& user, WallTime now);
    void NoteRight(const QString& user) { wrong_.remove(user); }

    /// How long the user still waits; 0 when a password may be tried.
    Seconds Wait(const QString& user, WallTime now) const;
    /// What the user is told who has to wait; null when a password may be tried.
    QString WaitText(const QString& user, WallTime now) const;

private:
    /// The moments of the last wrong passwords, oldest first.
    QHash<QString, std::vector<WallTime>> wrong_;
};
