#include "ui/text_viewer.h"

#include "database/database_error.h"

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

#ifndef Q_OS_WIN
/// Whether the desktop knows a program for plain text; asking takes a few hundredths of a second.
bool DesktopShowsText() {
    constexpr int patience = 2000;
    QProcess query;
    query.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"text/plain"_s});
    return query.waitForFinished(patience) && !query.readAllStandardOutput().trimmed().isEmpty();
}
#endif

bool StartSystemViewer(const QString& path) {
#ifdef Q_OS_WIN
    return QProcess::startDetached(u"NOTEPAD"_s, {QDir::toNativeSeparators(path)});
#else
    const QString opener = QStandardPaths::findExecutable(u"xdg-open"_s);
    return !opener.isEmpty() && DesktopShowsText() && QProcess::startDetached(opener, {path});
#endif
}

} // namespace

TextViewer::TextViewer(const QString& path, QWidget* parent) : QDialog(parent) {
    setObjectName(u"TextViewer"_s);
    setWindowTitle(QDir::toNativeSeparators(path));
    setWindowFlag(Qt::WindowMaximizeButtonHint);

    auto* text = new QPlainTextEdit(TextOf(path), this);
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
}

void OpenTextViewer(const QString& path) {
    // A child of the window in front, so that a modal one leaves it usable.
    auto* viewer = new TextViewer(path, QApplication::activeWindow());
    viewer->setAttribute(Qt::WA_DeleteOnClose);
    viewer->show();
    viewer->activateWindow();
}

void ShowTextFile(const QString& path) {
    if (!StartSystemViewer(path))
        OpenTextViewer(path);
}
