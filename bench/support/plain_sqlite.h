#pragma once

#include <sqlite3.h>

#include <QString>

#include <memory>
#include <string>

/// The plain C API, with no more around it than makes it close what it opened: the least work that the
/// program's own code is compared with. Failures throw std::runtime_error.
class PlainDatabase {
public:
    /// Opens an existing file for reading and writing.
    explicit PlainDatabase(const QString& path);

    /// Runs statements that return no rows.
    void Execute(const std::string& statements);

    /// Prepares the query, reads every column of every row as text and returns the number of rows.
    int ReadAll(const std::string& query);
    /// The same, but reads the first row only.
    int ReadFirst(const std::string& query);

    /// How many bytes of text were read: what was read must be used for something.
    size_t BytesRead() const { return bytesRead_; }

private:
    friend class PlainInsert;
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    Statement Prepare(const std::string& statement);
    bool Step(sqlite3_stmt* statement);
    void ReadColumns(sqlite3_stmt* statement);
    [[noreturn]] void Fail() const;

    std::unique_ptr<sqlite3, Close> database_;
    size_t bytesRead_ = 0;
};

/// A statement that is prepared once and run for many rows of texts and numbers.
class PlainInsert {
public:
    PlainInsert(PlainDatabase& database, const std::string& statement);

    /// Binds the values in order, an empty text as null, and runs the statement.
    template<class... Values>
    void Run(const Values&... values) {
        int position = 0;
        (Bind(++position, values), ...);
        Finish();
    }

private:
    void Bind(int position, const std::string& text);
    void Bind(int position, int number);
    void Finish();

    PlainDatabase& database_;
    PlainDatabase::Statement statement_;
};
