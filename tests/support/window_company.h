#pragma once

#include "support/test_company.h"
#include "timecard/frmMain.h"
#include "tour/keyboard_user.h"
#include "ui/form_skin.h"

#include <QLineEdit>

#include <memory>

/// A company of three employees and two users with the main window open in front, driven by the keyboard.
class WindowCompany {
public:
    explicit WindowCompany(MainWindowNeeds needs = {});
    ~WindowCompany();

    /// The named part of the main window, or of another window.
    template<class Widget>
    Widget& Part(const char* name) {
        return Part<Widget>(*window, name);
    }
    template<class Widget>
    static Widget& Part(const QWidget& in, const char* name) {
        auto* widget = in.findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            throw std::runtime_error(std::string("no widget of that name: ") + name);
        return *widget;
    }

    /// What the next login window gets typed into it.
    void WillLogIn(const QString& user, const QString& password);
    /// Clocks an employee in (F2) or out (F8) from the main window and closes the entry window when it is
    /// recorded.
    void Record(Qt::Key key, const QString& nip, const QString& password);
    /// Opens the "Edit" menu with F10 and walks down to an entry.
    void ChooseFromMenu(const QString& entry);
    void Tick() { window->Timer1_Timer(); }
    QString Cell(int row, int column);

    TestCompany company;
    b_form_skin::Backgrounds skin;
    KeyboardUser user;
    std::unique_ptr<frmMain> window;
};
