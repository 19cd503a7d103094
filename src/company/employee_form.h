#pragma once

#include "company/employee_entry.h"
#include "core/program.h"

#include <QFrame>

#include <functional>
#include <memory>

class QLineEdit;

namespace Ui {
class EmployeeForm;
}

/// One employee's record beside the grid. What is typed is written as a whole, by F6; Enter goes on from
/// field to field.
class EmployeeForm : public QFrame {
    Q_OBJECT
public:
    explicit EmployeeForm(QWidget* parent = nullptr);
    ~EmployeeForm() override;

    /// To be called before the form is shown. `choosePhoto` asks for a picture file; empty when none was
    /// chosen.
    void Use(Program& program, std::function<QString()> choosePhoto);

    /// Reads departments and divisions anew. Throws DatabaseError.
    void OfferCodes();
    /// Shows an employee with the pay that is in force today and the changes to come, in place of what was
    /// typed.
    void ShowEmployee(const Employee& employee, const PayTerms& payToday,
                      const std::vector<PayRow>& payToCome);
    /// An empty record for somebody new.
    void ShowNew();
    void ShowNobody();
    /// Proposes today as the last day.
    void ProposeLeaving();
    void FocusFirst();

    bool IsNew() const { return shown_ && !before_; }
    bool IsChanged() const;
    /// Asks what becomes of what is typed; false when the user stays.
    bool MayLeave();
    /// False when it was not written; the user was told.
    bool Save();

Q_SIGNALS:
    void Saved(const QString& nip);
    /// The user goes back to the grid.
    void Left();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Fill(const Employee& employee, const PayTerms& pay);
    /// Throws ProgramError with the user's text where a field cannot be read, and takes the focus there.
    Employee Typed() const;
    PayTerms TypedPay() const;
    std::optional<double> Amount(QLineEdit& field) const;
    std::optional<Day> TypedDay(QLineEdit& field) const;
    void Tidy(QLineEdit& field, const QString& shown);
    void Write();
    /// The day from which a changed pay counts; nothing when the user calls it off.
    std::optional<Day> AskPayFrom();
    void ShowPhoto(const QString& file);
    void cmdFoto_Click();
    void cmdBatal_Click();

    Program* program_ = nullptr;
    std::function<QString()> choosePhoto_;
    bool shown_ = false;
    std::optional<Employee> before_;
    PayTerms payBefore_;
    QString newPhoto_;   ///< chosen, not yet copied
    QStringList filled_; ///< what the fields showed before anything was typed
    std::unique_ptr<Ui::EmployeeForm> ui_;
};
