#include "core/start_up.h"

#include "database/database_file.h"

#include "support/test_company.h"

#include <QDir>

using namespace Qt::StringLiterals;
using modAbsen::Background;

namespace {

/// Keeps in order what the start-up routine did.
class FakeScreen : public modAbsen::StartScreen {
public:
    void SetHourglass(bool on) override { events << (on ? u"hourglass"_s : u"arrow"_s); }
    void LoadPicture(Background which, const QString& path) override {
        static const QStringList names{u"big"_s, u"small"_s, u"middle"_s, u"plain"_s};
        events << names[static_cast<int>(which)] + u' ' + QFileInfo(path).fileName();
        if (!QFile::exists(path))
            throw ProgramError(53, u"tidak ada: "_s + path);
    }

    QStringList events;
};

class StartUp : public testing::Test {
protected:
    StartUp() {
        QDir(company.folder.path()).mkdir(u"images"_s);
        for (const auto& name :
             {u"back_big.gif"_s, u"Back_Litle.GIF"_s, u"back_midle.gif"_s, u"back.gif"_s}) {
            QFile picture(company.folder.filePath(u"images/"_s + name));
            EXPECT_TRUE(picture.open(QIODevice::WriteOnly));
        }
    }

    bool Start(const QString& country) {
        return modAbsen::InitApplication(company.program, screen, [this, country] {
            screen.events << (company.database.Exists() ? u"country, connected"_s : u"country"_s);
            return country;
        });
    }

    const QStringList pictures{u"hourglass"_s, u"big back_big.gif"_s, u"small Back_Litle.GIF"_s,
                               u"middle back_midle.gif"_s, u"plain back.gif"_s};
    TestCompany company{TestCompany::Database::Closed};
    FakeScreen screen;
};

} // namespace

TEST_F(StartUp, PicturesThenCountryThenConnection) {
    EXPECT_TRUE(Start(u"United States"_s));
    EXPECT_EQ(screen.events, pictures + QStringList({u"country"_s, u"arrow"_s}));
    EXPECT_TRUE(company.database.Exists());
    EXPECT_EQ(company.dialogs.texts, QStringList());
}

TEST_F(StartUp, WhateverFailsIsToldOnceAndEndsTheStart) {
    const QString noDatabase = u"File database tidak ditemukan: "_s;
    const QString abroad =
        u"Regional setting harus English (United Stated)\nTolong buka Control Panel window."_s;
    const QString noPicture = u"tidak ada: "_s + company.folder.filePath(u"images/back_midle.gif"_s);
    // The country, the file that is missing, the message, its icon, the last thing done and whether it is
    // logged.
    const std::tuple<QString, QString, QString, Dialogs::Icon, QString, bool> cases[] = {
        {u"Indonesia"_s, {}, abroad, Dialogs::Icon::Exclamation, u"country"_s, false},
        {u"UNITED STATES"_s, u"DATA.mdb"_s, noDatabase, Dialogs::Icon::None, u"country"_s, false},
        {u"Indonesia"_s, u"images/back_midle.gif"_s, noPicture, Dialogs::Icon::None, u"middle"_s, true},
    };
    for (const auto& [country, missing, message, icon, last, logged] : cases) {
        SCOPED_TRACE(message.toStdString());
        QFile::remove(company.folder.filePath(missing));
        company.dialogs = {};
        EXPECT_FALSE(Start(country));
        EXPECT_FALSE(company.database.Exists());
        EXPECT_EQ(screen.events.last(), u"arrow"_s);
        EXPECT_TRUE(screen.events.at(screen.events.size() - 2).startsWith(last));
        EXPECT_EQ(company.dialogs.icons, std::vector{icon});
        EXPECT_TRUE(company.dialogs.Last().startsWith(message)) << company.dialogs.Last().toStdString();
        EXPECT_TRUE(missing.isEmpty() || company.dialogs.Last().contains(missing.section(u"/"_s, -1)));
        EXPECT_EQ(QFile::exists(company.folder.filePath(u"VELTLOG.TXT"_s)), logged);
    }
}

TEST_F(StartUp, TheSettingsMayLetAnyCountryPass) {
    const std::pair<QByteArray, bool> cases[] = {{"any", true}, {"Any", true}, {"", false}, {"id", false}};
    for (const auto& [value, passes] : cases) {
        QFile settings(company.folder.filePath(u"setting.ini"_s));
        ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("[Main]\nregional=" + value + '\n');
        settings.close();
        EXPECT_EQ(Start(u"Indonesia"_s), passes) << value.toStdString();
    }
}

