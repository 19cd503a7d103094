#include "ui/text_viewer.h"

#include "database/database_error.h"
#include "ui/busy_pointer.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The number of the error "file not found".
constexpr int FileNotFoundError = 53;
constexpr int LongestLine = 110;

QString TextOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        throw ProgramError(FileNotFoundError, u"Berkas %1 tidak dapat dibaca: %2"_s.arg(
                                                  QDir::toNativeSeparators(path), file.errorString()));
    return QString::fromUtf8(file.readAll());
}

/// What tells one report from another among the windows: its title, where it has one.
QString WindowTitleOf(const QString& path, const QString& text) {
    const QString file = QDir::toNativeSeparators(path);
    const QString firstLine = text.section(u'\n', 0, 0).trimmed();
    return firstLine.isEmpty() || firstLine.startsWith(u'-') ? file : firstLine + u" - "_s + file;
}

#ifndef Q_OS_WIN
/// Whether the desktop knows a program for plain text; asking takes a few hundredths of a second.
bool DesktopShowsText() {
    constexpr int patience = 2000;
    QProcess query;
    query.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"text/plain"_s});
    return query.waitForFinished(patience) && !query.readAllStandardOutput().trimmed().isEmpty();
}

/// The opener ends with a failure where the desktop's program does not start. Some openers run as long as
/// what they show, so that one that is still there after a while has shown it.
bool Opens(const QString& opener, const QString& path) {
    constexpr int patience = 1000;
    auto* process = new QProcess; // nobody's child: what it shows outlives the program
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(opener, {path});
    if (!process->waitForFinished(patience) && process->state() == QProcess::Running) {
        QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
        return true;
    }
    const std::unique_ptr<QProcess> ended(process);
    return ended->error() == QProcess::UnknownError && ended->exitCode() == 0;
}
#endif

bool StartSystemViewer(const QString& path) {
#ifdef Q_OS_WIN
    return QProcess::startDetached(u"NOTEPAD"_s, {QDir::toNativeSeparators(path)});
#else
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    return !opener.isEmpty() && DesktopShowsText() && Opens(opener, path);
#endif
}

} // namespace

TextViewer::TextViewer(const QString& path, QWidget* parent) : QDialog(parent ? parent->window() : nullptr) {
    setObjectName(u"TextViewer"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    const QString contents = TextOf(path);
    setWindowTitle(WindowTitleOf(path, contents));

    auto* text = new QPlainTextEdit(contents, this);
    text->setObjectName(u"text"_s);
    text->setAccessibleName(u"Isi laporan"_s);
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSizeF(QApplication::font().pointSizeF());
    text->setFont(font);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* leave = buttons->addButton(u"&Tutup"_s, QDialogButtonBox::RejectRole);
    leave->setIcon({});
    connect(buttons, &QDialogButtonBox::rejected, this, &TextViewer::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    const QSize wanted(text->fontMetrics().averageCharWidth() * LongestLine,
                       text->fontMetrics().height() * 36);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
    text->setFocus();
    if (QWidget* below = parentWidget())
        below->installEventFilter(this);
}

bool TextViewer::eventFilter(QObject* watched, QEvent* event) {
    QWidget* below = parentWidget();
    if (watched == below && event->type() == QEvent::Hide && !event->spontaneous() && below->parentWidget())
        StayOver(below->parentWidget()->window());
    return QDialog::eventFilter(watched, event);
}

void TextViewer::StayOver(QWidget* window) {
    const bool visible = isVisible();
    const QPoint place = pos();
    parentWidget()->removeEventFilter(this);
    setParent(window, windowFlags());
    window->installEventFilter(this);
    move(place);
    setVisible(visible);
}

void OpenTextViewer(const QString& path) {
    const BusyPointer busy;
    // A child of the window in front, so that a modal one leaves it usable. While a message or a progress bar
    // that stood over that goes away, no window is active.
    QWidget* modal = QApplication::activeModalWidget();
    auto* viewer = new TextViewer(path, modal ? modal : QApplication::activeWindow());
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->show();
    viewer->activateWindow();
}

void ShowTextFile(const QString& path) {
    const BusyPointer busy;
    if (!StartSystemViewer(path))
        OpenTextViewer(path);
}
