#include "support/window_company.h"

#include "shell/frmLogin.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QVariant>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

void AddPictures(const QString& folder) {
    QDir(folder).mkpath(u"images"_s);
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::white);
    // The reader goes by the content: any picture format does under these names.
    for (const auto& name : {u"images/back_big.gif"_s, u"images/back_litle.gif"_s, u"images/back_midle.gif"_s,
                             u"images/back.gif"_s, u"NoImage.gif"_s})
        EXPECT_TRUE(picture.save(folder + u'/' + name, "PNG"));
}

} // namespace

QString TextOf(const QWidget& in, const char* name) {
    const QWidget& part = Part<QWidget>(in, name);
    const QVariant text = part.property("text");
    return (text.isValid() ? text : part.property("currentText")).toString();
}

QString TextOf(const QWidget& in, std::initializer_list<const char*> names) {
    QStringList texts;
    for (const char* name : names)
        texts << TextOf(in, name);
    return texts.join(u'|');
}

WindowFixture::~WindowFixture() {
    EXPECT_TRUE(user.IsDone()) << "a window that the test waited for never came";
}

void WindowFixture::Show(QWidget& window) {
    shown = &window;
    window.show();
    window.activateWindow();
    EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return window.isActiveWindow(); }));
}

int WindowFixture::Open(QDialog& dialog, const Work& work, const Work& leave) {
    shown = &dialog;
    user.WhenIn(dialog.objectName(), [&](QWidget& window) {
        work(window);
        if (!window.isVisible())
            return;
        if (leave)
            leave(window);
        else
            Keys(u"⎋");
        EXPECT_TRUE(KeyboardUser::WaitUntil([&] { return !window.isVisible(); }));
    });
    return dialog.exec();
}

void WindowFixture::Go(int row, int column) {
    Grid().setFocus();
    Grid().setCurrentIndex(At(row, column));
}

bool WindowFixture::ListIsOpen() {
    return KeyboardUser::WaitUntil(
        [] { return KeyboardUser::InFront() && KeyboardUser::InFront()->objectName() == u"PickList"_s; });
}

void WindowFixture::TypeWithButtons(const QString& keys) {
    const auto noneIsDown = [] {
        const auto buttons = QApplication::allWidgets();
        return std::ranges::none_of(buttons, [](QWidget* widget) {
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            return button && button->isDown();
        });
    };
    for (qsizetype from = 0; from < keys.size();) {
        const qsizetype mnemonic = keys.indexOf(u'⎇', from);
        const qsizetype end = mnemonic < 0 ? keys.size() : mnemonic + 2;
        Keys(keys.sliced(from, end - from));
        KeyboardUser::WaitUntil(noneIsDown);
        from = end;
    }
}

WindowCompany::WindowCompany(MainWindowNeeds needs) {
    AddEmployee(u"0012"_s, u"Siti Aminah"_s, u"rahasia"_s, u"PROD"_s, u"A"_s);
    AddEmployee(u"0013"_s, u"Budi Santoso"_s, u"Kunci1"_s, u"PROD"_s, u"B"_s);
    AddEmployee(u"0014"_s, u"Agus Salim"_s, u"agus"_s, u"ADM"_s, u"A"_s);
    AddUser(u"pelon"_s, u"pelon"_s, u"SPV"_s);
    AddUser(u"budi"_s, u"budi"_s);
    AddPictures(folder.path());
    program.askLogin = [this](LoginHandOver& channel) {
        frmLogin(clock, channel, skin, QApplication::activeWindow()).exec();
    };
    if (!needs.openSettings)
        needs.openSettings = [] {};
    needs.userCountry = [] { return u"United States"_s; };
    window = std::make_unique<frmMain>(program, skin, std::move(needs));
    EXPECT_TRUE(window->Form_Load());
    Show(*window);
}

void WindowCompany::WillLogIn(const QString& name, const QString& password) {
    user.WhenIn(u"frmLogin"_s, [=](QWidget&) { Keys(name + u"⏎"_s + password + u"⏎"_s); });
}

void WindowCompany::Record(Qt::Key key, const QString& nip, const QString& password) {
    user.WhenIn(u"frmAED_Absen"_s, [=](QWidget&) { Keys(nip + u"⏎"_s + password + u"⏎⎋"_s); });
    KeyboardUser::Press(key);
}

void WindowCompany::ChooseFromMenu(const QString& entry) {
    Keys(u"⑩");
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (int i = 0; i <= menu->actions().size(); ++i) {
        Keys(u"↓");
        if (menu->activeAction() && menu->activeAction()->text() == entry)
            break;
    }
    ASSERT_TRUE(menu->activeAction());
    ASSERT_EQ(menu->activeAction()->text(), entry);
    Keys(u"⏎");
}

void WindowCompany::ChooseAsSupervisor(const QString& entry) {
    WillLogIn(u"pelon"_s, u"pelon"_s);
    ChooseFromMenu(entry);
}

void WindowCompany::TickAfter(Seconds seconds) {
    clock.now += seconds;
    Tick();
}

void WindowCompany::Unlock() {
    WillLogIn(u"pelon"_s, u"pelon"_s);
    Part<QPushButton>("cmdTCID").click();
}

void WindowCompany::RecordElsewhere(const QString& tcid, const QString& day) const {
    const auto other = OtherDesk();
    other->Execute(u"INSERT INTO TimeCardHeader (TCID, NIP, Status) VALUES (?,'0013','IN')"_s, {tcid});
    other->Execute(u"INSERT INTO TimeCardDetail (TCID, Tanggal, TimeIN) VALUES (?,?,?)"_s,
                   {tcid, day, day + u" 07:30:00"_s});
}
