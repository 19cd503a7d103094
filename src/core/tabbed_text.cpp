#include "core/tabbed_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar Quote = u'"';

QString Cell(const QString& text) {
    const bool plain = !text.startsWith(Quote) && std::ranges::none_of(text, [](QChar c) {
        return c == u'\t' || c == u'\n' || c == u'\r';
    });
    return plain ? text : Quote + QString(text).replace(Quote, u"\"\""_s) + Quote;
}

/// Reads a quoted cell from after its first quote; `at` stands after its last one then.
QString QuotedCell(const QString& text, qsizetype& at) {
    QString cell;
    for (; at < text.size(); ++at) {
        if (text[at] == Quote && (++at >= text.size() || text[at] != Quote))
            break;
        cell += text[at];
    }
    return cell;
}

} // namespace

QString TabbedText(const QList<QStringList>& rows) {
    QString text;
    for (const QStringList& row : rows) {
        QStringList cells;
        std::ranges::transform(row, std::back_inserter(cells), Cell);
        text += cells.join(u'\t') + u'\n';
    }
    return text;
}

QList<QStringList> ReadTabbedText(const QString& text) {
    QList<QStringList> rows;
    for (qsizetype at = 0; at < text.size();) {
        QStringList row;
        for (bool more = true; more;) {
            QString cell;
            if (at < text.size() && text[at] == Quote)
                cell = QuotedCell(text, ++at);
            while (at < text.size() && text[at] != u'\t' && text[at] != u'\n' && text[at] != u'\r')
                cell += text[at++];
            row << cell;
            more = at < text.size() && text[at] == u'\t';
            if (more)
                ++at;
        }
        rows << row;
        if (at < text.size())
            at += QStringView(text).sliced(at).startsWith(u"\r\n") ? 2 : 1;
    }
    return rows;
}
