#include "company/code_model.h"

using namespace Qt::StringLiterals;

CodeModel::CodeModel(CodeKind kind, QObject* parent)
    : MasterModel({{u"Kode"_s}, {u"Keterangan"_s}}, parent), kind_(kind) {}

std::function<void()> CodeModel::Read(Connection& connection) {
    return [this, read = CodeTable(connection, kind_).ReadAll()] { rows_ = read; };
}

QString CodeModel::UseOf(int row) const {
    const int uses = IsNew(row) ? 0 : Table().UseOf(At(row).code);
    return uses > 0 ? Table().UseText(uses) : QString();
}

void CodeModel::Save(int row, int column, const QString& text, CarryAlong carry) {
    CodeName& shown = rows_[static_cast<size_t>(row)];
    CodeName typed = shown;
    (column == Code ? typed.code : typed.name) = text.trimmed();
    if (IsNew(row)) {
        Table().Add({typed});
        NewIsWritten();
    } else if (column == Code) {
        Table().Rename(shown.code, typed.code, carry);
    } else {
        Table().ChangeName(shown, typed.name);
    }
    shown = typed;
    NotifyRow(row);
}

QString CodeModel::Text(int row, int column) const {
    return column == Code ? At(row).code : At(row).name;
}
