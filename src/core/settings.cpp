#include "core/settings.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString MainSection = u"[Main]"_s;

bool Same(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// A value may stand between quotes of one kind, which are no part of it.
QString Unquoted(QStringView value) {
    const bool enclosed = value.size() >= 2 && value.front() == value.back()
                          && (value.front() == u'"' || value.front() == u'\'');
    return (enclosed ? value.sliced(1, value.size() - 2) : value).toString();
}

} // namespace

QString b_global::ReadSetting(const ProgramFolder& folder, const QString& key) {
    const QString path = folder.Existing(u"\\setting.ini");
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    bool inMain = false;
    for (const QStringView rawLine : QStringView(text).split(u'\n')) {
        const QStringView line = rawLine.trimmed();
        if (line.startsWith(u'[')) {
            if (inMain)
                return {};
            inMain = Same(line, MainSection);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (inMain && equals > 0 && !line.startsWith(u';') && Same(line.first(equals).trimmed(), key))
            return Unquoted(line.sliced(equals + 1).trimmed());
    }
    return {};
}
