#include "timecard/employee_details.h"

#include "core/query_values.h"
#include "database/file_lookup.h"
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
    EmployeeDetails details;
    modGeneral::QueryValues(connection,
                            u"select Nama, Dept, Divisi, PathImage from employee where nip="_s + Quoted(nip),
                            details.nama, details.dept, details.divisi, details.pathImage);
    return details;
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
