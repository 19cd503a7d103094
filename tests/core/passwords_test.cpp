#include "core/passwords.h"

#include "core/password_attempts.h"
#include "core/supervisor_check.h"

#include "support/test_company.h"

using namespace Qt::StringLiterals;

TEST(Passwords, AHashKeepsBothComparisons) {
    const QString password = u"Rahasia Négara'1"_s;
    const QString stored = Passwords::Hashed(password);
    EXPECT_FALSE(stored.contains(u"rahasia"_s, Qt::CaseInsensitive));
    EXPECT_NE(stored, Passwords::Hashed(password)) << "a salt of its own";
    const std::tuple<QString, bool, bool> cases[] = {{password, true, true},
                                                     {password.toUpper(), false, true},
                                                     {password.toLower(), false, true},
                                                     {password + u' ', false, false},
                                                     {u""_s, false, false},
                                                     {stored, false, false}};
    for (const auto& [typed, exactly, anyCase] : cases) {
        EXPECT_EQ(Passwords::MatchesExactly(typed, stored), exactly) << typed.toStdString();
        EXPECT_EQ(Passwords::MatchesAnyCase(typed, stored), anyCase) << typed.toStdString();
    }
    // What is not whole matches nothing.
    for (const QString& broken : {stored.left(60), u"sandi2:"_s, u"sandi2:|"_s}) {
        EXPECT_FALSE(Passwords::MatchesExactly(u""_s, broken));
        EXPECT_FALSE(Passwords::MatchesAnyCase(password, broken));
    }
}

TEST(PasswordAttempts, FiveWrongOnesWithinAMinuteWaitHalfAMinute) {
    TestCompany company;
    company.AddUser(u"pelon"_s, Passwords::Hashed(u"Pelon"_s), u"SPV"_s);
    const auto tried = [&company](const QString& password) {
        company.login = u"pelon~"_s + password + u"~22-Nov-26"_s;
        const bool passed = modGeneral::AskAdminPass(company.program);
        return passed ? u"passed"_s : company.dialogs.Last().section(u'\n', -1);
    };
    const QString wrong = u"Password/Username salah."_s;
    // Seconds since the one before, the password, and what comes of it.
    const std::tuple<int, QString, QString> attempts[] = {
        {0, u"pelon"_s, wrong},
        {5, u"a"_s, wrong},
        {5, u"Pelon"_s, u"passed"_s},
        {1, u"a"_s, wrong},
        {15, u"b"_s, wrong},
        {15, u"c"_s, wrong},
        {15, u"d"_s, wrong},
        {15, u"e"_s, wrong}, // a minute since the first
        {5, u"f"_s, wrong},
        {4, u"Pelon"_s, u"Tunggu 26 detik, lalu coba lagi."_s},
        {25, u"Pelon"_s, u"Tunggu 1 detik, lalu coba lagi."_s},
        {1, u"Pelon"_s, u"passed"_s},
    };
    for (const auto& [seconds, password, outcome] : attempts) {
        company.clock.now += Seconds{seconds};
        EXPECT_EQ(tried(password), outcome) << password.toStdString();
    }
    EXPECT_TRUE(company.program.passwordAttempts.WaitText(u"budi"_s, company.clock.now).isNull());
}
