#include "company/users.h"

#include "core/passwords.h"
#include "core/query_values.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int RefusedNumber = 90031;

UserRow::Password KindOf(const QString& stored) {
    if (stored.isEmpty())
        return UserRow::Password::None;
    return Passwords::IsHashed(stored) ? UserRow::Password::Hashed : UserRow::Password::PlainText;
}

bool AnyRow(Connection& connection, const QString& query, const QVariantList& values = {}) {
    return connection.Query(query, values).Next();
}

} // namespace

std::vector<UserRow> Users::ReadAll() const {
    return connection_
        .Query(
            u"select u.UserID, u.[Password], e.Nama, e.NIP, j.GroupID from [User] u left join Employee e on "
            "e.NIP=u.UserID left join User_Job j on j.UserID=u.UserID and j.GroupID='SPV' order by "
            "u.UserID"_s)
        .All([](const Cursor& row) {
            const auto name = row.Value(3).IsNull() ? std::nullopt : std::optional(row.Text(2));
            return UserRow{row.Text(0), name, !row.Value(4).IsNull(), KindOf(row.Text(1))};
        });
}

void Users::Add(const QString& id) const {
    CheckUserId(id);
    connection_.InTransaction([&] {
        Cursor known =
            connection_.Query(u"select UserID from [User] where upper(UserID)=?"_s, {id.toUpper()});
        if (known.Next())
            throw ProgramError(RefusedNumber, u"User ID %1 sudah ada."_s.arg(known.Text(0)));
        connection_.Execute(u"insert into [User] (UserID) values (?)"_s, {id});
    });
}

std::optional<HashedPasswords> Users::Hash(const std::vector<std::pair<QString, QString>>& idsAndPasswords,
                                           const Progress& progress) const {
    HashedPasswords hashed;
    for (const auto& [id, password] : idsAndPasswords) {
        if (progress && !progress(std::ssize(hashed), std::ssize(idsAndPasswords)))
            return std::nullopt;
        CheckUserId(id);
        if (password.isEmpty())
            throw ProgramError(RefusedNumber, u"Password %1 tidak boleh kosong."_s.arg(id));
        hashed.emplace_back(id, Passwords::Hashed(password));
    }
    return hashed;
}

void Users::Write(const HashedPasswords& passwords) const {
    QList<QVariantList> ids;
    QList<QVariantList> values;
    for (const auto& [id, hash] : passwords) {
        ids << QVariantList{id, id};
        values << QVariantList{hash, id};
    }
    connection_.InTransaction([&] {
        connection_.ExecuteMany(u"insert into [User] (UserID) select ? where not exists (select UserID from "
                                "[User] where UserID=?)"_s,
                                ids);
        connection_.ExecuteMany(u"update [User] set [Password]=? where UserID=?"_s, values);
    });
}

void Users::SetSupervisor(const QString& id, bool isSupervisor) const {
    connection_.InTransaction([&] {
        if (!isSupervisor)
            CheckNotLast(id);
        connection_.Execute(u"delete from User_Job where UserID=? and GroupID='SPV'"_s, {id});
        if (isSupervisor)
            connection_.Execute(u"insert into User_Job (UserID, GroupID) values (?,'SPV')"_s, {id});
    });
}

void Users::Remove(const QString& id) const {
    connection_.InTransaction([&] {
        CheckNotLast(id);
        for (const QString& table : {u"User_Job"_s, u"[User]"_s})
            connection_.Execute(u"delete from %1 where UserID=?"_s.arg(table), {id});
    });
}

void Users::CheckNotLast(const QString& id) const {
    const QString supervisors = u"select u.UserID from [User] u inner join User_Job j on j.UserID=u.UserID "
                                "where j.GroupID='SPV' and u.UserID"_s;
    if (AnyRow(connection_, supervisors + u"=?"_s, {id})
        && !AnyRow(connection_, supervisors + u"<>?"_s, {id}))
        throw ProgramError(RefusedNumber,
                           u"%1 adalah supervisor terakhir. Tunjuk supervisor lain dulu, supaya tetap ada "
                           "yang dapat membuka program ini."_s.arg(id));
}

int Users::HashPlainTexts(const Progress& progress) const {
    QList<QVariantList> hashed;
    std::vector<std::pair<QString, QString>> plain;
    Cursor rows = connection_.Query(u"select UserID, [Password] from [User] where [Password] is not null"_s);
    while (rows.Next()) {
        if (KindOf(rows.Text(1)) == UserRow::Password::PlainText)
            plain.emplace_back(rows.Text(0), rows.Text(1));
    }
    for (const auto& [id, password] : plain) {
        if (progress && !progress(hashed.size(), std::ssize(plain)))
            return 0;
        hashed << QVariantList{Passwords::Hashed(password), id, password};
    }
    connection_.InTransaction([&] {
        connection_.ExecuteMany(u"update [User] set [Password]=? where UserID=? and [Password]=?"_s, hashed);
    });
    return static_cast<int>(hashed.size());
}

bool IsGoodUserId(const QString& id) {
    return id == id.trimmed() && !id.contains(u'\'') && !id.contains(u'~');
}

void CheckUserId(const QString& id) {
    if (id.trimmed().isEmpty())
        throw ProgramError(RefusedNumber, u"User ID harus diisi."_s);
    if (!IsGoodUserId(id))
        throw ProgramError(RefusedNumber,
                           u"User ID \"%1\" tidak dapat dipakai: jangan memakai ' atau ~, atau spasi di "
                           "awal atau akhir."_s.arg(id));
}
