#include "core/supervisor_check.h"

#include "core/passwords.h"
#include "core/query_values.h"
#include "database/recordset.h"
#include "database/statement.h"

using namespace Qt::StringLiterals;

namespace {

bool IsSupervisor(Connection& connection, const QString& userId) {
    const QString statement =
        u"Select count(1) from User_Job where UserID="_s + Quoted(userId) + u" and GroupID='SPV'"_s;
    return b_stored_procedure::GetFirstValue(connection, statement).toInt() != 0;
}

bool CheckLogin(Program& program, const QString& handedOver) {
    const QStringList parts = handedOver.split(u'~');
    if (parts.size() < 3) {
        program.dialogs.Warn(u"Login tidak diisi.."_s);
        return false;
    }
    const WallTime now = program.clock.Now();
    if (const QString wait = program.passwordAttempts.WaitText(parts[0], now); !wait.isNull()) {
        program.dialogs.Warn(wait);
        return false;
    }
    if (!modGeneral::CheckUserPassword(program.Db(), parts[0], parts[1])) {
        program.passwordAttempts.NoteWrong(parts[0], now);
        program.dialogs.Warn(u"Password/Username salah."_s);
        return false;
    }
    program.passwordAttempts.NoteRight(parts[0]);
    if (!IsSupervisor(program.Db(), parts[0])) {
        program.dialogs.Inform(u"Hanya level supervisor / SPV.\nLihat [User Job]..."_s);
        return false;
    }
    return true;
}

} // namespace

bool modGeneral::AskAdminPass(Program& program) {
    bool passed = false;
    Trapped(program, u"AskAdminPass"_s, [&] {
        LoginHandOver channel;
        program.askLogin(channel);
        passed = CheckLogin(program, channel.Take());
    });
    return passed;
}

bool modGeneral::AnySupervisor(Connection& connection) {
    return connection
        .Query(u"select u.UserID from [User] u inner join User_Job j on j.UserID=u.UserID and "
               "j.GroupID='SPV' where u.[Password] is not null"_s)
        .Next();
}

bool modGeneral::HasDemoUser(Connection& connection) {
    const QString demo = u"pelon"_s;
    return CheckUserPassword(connection, demo, demo);
}

bool modGeneral::CheckUserPassword(Connection& connection, const QString& userId, const QString& password) {
    const Recordset user(connection, u"Select * from [User] Where `UserID`="_s + Quoted(userId));
    if (user.AtEnd())
        return false;
    const FieldValue stored = user.Field(u"Password"_s);
    return !stored.IsNull() && Passwords::MatchesExactly(password, stored.Text());
}
