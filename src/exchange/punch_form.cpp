#include "exchange/punch_form.h"

#include "exchange/punch_texts.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;
using namespace PunchTexts;

namespace {

constexpr QChar Separators[] = {u'\t', u';', u',', u'|', u' '};
const QRegularExpression FixedPlace(u"^(\\w+|-)=(\\d{1,4})-(\\d{1,4})$"_s);

/// A cell without the blanks and the quotes around it.
QStringView Bare(QStringView cell) {
    cell = cell.trimmed();
    const bool quoted = cell.size() >= 2 && cell.front() == u'"' && cell.back() == u'"';
    return quoted ? cell.sliced(1, cell.size() - 2).trimmed() : cell;
}

std::vector<QStringView> Split(QStringView line, QChar separator) {
    std::vector<QStringView> cells;
    const auto behavior = separator == u' ' ? Qt::SkipEmptyParts : Qt::KeepEmptyParts;
    for (const QStringView cell : line.split(separator, behavior))
        cells.push_back(Bare(cell));
    return cells;
}

/// Nearly all: a file may begin with a heading and hold a damaged line.
bool IsMost(qsizetype of, qsizetype all) {
    return all > 0 && of > 0 && of * 4 >= all * 3;
}

} // namespace

const std::vector<PunchForm::FieldName>& PunchForm::FieldNames() {
    static const std::vector<FieldName> names{
        {u"nip", Field::Number},        {u"date", Field::Date},           {u"time", Field::Time},
        {u"moment", Field::Moment},     {u"direction", Field::Direction}, {u"usdate", Field::UsDate},
        {u"usmoment", Field::UsMoment}, {u"-", Field::Skipped},
    };
    return names;
}

std::optional<PunchForm::Field> PunchForm::FieldOf(QStringView name) {
    const auto found = std::ranges::find(FieldNames(), name.trimmed(), &FieldName::first);
    return found == FieldNames().end() ? std::nullopt : std::optional(found->second);
}

bool PunchForm::Has(Field field) const {
    return std::ranges::count(places_, field, &Place::field) == 1;
}

bool PunchForm::IsWhole() const {
    const auto count = [this](std::initializer_list<Field> fields) {
        return std::ranges::count_if(places_, [&](const Place& place) {
            return std::ranges::find(fields, place.field) != fields.end();
        });
    };
    const auto moments = count({Field::Moment, Field::UsMoment});
    const auto dates = count({Field::Date, Field::UsDate});
    const auto times = count({Field::Time});
    return Has(Field::Number) && moments + dates == 1 && times == dates && count({Field::Direction}) <= 1;
}

std::optional<PunchForm> PunchForm::FixedFromText(const QStringList& names) {
    PunchForm form;
    for (const QString& name : names) {
        const QRegularExpressionMatch match = FixedPlace.match(name);
        const auto field = FieldOf(match.captured(1));
        const qsizetype first = match.captured(2).toInt() - 1;
        const qsizetype length = match.captured(3).toInt() - first;
        if (!match.hasMatch() || !field || first < 0 || length < 1)
            return std::nullopt;
        form.places_.push_back({*field, first, length});
    }
    return form.IsWhole() ? std::optional(form) : std::nullopt;
}

std::optional<PunchForm> PunchForm::FromText(const QString& text) {
    QString names = text.trimmed().toLower();
    if (names.contains(u'='))
        return FixedFromText(names.split(u' ', Qt::SkipEmptyParts));
    static const QRegularExpression tab(u"\\s+tab\\s+|\\\\t"_s);
    static const QRegularExpression space(u"\\s+space\\s+"_s);
    names.replace(tab, u"\t"_s).replace(space, u" "_s);
    PunchForm form;
    const auto* separator = std::ranges::find_if(Separators, [&](QChar c) { return names.contains(c); });
    if (separator == std::end(Separators))
        return std::nullopt;
    form.separator_ = *separator;
    for (const QStringView name : Split(names, *separator)) {
        const auto field = FieldOf(name);
        if (!field)
            return std::nullopt;
        form.places_.push_back({*field});
    }
    return form.IsWhole() ? std::optional(form) : std::nullopt;
}

QString PunchForm::Text() const {
    QStringList names;
    for (const Place& place : places_) {
        QString name = std::ranges::find(FieldNames(), place.field, &FieldName::second)->first.toString();
        if (separator_.isNull())
            name += u"=%1-%2"_s.arg(place.first + 1).arg(place.first + place.length);
        names << name;
    }
    if (separator_ == u'\t')
        return names.join(u" tab ");
    if (separator_ == u' ')
        return names.join(u" space ");
    return names.join(separator_.isNull() ? QChar(u' ') : separator_);
}

std::vector<QStringView> PunchForm::PartsOf(QStringView line) const {
    if (!separator_.isNull())
        return Split(line, separator_);
    std::vector<QStringView> parts;
    for (const Place& place : places_)
        parts.push_back(Bare(line.mid(place.first, place.length)));
    return parts;
}

