#include "ui/theme.h"

#include "ui/icons.h"
#include "ui/theme_style.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QPalette>
#include <QPixmapCache>
#include <QRegularExpression>
#include <QStyle>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct NamedColour {
    QStringView name;
    QStringView value;
};

/// Every colour of the program, once. "outline" is that of inputs and buttons, three times as light or dark
/// as the ground beside it.
constexpr NamedColour Tones[] = {
    {u"window", u"#F4F6F8"},
    {u"card", u"#FFFFFF"},
    {u"text", u"#1B2430"},
    {u"quiet", u"#566273"},
    {u"icon", u"#3A4656"},
    {u"line", u"#E1E6EC"},
    {u"outline", u"#7F8C9B"},
    {u"alternate", u"#F9FBFC"},
    {u"header", u"#EAEFF4"},
    {u"header-hover", u"#DFE7EF"},
    {u"header-line", u"#D3DBE3"},
    {u"hover", u"#F0F5FA"},
    {u"pressed", u"#E1EBF5"},
    {u"accent", u"#0B5CAD"},
    {u"accent-hover", u"#0A4F95"},
    {u"on-accent", u"#FFFFFF"},
    {u"selection", u"#CFE4FA"},
    {u"row", u"#E8F2FD"},
    {u"edited", u"#FFFF00"},
    {u"failed", u"#C62828"},
    {u"care", u"#B45309"},
    {u"band", u"#FFF1C2"},
    {u"band-text", u"#5C4300"},
    {u"band-line", u"#E8CF80"},
    {u"in", u"#1B7F4B"},
    {u"in-hover", u"#166B3F"},
    {u"out", u"#455468"},
    {u"out-hover", u"#374455"},
    {u"other", u"#6B3FA0"},
    {u"absent", u"#B45309"},
    {u"disabled", u"#EEF1F4"},
    {u"disabled-line", u"#D8DEE5"},
    {u"disabled-text", u"#8A95A3"},
    {u"disabled-value", u"#3A4656"},
};

struct LookRow {
    CellLook look;
    QStringView name; ///< what a legend label says in its property "chip" or "cell"
    QStringView fill;
    QStringView text;
};

/// The fills of the chips stand apart in lightness as well as in hue, so that they are told apart without
/// seeing colours: light for those who are at work that day, dark for those who are not.
constexpr LookRow Looks[] = {
    {CellLook::Tinted, u"tinted", u"#FBEDEE", {}},
    {CellLook::Marked, u"marked", u"#DDF0E3", {}},
    {CellLook::Hatched, u"hatched", u"#C3CCD6", {}},
    {CellLook::Doubtful, u"doubtful", u"#FFE0D1", u"#6E2A00"},
    {CellLook::Quiet, u"quiet", {}, u"#566273"},
    {CellLook::Lacking, u"lacking", u"#F9CACA", u"#8A1010"},
    {CellLook::AmberChip, u"amber", u"#FFF3B8", u"#5C4300"},
    {CellLook::VioletChip, u"violet", u"#E4D6FA", u"#4A1B7A"},
    {CellLook::GreenChip, u"green", u"#8EDBAC", u"#0A3F21"},
    {CellLook::OrangeChip, u"orange", u"#F7A872", u"#4A1B00"},
    {CellLook::SlateChip, u"slate", u"#9CA8BF", u"#18212E"},
    {CellLook::TealChip, u"teal", u"#3C9C8E", u"#031F1B"},
    {CellLook::RedChip, u"red", u"#C8435F", u"#FFFFFF"},
    {CellLook::BlueChip, u"blue", u"#3157A5", u"#FFFFFF"},
    {CellLook::PlumChip, u"plum", u"#5E2B40", u"#FFFFFF"},
};

constexpr int BaseFontSize = 10;

