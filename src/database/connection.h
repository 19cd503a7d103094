#pragma once

#include "database/cursor.h"
#include "database/engine.h"

#include <functional>
#include <memory>
#include <type_traits>

/// Tells two states of the database apart.
struct ChangeStamp {
    qint64 ofOthers = -1;
    qint64 own = -1;
    bool operator==(const ChangeStamp&) const = default;
};

/// The one connection that the whole program shares. All its functions throw DatabaseError when the engine
/// reports a failure. Statements are given in the program's dialect (see Engine::Translate).
class Connection {
public:
    /// Opens the database that stands at the path; the connection text is only kept for those who ask.
    Connection(std::unique_ptr<Engine> engine, const QString& path, const QString& connectionText = {});
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The text that tells this connection from others; "" when it was opened without one.
    const QString& ConnectionString() const { return connectionText_; }
    /// The database file's path; empty when the file no longer stands there.
    QString FileName() const { return engine_->FileAt(path_); }

    const Engine& UsedEngine() const { return *engine_; }

    /// Runs a statement that reads, with the values bound to its "?" in order.
    Cursor Query(const QString& statement, const QVariantList& values = {});

    /// Runs a statement that changes data, with the values bound to its "?" in order, and returns the
    /// number of rows that it changed.
    int Execute(const QString& statement, const QVariantList& values = {});

    /// Told which row, by its place, breaks a rule of the schema.
    using RowRefused = std::function<void(qsizetype row, const DatabaseError& why)>;
    /// Runs one statement once for each row of bound values, all of one length: for work on many rows. A row
    /// that breaks a rule of the schema is told and left out where there is somebody to tell.
    void ExecuteMany(const QString& statement, const QList<QVariantList>& rows,
                     const RowRefused& refused = {});

    /// Runs a statement of the engine's own language: for the schema.
    void ExecuteNative(const QString& statement);
    Cursor QueryNative(const QString& statement);

    /// Runs work whose writes belong together: all of them, once it has returned, or none when it throws. It
    /// has the right to write from its first moment, so that what it reads cannot change before it is
    /// written. The engine may run it again from the start: it must have no effect outside the database
    /// before it has returned. Inside other such work it is a part of that. Returns what the work returns.
    template<class Work>
    auto InTransaction(Work&& work) -> std::invoke_result_t<Work&> {
        using Result = std::invoke_result_t<Work&>;
        if constexpr (std::is_void_v<Result>) {
            RunTransaction(work);
        } else {
            std::optional<Result> result;
            RunTransaction([&] { result.emplace(work()); });
            return *std::move(result);
        }
    }

    /// Differs from an earlier one when anything was written since, by this program or another. Reads no
    /// table.
    ChangeStamp Changes();

    /// How long statements wait for another program's lock before they fail; DefaultPatience at first.
    void SetPatience(std::chrono::milliseconds patience);
    /// Back to DefaultPatience, if the engine will.
    void RestorePatience() noexcept;

private:
    void RunTransaction(const std::function<void()>& work);
    QSqlQuery Prepared(const QString& nativeStatement);
    QSqlQuery Ran(const QString& nativeStatement, const QVariantList& values = {});
    void Run(QSqlQuery& query) const;

    std::unique_ptr<Engine> engine_;
    QString path_;
    QString connectionText_;
    QSqlDatabase database_;
    std::unique_ptr<QSqlQuery> foreignChanges_;
    qint64 ownChanges_ = 0;
    bool inTransaction_ = false;
};
