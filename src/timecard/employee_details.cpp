#include "timecard/employee_details.h"

#include "database/file_lookup.h"
#include "database/recordset.h"
#include "database/statement.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString PhotoPath(const ProgramFolder& folder, const QString& pathImage) {
    const QString path = ToLocalPath(pathImage);
    return QFileInfo(path).isAbsolute() ? path : folder.Path() + u'/' + path;
}

} // namespace

EmployeeDetails LoadEmployeeDetails(Connection& connection, const QString& nip) {
    const Recordset employee(connection, u"select * from employee where nip="_s + Quoted(nip));
    if (employee.AtEnd())
        return {};
    return {employee.Field(u"Nama"_s).Text(), employee.Field(u"Dept"_s).Text(),
            employee.Field(u"Divisi"_s).Text(), employee.Field(u"PathImage"_s).Text()};
}

QString PhotoFile(const ProgramFolder& folder, const QString& pathImage) {
    if (!pathImage.isEmpty()) {
        QString found = FindFile(PhotoPath(folder, pathImage));
        if (!found.isEmpty())
            return found;
    }
    return folder.Existing(u"\\NoImage.gif");
}

bool NamesNoFile(const ProgramFolder& folder, const QString& pathImage) {
    const QFileInfo named(PhotoPath(folder, pathImage));
    return !pathImage.isEmpty() && named.exists() && !named.isFile();
}
