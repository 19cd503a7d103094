#include "core/shared_connection.h"

#include "core/settings.h"
#include "database/connection_text.h"
#include "database/schema.h"
#include "database/sqlite_engine.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int GeneralErrorNumber = 5;
constexpr int NotConnectedNumber = 91;

QString Description(const std::exception& error) {
    const auto* known = dynamic_cast<const ProgramError*>(&error);
    return known ? known->Description() : QString::fromUtf8(error.what());
}

/// The documented text of a server back end. Nothing selects it yet: the embedded database is always opened.
QString ServerConnectionText(const QString& server) {
    return u"DRIVER={MySQL ODBC 3.51 Driver};SERVER="_s + server
           + u"; DATABASE=payroll;UID=root;PWD=rolu; OPTION=3"_s;
}

} // namespace

namespace b_global {

Connection& SharedConnection::Get() const {
    if (!connection_)
        throw ProgramError(NotConnectedNumber, u"Koneksi database belum dibuka."_s);
    return *connection_;
}

QString DatabaseConnectionText(const ProgramFolder& folder) {
    QString text = ServerConnectionText(ReadSetting(folder, u"server"_s));
    const bool beside = !folder.Existing(u"\\data.mdb").isEmpty();
    text = ConnectionText(folder.Joined(beside ? u"\\DATA.mdb" : u"\\..\\UI\\DATA.mdb"));
    return text;
}

bool OpenConnection(SharedConnection& shared, const ProgramFolder& folder, Dialogs& dialogs) {
    try {
        if (!shared.connection_) {
            auto connection = std::make_unique<Connection>(std::make_unique<SqliteEngine>(),
                                                           DatabaseConnectionText(folder));
            PrepareSchema(*connection);
            shared.connection_ = std::move(connection);
        }
        return true;
    } catch (const std::exception& error) {
        ShowDatabaseError(shared, dialogs, &error);
        return false;
    }
}

QString ErrorMessage(const std::exception& error) {
    if (const auto* database = dynamic_cast<const DatabaseError*>(&error);
        database && !database->Failures().isEmpty()) {
        QString message = u"\nDatabase Errors: \n"_s + QString(40, u'-') + u'\n';
        for (const DatabaseFailure& failure : database->Failures())
            message += u"[%1]-%2\n%3\n\n"_s.arg(QString::number(failure.number), failure.source,
                                                failure.description);
        return message;
    }
    const auto* known = dynamic_cast<const ProgramError*>(&error);
    const int number = known ? known->Number() : GeneralErrorNumber;
    return u"This program has error: \n"_s + QString(34, u'-') + u"\n["_s + QString::number(number) + u"]\n"_s
           + Description(error) + u'\n';
}

void ShowDatabaseError(const SharedConnection& shared, Dialogs& dialogs, const std::exception* pending) {
    if (!pending)
        return;
    if (!shared.Exists()) {
        dialogs.Plain(Description(*pending));
        return;
    }
    dialogs.Warn(ErrorMessage(*pending));
}

} // namespace b_global
