#pragma once

#include "ui/form_skin.h"

#include <QDialog>

#include <functional>
#include <map>
#include <memory>

namespace Ui {
class frmSetting;
}

/// What the administrator's window needs of the windows around it. Each function makes one window over the
/// given one; a function that is not given leaves its button disabled.
struct SettingNeeds {
    using MakeWindow = std::function<std::unique_ptr<QDialog>(QWidget* over)>;

    MakeWindow browser = {};
    MakeWindow roster = {};
    MakeWindow shiftCodes = {};
    MakeWindow search = {};
    MakeWindow masterData = {};
    MakeWindow companySettings = {};
    std::function<void(bool on)> setAdminMode = {};
    MakeWindow problems = {};
};

/// The administrator's way to everything that is not done at the desk. Leaving it can turn the desk's admin
/// mode on.
class frmSetting : public QDialog {
    Q_OBJECT
public:
    frmSetting(SettingNeeds needs, const b_form_skin::Backgrounds& skin, QWidget* parent);
    ~frmSetting() override;

protected:
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void Form_QueryUnload();
    /// The cards in groups, in the order in which they are read.
    void LayCards();
    /// Opens the card's window, the same every time, and waits until it is closed.
    void cmdButtons_Click(size_t index);

    SettingNeeds needs_;
    std::map<size_t, std::unique_ptr<QDialog>> windows_;
    std::unique_ptr<Ui::frmSetting> ui_;
};
