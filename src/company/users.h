#pragma once

#include "core/progress.h"
#include "database/connection.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// Somebody who has a password, as the list of users shows one.
struct UserRow {
    enum class Password { None, PlainText, Hashed };

    QString id;
    std::optional<QString> employee; ///< the name of the employee of that number
    bool isSupervisor = false;
    Password password = Password::None;
};

/// User IDs, each with what is stored of its password.
using HashedPasswords = std::vector<std::pair<QString, QString>>;

/// Those who may log in or clock in. All functions throw DatabaseError, and ProgramError with a text for the
/// user where something is not allowed; nothing is written then.
class Users {
public:
    explicit Users(Connection& connection) : connection_(connection) {}

    std::vector<UserRow> ReadAll() const;

    /// Makes a user without a password yet.
    void Add(const QString& id) const;
    /// Hashes passwords, about 50 ms for each, before a transaction begins. Nothing when the progress stopped
    /// it.
    std::optional<HashedPasswords> Hash(const std::vector<std::pair<QString, QString>>& idsAndPasswords,
                                        const Progress& progress = {}) const;
    /// Gives users their passwords, and makes those who do not exist yet.
    void Write(const HashedPasswords& passwords) const;
    /// The last supervisor stays one.
    void SetSupervisor(const QString& id, bool isSupervisor) const;
    /// The last supervisor stays.
    void Remove(const QString& id) const;

    /// Hashes all passwords that are stored as they were typed; returns how many. A password that is changed
    /// meanwhile stays as it was changed.
    int HashPlainTexts(const Progress& progress = {}) const;

private:
    /// Throws ProgramError when nobody but this user is a supervisor.
    void CheckNotLast(const QString& id) const;

    Connection& connection_;
};

/// Whether an ID can be looked up and typed: statements quote it, the login's hand-over parts at "~".
bool IsGoodUserId(const QString& id);
/// Throws ProgramError, with a text for the user, when nobody can have this user ID.
void CheckUserId(const QString& id);
