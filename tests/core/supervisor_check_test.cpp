#include "core/supervisor_check.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;
using Icon = Dialogs::Icon;

TEST(AskAdminPass, PassesOnlyASupervisor) {
    const QString wrong = u"Password/Username salah."_s;
    const QString notEntered = u"Login tidak diisi.."_s;
    const QString onlySupervisors = u"Hanya level supervisor / SPV.\nLihat [User Job]..."_s;
    const std::tuple<QString, bool, QString, Icon> cases[] = {
        {u"pelon~Rahasia~22-Nov-26"_s, true, {}, {}},
        {u"pelon~Rahasia~"_s, true, {}, {}},
        {u"pelon~Rahasia~x~22-Nov-26"_s, true, {}, {}}, // what follows the second "~" does not count
        {u"pelon~rahasia~22-Nov-26"_s, false, wrong, Icon::Exclamation},
        {u"Pelon~Rahasia~22-Nov-26"_s, false, wrong, Icon::Exclamation},
        {u"pelon~~22-Nov-26"_s, false, wrong, Icon::Exclamation},
        {u"pelon~x~Rahasia~22-Nov-26"_s, false, wrong, Icon::Exclamation},
        {u"~~22-Nov-26"_s, false, wrong, Icon::Exclamation},
        {u"tanpa~~22-Nov-26"_s, false, wrong, Icon::Exclamation}, // a user without a password
        {u"kasir~kasir~22-Nov-26"_s, false, onlySupervisors, Icon::Information},
        {u"budi~budi~22-Nov-26"_s, false, onlySupervisors, Icon::Information},
        {u"<CANCEL>"_s, false, notEntered, Icon::Exclamation},
        {u""_s, false, notEntered, Icon::Exclamation},
        {u"pelon~Rahasia"_s, false, notEntered, Icon::Exclamation},
    };
    TestCompany company;
    company.AddUser(u"pelon"_s, u"Rahasia"_s, u"SPV"_s);
    company.AddUser(u"kasir"_s, u"kasir"_s, u"KAS"_s);
    company.AddUser(u"budi"_s, u"budi"_s);
    company.AddUser(u"tanpa"_s, QString(), u"SPV"_s);
    for (const auto& [login, passes, message, icon] : cases) {
        SCOPED_TRACE(login.toStdString());
        company.login = login;
        company.dialogs = {};
        EXPECT_EQ(modGeneral::AskAdminPass(company.program), passes);
        EXPECT_EQ(company.dialogs.texts, passes ? QStringList() : QStringList{message});
        EXPECT_EQ(company.dialogs.icons, passes ? std::vector<Icon>() : std::vector{icon});
    }
    EXPECT_FALSE(QFile::exists(company.folder.filePath(u"VELTLOG.TXT"_s)));
}

TEST(AskAdminPass, AFailureIsLoggedShownAndRefuses) {
    const std::tuple<const char*, QString, QString, QString> cases[] = {
        {"typed quote", u"' or '1'='1~x~d"_s, {}, u"tanda kutip"_s},
        {"no table of users", u"pelon~Rahasia~d"_s, u"DROP TABLE [User]"_s, u"no such table: User"_s},
        {"no table of roles", u"pelon~Rahasia~d"_s, u"DROP TABLE User_Job"_s, u"no such table: User_Job"_s},
    };
    for (const auto& [what, login, statement, shown] : cases) {
        SCOPED_TRACE(what);
        TestCompany company;
        company.AddUser(u"pelon"_s, u"Rahasia"_s, u"SPV"_s);
        if (!statement.isEmpty())
            company.Db().ExecuteNative(statement);
        company.login = login;
        EXPECT_FALSE(modGeneral::AskAdminPass(company.program));
        EXPECT_TRUE(company.dialogs.Last().contains(shown)) << company.dialogs.Last().toStdString();
        QFile log(company.folder.filePath(u"VELTLOG.TXT"_s));
        ASSERT_TRUE(log.open(QIODevice::ReadOnly));
        const QString line = QString::fromUtf8(log.readAll()).trimmed();
        EXPECT_TRUE(line.contains(shown));
        EXPECT_TRUE(line.endsWith(u"~Module Name: VELT~Sub/Function: AskAdminPass~"_s)) << line.toStdString();
    }
    TestCompany unconnected(TestCompany::Database::Closed);
    unconnected.login = u"pelon~Rahasia~d"_s;
    EXPECT_FALSE(modGeneral::AskAdminPass(unconnected.program));
    EXPECT_EQ(unconnected.dialogs.texts, QStringList{u"Koneksi database belum dibuka."_s});
}
