#include "database/connection.h"

Connection::Connection(std::unique_ptr<Engine> engine, const QString& path, const QString& connectionText)
    : engine_(std::move(engine)), path_(path), connectionText_(connectionText),
      database_(engine_->Open(path)) {}

Connection::~Connection() {
    const QString name = database_.connectionName();
    foreignChanges_.reset();
    database_.close();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
}

Cursor Connection::Query(const QString& statement, const QVariantList& values) {
    return Cursor(Ran(engine_->Translate(statement), values), *engine_);
}

int Connection::Execute(const QString& statement, const QVariantList& values) {
    const QSqlQuery query = Ran(engine_->Translate(statement), values);
    ++ownChanges_;
    return query.numRowsAffected();
}

void Connection::ExecuteMany(const QString& statement, const QList<QVariantList>& rows,
                             const RowRefused& refused) {
    QSqlQuery query = Prepared(engine_->Translate(statement));
    for (qsizetype row = 0; row < rows.size(); ++row) {
        for (qsizetype i = 0; i < rows[row].size(); ++i)
            query.bindValue(static_cast<int>(i), rows[row][i]);
        try {
            Run(query);
            ++ownChanges_; // the rows before one that fails are written
        } catch (const DatabaseError& why) {
            if (!refused || why.Kind() != ErrorKind::Constraint)
                throw;
            refused(row, why);
        }
    }
}

void Connection::ExecuteNative(const QString& statement) {
    Ran(statement);
    ++ownChanges_;
}

Cursor Connection::QueryNative(const QString& statement) {
    return Cursor(Ran(statement), *engine_);
}

ChangeStamp Connection::Changes() {
    if (!foreignChanges_)
        foreignChanges_ = std::make_unique<QSqlQuery>(Prepared(engine_->ForeignChangesQuery()));
    Run(*foreignChanges_);
    const qint64 ofOthers = foreignChanges_->next() ? foreignChanges_->value(0).toLongLong() : -1;
    foreignChanges_->finish();
    return {ofOthers, ownChanges_};
}

void Connection::RunTransaction(const std::function<void()>& work) {
    if (inTransaction_)
        return work();
    ExecuteNative(engine_->BeginStatement());
    inTransaction_ = true;
    auto rollBack = qScopeGuard([this] {
        inTransaction_ = false;
        ++ownChanges_; // what was read inside is no longer so
        // The engine itself takes a transaction back that cannot be finished; then this statement fails,
        // rightly.
        QSqlQuery query(database_);
        query.exec(engine_->RollbackStatement());
    });
    work();
    ExecuteNative(engine_->CommitStatement());
    inTransaction_ = false;
    rollBack.dismiss();
}

void Connection::RestorePatience() noexcept {
    QSqlQuery query(database_);
    query.exec(engine_->PatienceStatement(DefaultPatience));
}

void Connection::SetPatience(std::chrono::milliseconds patience) {
    Ran(engine_->PatienceStatement(patience));
}

QSqlQuery Connection::Prepared(const QString& nativeStatement) {
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    if (!query.prepare(nativeStatement))
        throw DatabaseError(engine_->Describe(query.lastError()));
    return query;
}

QSqlQuery Connection::Ran(const QString& nativeStatement, const QVariantList& values) {
    QSqlQuery query = Prepared(nativeStatement);
    for (const QVariant& value : values)
        query.addBindValue(value);
    Run(query);
    return query;
}

void Connection::Run(QSqlQuery& query) const {
    if (!query.exec())
        throw DatabaseError(engine_->Describe(query.lastError()));
}
