#include "ui/theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QPixmapCache>
#include <QStyleFactory>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

struct LookRow {
    CellLook look;
    QStringView name; ///< what a legend label says in its property "chip" or "cell"
    QStringView fill;
    QStringView text;
};

/// The fills of the chips differ in lightness as well as in hue, so that they are told apart without seeing
/// colours.
constexpr LookRow Looks[] = {
    {CellLook::Tinted, u"tinted", u"#FBEDEE", {}},
    {CellLook::Marked, u"marked", u"#DDF0E3", {}},
    {CellLook::Hatched, u"hatched", u"#C3CCD6", {}},
    {CellLook::Doubtful, u"doubtful", u"#FFE0D1", u"#6E2A00"},
    {CellLook::Quiet, u"quiet", {}, u"#566273"},
    {CellLook::GreenChip, u"green", u"#BFEBCB", u"#0B4A26"},
    {CellLook::SlateChip, u"slate", u"#D9DFE7", u"#2F3A48"},
    {CellLook::AmberChip, u"amber", u"#FFE9A8", u"#5C4300"},
    {CellLook::OrangeChip, u"orange", u"#FFCFB3", u"#6E2A00"},
    {CellLook::BlueChip, u"blue", u"#CBDCFF", u"#15317A"},
};

constexpr int BaseFontSize = 10;

QPalette CalmPalette() {
    const QColor window(u"#F4F6F8"_s);
    const QColor text(u"#1B2430"_s);
    const QColor disabled(u"#8A95A3"_s);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(u"#F9FBFC"_s));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Button, window);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::PlaceholderText, Theme::QuietText());
    palette.setColor(QPalette::Highlight, QColor(u"#CFE4FA"_s));
    palette.setColor(QPalette::HighlightedText, text);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}

