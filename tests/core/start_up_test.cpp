#include "core/start_up.h"

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

TEST_F(StartUp, AnotherCountryIsToldAndNoDatabaseOpened) {
    EXPECT_FALSE(Start(u"Indonesia"_s));
    EXPECT_EQ(screen.events, pictures + QStringList({u"country"_s, u"arrow"_s}));
    EXPECT_FALSE(company.database.Exists());
    EXPECT_EQ(
        company.dialogs.texts,
        QStringList{u"Regional setting harus English (United Stated)\nTolong buka Control Panel window."_s});
    EXPECT_EQ(company.dialogs.icons, std::vector{Dialogs::Icon::Exclamation});
    EXPECT_FALSE(QFile::exists(company.folder.filePath(u"VELTLOG.TXT"_s)));
}

TEST_F(StartUp, AMissingPictureIsNamedAndEndsTheStart) {
    QFile::remove(company.folder.filePath(u"images/back_midle.gif"_s));
    EXPECT_FALSE(Start(u"United States"_s));
    EXPECT_EQ(screen.events.size(), 5);
    EXPECT_EQ(screen.events.last(), u"arrow"_s);
    EXPECT_FALSE(company.database.Exists());
    EXPECT_EQ(company.dialogs.texts,
              QStringList{u"tidak ada: "_s + company.program.folder.Joined(u"\\images\\back_midle.gif")});
    EXPECT_TRUE(QFile::exists(company.folder.filePath(u"VELTLOG.TXT"_s)));
}

TEST_F(StartUp, AFailingConnectionIsToldAndRefuses) {
    QFile::remove(company.DatabaseFile());
    EXPECT_FALSE(Start(u"United States"_s));
    EXPECT_EQ(screen.events.last(), u"arrow"_s);
    EXPECT_EQ(company.dialogs.texts.size(), 1);
    EXPECT_TRUE(company.dialogs.Last().startsWith(u"File database tidak ditemukan: "_s));
}

TEST(RegionalSetting, OnlyTheUnitedStatesInAnyLetterCase) {
    const std::pair<QString, bool> cases[] = {
        {u"United States"_s, true},      {u"UNITED STATES"_s, true},   {u"united states"_s, true},
        {u"United States\0\0x"_s, true}, {u"Indonesia"_s, false},      {u""_s, false},
        {u"United States "_s, false},    {u"United Kingdom"_s, false}, {u"United States of America"_s, false},
        {u"\0United States"_s, false}};
    for (const auto& [country, passes] : cases)
        EXPECT_EQ(b_WinControlPanel::IsRegionalSettingUS(country), passes) << country.toStdString();
}
