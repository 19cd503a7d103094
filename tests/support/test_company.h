#pragma once

#include "core/line_sink.h"
#include "core/program.h"
#include "database/connection.h"
#include "support/stand_ins.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// What is stored for a text: null for an empty one.
inline QVariant OrNull(const QString& text) {
    return text.isEmpty() ? QVariant() : QVariant(text);
}

/// A moment, from its stored form.
WallTime Moment(QStringView text);

QByteArray BytesOf(const QString& path);

/// A sink that keeps the lines of a print.
inline LineSink Into(QStringList& lines) {
    return [&lines](const QString& line) { lines << line; };
}

/// The rows that a query finds, the fields of a row joined by "|", null as "-".
QStringList RowsOf(Connection& connection, const QString& query);

/// A program folder with an empty database of its own, a clock at 2026-11-22 07:58:12 and dialogs that
/// remember. The shared connection is open from the start unless told otherwise; the login answers with
/// `login`.
class TestCompany {
public:
    enum class Database { Open, Closed };

    explicit TestCompany(Database state = Database::Open);

    /// The database as the program has it open.
    Connection& Db() { return program.Db(); }
    QString DatabaseFile() const { return folder.filePath(QStringLiteral("DATA.mdb")); }
    /// A second desk: a connection of its own to the same file.
    std::unique_ptr<Connection> OtherDesk() const;

    /// Adds an employee and the user of the same number with that password.
    void AddEmployee(const QString& nip, const QString& nama, const QString& password,
                     const QString& dept = {}, const QString& divisi = {});
    void AddUser(const QString& id, const QString& password, const QString& group = {});

    /// Runs a statement as the engine itself knows it.
    void Run(const QString& statement) { Db().ExecuteNative(statement); }
    /// Adds a card with one day. What is empty is stored as null.
    void AddCard(const QString& tcid, const QString& nip, const QString& status, const QString& day,
                 const QString& timeIn = {}, const QString& timeOut = {});
    void RemoveCards();
    QStringList RowsOf(const QString& query) { return ::RowsOf(Db(), query); }
    /// The lines of the report file.
    QStringList ReportLines() const;

    QTemporaryDir folder;
    TestClock clock;
    TestDialogs dialogs;
    modGeneral::ErrorLog log;
    b_global::SharedConnection database;
    /// What the login window hands back.
    QString login = QStringLiteral("<CANCEL>");
    /// The report files that the user was shown.
    QStringList shownReports;
    Program program;
};

/// Tests that each work in a company of their own.
class CompanyTest : public testing::Test, public TestCompany {
protected:
    using TestCompany::Run;
};
