#include "ui/date_box.h"

#include "core/typed_date.h"
#include "ui/theme.h"

#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

bool OpensCalendar(const QKeyEvent& event) {
    return event.key() == Qt::Key_F4
           || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

/// The arrow of a drop-down list, in the square that a box's action fills.
QIcon ArrowIcon() {
    constexpr int sharpness = 2;
    QPixmap square(16 * sharpness, 16 * sharpness);
    square.setDevicePixelRatio(sharpness);
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.drawPixmap(QRect(3, 5, 11, 6), QPixmap(u":/ui/down@2x.png"_s));
    painter.end();
    return square;
}

/// Whether the focus comes back to the window without the user having left the box.
bool ComesBack(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason
           || reason == Qt::MenuBarFocusReason;
}

} // namespace

DateBox::DateBox(const QString& sample, QWidget* parent) : QLineEdit(parent), sample_(sample) {
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(this, &QLineEdit::textEdited, this, &DateBox::ShowReading);
}

DateBox::DateBox(QWidget* parent) : DateBox(u"00-MMM-0000"_s, parent) {
    hasCalendar_ = true;
    const QAction* open = addAction(ArrowIcon(), TrailingPosition);
    connect(open, &QAction::triggered, this, &DateBox::OpenCalendar);
    setToolTip(u"Ketik hari lebih dulu, misalnya 31/1/2026, 31Jan2026, 310126 atau 31; +1 dan -1 menggeser "
               "sehari, t hari ini, Alt+↓ membuka kalender."_s);
}

void DateBox::SetValue(WallTime value) {
    set_ = value;
    suggested_ = false;
    Hold(value);
}

void DateBox::Suggest(WallTime value) {
    SetValue(value);
    suggested_ = true;
}

void DateBox::Hold(WallTime value) {
    const bool changes = std::exchange(value_, value) != value;
    ForgetText();
    if (changes)
        Q_EMIT Changed();
}

void DateBox::ForgetText() {
    setText(Shown(value_));
    if (reading_)
        reading_->hide();
}

bool DateBox::ReadText() {
    if (text() == Shown(value_))
        return true;
    const auto read = Read(text());
    if (read)
        Hold(*read);
    return read.has_value();
}

std::optional<WallTime> DateBox::Read(const QString& typed) const {
    return ReadTypedDate(typed, DayOf(value_), Today());
}

QString DateBox::Shown(WallTime value) const {
    return ShownDay(DayOf(value));
}

void DateBox::SelectPart() {
    selectAll();
}

std::optional<WallTime> DateBox::Stepped(int by) const {
    return Read(by > 0 ? u"+1"_s : u"-1"_s);
}

void DateBox::Refuse() {
    if (std::exchange(refusing_, true))
        return;
    setFocus();
    selectAll();
    const QString typed = text().trimmed();
    program_->dialogs.Warn(u"%1: %2\n%3\nTahunnya %4 sampai %5."_s.arg(
        accessibleName(),
        typed.isEmpty() ? u"belum diisi."_s
                        : u'"' + typed + u"\" tidak dapat dibaca atau tidak ada di kalender."_s,
        toolTip(), QString::number(FirstTypedYear), QString::number(LastTypedYear)));
    refusing_ = false;
}

/// The box was left with a text that is no date.
void DateBox::RefuseIfLeft() {
    const QWidget* now = QApplication::focusWidget();
    const bool left = now && now != this && now->window() == window() && !now->property("leaves").toBool();
    if (left && isVisible() && isEnabled())
        Refuse();
}

