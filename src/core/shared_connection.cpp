#include "core/shared_connection.h"

#include "core/error_words.h"
#include "core/settings.h"
#include "database/database_file.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int GeneralErrorNumber = 5;
constexpr int NotConnectedNumber = 91;

/// The documented text of a server back end. Nothing selects it yet: the embedded database is always opened.
QString ServerConnectionText(const QString& server) {
    return u"DRIVER={MySQL ODBC 3.51 Driver};SERVER="_s + server
           + u"; DATABASE=payroll;UID=root;PWD=rolu; OPTION=3"_s;
}

/// The documented text of the database that is opened, with the data source as the program names it.
QString ConnectionText(const QString& dataSource) {
    return u"Provider=Microsoft.Jet.OLEDB.4.0;User ID=Admin;Data Source="_s + dataSource
           + u";Mode=Share Deny None;Extended Properties=\"\";Jet OLEDB:System database=\"\";"
             "Jet OLEDB:Registry Path=\"\";Jet OLEDB:Database Password=\"\";"
             "Jet OLEDB:Engine Type=4;Jet OLEDB:Database Locking Mode=0;"
             "Jet OLEDB:Global Partial Bulk Ops=2;Jet OLEDB:Global Bulk Transactions=1;"
             "Jet OLEDB:New Database Password=\"\";Jet OLEDB:Create System Database=False;"
             "Jet OLEDB:Encrypt Database=False;Jet OLEDB:Don't Copy Locale on Compact=False;"
             "Jet OLEDB:Compact Without Replica Repair=False;Jet OLEDB:SFP=False"_s;
}

/// DATA.mdb in the program folder when it is there in any letter case, else in the folder UI beside the
/// program folder.
QStringView DataSource(const ProgramFolder& folder) {
    const bool beside = !folder.Existing(u"\\data.mdb").isEmpty();
    return beside ? u"\\DATA.mdb" : u"\\..\\UI\\DATA.mdb";
}

std::unique_ptr<Connection> Opened(const ProgramFolder& folder) {
    QString text = ServerConnectionText(b_global::ReadSetting(folder, u"server"_s));
    const QString path = folder.Joined(DataSource(folder));
    text = ConnectionText(path);
    return OpenDatabaseFile(path, text);
}

} // namespace

namespace b_global {

Connection& SharedConnection::Get() const {
    if (!connection_)
        throw ProgramError(NotConnectedNumber, u"Koneksi database belum dibuka."_s);
    return *connection_;
}

QString DatabaseFile(const ProgramFolder& folder) {
    return folder.Existing(DataSource(folder));
}

bool OpenConnection(SharedConnection& shared, const ProgramFolder& folder, Dialogs& dialogs) {
    try {
        if (!shared.connection_)
            shared.connection_ = Opened(folder);
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
            message +=
                u"[%1]-%2\n%3\n\n"_s.arg(QString::number(failure.number), failure.source, UserText(failure));
        return message;
    }
    const auto* known = dynamic_cast<const ProgramError*>(&error);
    const int number = known ? known->Number() : GeneralErrorNumber;
    return u"This program has error: \n"_s + QString(34, u'-') + u"\n["_s + QString::number(number) + u"]\n"_s
           + UserText(error) + u'\n';
}

void ShowDatabaseError(const SharedConnection& shared, Dialogs& dialogs, const std::exception* pending) {
    if (!pending)
        return;
    if (shared.Exists())
        dialogs.Warn(ErrorMessage(*pending));
    else
        dialogs.Plain(UserText(*pending));
}

} // namespace b_global
