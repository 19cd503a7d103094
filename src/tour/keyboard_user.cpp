#include "tour/keyboard_user.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QHash>
#include <QTest>
#include <QWindow>

namespace {
constexpr int LookEveryMilliseconds = 5;
constexpr int PatienceMilliseconds = 10000;

/// A modal window leaves those usable that were opened over it.
bool IsOver(const QWidget* window, const QWidget* dialog) {
    while (window && window != dialog)
        window = window->parentWidget();
    return window != nullptr;
}
} // namespace

KeyboardUser::KeyboardUser() {
    timer_.setInterval(LookEveryMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &KeyboardUser::Look);
}

void KeyboardUser::WhenIn(const QString& window, Action action) {
    plans_.push_back({window, std::move(action)});
    timer_.start();
}

void KeyboardUser::Look() {
    QWidget* front = InFront();
    if (plans_.empty()) {
        timer_.stop();
        return;
    }
    if (!front || front->objectName() != plans_.front().window || !front->windowHandle()->isExposed())
        return;
    // Shortcuts and mnemonics work in the active window only.
    if (front->windowType() != Qt::Popup && !front->isActiveWindow()) {
        front->activateWindow();
        return;
    }
    const Plan plan = std::move(plans_.front());
    plans_.pop_front();
    // Not from within the timer's own call: it would stand still while a window that the action opens is
    // waited in.
    QTimer::singleShot(0, front, [plan, front] { plan.action(*front); });
}

void KeyboardUser::Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (WaitUntil([] { return InFront() != nullptr; }))
        QTest::keyClick(InFront()->windowHandle(), key, modifiers);
}

bool KeyboardUser::WaitUntil(const std::function<bool()>& condition) {
    QDeadlineTimer deadline(PatienceMilliseconds);
    while (!condition() && !deadline.hasExpired())
        QTest::qWait(LookEveryMilliseconds);
    return condition();
}

QWidget* KeyboardUser::InFront() {
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    QWidget* active = QApplication::activeWindow();
    if (QWidget* dialog = QApplication::activeModalWidget())
        return IsOver(active, dialog) ? active : dialog;
    if (active)
        return active;
    // Where no window manager does it, the window that is left takes the focus when one before it is closed.
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() != Qt::ToolTip)
            window->activateWindow();
    }
    return QApplication::activeWindow();
}

void Keys(QStringView keys) {
    static const QHash<QChar, Qt::Key> named{
        {u'⏎', Qt::Key_Return}, {u'↹', Qt::Key_Tab},       {u'⇤', Qt::Key_Backtab}, {u'⎋', Qt::Key_Escape},
        {u'→', Qt::Key_Right},  {u'←', Qt::Key_Left},      {u'↑', Qt::Key_Up},      {u'↓', Qt::Key_Down},
        {u'⌦', Qt::Key_Delete}, {u'⌫', Qt::Key_Backspace}, {u'⇱', Qt::Key_Home},    {u'⇲', Qt::Key_End},
        {u'⇞', Qt::Key_PageUp}, {u'⇟', Qt::Key_PageDown},  {u'⎀', Qt::Key_Insert},
    };
    static const QHash<QChar, Qt::KeyboardModifier> modifiers{
        {u'⎇', Qt::AltModifier}, {u'⎈', Qt::ControlModifier}, {u'⇧', Qt::ShiftModifier}};
    Qt::KeyboardModifiers held;
    for (const QChar key : keys) {
        if (const auto modifier = modifiers.constFind(key); modifier != modifiers.cend()) {
            held |= *modifier;
            continue;
        }
        if (key >= u'②' && key <= u'⑩')
            KeyboardUser::Press(static_cast<Qt::Key>(Qt::Key_F1 + (key.unicode() - u'①')), held);
        else if (const auto found = named.constFind(key); found != named.cend())
            KeyboardUser::Press(*found, key == u'⇤' ? held | Qt::ShiftModifier : held);
        else if (KeyboardUser::WaitUntil([] { return KeyboardUser::InFront() != nullptr; }))
            QTest::keyClick(KeyboardUser::InFront()->windowHandle(), key.toLatin1(), held);
        held = Qt::NoModifier;
        QCoreApplication::processEvents();
    }
}
