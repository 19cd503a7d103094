#include "database/connection_text.h"

using namespace Qt::StringLiterals;

namespace {

const QString Prefix = u"Provider=Microsoft.Jet.OLEDB.4.0;User ID=Admin;"_s;
const QString SourceKey = u"Data Source="_s;
/// What follows the data source. A folder's name may hold ";", so the end of the source is told by this.
const QString Mode = u"Mode=Share Deny None;"_s;
const QString Options = u"Extended Properties=\"\";Jet OLEDB:System database=\"\";"
                        u"Jet OLEDB:Registry Path=\"\";Jet OLEDB:Database Password=\"\";"
                        u"Jet OLEDB:Engine Type=4;Jet OLEDB:Database Locking Mode=0;"
                        u"Jet OLEDB:Global Partial Bulk Ops=2;Jet OLEDB:Global Bulk Transactions=1;"
                        u"Jet OLEDB:New Database Password=\"\";Jet OLEDB:Create System Database=False;"
                        u"Jet OLEDB:Encrypt Database=False;Jet OLEDB:Don't Copy Locale on Compact=False;"
                        u"Jet OLEDB:Compact Without Replica Repair=False;Jet OLEDB:SFP=False"_s;

} // namespace

QString ConnectionText(const QString& dataSource) {
    return Prefix + SourceKey + dataSource + u';' + Mode + Options;
}

QString DataSourceOf(const QString& connectionText) {
    const qsizetype key = connectionText.indexOf(SourceKey);
    if (key < 0)
        return {};
    const qsizetype start = key + SourceKey.size();
    const qsizetype end = connectionText.lastIndexOf(u';' + Mode);
    return connectionText.sliced(start, (end < start ? connectionText.size() : end) - start);
}