#ifndef Q_OS_WIN
TEST(RegionalSetting, NumbersAndTimesTellTheCountryNotTheLanguageOfMessages) {
    const std::pair<QMap<QByteArray, QByteArray>, bool> cases[] = {
        {{{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "id"}}, true},
        {{{"LANG", "en_US.UTF-8"}, {"LC_MESSAGES", "id_ID.UTF-8"}}, true},
        {{{"LANG", "id_ID"}, {"LANGUAGE", "en_US"}}, false},
        {{{"LANG", "id_ID"}, {"LC_NUMERIC", "en_US"}, {"LC_TIME", "en_US"}}, true},
        {{{"LANG", "id_ID"}, {"LC_TIME", "en_US"}}, true},
        {{{"LC_NUMERIC", "en_US"}, {"LC_TIME", "id_ID"}}, false},
        {{{"LC_NUMERIC", "id_ID"}, {"LC_TIME", "en_US"}}, false},
        {{{"LC_ALL", "en_US"}, {"LC_NUMERIC", "id_ID"}, {"LANG", "id_ID"}}, true},
        {{{"LC_ALL", "id_ID"}, {"LANG", "en_US"}}, false},
        {{{"LANG", "es_US.UTF-8@euro"}}, true},
        {{{"LANG", "en_ID"}}, false},
        {{{"LANG", "en"}}, false},
        {{{"LANG", "C.UTF-8"}}, false},
        {{}, false},
    };
    const QByteArrayList names{"LC_ALL", "LC_NUMERIC", "LC_TIME", "LC_MESSAGES", "LANG", "LANGUAGE"};
    QMap<QByteArray, QByteArray> usual;
    for (const QByteArray& name : names)
        usual[name] = qgetenv(name);
    const auto set = [&](const QMap<QByteArray, QByteArray>& values) {
        for (const QByteArray& name : names)
            values.value(name).isEmpty() ? qunsetenv(name) : qputenv(name, values.value(name));
    };
    for (const auto& [values, passes] : cases) {
        set(values);
        EXPECT_EQ(b_WinControlPanel::IsRegionalSettingUS(), passes)
            << (values.keys().join(',') + " = " + values.values().join(',')).toStdString();
    }
    set(usual);
}
#endif

TEST(RegionalSetting, OnlyTheUnitedStatesInAnyLetterCase) {
    const std::pair<QString, bool> cases[] = {
        {u"United States"_s, true},      {u"UNITED STATES"_s, true},   {u"united states"_s, true},
        {u"United States\0\0x"_s, true}, {u"Indonesia"_s, false},      {u""_s, false},
        {u"United States "_s, false},    {u"United Kingdom"_s, false}, {u"United States of America"_s, false},
        {u"\0United States"_s, false}};
    for (const auto& [country, passes] : cases)
        EXPECT_EQ(b_WinControlPanel::IsRegionalSettingUS(country), passes) << country.toStdString();
}

TEST_F(StartUp, OffersToSetUpWhereNoCompanyIsFound) {
    const struct {
        const char* what;
        bool hasFile;
        bool hasSupervisor;
        bool setsUp;
        int asked;
        bool starts;
    } cases[] = {
        {"a company", true, true, true, 0, true},
        {"no supervisor", true, false, true, 1, true},
        {"no supervisor, left", true, false, false, 1, false},
        {"no file, left", false, false, false, 1, false},
        {"no file", false, false, true, 1, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        TestCompany other(TestCompany::Database::Closed);
        QDir(other.folder.path()).mkdir(u"images"_s);
        for (const QString& picture : {u"back_big"_s, u"back_litle"_s, u"back_midle"_s, u"back"_s})
            QFile::copy(company.folder.filePath(u"images/back.gif"_s),
                        other.folder.filePath(u"images/%1.gif"_s.arg(picture)));
        const auto appoint = [&] {
            const auto db = other.OtherDesk();
            db->Execute(u"insert into [User] values ('bos','x')"_s);
            db->Execute(u"insert into User_Job values ('bos','SPV')"_s);
        };
        if (c.hasSupervisor)
            appoint();
        if (!c.hasFile)
            QFile::remove(other.DatabaseFile());
        int asked = 0;
        const bool started = modAbsen::InitApplication(
            other.program, screen, [] { return u"United States"_s; },
            [&] {
                ++asked;
                if (c.setsUp && !c.hasFile)
                    CreateDatabase(other.DatabaseFile());
                if (c.setsUp)
                    appoint();
                return c.setsUp;
            });
        EXPECT_EQ(std::tie(asked, started), std::tie(c.asked, c.starts));
        EXPECT_EQ(other.dialogs.texts, QStringList());
    }
}