void DateBox::ShowReading() {
    if (!reading_) {
        reading_ = new QLabel(window());
        reading_->setObjectName(objectName() + u"Reading"_s);
        reading_->setProperty("look", u"tip"_s);
        reading_->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    const auto read = Read(text());
    reading_->setText(read ? u"= "_s + Shown(*read) : u"belum terbaca"_s);
    reading_->adjustSize();
    QPoint place = mapTo(window(), QPoint(0, height() + 2));
    if (place.y() + reading_->height() > window()->height())
        place = mapTo(window(), QPoint(0, -reading_->height() - 2));
    reading_->move(place);
    reading_->raise();
    reading_->setVisible(text() != Shown(value_));
}

/// The same day of another month, or that month's last.
std::optional<WallTime> DateBox::InMonth(int by) const {
    const Day day = FromQDate(ToQDate(DayOf(value_)).addMonths(by));
    return Read(Shown(TimeOnDay(day, TimeOfDay(value_))));
}

void DateBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (hasCalendar_ && OpensCalendar(*event))
        return OpenCalendar();
    const int by = key == Qt::Key_Up || key == Qt::Key_PageUp ? +1 : -1;
    const bool stepsMonth = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    if (!stepsMonth && key != Qt::Key_Up && key != Qt::Key_Down)
        return QLineEdit::keyPressEvent(event);
    const int cursor = cursorPosition();
    if (!ReadText())
        return;
    if (const auto stepped = stepsMonth ? InMonth(by) : Stepped(by))
        Hold(*stepped);
    setCursorPosition(cursor);
}

void DateBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool halfTyped = text() != Shown(value_);
    if (event->reason() != Qt::MouseFocusReason && !halfTyped)
        SelectPart();
}

void DateBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (reading_)
        reading_->hide();
    // The focus can be taken back, and a message be shown, when it has arrived where it goes.
    if (!ComesBack(event->reason()) && !ReadText())
        QMetaObject::invokeMethod(this, &DateBox::RefuseIfLeft, Qt::QueuedConnection);
}

void DateBox::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        ForgetText();
}

void DateBox::hideEvent(QHideEvent* event) {
    QLineEdit::hideEvent(event);
    if (!event->spontaneous())
        ForgetText();
}

void DateBox::OpenCalendar() {
    auto* frame = new QFrame(this, Qt::Popup);
    frame->setAttribute(Qt::WA_DeleteOnClose);
    frame->setFrameShape(QFrame::StyledPanel);
    auto* calendar = new QCalendarWidget(frame);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // The headers' padding would make its rows higher than the room that it asks for.
    for (const QTableView* view : calendar->findChildren<QTableView*>())
        view->verticalHeader()->setMinimumSectionSize(1);
    calendar->setDateRange(QDate(FirstTypedYear, 1, 1), QDate(LastTypedYear, 12, 31));
    ReadText();
    calendar->setSelectedDate(ToQDate(DayOf(value_)));
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins({});
    layout->addWidget(calendar);
    const auto choose = [this, frame](QDate date) {
        Hold(FromQDate(date));
        selectAll();
        frame->close();
    };
    connect(calendar, &QCalendarWidget::clicked, this, choose);
    connect(calendar, &QCalendarWidget::activated, this, choose);
    const QRect room = screen()->availableGeometry();
    const QSize size = frame->sizeHint();
    QPoint place = mapToGlobal(QPoint(0, height()));
    if (place.y() + size.height() > room.bottom())
        place = mapToGlobal(QPoint(0, -size.height()));
    frame->move(qMax(room.left(), qMin(place.x(), room.right() - size.width())), place.y());
    calendar->setFocus();
    frame->show();
}

QSize DateBox::sizeHint() const {
    QSize size = QLineEdit::sizeHint();
    size.setWidth(Theme::FieldWidth(*this, sample_) + (hasCalendar_ ? size.height() : 0));
    return size;
}

void SetUpDateBoxes(const QWidget& window, Program& program) {
    for (auto* box : window.findChildren<DateBox*>())
        box->Use(program);
}

bool ReadTypedBoxes(const QWidget& window, Unreadable unreadable) {
    for (auto* box : window.findChildren<DateBox*>()) {
        if (!box->isEnabled() || box->ReadText())
            continue;
        if (unreadable == Unreadable::Told)
            box->Refuse();
        return false;
    }
    return true;
}
