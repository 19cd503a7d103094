#include "shell/frmSetting.h"

#include "support/window_company.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

namespace {

/// The window with windows that do nothing but open.
class Hub : public WindowFixture {
public:
    Hub() {
        SettingNeeds needs{.browser = Maker(u"browser"_s),
                           .roster = Maker(u"roster"_s),
                           .shiftCodes = Maker(u"shiftCodes"_s),
                           .search = Maker(u"search"_s),
                           .masterData = Maker(u"masterData"_s),
                           .companySettings = Maker(u"settings"_s),
                           .setAdminMode = [this](bool on) { adminMode << on; }};
        setting = std::make_unique<frmSetting>(std::move(needs), skin, nullptr);
    }
    SettingNeeds::MakeWindow Maker(const QString& name) {
        return [this, name](QWidget* over) {
            made << name;
            auto window = std::make_unique<QDialog>(over);
            window->setObjectName(name);
            return window;
        };
    }
    /// Opens the window, does the work in it and leaves it with Esc.
    void Open(const Work& work) { WindowFixture::Open(*setting, work); }

    std::unique_ptr<frmSetting> setting;
    QStringList made;
    QList<bool> adminMode;
};

} // namespace

TEST(frmSetting, EachEntryOpensItsWindowTheSameEveryTime) {
    Hub hub;
    for (int time = 1; time <= 2; ++time) {
        hub.Open([&](QWidget& setting) {
            const std::pair<Qt::Key, QString> entries[] = {
                {Qt::Key_E, u"browser"_s}, {Qt::Key_S, u"roster"_s},     {Qt::Key_C, u"shiftCodes"_s},
                {Qt::Key_D, u"search"_s},  {Qt::Key_M, u"masterData"_s}, {Qt::Key_P, u"settings"_s}};
            for (const auto& [key, name] : entries) {
                bool closed = false;
                hub.user.WhenIn(name, [&](QWidget&) {
                    Keys(u"⎋");
                    closed = true;
                });
                setting.activateWindow(); // no window manager does it here
                EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return setting.isActiveWindow(); }));
                KeyboardUser::Press(key, Qt::AltModifier);
                EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return closed; })) << name.toStdString();
            }
        });
    }
    EXPECT_EQ(hub.made, (QStringList{u"browser"_s, u"roster"_s, u"shiftCodes"_s, u"search"_s, u"masterData"_s,
                                     u"settings"_s}));
    EXPECT_TRUE(hub.adminMode.isEmpty()) << "the box was never touched";
}

TEST(frmSetting, HandsTheBoxBackWhenItIsLeftAndForgetsIt) {
    const std::pair<Qt::CheckState, QList<bool>> cases[] = {
        {Qt::Unchecked, {}}, {Qt::Checked, {true}}, {Qt::PartiallyChecked, {false}}};
    for (const auto& [box, handed] : cases) {
        Hub hub;
        hub.Open([box = box](QWidget& window) {
            auto& chkAdminMode = Part<QCheckBox>(window, "chkAdminMode");
            if (box == Qt::PartiallyChecked) { // no key makes it so
                chkAdminMode.setCheckState(box);
            } else if (box == Qt::Checked) {
                for (int fields = 0; fields < 6; ++fields)
                    Keys(u"↹");
                Keys(u" ");
            }
            EXPECT_EQ(chkAdminMode.checkState(), box);
        });
        EXPECT_EQ(hub.adminMode, handed);
        hub.Open([](QWidget&) {});
        EXPECT_EQ(hub.adminMode, handed) << "the box is clear again";
    }
}
