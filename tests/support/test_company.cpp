#include "support/test_company.h"

#include "database/database_file.h"

#include <QFile>

using namespace Qt::StringLiterals;

WallTime Moment(QStringView text) {
    const std::optional<WallTime> time = ReadStored(text);
    EXPECT_TRUE(time.has_value()) << "no stored form: " << text.toString().toStdString();
    return time.value_or(EmptyTime);
}

TestCompany::TestCompany(Database state)
    : clock(Moment(u"2026-11-22 07:58:12")),
      log(folder.filePath(u"VELTLOG.TXT"_s)), program{ProgramFolder(folder.path()),
                                                      clock,
                                                      dialogs,
                                                      log,
                                                      database,
                                                      [this](LoginHandOver& channel) { channel.Put(login); },
                                                      [this](const QString& path) { shownReports << path; }} {
    CreateDatabase(DatabaseFile());
    if (state == Database::Open) {
        EXPECT_TRUE(b_global::OpenConnection(database, program.folder, dialogs));
    }
}

std::unique_ptr<Connection> TestCompany::OtherDesk() const {
    return OpenDatabaseFile(DatabaseFile());
}

void TestCompany::AddEmployee(const QString& nip, const QString& nama, const QString& password,
                              const QString& dept, const QString& divisi) {
    Db().Execute(u"INSERT INTO Employee (NIP, Nama, Dept, Divisi) VALUES (?,?,?,?)"_s,
                 {nip, nama, dept, divisi});
    AddUser(nip, password);
}

void TestCompany::AddUser(const QString& id, const QString& password, const QString& group) {
    Db().Execute(u"INSERT INTO [User] (UserID, [Password]) VALUES (?,?)"_s, {id, password});
    if (!group.isEmpty())
        Db().Execute(u"INSERT INTO User_Job (UserID, GroupID) VALUES (?,?)"_s, {id, group});
}

void TestCompany::AddCard(const QString& tcid, const QString& nip, const QString& status, const QString& day,
                          const QString& timeIn, const QString& timeOut) {
    Db().Execute(u"INSERT INTO TimeCardHeader (TCID,NIP,Status) VALUES (?,?,?)"_s,
                 {tcid, nip, OrNull(status)});
    Db().Execute(u"INSERT INTO TimeCardDetail (TCID,Tanggal,TimeIN,TimeOUT) VALUES (?,?,?,?)"_s,
                 {tcid, day, OrNull(timeIn), OrNull(timeOut)});
}

void TestCompany::RemoveCards() {
    Run(u"DELETE FROM TimeCardHeader"_s);
    Run(u"DELETE FROM TimeCardDetail"_s);
}

QStringList TestCompany::ReportLines() const {
    return QString::fromUtf8(BytesOf(folder.filePath(u"PRINT.TXT"_s))).split(u"\r\n"_s);
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QStringList RowsOf(Connection& connection, const QString& query) {
    Cursor rows = connection.Query(query);
    const int columns = static_cast<int>(rows.ColumnNames().size());
    QStringList found;
    while (rows.Next()) {
        QStringList fields;
        for (int i = 0; i < columns; ++i)
            fields << (rows.Value(i).IsNull() ? u"-"_s : rows.Text(i));
        found << fields.join(u'|');
    }
    return found;
}
