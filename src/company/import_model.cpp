#include "company/import_model.h"

#include <algorithm>

using namespace Qt::StringLiterals;

ImportModel::ImportModel(EmployeeFile file, QObject* parent)
    : TableModel({}, parent), file_(std::move(file)) {
    Show(MatchHeadings(file_.headings), {});
}

void ImportModel::Show(const std::vector<EmployeeField>& fields, const std::vector<ImportFinding>& findings) {
    beginResetModel();
    fields_ = fields;
    findings_.clear();
    for (const ImportFinding& finding : findings)
        findings_[finding.line].push_back(finding);
    std::vector<TableColumn> columns{{u"Catatan"_s}, {u"Baris"_s, Qt::AlignRight}};
    for (size_t i = 0; i < fields_.size(); ++i) {
        const QString& heading = file_.headings[static_cast<qsizetype>(i)];
        const QString field = EmployeeFieldName(fields_[i]);
        columns.push_back({field.isEmpty()    ? heading + u" (tidak dipakai)"_s
                           : field == heading ? heading
                                              : heading + u" → "_s + field});
    }
    SetColumns(std::move(columns));
    endResetModel();
}

int ImportModel::FirstProblem() const {
    const auto found =
        std::ranges::find_if(file_.rows, [this](const CsvRow& row) { return findings_.contains(row.line); });
    return found == file_.rows.end() ? -1 : static_cast<int>(found - file_.rows.begin());
}

QString ImportModel::Text(int row, int column) const {
    const CsvRow& line = file_.rows[static_cast<size_t>(row)];
    if (column == Line)
        return QString::number(line.line);
    if (column != Problems) {
        const bool secret = fields_[static_cast<size_t>(column - FirstCell)] == EmployeeField::Password;
        const QString cell = line.cells.value(column - FirstCell);
        return secret && !cell.isEmpty() ? u"●●●●"_s : cell;
    }
    QStringList texts;
    for (const ImportFinding& finding : findings_.value(line.line))
        texts << UserText(finding);
    return texts.join(u"; ");
}

CellLook ImportModel::LookOf(int row, int column) const {
    const auto found = findings_.constFind(file_.rows[static_cast<size_t>(row)].line);
    if (found == findings_.cend() || column == Line)
        return CellLook::Plain;
    const bool isWrong = column == Problems || std::ranges::any_of(*found, [&](const ImportFinding& finding) {
                             return finding.field == fields_[static_cast<size_t>(column - FirstCell)];
                         });
    return isWrong ? CellLook::Doubtful : CellLook::Plain;
}

QString PlanText(const EmployeePlan& plan, Day payFrom) {
    if (!plan.findings.empty())
        return u"%1 hal harus dibetulkan dulu; tidak ada yang disimpan. Yang pertama – %2"_s.arg(
            QString::number(plan.findings.size()), UserText(plan.findings.front()));
    QString text =
        u"%1 karyawan baru, %2 berubah, %3 tetap."_s.arg(plan.added).arg(plan.changed).arg(plan.unchanged);
    if (!plan.pay.empty())
        text +=
            u" Gaji %1 orang berubah mulai %2."_s.arg(QString::number(plan.pay.size()), ShownDay(payFrom));
    for (const auto& [what, codes] : {std::pair{u"Departemen baru: %1."_s, plan.newDepartments},
                                      {u"Divisi baru: %1."_s, plan.newDivisions}}) {
        if (!codes.isEmpty())
            text += u' ' + what.arg(codes.join(u", "));
    }
    return text;
}

QString FormText(const CsvForm& form, qsizetype rows) {
    const QString separator = form.separator == '\t'  ? u"tab"_s
                              : form.separator == ';' ? u"titik koma"_s
                                                      : u"koma"_s;
    return u"%1 baris, dipisah %2, %3"_s.arg(QString::number(rows), separator,
                                             form.isUtf8 ? u"UTF-8"_s : u"Windows-1252"_s);
}
