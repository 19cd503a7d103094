#include "shell/frmLogin.h"

#include "support/window_company.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

struct Login {
    const char* what;
    std::function<void()> keys;
    QString handedOver;
};

void Press(Qt::Key key) {
    KeyboardUser::Press(key);
}

} // namespace

TEST(frmLogin, WhatIsTypedIsHandedOverOnceAndNotThroughTheClipboard) {
    const Login logins[] = {
        {"enter",
         [] {
             KeyboardUser::Type(u"pelon"_s);
             Press(Qt::Key_Return);
             KeyboardUser::Type(u"rahasia"_s);
             Press(Qt::Key_Return);
         },
         u"pelon~rahasia~22-Nov-26"_s},
        {"F6",
         [] {
             KeyboardUser::Type(u"pelon"_s);
             Press(Qt::Key_F6);
         },
         u"pelon~~22-Nov-26"_s},
        {"nothing typed", [] { Press(Qt::Key_F6); }, u"~~22-Nov-26"_s},
        {"F4",
         [] {
             KeyboardUser::Type(u"pelon"_s);
             Press(Qt::Key_F4);
         },
         u"<CANCEL>"_s},
        {"F4 in the password",
         [] {
             Press(Qt::Key_Return);
             KeyboardUser::Type(u"x"_s);
             Press(Qt::Key_F4);
         },
         u"<CANCEL>"_s},
        {"enter on the cancel button",
         [] {
             KeyboardUser::Type(u"pelon"_s);
             for (int i = 0; i < 4; ++i)
                 Press(Qt::Key_Tab);
             Press(Qt::Key_Return);
         },
         u"<CANCEL>"_s},
        {"enter in the date and on the button behind it",
         [] {
             Press(Qt::Key_Tab);
             Press(Qt::Key_Tab);
             Press(Qt::Key_Return);
             Press(Qt::Key_Return);
         },
         u"~~22-Nov-26"_s},
        {"escape", [] { Press(Qt::Key_Escape); }, u"<CANCEL>"_s},
        {"mnemonic of OK", [] { KeyboardUser::Press(Qt::Key_T, Qt::AltModifier); }, u"~~22-Nov-26"_s},
        {"mnemonic of cancel", [] { KeyboardUser::Press(Qt::Key_B, Qt::AltModifier); }, u"<CANCEL>"_s},
    };
    TestCompany company;
    const b_form_skin::Backgrounds skin;
    QApplication::clipboard()->setText(u"untouched"_s);
    for (const Login& login : logins) {
        LoginHandOver channel;
        KeyboardUser user;
        user.WhenIn(u"frmLogin"_s, [&](QWidget& window) {
            EXPECT_EQ(WindowCompany::Part<QLineEdit>(window, "txtTanggal").text(), u"22-Nov-26"_s);
            login.keys();
        });
        frmLogin(company.clock, channel, skin, nullptr).exec();
        EXPECT_EQ(channel.Take(), login.handedOver) << login.what;
        EXPECT_TRUE(channel.Take().isEmpty());
    }
    EXPECT_EQ(QApplication::clipboard()->text(), u"untouched"_s);
}

TEST(frmLogin, ThePasswordCannotBeCopiedAndCapsLockIsTold) {
    TestCompany company;
    const b_form_skin::Backgrounds skin;
    LoginHandOver channel;
    KeyboardUser user;
    QApplication::clipboard()->setText(u"untouched"_s);
    user.WhenIn(u"frmLogin"_s, [&](QWidget& window) {
        const auto& hint = WindowCompany::Part<QLabel>(window, "lblCapsLock");
        Press(Qt::Key_Return);
        KeyboardUser::Type(u"r"_s);
        EXPECT_TRUE(hint.text().isEmpty());
        KeyboardUser::Type(u"R"_s); // a capital letter without the Shift key
        EXPECT_EQ(hint.text(), u"Caps Lock menyala."_s);
        KeyboardUser::Press(Qt::Key_A, Qt::ControlModifier);
        KeyboardUser::Press(Qt::Key_C, Qt::ControlModifier);
        KeyboardUser::Press(Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), u"untouched"_s);
        Press(Qt::Key_F4);
    });
    frmLogin(company.clock, channel, skin, nullptr).exec();
}
