#include "timecard/employee_details.h"

#include "database/file_lookup.h"
#include "database/recordset.h"
#include "database/statement.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

EmployeeDetails LoadEmployeeDetails(Connection& connection, const QString& nip) {
    const Recordset employee(connection, u"select * from employee where nip="_s + Quoted(nip));
    if (employee.AtEnd())
        return {};
    return {employee.Field(u"Nama"_s).Text(), employee.Field(u"Dept"_s).Text(),
            employee.Field(u"Divisi"_s).Text(), employee.Field(u"PathImage"_s).Text()};
}

QString PhotoFile(const ProgramFolder& folder, const QString& pathImage) {
    if (!pathImage.isEmpty()) {
        const QString path = ToLocalPath(pathImage);
        QString found = FindFile(QFileInfo(path).isAbsolute() ? path : folder.Path() + u'/' + path);
        if (!found.isEmpty())
            return found;
    }
    return folder.Existing(u"\\NoImage.gif");
}
