#include "company/user_model.h"

#include "database/database_error.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int NotYesOrNo = 13;

bool ReadYes(const QString& typed) {
    const QString answer = typed.trimmed().toLower();
    if (answer.isEmpty() || !(u"ya"_s.startsWith(answer) || u"tidak"_s.startsWith(answer)))
        throw ProgramError(NotYesOrNo, u"Supervisor: ketik Ya atau Tidak."_s);
    return answer.startsWith(u'y');
}

} // namespace

UserModel::UserModel(QObject* parent)
    : MasterModel({{u"User ID"_s}, {u"Karyawan"_s}, {u"Supervisor"_s}, {u"Password"_s}}, parent) {}

std::function<void()> UserModel::Read(Connection& connection) {
    return [this, read = Users(connection).ReadAll()] { rows_ = read; };
}

bool UserModel::MayEdit(int row, int column) const {
    return column == UserId ? IsNew(row) : column == Supervisor && !IsNew(row);
}

void UserModel::Save(int row, int column, const QString& text, CarryAlong /*carry*/) {
    UserRow& user = rows_[static_cast<size_t>(row)];
    if (column == UserId) {
        const QString id = text.trimmed();
        Users(Db()).Add(id);
        user.id = id;
        NewIsWritten();
    } else {
        const bool isSupervisor = ReadYes(text);
        Users(Db()).SetSupervisor(user.id, isSupervisor);
        user.isSupervisor = isSupervisor;
    }
    NotifyRow(row);
}

QString UserModel::Text(int row, int column) const {
    const UserRow& user = At(row);
    switch (column) {
    case UserId:
        return user.id;
    case Employee:
        return user.employee.value_or(user.id.isEmpty() ? QString() : u"(bukan karyawan)"_s);
    case Supervisor:
        return user.isSupervisor ? u"Ya"_s : u"Tidak"_s;
    case Password:
        return user.password == UserRow::Password::None        ? u"belum ada"_s
               : user.password == UserRow::Password::PlainText ? u"ada (belum diacak)"_s
                                                               : u"ada"_s;
    default:
        return {};
    }
}

CellLook UserModel::LookOf(int row, int column) const {
    const bool without = column == Password && At(row).password == UserRow::Password::None;
    return without ? CellLook::Doubtful : CellLook::Plain;
}