QPalette CalmPalette() {
    const std::pair<QPalette::ColorRole, QStringView> roles[] = {
        {QPalette::Window, u"window"},       {QPalette::WindowText, u"text"},
        {QPalette::Base, u"card"},           {QPalette::AlternateBase, u"alternate"},
        {QPalette::Text, u"text"},           {QPalette::Button, u"window"},
        {QPalette::ButtonText, u"text"},     {QPalette::PlaceholderText, u"quiet"},
        {QPalette::Highlight, u"selection"}, {QPalette::HighlightedText, u"text"},
        {QPalette::ToolTipBase, u"card"},    {QPalette::ToolTipText, u"text"},
    };
    QPalette palette;
    for (const auto& [role, tone] : roles)
        palette.setColor(role, Theme::Tone(tone));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Theme::Tone(u"disabled-text"));
    return palette;
}

QString LegendRules() {
    QString rules;
    for (const LookRow& row : Looks) {
        const QString colour = row.text.isEmpty() ? QString() : u" color: %1;"_s.arg(row.text);
        rules += u"QLabel[%1=\"%2\"] { background: %3;%4 }\n"_s.arg(IsChip(row.look) ? u"chip"_s : u"cell"_s,
                                                                    row.name, row.fill, colour);
    }
    return rules;
}

/// The style sheet, with its colours and sizes of type filled in.
QString StyleSheet(qreal fontScale) {
    QFile file(u":/ui/theme.qss"_s);
    file.open(QIODevice::ReadOnly);
    const QString sheet = QString::fromUtf8(file.readAll()) + LegendRules();
    static const QRegularExpression token(u"@(?:(\\d+)pt|([a-z-]+))"_s);
    QString filled;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : token.globalMatch(sheet)) {
        filled += QStringView(sheet).sliced(from, match.capturedStart() - from);
        filled += match.hasCaptured(1)
                      ? QString::number(match.captured(1).toInt() * fontScale, 'f', 1) + u"pt"_s
                      : Theme::Tone(match.capturedView(2)).name();
        from = match.capturedEnd();
    }
    filled += QStringView(sheet).sliced(from);
    return filled;
}

} // namespace

void Theme::Apply(QApplication& application) {
    QApplication::setStyle(new ThemeStyle);
    QApplication::setPalette(CalmPalette());
    QApplication::setWindowIcon(ProgramIcon());
    QFont font = QApplication::font();
    font.setPointSizeF(qMax<qreal>(BaseFontSize, font.pointSizeF()));
    QApplication::setFont(font);
    // Under a style sheet the style draws its arrows anew each time and keeps them all: a desk that runs for
    // weeks needs no more of them than this.
    constexpr int kibibytes = 4096;
    QPixmapCache::setCacheLimit(kibibytes);
    application.setStyleSheet(StyleSheet(font.pointSizeF() / BaseFontSize));
}

QColor Theme::Tone(QStringView name) {
    const auto* found = std::ranges::find(Tones, name, &NamedColour::name);
    Q_ASSERT(found != std::end(Tones));
    return QColor(found->value);
}

std::optional<Theme::Colours> Theme::LookColours(CellLook look) {
    const auto colour = [](QStringView name) { return name.isEmpty() ? QColor() : QColor(name); };
    for (const LookRow& row : Looks) {
        if (row.look == look)
            return Colours{colour(row.fill), colour(row.text)};
    }
    return std::nullopt;
}

int Theme::FieldWidth(const QWidget& field, const QString& sample) {
    constexpr int frame = 2 * (1 + 6 + 3); // border, padding and what the field itself keeps free
    field.ensurePolished();
    return field.fontMetrics().horizontalAdvance(sample) + frame;
}

void Theme::SetTone(QWidget& widget, const QString& tone) {
    widget.setProperty("tone", tone);
    Restyle(widget);
}

void Theme::Restyle(QWidget& widget) {
    widget.style()->unpolish(&widget);
    widget.style()->polish(&widget);
}

int Theme::RowHeight(const QFontMetrics& metrics) {
    constexpr int least = 28;
    return qMax(least, metrics.height() + 4);
}
