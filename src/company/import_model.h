#pragma once

#include "company/employee_import.h"
#include "core/table_model.h"

#include <QHash>

/// A file of employees as a grid: its lines, and what is wrong with each.
class ImportModel : public TableModel {
    Q_OBJECT
public:
    enum Column { Problems, Line, FirstCell };

    explicit ImportModel(EmployeeFile file, QObject* parent = nullptr);

    const EmployeeFile& File() const { return file_; }
    /// Shows what a plan found; what each column brings stands in its heading.
    void Show(const std::vector<EmployeeField>& fields, const std::vector<ImportFinding>& findings);
    /// The first row that something is wrong with; -1 when there is none.
    int FirstProblem() const;

private:
    int RowCount() const override { return static_cast<int>(file_.rows.size()); }
    QString Text(int row, int column) const override;
    CellLook LookOf(int row, int column) const override;

    EmployeeFile file_;
    std::vector<EmployeeField> fields_;
    QHash<int, std::vector<ImportFinding>> findings_; ///< by line
};

/// What a plan would do, in the user's words.
QString PlanText(const EmployeePlan& plan, Day payFrom);
/// How a file is written, in the user's words.
QString FormText(const CsvForm& form, qsizetype rows);
