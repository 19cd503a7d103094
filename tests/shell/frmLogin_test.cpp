#include "shell/frmLogin.h"

#include "support/window_company.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

TEST(frmLogin, WhatIsTypedIsHandedOverOnceAndNotThroughTheClipboard) {
    const struct {
        QString keys;
        Qt::Key last;
        QString handedOver;
        Qt::KeyboardModifiers with = {};
    } logins[] = {
        {u"pelon⏎rahasia"_s, Qt::Key_Return, u"pelon~rahasia~22-Nov-26"_s},
        {u"pelon"_s, Qt::Key_F6, u"pelon~~22-Nov-26"_s},
        {u""_s, Qt::Key_F6, u"~~22-Nov-26"_s},
        {u"pelon"_s, Qt::Key_F4, u"<CANCEL>"_s},
        {u"⏎x"_s, Qt::Key_F4, u"<CANCEL>"_s},            // in the password
        {u"pelon↹↹↹↹"_s, Qt::Key_Return, u"<CANCEL>"_s}, // on the cancel button
        {u"↹↹⏎"_s, Qt::Key_Return, u"~~22-Nov-26"_s},    // in the date and on the button after it
        {u""_s, Qt::Key_Escape, u"<CANCEL>"_s},
        {u""_s, Qt::Key_T, u"~~22-Nov-26"_s, Qt::AltModifier},
        {u""_s, Qt::Key_B, u"<CANCEL>"_s, Qt::AltModifier},
    };
    TestCompany company;
    const b_form_skin::Backgrounds skin;
    QApplication::clipboard()->setText(u"untouched"_s);
    for (const auto& login : logins) {
        LoginHandOver channel;
        KeyboardUser user;
        user.WhenIn(u"frmLogin"_s, [&](QWidget& window) {
            EXPECT_EQ(TextOf(window, "txtTanggal"), u"22-Nov-26"_s);
            Keys(login.keys);
            KeyboardUser::Press(login.last, login.with);
        });
        frmLogin(company.clock, channel, skin, nullptr).exec();
        EXPECT_EQ(channel.Take(), login.handedOver) << login.keys.toStdString() << login.last;
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
        const auto& hint = Part<QLabel>(window, "lblCapsLock");
        Keys(u"⏎r");
        EXPECT_TRUE(hint.text().isEmpty());
        Keys(u"R"); // a capital letter without the Shift key
        EXPECT_EQ(hint.text(), u"Caps Lock menyala."_s);
        Keys(u"r");
        EXPECT_TRUE(hint.text().isEmpty());
        QKeyEvent small(QEvent::KeyPress, Qt::Key_R, Qt::ShiftModifier, u"r"_s);
        QApplication::sendEvent(window.focusWidget(), &small);
        EXPECT_EQ(hint.text(), u"Caps Lock menyala."_s);
        Keys(u"⎈a⎈c⎈x");
        EXPECT_EQ(QApplication::clipboard()->text(), u"untouched"_s);
        Keys(u"④");
    });
    frmLogin(company.clock, channel, skin, nullptr).exec();
}

TEST(frmLogin, TellsOfTheDemoUserWhereThereIsOne) {
    TestCompany company;
    const b_form_skin::Backgrounds skin;
    LoginHandOver channel;
    const std::pair<bool, QString> cases[] = {
        {true, u"anda dibawah ini: (untuk demo user [pelon] pass [pelon]"_s},
        {false, u"anda dibawah ini:"_s}};
    for (const auto& [demo, end] : cases)
        EXPECT_TRUE(TextOf(frmLogin(company.clock, channel, skin, nullptr, demo), "Label4").endsWith(end));
}
