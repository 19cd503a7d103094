#include "database/database_file.h"
#include "support/failures.h"
#include "support/test_company.h"

#include <QDir>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray DatabaseWithManyRows() {
    TestCompany company;
    QList<QVariantList> rows;
    for (int i = 0; i < 500; ++i)
        rows << QVariantList{QString::number(i), QString(60, u'x')};
    company.Db().InTransaction(
        [&] { company.Db().ExecuteMany(u"INSERT INTO Division (DivKode,DivName) VALUES (?,?)"_s, rows); });
    return BytesOf(company.DatabaseFile());
}

QByteArray ForeignDatabase() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"other.db"_s);
    Write(path, {});
    ConnectToFile(path)->ExecuteNative(u"CREATE TABLE Employee (NIP)"_s);
    return BytesOf(path);
}

#ifndef Q_OS_WIN
/// The rights of a plain user, even where the tests run as root.
class PlainUser {
public:
    PlainUser() { EXPECT_TRUE(geteuid() != 0 || seteuid(65534) == 0); }
    ~PlainUser() { EXPECT_EQ(seteuid(getuid()), 0); }
    PlainUser(const PlainUser&) = delete;
    PlainUser& operator=(const PlainUser&) = delete;
};
#endif

} // namespace

TEST(DatabaseFile, WhatIsNoDatabaseOfOursIsRefusedUntouched) {
    const QByteArray whole = DatabaseWithManyRows();
    ASSERT_GT(whole.size(), 50'000);
    QByteArray newer = whole;
    newer[63] = 9; // the last byte of the version number in the file's header
    const std::tuple<const char*, QByteArray, QString> cases[] = {
        {"an empty file", {}, u"bukan database absensi (atau masih kosong)"_s},
        {"a text", QByteArray("no database ").repeated(100), u"File ini bukan database."_s},
        {"another program's database", ForeignDatabase(), u"bukan database absensi (atau masih kosong)"_s},
        {"half a database", whole.first(whole.size() / 2), u"rusak atau terpotong"_s},
        {"a database without its last bytes", whole.chopped(100), u"rusak atau terpotong"_s},
        {"a database of a newer program", newer, u"program yang lebih baru (versi 9;"_s},
    };
    for (const auto& [what, bytes, message] : cases) {
        SCOPED_TRACE(what);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"DATA.mdb"_s);
        Write(path, bytes);
        const QString failure = FailureOf([&] { OpenDatabaseFile(path); });
        EXPECT_TRUE(failure.contains(message)) << failure.toStdString();
        EXPECT_EQ(BytesOf(path), bytes);
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"DATA.mdb"_s});
    }
}

TEST(DatabaseFile, AMissingFileIsNeverMadeByOpening) {
    const QTemporaryDir folder;
    for (const auto& name : {u"DATA.mdb"_s, u"tidak ada/DATA.mdb"_s}) {
        const QString failure = FailureOf([&] { OpenDatabaseFile(folder.filePath(name)); });
        EXPECT_TRUE(failure.startsWith(u"File database tidak ditemukan: "_s
                                       + QDir::toNativeSeparators(folder.filePath(name))));
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
    QDir(folder.path()).mkdir(u"DATA.mdb"_s); // a folder is no file
    EXPECT_TRUE(
        FailureOf([&] { OpenDatabaseFile(folder.filePath(u"DATA.mdb"_s)); }).contains(u"tidak ditemukan"));
}

TEST(DatabaseFile, MakingOneNeverOverwrites) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"DATA.mdb"_s);
    Write(path, "something of value");
    EXPECT_THROW(CreateDatabase(path), ProgramError);
    EXPECT_EQ(BytesOf(path), "something of value");
    EXPECT_THROW(CreateDatabase(folder.filePath(u"tidak ada/DATA.mdb"_s)), ProgramError);
}

TEST(DatabaseFile, ALockedOneIsToldAndOpensWhenTheLockIsGone) {
    const TestCompany company(TestCompany::Database::Closed);
    const auto other = company.OtherDesk();
    const QByteArray before = BytesOf(company.DatabaseFile());
    other->ExecuteNative(u"BEGIN EXCLUSIVE"_s);
    const QString failure = FailureOf([&] { company.OtherDesk(); });
    EXPECT_TRUE(failure.startsWith(u"Database sedang dikunci oleh program lain."_s)) << failure.toStdString();
    EXPECT_TRUE(failure.endsWith(u"DATA.mdb"_s));
    other->ExecuteNative(u"ROLLBACK"_s);
    EXPECT_EQ(BytesOf(company.DatabaseFile()), before);
    EXPECT_EQ(FailureOf([&] { company.OtherDesk(); }), QString());
}

#ifndef Q_OS_WIN
TEST(DatabaseFile, AReadOnlyOneIsTold) {
    const TestCompany company(TestCompany::Database::Closed);
    const QByteArray before = BytesOf(company.DatabaseFile());
    const auto readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto enterable = readable | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    const auto writable = readable | QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    const std::tuple<const char*, QFile::Permissions, QString> cases[] = {
        {"the file", readable, u"Database hanya dapat dibaca, tidak dapat ditulis."_s},
        {"its folder", writable, u"Database hanya dapat dibaca, tidak dapat ditulis."_s},
        {"neither to be read", {}, u"File database tidak dapat dibuka."_s},
    };
    for (const auto& [what, rights, message] : cases) {
        QFile::setPermissions(company.DatabaseFile(), rights);
        QFile::setPermissions(company.folder.path(), enterable);
        const PlainUser user;
        const QString failure = FailureOf([&] { company.OtherDesk(); });
        EXPECT_TRUE(failure.contains(message)) << what << ": " << failure.toStdString();
    }
    QFile::setPermissions(company.folder.path(), enterable | QFile::WriteOwner);
    QFile::setPermissions(company.DatabaseFile(), writable);
    EXPECT_EQ(BytesOf(company.DatabaseFile()), before);
}
#endif

TEST(DatabaseFile, FoldersMayHaveAnyName) {
    QStringList names{u"a b"_s, u"a;b"_s, u"a#b"_s, u"100%25"_s, u"a&mode=ro"_s, u"Jl. Übung 工場"_s,
                      u"it's"_s};
#ifndef Q_OS_WIN
    names << u"a?mode=memory"_s << u"a\"b"_s << u"file:x"_s;
#endif
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QTemporaryDir parent;
        QDir(parent.path()).mkdir(name);
        const QString path = parent.filePath(name) + u"/DATA.mdb"_s;
        CreateDatabase(path);
        OpenDatabaseFile(path)->Execute(u"INSERT INTO Division (DivKode) VALUES ('A')"_s);
        const auto again = OpenDatabaseFile(parent.filePath(name) + u"/data.MDB"_s);
        EXPECT_EQ(again->FileName(), path);
        EXPECT_TRUE(again->Query(u"select DivKode from Division"_s).Next());
        EXPECT_EQ(QDir(parent.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{name});
    }
}
