#include "core/settings.h"

#include "core/program_folder.h"
#include "database/database_file.h"
#include "support/test_company.h"

#include <QDir>

using namespace Qt::StringLiterals;
using b_global::ReadSetting;

namespace {

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

/// What stands after the data source, as the database's former engine needed it.
const QString Tail =
    u";Mode=Share Deny None;Extended Properties=\"\";Jet OLEDB:System database=\"\";Jet OLEDB:Registry Path=\"\";Jet OLEDB:Database Password=\"\";Jet OLEDB:Engine Type=4;Jet OLEDB:Database Locking Mode=0;Jet OLEDB:Global Partial Bulk Ops=2;Jet OLEDB:Global Bulk Transactions=1;Jet OLEDB:New Database Password=\"\";Jet OLEDB:Create System Database=False;Jet OLEDB:Encrypt Database=False;Jet OLEDB:Don't Copy Locale on Compact=False;Jet OLEDB:Compact Without Replica Repair=False;Jet OLEDB:SFP=False"_s;

} // namespace

TEST(Settings, TheFirstEntryOfTheKeyInSectionMainCounts) {
    const std::tuple<QByteArray, QString> cases[] = {
        {"[MAIN]\r\nSERVER=db1\r\n", u"db1"_s},
        {"  [main]  \n\t Server \t= \t db1 \t\n", u"db1"_s},
        {"\xEF\xBB\xBF[Main]\nserver=db1", u"db1"_s},
        {"[Main]\nserver=\"  db1 \"\n", u"  db1 "_s},
        {"[Main]\nserver='db1'\n", u"db1"_s},
        {"[Main]\nserver=\"db1\n", u"\"db1"_s},
        {"[Main]\nserver=\"\n", u"\""_s},
        {"[Main]\nserver=a=b ; c\n", u"a=b ; c"_s},
        {"[Main]\nserver=\nserver=db2\n", u""_s},
        {"[Main]\nserver=db1\nserver=db2\n", u"db1"_s},
        {"[Main]\n;server=old\nserver\nport=1\nserver=db1\n", u"db1"_s},
        {"[Other]\nserver=wrong\n[Main]\nserver=db1\n", u"db1"_s},
        {"[Main]\nport=1\n[Other]\nserver=wrong\n", u""_s},
        {"[Main]\nport=1\n[Main]\nserver=wrong\n", u""_s},
        {"server=wrong\n[Main]\nservers=wrong\nmy server=wrong\n", u""_s},
        {"[Main]\nserver=\xC3\xBC"
         "bung\n",
         u"übung"_s},
        {"", u""_s},
    };
    for (const auto& [text, value] : cases) {
        const QTemporaryDir folder;
        Write(folder.filePath(u"Setting.INI"_s), text);
        EXPECT_EQ(ReadSetting(ProgramFolder(folder.path()), u"server"_s), value) << text.toStdString();
    }
    const QTemporaryDir empty;
    EXPECT_EQ(ReadSetting(ProgramFolder(empty.path()), u"server"_s), QString());
}

TEST(ConnectionText, NamesTheDatabaseBesideTheProgramOrInTheFolderUi) {
    const QString head = u"Provider=Microsoft.Jet.OLEDB.4.0;User ID=Admin;Data Source="_s;
    const std::tuple<QString, QString> cases[] = {
        {u"prog;1/DATA.mdb"_s, u"\\DATA.mdb"_s},     {u"prog;1/data.mdb"_s, u"\\DATA.mdb"_s},
        {u"prog;1/Data.MDB"_s, u"\\DATA.mdb"_s},     {u"UI/DATA.mdb"_s, u"\\..\\UI\\DATA.mdb"_s},
        {u"ui/data.Mdb"_s, u"\\..\\UI\\DATA.mdb"_s},
    };
    for (const auto& [database, source] : cases) {
        SCOPED_TRACE(database.toStdString());
        const QTemporaryDir parent;
        QDir(parent.path()).mkdir(u"prog;1"_s);
        QDir(parent.path()).mkpath(database.section(u'/', 0, 0));
        const ProgramFolder folder(parent.filePath(u"prog;1/"_s));
        CreateDatabase(parent.filePath(database));
        Write(parent.filePath(u"prog;1/setting.ini"_s), "[Main]\nserver=has no effect\n");

        b_global::SharedConnection shared;
        TestDialogs dialogs;
        ASSERT_TRUE(b_global::OpenConnection(shared, folder, dialogs)) << dialogs.Last().toStdString();
        EXPECT_EQ(QFileInfo(shared.Get().FileName()), QFileInfo(parent.filePath(database)));
        EXPECT_EQ(shared.Get().ConnectionString(),
                  head + QDir::toNativeSeparators(parent.filePath(u"prog;1"_s)) + source + Tail);
    }
}

TEST(SharedConnection, IsOpenedOnce) {
    TestCompany company(TestCompany::Database::Closed);
    const auto open = [&] {
        return OpenConnection(company.database, company.program.folder, company.dialogs);
    };
    EXPECT_THROW(company.Db(), ProgramError);
    EXPECT_TRUE(open());
    const Connection* first = &company.Db();
    QFile::remove(company.DatabaseFile());
    EXPECT_TRUE(open());
    EXPECT_EQ(&company.Db(), first);
    EXPECT_TRUE(company.dialogs.texts.isEmpty());
}