const QString BaseSheet = uR"(
QLabel[look="heading"] { font-size: %1pt; font-weight: 600; }
QLabel[look="clock"] { font-size: %2pt; font-weight: 300; color: #0B5CAD; }
QLabel[look="quiet"] { color: #566273; }
QLabel[look="admin"] { font-weight: 600; color: #0B5CAD; }
QLabel[look="caps"] { color: #5C4300; }
QLabel[look="done"] { background: #BFEBCB; color: #0B4A26; font-size: %1pt; font-weight: 600;
    padding: 8px 12px; border-radius: 4px; }
QFrame[look="notice"] { background: #FFF1C2; color: #5C4300; font-weight: 600;
    border: 1px solid #E8CF80; border-radius: 4px; }
QFrame[look="notice"] QLabel { background: transparent; color: #5C4300; font-weight: 600; border: none; }
QLabel[look="photo"] { background: white; border: 1px solid #E1E6EC; border-radius: 4px; }
QLabel[cell] { padding: 2px 8px; border-radius: 4px; }
QLabel[chip] { padding: 3px 10px; border-radius: 4px; }

QPushButton { background: white; border: 1px solid #B9C4D0; border-radius: 4px; padding: 4px 14px; min-height: 22px; }
QPushButton:hover { background: #F0F5FA; border-color: #8FA3B8; }
QPushButton:pressed { background: #E1EBF5; }
QPushButton:default { background: #0B5CAD; border-color: #0B5CAD; color: white; }
QPushButton:default:hover { background: #0A4F95; }
QPushButton:focus { border: 2px solid #0B5CAD; padding: 3px 13px; }
QPushButton:default:focus { border: 2px solid #06325F; }
QPushButton:disabled { background: #EEF1F4; border-color: #D8DEE5; color: #8A95A3; }
QPushButton[look="desk"] { min-height: 46px; min-width: 150px; font-size: %1pt; font-weight: 600; }
QToolButton { background: white; border: 1px solid #B9C4D0; border-radius: 3px; padding: 1px; }
QToolButton:hover { background: #F0F5FA; }
QToolButton:focus { border: 2px solid #0B5CAD; padding: 0px; }
QToolButton:disabled { background: #EEF1F4; border-color: #D8DEE5; }

QLineEdit, QAbstractSpinBox, QComboBox { background: white; border: 1px solid #B9C4D0; border-radius: 4px; padding: 3px 6px;
    min-height: 20px; selection-background-color: #CFE4FA; selection-color: #1B2430; }
QLineEdit:focus, QAbstractSpinBox:focus, QComboBox:focus { border: 2px solid #0B5CAD; padding: 2px 5px; }
QLineEdit:disabled, QAbstractSpinBox:disabled, QComboBox:disabled, QLineEdit:read-only, QDateEdit[look="shown"] { background: #EEF1F4;
    border-color: #D8DEE5; color: #3A4656; }
QLineEdit[look="cell"] { background: #FFFF00; color: black; border: 1px solid #0B5CAD; border-radius: 0px; padding: 0px 5px;
    min-height: 0px; }

QComboBox::drop-down { border: none; width: 20px; }
QComboBox::down-arrow { image: url(:/ui/down.png); width: 11px; height: 6px; margin-right: 6px; }

QFrame[look="group"] { background: white; border: 1px solid #E1E6EC; border-radius: 6px; }
QFrame[look="group"] QCheckBox { font-weight: 600; }
QCheckBox { spacing: 6px; padding: 2px; border-radius: 3px; }
QCheckBox:focus { background: #E1EBF5; }

QTableView { background: white; border: 1px solid #E1E6EC; gridline-color: #E1E6EC; alternate-background-color: #F9FBFC;
    selection-background-color: #CFE4FA; selection-color: #1B2430; }
QTableView:focus { border: 1px solid #0B5CAD; }
QTableView[look="frozen"] { border: none; border-right: 1px solid #8FA3B8; }
QHeaderView::section { background: #EAEFF4; border: none; border-right: 1px solid #E1E6EC;
    border-bottom: 1px solid #D3DBE3; padding: 5px 8px; font-weight: 600; }
QHeaderView::section:hover { background: #DFE7EF; }

QTableView[look="narrow"] QHeaderView::section { padding: 5px 1px; }
QTableView[look="frozen"] QHeaderView::section { padding: 5px 8px; }

QTabBar::tab { background: white; border: 1px solid #D3DBE3; border-radius: 3px; padding: 5px 3px; margin-right: 2px; }
QTabBar::tab:hover { background: #F0F5FA; }
QTabBar::tab:selected { background: #0B5CAD; border-color: #0B5CAD; color: white; font-weight: 600; }
QTabBar::tab:selected:focus { border: 2px solid #06325F; }
QTabBar[look="unmarked"]::tab:selected { background: white; border-color: #D3DBE3; color: #1B2430; font-weight: 400; }
QTabBar[look="unmarked"]::tab:selected:focus { border: 2px solid #0B5CAD; }

QMenuBar { background: transparent; padding-left: 4px; }
QMenuBar::item { padding: 4px 8px; border-radius: 3px; background: transparent; }
QMenuBar::item:selected { background: #CFE4FA; }
QMenu { background: white; border: 1px solid #B9C4D0; padding: 4px; }
QMenu::item { padding: 6px 24px; border-radius: 3px; }
QMenu::item:selected { background: #CFE4FA; color: #1B2430; }
QMenu::item:disabled { color: #8A95A3; }
QStatusBar { color: #566273; padding: 0 8px; }
QStatusBar QLabel { color: #566273; padding: 0 8px; }
QStatusBar::item { border: none; }
QToolTip, QLabel[look="tip"] { background: white; color: #1B2430; border: 1px solid #B9C4D0; padding: 4px; }
)"_s;

QString LegendRules() {
    QString rules;
    for (const LookRow& row : Looks) {
        const QString colour = row.text.isEmpty() ? QString() : u" color: %1;"_s.arg(row.text);
        rules += u"QLabel[%1=\"%2\"] { background: %3;%4 }\n"_s.arg(IsChip(row.look) ? u"chip"_s : u"cell"_s,
                                                                    row.name, row.fill, colour);
    }
    return rules;
}

} // namespace

void Theme::Apply(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(CalmPalette());
    QFont font = QApplication::font();
    font.setPointSizeF(qMax<qreal>(BaseFontSize, font.pointSizeF()));
    QApplication::setFont(font);
    const auto scaled = [&font](qreal size) {
        return QString::number(size * font.pointSizeF() / BaseFontSize, 'f', 1);
    };
    // Under a style sheet the style draws its arrows anew each time and keeps them all: a desk that runs for
    // weeks needs no more of them than this.
    constexpr int kibibytes = 4096;
    QPixmapCache::setCacheLimit(kibibytes);
    application.setStyleSheet(BaseSheet.arg(scaled(13), scaled(40)) + LegendRules());
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

QColor Theme::QuietText() {
    return QColor(u"#566273"_s);
}

QColor Theme::HeaderFill() {
    return QColor(u"#EAEFF4"_s);
}

QColor Theme::EditedCell() {
    return QColor(255, 255, 0);
}

Theme::Colours Theme::Warning() {
    return {QColor(u"#FFF1C2"_s), QColor(u"#5C4300"_s)};
}
