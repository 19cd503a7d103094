#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <list>

/// Types for the tour and the tests: presses keys in the window that is in front, and keeps what to do in
/// windows that open later, while the program waits in them.
class KeyboardUser : public QObject {
public:
    using Action = std::function<void(QWidget&)>;

    KeyboardUser();

    /// Remembers what to do, once, when a window of that object name is in front. Several are done in this
    /// order.
    void WhenIn(const QString& window, Action action);

    /// Waits for no window any more.
    void Forget() { plans_.clear(); }

    /// True when every window that was waited for has come.
    bool IsDone() const { return plans_.empty(); }

    /// Presses a key in the window in front.
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Lets the program work until the condition holds; false when it does not within some seconds.
    static bool WaitUntil(const std::function<bool()>& condition);

    /// The popup, dialog or window that keys go to; null when none is shown.
    static QWidget* InFront();

private:
    struct Plan {
        QString window;
        Action action;
    };

    void Look();

    std::list<Plan> plans_;
    QTimer timer_;
};

/// Types a text in which these characters stand for keys: ⏎ Enter, ↹ Tab, ⇤ Shift+Tab, ⎋ Esc, ← → ↑ ↓ the
/// arrows, ⎀ Insert, ⌦ Delete, ⌫ Backspace, ⇱ Home, ⇲ End, ⇞ ⇟ page up and down, ② to ⑩ the keys F2 to F10;
/// ⎇, ⎈ and ⇧ hold Alt, Ctrl and Shift for the key that follows. The program answers each key before the
/// next.
void Keys(QStringView keys);