std::optional<PunchReading> PunchForm::Read(QStringView line) const {
    const std::vector<QStringView> parts = PartsOf(line);
    PunchReading reading;
    std::optional<Day> day;
    std::optional<Seconds> time;
    for (size_t i = 0; i < places_.size(); ++i) {
        const QStringView part = i < parts.size() ? parts[i] : QStringView();
        const Field field = places_[i].field;
        const bool us = field == Field::UsDate || field == Field::UsMoment;
        const DateOrder order = us ? DateOrder::MonthFirst : DateOrder::Usual;
        if (field == Field::Number) {
            reading.number = part.toString();
        } else if (field == Field::Date || field == Field::UsDate) {
            day = ReadDate(part, order);
        } else if (field == Field::Time) {
            time = ReadTime(part);
        } else if (field == Field::Moment || field == Field::UsMoment) {
            if (const auto moment = ReadMoment(part, order)) {
                day = DayOf(*moment);
                time = TimeOfDay(*moment);
            }
        } else if (field == Field::Direction) {
            reading.direction = ReadDirection(part);
        }
    }
    if (reading.number.isEmpty() || !day || !time)
        return std::nullopt;
    reading.moment = *day + *time;
    return reading;
}

qsizetype PunchForm::CountReadable(const QStringList& lines) const {
    return std::ranges::count_if(lines, [this](const QString& line) { return Read(line).has_value(); });
}

PunchForm::Field PunchForm::KindOf(const QStringList& column) {
    const auto most = [&](auto&& is) { return IsMost(std::ranges::count_if(column, is), column.size()); };
    if (most([](const QString& text) { return ReadMoment(text).has_value(); }))
        return Field::Moment;
    if (most([](const QString& text) { return ReadMoment(text, DateOrder::MonthFirst).has_value(); }))
        return Field::UsMoment;
    if (most([](const QString& text) { return ReadDate(text).has_value(); }))
        return Field::Date;
    if (most([](const QString& text) { return ReadDate(text, DateOrder::MonthFirst).has_value(); }))
        return Field::UsDate;
    // A number of four digits can be a time, too: only a sign between hours and minutes makes it one.
    if (most([](const QString& text) {
            return (text.contains(u':') || text.contains(u'.')) && ReadTime(text);
        }))
        return Field::Time;
    if (most([](const QString& text) { return IsDirectionWord(text); }))
        return Field::Direction;
    return Field::Skipped;
}

std::optional<PunchForm> PunchForm::RecognisedParted(const QStringList& lines, QChar separator) {
    std::vector<QStringList> columns;
    std::map<size_t, qsizetype> widths;
    for (const QString& line : lines)
        ++widths[Split(line, separator).size()];
    const auto usual = std::ranges::max_element(widths, {}, [](const auto& width) { return width.second; });
    if (usual == widths.end() || usual->first < 2)
        return std::nullopt;
    columns.resize(usual->first);
    for (const QString& line : lines) {
        const std::vector<QStringView> cells = Split(line, separator);
        for (size_t i = 0; cells.size() == columns.size() && i < cells.size(); ++i)
            columns[i] << cells[i].toString();
    }
    PunchForm form;
    form.separator_ = separator;
    for (const QStringList& column : columns) {
        const Field kind = KindOf(column);
        form.places_.push_back({form.Has(kind) ? Field::Skipped : kind});
    }
    // The device's number stands before the moment: the first column that is nothing else and never empty.
    for (size_t i = 0; i < columns.size() && !form.Has(Field::Number); ++i) {
        const bool filled = std::ranges::none_of(columns[i], &QString::isEmpty);
        if (form.places_[i].field == Field::Skipped && filled)
            form.places_[i].field = Field::Number;
    }
    while (!form.places_.empty() && form.places_.back().field == Field::Skipped)
        form.places_.pop_back();
    return form.IsWhole() ? std::optional(form) : std::nullopt;
}

std::optional<PunchForm> PunchForm::RecognisedFixed(const QStringList& lines) {
    // Number, date, time and perhaps a letter for the direction, without anything between.
    const qsizetype width = lines.first().size();
    for (const qsizetype time : {6, 4}) {
        for (qsizetype number = 1; number + 8 + time <= width; ++number) {
            PunchForm form;
            form.places_ = {
                {Field::Number, 0, number}, {Field::Date, number, 8}, {Field::Time, number + 8, time}};
            const qsizetype end = number + 8 + time;
            const bool directed =
                width > end
                && IsMost(std::ranges::count_if(lines,
                                                [end](const QString& line) {
                                                    return IsDirectionWord(
                                                        QStringView(line).mid(end).trimmed());
                                                }),
                          lines.size());
            if (directed)
                form.places_.push_back({Field::Direction, end, width - end});
            if ((directed || end == width) && form.CountReadable(lines) == lines.size())
                return form;
        }
    }
    return std::nullopt;
}

std::optional<PunchForm> PunchForm::Recognised(const QStringList& firstLines) {
    QStringList lines = firstLines;
    lines.removeIf([](const QString& line) { return line.trimmed().isEmpty(); });
    if (lines.isEmpty())
        return std::nullopt;
    for (const QChar separator : Separators) {
        if (const auto form = RecognisedParted(lines, separator);
            form && IsMost(form->CountReadable(lines), lines.size()))
            return form;
    }
    return RecognisedFixed(lines);
}
