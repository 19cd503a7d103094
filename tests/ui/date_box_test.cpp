#include "ui/moment_box.h"

#include "support/window_company.h"

#include <QCalendarWidget>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A window with a date box (on 23-Nov-2026), a box for a moment (22-Nov-2026 07:45:12) and two buttons, of
/// which one leaves the window.
class Host {
public:
    Host() {
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* part : std::initializer_list<QWidget*>{&date, &moment, &use, &leave})
            layout->addWidget(part);
        window.setObjectName(u"host"_s);
        date.setObjectName(u"date"_s);
        date.setAccessibleName(u"Tanggal awal"_s);
        leave.setProperty("leaves", true);
        SetUpDateBoxes(window, company.program);
        date.SetValue(Moment(u"2026-11-23"));
        moment.SetValue(Moment(u"2026-11-22 07:45:12"));
        window.show();
        window.activateWindow();
        EXPECT_TRUE(KeyboardUser::WaitUntil([this] { return window.isActiveWindow(); }));
        date.setFocus();
    }

    QString Reading() {
        const auto* label = window.findChild<QLabel*>(u"dateReading"_s);
        return label && label->isVisible() ? label->text() : QString();
    }

    TestCompany company;
    QWidget window;
    DateBox date{&window};
    MomentBox moment{&window};
    QPushButton use{&window};
    QPushButton leave{&window};
};

} // namespace

TEST(DateBox, SaysHowATextIsUnderstoodAndReadsItWhenLeft) {
    const std::tuple<QString, QString, QString> cases[] = {
        {u"31Jan2026"_s, u"= 31-Jan-2026"_s, u"31-Jan-2026"_s},
        {u"01122026"_s, u"= 01-Dec-2026"_s, u"01-Dec-2026"_s},
        {u"t"_s, u"= 22-Nov-2026"_s, u"22-Nov-2026"_s},
        {u"↑"_s, QString(), u"24-Nov-2026"_s},
        {u"31Jan2027↓"_s, QString(), u"30-Jan-2027"_s},
    };
    for (const auto& [keys, reading, shown] : cases) {
        Host host;
        Keys(keys);
        EXPECT_EQ(host.Reading(), reading) << keys.toStdString();
        Keys(u"↹");
        EXPECT_EQ(host.date.text(), shown);
        EXPECT_EQ(ShownDay(DayOf(host.date.Value())), shown);
        EXPECT_EQ(host.Reading(), QString());
    }
    Host host;
    Keys(u"31/3/2026");
    for (const auto& [key, shown] :
         {std::pair{Qt::Key_PageDown, u"28-Feb-2026"_s}, {Qt::Key_PageUp, u"28-Mar-2026"_s}}) {
        KeyboardUser::Press(key);
        EXPECT_EQ(host.date.text(), shown);
    }
}

TEST(DateBox, KeepsWhatIsNoDateAndTheFocusUntilItIsCorrectedOrLeftFor) {
    const std::pair<const char*, std::function<void(Host&)>> ways[] = {
        {"Tab", [](Host&) { Keys(u"↹"); }},
        {"another place", [](Host& host) { QTest::mouseClick(&host.moment, Qt::LeftButton); }},
        {"a button", [](Host& host) { QTest::mouseClick(&host.use, Qt::LeftButton); }},
        {"used", [](Host& host) { EXPECT_FALSE(ReadTypedBoxes(host.window)); }},
    };
    for (const auto& [way, act] : ways) {
        SCOPED_TRACE(way);
        Host host;
        Keys(u"30Feb2026");
        EXPECT_EQ(host.Reading(), u"belum terbaca"_s);
        act(host);
        QCoreApplication::processEvents();
        EXPECT_EQ(host.company.dialogs.texts.size(), 1);
        EXPECT_TRUE(host.company.dialogs.Last().startsWith(u"Tanggal awal: \"30Feb2026\""_s));
        EXPECT_EQ(host.date.text(), u"30Feb2026"_s);
        EXPECT_TRUE(host.date.hasFocus());
        EXPECT_EQ(host.date.Value(), Moment(u"2026-11-23"));
        Keys(u"28Feb2026↹");
        EXPECT_EQ(host.date.Value(), Moment(u"2026-02-28"));
    }
    Host host;
    Keys(u"99");
    EXPECT_FALSE(ReadTypedBoxes(host.window, Unreadable::Quiet));
    QTest::mouseClick(&host.leave, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(host.leave.hasFocus());
    host.date.setEnabled(false);
    EXPECT_TRUE(ReadTypedBoxes(host.window));
    EXPECT_EQ(host.date.text(), u"23-Nov-2026"_s) << "what cannot be used any more is forgotten";
    host.date.setEnabled(true);
    host.date.setFocus();
    Keys(u"1");
    for (const QEvent::Type type : {QEvent::FocusOut, QEvent::FocusIn}) { // to another program and back
        QFocusEvent moved(type, Qt::ActiveWindowFocusReason);
        QCoreApplication::sendEvent(&host.date, &moved);
    }
    Keys(u"/");
    EXPECT_EQ(host.date.text(), u"1/"_s) << "half a date is gone on with";
    host.window.hide();
    EXPECT_EQ(host.date.text(), u"23-Nov-2026"_s) << "but not when the window opens again";
    EXPECT_EQ(host.company.dialogs.texts, QStringList());
}

TEST(DateBox, TheCalendarIsReachedByKeys) {
    Host host;
    for (const auto& [opener, modifiers, keys] :
         {std::tuple{Qt::Key_F4, Qt::NoModifier, u"⎋"_s}, {Qt::Key_Down, Qt::AltModifier, u"→⏎"_s}}) {
        EXPECT_EQ(host.date.Value(), Moment(u"2026-11-23"));
        KeyboardUser::Press(opener, modifiers);
        EXPECT_TRUE(QApplication::activePopupWidget());
        Keys(keys);
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_TRUE(host.date.hasFocus());
    }
    EXPECT_EQ(host.date.Value(), Moment(u"2026-11-24"));
}

TEST(MomentBox, IsEnteredAtItsTimeAndKeepsTheSecondsOfTheSameMinute) {
    const std::pair<QString, QStringView> cases[] = {{u"17:30"_s, u"2026-11-22 17:30:00"},
                                                     {u"745"_s, u"2026-11-22 07:45:12"},
                                                     {u"↑"_s, u"2026-11-22 08:45:00"},
                                                     {u"⇱↓"_s, u"2026-11-21 07:45:12"},
                                                     {u"8:00↓↓↓⇱↑"_s, u"2026-11-23 05:00:00"}};
    for (const auto& [keys, moment] : cases) {
        Host host;
        Keys(u"↹"_s + keys + u"↹"_s);
        EXPECT_EQ(StoredTime(host.moment.Value()), moment) << keys.toStdString();
    }
}
