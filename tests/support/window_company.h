#pragma once

#include "support/test_company.h"
#include "timecard/frmMain.h"
#include "tour/keyboard_user.h"
#include "ui/form_skin.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <functional>
#include <memory>

/// The named part of a window.
template<class Widget>
Widget& Part(const QWidget& in, const char* name) {
    auto* widget = in.findChild<Widget*>(QString::fromLatin1(name));
    if (!widget)
        throw std::runtime_error(std::string("no widget of that name: ") + name);
    return *widget;
}

/// What a named label, box or list of a window shows; of several, joined by "|".
QString TextOf(const QWidget& in, const char* name);
QString TextOf(const QWidget& in, std::initializer_list<const char*> names);

/// A company and a window over it, worked at by the keyboard.
class WindowFixture : public TestCompany {
public:
    using Work = std::function<void(QWidget&)>;

    ~WindowFixture();

    /// Shows a window and waits until it has the keyboard. The functions below are about it.
    void Show(QWidget& window);
    /// Opens a dialog, does the work in it and gives the dialog's result. What is left open is left by
    /// `leave`, by Esc unless told otherwise.
    int Open(QDialog& dialog, const Work& work, const Work& leave = {});

    template<class Widget>
    Widget& Part(const char* name) {
        return ::Part<Widget>(*shown, name);
    }
    QString Said(const char* name) { return TextOf(*shown, name); }
    QTableView& Grid() { return Part<QTableView>("MSHFlexGrid1"); }
    QModelIndex At(int row, int column) { return Grid().model()->index(row, column); }
    QString Cell(int row, int column) { return At(row, column).data().toString(); }
    void Go(int row, int column);

    bool IsLogged(const char* text) {
        return BytesOf(folder.filePath(QStringLiteral("VELTLOG.TXT"))).contains(text);
    }
    static bool ListIsOpen();
    /// Types keys, and waits after each mnemonic until its button has gone down and up again.
    static void TypeWithButtons(const QString& keys);

    b_form_skin::Backgrounds skin;
    KeyboardUser user;
    QWidget* shown = nullptr;
};

/// A company of three employees and two users with the main window open in front.
class WindowCompany : public WindowFixture {
public:
    explicit WindowCompany(MainWindowNeeds needs = {});

    /// What the next login window gets typed into it.
    void WillLogIn(const QString& name, const QString& password);
    /// Clocks an employee in (F2) or out (F8) from the main window and closes the entry window when it is
    /// recorded.
    void Record(Qt::Key key, const QString& nip, const QString& password);
    /// Opens the "Edit" menu with F10 and walks down to an entry.
    void ChooseFromMenu(const QString& entry);
    void ChooseAsSupervisor(const QString& entry);
    /// Lets the sheet's identifier be typed, which asks for a supervisor.
    void Unlock();
    /// Budi (0013) came at half past seven, as another desk recorded it.
    void RecordElsewhere(const QString& tcid, const QString& day) const;
    void Tick() { window->Timer1_Timer(); }
    void TickAfter(Seconds seconds);

    std::unique_ptr<frmMain> window;
};
