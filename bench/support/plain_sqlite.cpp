#include "support/plain_sqlite.h"

#include <stdexcept>

PlainDatabase::PlainDatabase(const QString& path) {
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &database, SQLITE_OPEN_READWRITE, nullptr);
    database_.reset(database);
    if (code != SQLITE_OK)
        Fail();
    sqlite3_busy_timeout(database, 2000);
}

void PlainDatabase::Execute(const std::string& statements) {
    if (sqlite3_exec(database_.get(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        Fail();
}

int PlainDatabase::ReadAll(const std::string& query) {
    const Statement statement = Prepare(query);
    int rows = 0;
    for (; Step(statement.get()); ++rows)
        ReadColumns(statement.get());
    return rows;
}

int PlainDatabase::ReadFirst(const std::string& query) {
    const Statement statement = Prepare(query);
    if (!Step(statement.get()))
        return 0;
    ReadColumns(statement.get());
    return 1;
}

PlainDatabase::Statement PlainDatabase::Prepare(const std::string& statement) {
    sqlite3_stmt* prepared = nullptr;
    const auto length = static_cast<int>(statement.size());
    if (sqlite3_prepare_v2(database_.get(), statement.c_str(), length, &prepared, nullptr) != SQLITE_OK)
        Fail();
    return Statement(prepared);
}

bool PlainDatabase::Step(sqlite3_stmt* statement) {
    const int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        Fail();
    return code == SQLITE_ROW;
}

void PlainDatabase::ReadColumns(sqlite3_stmt* statement) {
    const int columns = sqlite3_column_count(statement);
    for (int i = 0; i < columns; ++i) {
        if (sqlite3_column_text(statement, i))
            bytesRead_ += static_cast<size_t>(sqlite3_column_bytes(statement, i));
    }
}

void PlainDatabase::Fail() const {
    throw std::runtime_error(sqlite3_errmsg(database_.get()));
}

PlainInsert::PlainInsert(PlainDatabase& database, const std::string& statement)
    : database_(database), statement_(database.Prepare(statement)) {}

void PlainInsert::Bind(int position, const std::string& text) {
    const int code = text.empty() ? sqlite3_bind_null(statement_.get(), position)
                                  : sqlite3_bind_text(statement_.get(), position, text.data(),
                                                      static_cast<int>(text.size()), SQLITE_STATIC);
    if (code != SQLITE_OK)
        database_.Fail();
}

void PlainInsert::Bind(int position, int number) {
    if (sqlite3_bind_int(statement_.get(), position, number) != SQLITE_OK)
        database_.Fail();
}

void PlainInsert::Finish() {
    database_.Step(statement_.get());
    if (sqlite3_reset(statement_.get()) != SQLITE_OK)
        database_.Fail();
}
